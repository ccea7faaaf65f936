// Listeners of the platform library, and its small services.
#include "support/prelude.h"
#include "syss/host.h"

namespace {

constexpr int reason = 71;

/// A listener that enters its name in a list and may do something.
struct Ear {
    const char* name;
    std::vector<std::string>* heard;
    std::function<void()> act{};

    static void listen(int told_reason, void* data, void* context) {
        auto& self = *static_cast<Ear*>(context);
        self.heard->push_back(self.name + std::to_string(told_reason) + *static_cast<char*>(data));
        if (self.act) self.act();
    }
    void add(int at = reason) { SYSS_add_listener(at, listen, this); }
    int remove(int at = reason) { return SYSS_remove_listener(at, listen, this); }
};

using Heard = std::vector<std::string>;

Heard call_list(Heard& heard, int at = reason) {
    char data = '!';
    CALLBACK_call_list(at, &data);
    return std::exchange(heard, {});
}

TEST(Listeners, AreToldInTheOrderOfRegistrationForTheirReason) {
    Heard heard;
    Ear a{"a", &heard}, b{"b", &heard};
    b.add();
    a.add();
    a.add(reason + 1);
    b.add();
    EXPECT_EQ(call_list(heard), (Heard{"b71!", "a71!", "b71!"}));
    EXPECT_EQ(call_list(heard, reason + 1), Heard{"a72!"});

    EXPECT_EQ(b.remove(), 1);
    EXPECT_EQ(call_list(heard), (Heard{"a71!", "b71!"})) << "the first entry goes first";
    EXPECT_EQ(b.remove() + a.remove() + a.remove(reason + 1), 3);
    EXPECT_EQ(b.remove(), 0);
    EXPECT_EQ(call_list(heard), Heard{});
}

TEST(Listeners, MayChangeTheListWhileItIsCalled) {
    Heard heard;
    Ear added{"added", &heard}, removed{"removed", &heard}, once{"once", &heard};
    once.act = [&] {
        once.remove();
        removed.remove();
        added.add();
    };
    once.add();
    removed.add();
    EXPECT_EQ(call_list(heard), Heard{"once71!"});
    EXPECT_EQ(call_list(heard), Heard{"added71!"});
    EXPECT_EQ(added.remove(), 1);
    EXPECT_EQ(removed.remove() + once.remove(), 0);
}

TEST(SmallServices, FormatWithinBoundsAndNumberReasons) {
    char text[5] = "????";
    EXPECT_EQ(STR_snprintf(text, 4, "%d", 12345), 5);
    EXPECT_STREQ(text, "123");
    EXPECT_EQ(STR_snprintf(nullptr, 0, "%s", "abc"), 3);
    EXPECT_NE(ZT_REASON_ask_reason_number(2), ZT_REASON_ask_reason_number(3));
}

}  // namespace
