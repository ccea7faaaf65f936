// The buffer of display identifiers.
#include <algorithm>
#include <utility>

#include "frame/acom.h"
#include "ztmath/session.h"

namespace {

using DisplayFunction = void (*)();

DisplayFunction display_function = nullptr;

/// Set while the display function runs, which may use the buffer itself: without it a function that
/// appends to a full buffer would be called from within itself without end.
bool flushing = false;

constexpr int capacity = ZTMATH_DISPLAY_BUFFER_CAPACITY;

/// The count as the host left it, brought inside the buffer.
int buffered() {
    return std::clamp(acom_.display_count, 0, capacity);
}

void call_display_function() {
    struct Flushing {
        Flushing() { flushing = true; }
        ~Flushing() { flushing = false; }
        Flushing(const Flushing&) = delete;
        Flushing& operator=(const Flushing&) = delete;
    };
    const Flushing now;
    display_function();
}

}  // namespace

void (*MCS_register_display_fn(void (*fn)()))() {
    return std::exchange(display_function, fn);
}

void d7390_() {
    acom_.display_count = 0;
}

void d7391_(const int* id) {
    const int arriving = *id;
    if (buffered() == capacity) {
        if (flushing) return;  // the buffer still shows what is being flushed
        d7392_();
    }
    const int count = buffered();
    acom_.display_ids[count] = arriving;
    acom_.display_count = count + 1;
}

void d7392_() {
    if (acom_.display_count > 0 && display_function != nullptr && !flushing)
        call_display_function();
    acom_.display_count = 0;
}

void a406_(const int* id) {
    int* const end = acom_.display_ids + buffered();
    acom_.display_count =
        static_cast<int>(std::remove(acom_.display_ids, end, int{*id}) - acom_.display_ids);
}
