#include "library_call.h"

#include <syss/host.h>

#include <cstdio>
#include <string>

namespace tool {

namespace {

/// Prints remarks and log lines, and keeps the first broken expectation: its results are not to be
/// shown. Raised reports reach the guard.
void take_report(const SYSS_report_t* report, void* data) {
    auto& broken = *static_cast<std::string*>(data);
    switch (report->kind) {
        case SYSS_REPORT_RAISED:
            break;
        case SYSS_REPORT_INTERNAL:
            if (broken.empty()) broken = std::string(report->module) + ": " + report->text;
            break;
        case SYSS_REPORT_NOTE:
            std::fprintf(stderr, "ztmath: note from %s: %s\n", report->module, report->text);
            break;
        case SYSS_REPORT_LOG:
            std::fputs(report->text, stderr);
            break;
    }
}

class Handler {
  public:
    explicit Handler(std::string& broken)
        : before_(SYSS_set_report_handler({take_report, &broken})) {}
    ~Handler() { SYSS_set_report_handler(before_); }
    Handler(const Handler&) = delete;
    Handler& operator=(const Handler&) = delete;

  private:
    SYSS_report_handler_t before_;
};

}  // namespace

void call_library_with(void (*body)(void* data), void* data) {
    std::string broken;
    SYSS_failure_t failure{};
    const SYSS_outcome_t outcome = [&] {
        const Handler handler(broken);
        return SYSS_call_guarded(body, data, &failure);
    }();
    if (outcome == SYSS_OUT_OF_MEMORY) throw Failure{ExitCode::library, "out of memory"};
    if (outcome == SYSS_RAISED)
        throw Failure{ExitCode::library, std::string(failure.module) + ": " + failure.message +
                                             " (reason " + std::to_string(failure.code) + ")"};
    if (!broken.empty()) throw Failure{ExitCode::library, broken};
}

}  // namespace tool
