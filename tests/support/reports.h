// Records what the library reports.
#pragma once

#include "support/session.h"
#include "syss/host.h"

namespace ztmath_test {

/// A report as a test compares it; the line is left out, being any number.
struct Report {
    SYSS_report_kind_t kind;
    std::string module;
    int code;
    std::string text;

    bool operator==(const Report&) const = default;

    friend std::ostream& operator<<(std::ostream& out, const Report& r) {
        return out << '{' << r.kind << ", " << r.module << ", " << r.code << ", \"" << r.text
                   << "\"}";
    }
};

inline Report assertion(std::string module, const std::string& expression) {
    return {SYSS_REPORT_INTERNAL, std::move(module), 0, "Assertion failed: " + expression};
}

inline Report internal(std::string module, std::string text) {
    return {SYSS_REPORT_INTERNAL, std::move(module), 0, std::move(text)};
}

inline Report note(std::string module, std::string text) {
    return {SYSS_REPORT_NOTE, std::move(module), 0, std::move(text)};
}

inline Report raised(std::string module, int code, std::string text) {
    return {SYSS_REPORT_RAISED, std::move(module), code, std::move(text)};
}

inline Report log_line(std::string text) {
    return {SYSS_REPORT_LOG, "", 0, std::move(text)};
}

/// Records all reports while it lives. What is thrown from `on_report` unwinds out of the library.
class ReportRecorder {
  public:
    explicit ReportRecorder(std::function<void(const Report&)> on_report = {})
        : on_report_(std::move(on_report)), before_(SYSS_set_report_handler({record, this})) {}
    ~ReportRecorder() { SYSS_set_report_handler(before_); }
    ReportRecorder(const ReportRecorder&) = delete;
    ReportRecorder& operator=(const ReportRecorder&) = delete;

    const std::vector<Report>& reports() const { return reports_; }
    const std::vector<int>& lines() const { return lines_; }

    /// Hands over what was recorded and starts afresh.
    std::vector<Report> take() {
        lines_.clear();
        return std::exchange(reports_, {});
    }

  private:
    static void record(const SYSS_report_t* report, void* data) {
        auto& self = *static_cast<ReportRecorder*>(data);
        self.reports_.push_back({report->kind, report->module, report->code, report->text});
        self.lines_.push_back(report->line);
        EXPECT_EQ(report->line > 0, report->kind != SYSS_REPORT_LOG);
        if (self.on_report_) self.on_report_(self.reports_.back());
    }

    std::function<void(const Report&)> on_report_;
    std::vector<Report> reports_;
    std::vector<int> lines_;
    SYSS_report_handler_t before_;
};

using Reports = std::vector<Report>;

/// Runs without checking, which is silent, and with it.
template <class Run>
void expect_reports_when_checking(const Run& run, const Reports& expected) {
    for (const int level : {0, 1}) {
        const NoBlocksLeft watch;
        const ReportRecorder recorder;
        const CheckingLevel checking(level);
        run();
        EXPECT_EQ(recorder.reports(), level > 0 ? expected : Reports{});
    }
}

}  // namespace ztmath_test
