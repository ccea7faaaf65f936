// Reports and guarded calls of the default platform library.
#include "report.h"

#include <algorithm>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <new>

namespace {

/// Texts are formatted into a buffer of this size on the stack: a report must not need memory.
constexpr std::size_t text_capacity = 1024;

std::mutex handler_mutex;
SYSS_report_handler_t current_handler{nullptr, nullptr};

/// How many guarded calls the thread is inside of.
thread_local int guard_depth = 0;

/// What ERROR_raise throws to the innermost guard. Nobody else can name the type, so nobody else
/// catches it by accident; the texts were copied before the frames that own them are gone.
struct RaisedReport {
    SYSS_failure_t failure;
};

/// What an allocation throws that cannot be served: any C++ caller can catch it by its base.
struct OutOfMemory : std::bad_alloc {
    explicit OutOfMemory(const SYSS_failure_t& what_failed) : failure(what_failed) {}

    SYSS_failure_t failure;
};

SYSS_failure_t failure_of(const SYSS_report_t& report) {
    SYSS_failure_t failure{report.code, report.line, {}, {}};
    std::snprintf(failure.module, sizeof failure.module, "%s", report.module);
    std::snprintf(failure.message, sizeof failure.message, "%s", report.text);
    return failure;
}

void write_to_stderr(const SYSS_report_t& report) {
    switch (report.kind) {
        case SYSS_REPORT_RAISED:
            std::fprintf(stderr, "error %d in %s (%d): %s\n", report.code, report.module,
                         report.line, report.text);
            break;
        case SYSS_REPORT_INTERNAL:
            std::fprintf(stderr, "internal error in %s (%d): %s\n", report.module, report.line,
                         report.text);
            break;
        case SYSS_REPORT_NOTE:
            std::fprintf(stderr, "note from %s (%d): %s\n", report.module, report.line,
                         report.text);
            break;
        case SYSS_REPORT_LOG:
            std::fputs(report.text, stderr);
            break;
    }
}

void deliver_formatted(SYSS_report_kind_t kind, const char* module, int line, const char* format,
                       std::va_list arguments) {
    char text[text_capacity];
    std::vsnprintf(text, sizeof text, format, arguments);
    syss::deliver({kind, module, line, 0, text});
}

int checking_level_from_environment() {
    const char* value = std::getenv("SYSS_CHECKING_LEVEL");
    if (value == nullptr) return 0;
    return static_cast<int>(std::clamp<long>(std::strtol(value, nullptr, 10), INT_MIN, INT_MAX));
}

}  // namespace

namespace syss {

void deliver(const SYSS_report_t& report) {
    SYSS_report_handler_t handler;
    {
        const std::lock_guard lock(handler_mutex);
        handler = current_handler;
    }
    if (handler.call != nullptr) {
        handler.call(&report, handler.data);
    } else if (report.kind != SYSS_REPORT_RAISED || guard_depth == 0) {
        write_to_stderr(report);
    }
}

void out_of_memory(std::size_t size) {
    char text[text_capacity];
    std::snprintf(text, sizeof text, "Out of memory: %zu bytes cannot be had", size);
    const SYSS_report_t report{SYSS_REPORT_RAISED, "libsyss", __LINE__, 0, text};
    deliver(report);
    throw OutOfMemory(failure_of(report));
}

}  // namespace syss

int MACH__checking_level = checking_level_from_environment();

SYSS_report_handler_t SYSS_set_report_handler(SYSS_report_handler_t handler) {
    const std::lock_guard lock(handler_mutex);
    const SYSS_report_handler_t before = current_handler;
    current_handler = handler;
    return before;
}

SYSS_outcome_t SYSS_call_guarded(void (*body)(void*), void* data, SYSS_failure_t* failure) {
    struct Depth {
        Depth() { ++guard_depth; }
        ~Depth() { --guard_depth; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
    };
    try {
        const Depth inside;
        body(data);
        return SYSS_COMPLETED;
    } catch (const RaisedReport& raised) {
        if (failure != nullptr) *failure = raised.failure;
        return SYSS_RAISED;
    } catch (const OutOfMemory& refused) {
        if (failure != nullptr) *failure = refused.failure;
        return SYSS_OUT_OF_MEMORY;
    } catch (const std::bad_alloc&) {
        if (failure != nullptr)
            *failure = failure_of({SYSS_REPORT_RAISED, "libsyss", __LINE__, 0, "Out of memory"});
        return SYSS_OUT_OF_MEMORY;
    }
}

void ERROR_raise(const char* module, int line, int code, const char* message) {
    const SYSS_report_t report{SYSS_REPORT_RAISED, module, line, code, message};
    syss::deliver(report);
    if (guard_depth > 0) throw RaisedReport{failure_of(report)};
}

void ERROR_internal(const char* module, int line, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    deliver_formatted(SYSS_REPORT_INTERNAL, module, line, format, arguments);
    va_end(arguments);
}

void ERROR_note(const char* module, int line, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    deliver_formatted(SYSS_REPORT_NOTE, module, line, format, arguments);
    va_end(arguments);
}

void ERROR_lprintf(const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    deliver_formatted(SYSS_REPORT_LOG, "", 0, format, arguments);
    va_end(arguments);
}

int STR_snprintf(char* buffer, std::size_t size, const char* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, size, format, arguments);
    va_end(arguments);
    return length;
}
