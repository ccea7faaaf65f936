// Reasons and their listeners.
#include <algorithm>
#include <iterator>
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

/// Made at first use and never destroyed, so that static initialisers and destructors of the host
/// may add and remove listeners.
std::vector<Entry>& entries() {
    static auto& list = *new std::vector<Entry>;
    return list;
}

std::vector<Entry> entries_for(int reason) {
    const std::lock_guard lock(entries_mutex);
    std::vector<Entry> found;
    std::copy_if(entries().begin(), entries().end(), std::back_inserter(found),
                 [&](const Entry& entry) { return entry.reason == reason; });
    return found;
}

bool is_still_there(const Entry& entry) {
    const std::lock_guard lock(entries_mutex);
    return std::find(entries().begin(), entries().end(), entry) != entries().end();
}

}  // namespace

/// The library's reasons keep their numbers here.
int ZT_REASON_ask_reason_number(int reason) {
    return reason;
}

/// Works on a copy, as a listener may add and remove listeners, itself included. One that was
/// removed meanwhile is passed over: its context may be gone.
void CALLBACK_call_list(int reason, void* data) {
    for (const Entry& entry : entries_for(reason))
        if (is_still_there(entry)) entry.listener(reason, data, entry.context);
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
