// Reasons and their listeners.
#include <algorithm>
#include <mutex>
#include <vector>

#include "syss/host.h"

namespace {

struct Entry {
    int reason;
    SYSS_listener_t listener;
    void* context;

    bool operator==(const Entry&) const = default;
};

std::mutex entries_mutex;

/// Made at first use, so that a host's own static initialisers may add listeners.
std::vector<Entry>& entries() {
    static std::vector<Entry> list;
    return list;
}

}  // namespace

/// The library's reasons keep their numbers here.
int ZT_REASON_ask_reason_number(int reason) {
    return reason;
}

/// Works on a copy: a listener may add and remove listeners, itself included.
void CALLBACK_call_list(int reason, void* data) {
    std::vector<Entry> told;
    {
        const std::lock_guard lock(entries_mutex);
        std::copy_if(entries().begin(), entries().end(), std::back_inserter(told),
                     [&](const Entry& entry) { return entry.reason == reason; });
    }
    for (const Entry& entry : told)
        entry.listener(reason, data, entry.context);
}

void SYSS_add_listener(int reason, SYSS_listener_t listener, void* context) {
    const std::lock_guard lock(entries_mutex);
    entries().push_back({reason, listener, context});
}

int SYSS_remove_listener(int reason, SYSS_listener_t listener, void* context) {
    const std::lock_guard lock(entries_mutex);
    const auto found =
        std::find(entries().begin(), entries().end(), Entry{reason, listener, context});
    if (found == entries().end()) return 0;
    entries().erase(found);
    return 1;
}
