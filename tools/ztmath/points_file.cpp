#include "points_file.h"

#include <algorithm>
#include <climits>
#include <utility>

#include "failure.h"
#include "field.h"

namespace tool {

const char* const points_file_help =
    R"(File format: one point a line, its numbers separated by blanks, tabs, commas or
semicolons. Blank lines are skipped, and so is whatever follows #, % or //. A first
line without any number is taken as a header. FILE may be - for the standard input.)";

namespace {

/// Beyond this a coordinate no longer resolves a tenth of its unit.
constexpr double largest_coordinate = 1.0e15;

/// How many malformed lines a message names.
constexpr int named_complaints = 5;

std::string complaint_about(std::string_view text, Field::Kind kind) {
    switch (kind) {
        case Field::infinite:
            return quoted(text) + " is not a finite number";
        case Field::too_large:
            return quoted(text) + " is out of range (the largest coordinate is 1e15)";
        default:
            return quoted(text) + " is not a number";
    }
}

class Parser {
  public:
    Parser(std::string name, int dimension) : name_(std::move(name)), points_{dimension, {}, {}} {}

    Points parse(std::string_view text) {
        if (text.starts_with("\xef\xbb\xbf")) text.remove_prefix(3);
        reserve(text);
        while (!text.empty()) {
            const std::size_t end = std::min(text.find('\n'), text.size());
            ++line_number_;
            read_line(text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
        if (complaint_count_ > 0) throw Failure{ExitCode::input, complaints()};
        return std::move(points_);
    }

  private:
    /// Room for about as many points as the first line lets expect.
    void reserve(std::string_view text) {
        const std::size_t points = text.size() / (std::min(text.find('\n'), text.size()) + 1) + 1;
        points_.lines.reserve(points);
        points_.coordinates.reserve(points * static_cast<std::size_t>(points_.dimension));
    }

    void read_line(std::string_view line) {
        double numbers[3];
        int found = 0;
        std::string_view rest = line;
        for (std::string_view text; !(text = take_field(rest)).empty(); ++found) {
            const Field field = read_field(text, largest_coordinate);
            if (field.kind != Field::number) {
                if (content_seen_ || !is_header(line)) complain(complaint_about(text, field.kind));
                content_seen_ = true;
                return;
            }
            if (found < points_.dimension) numbers[found] = field.value;
        }
        if (found == 0) return;
        content_seen_ = true;
        if (found == points_.dimension)
            add_point(numbers);
        else
            complain(count_complaint(found));
    }

    void add_point(const double numbers[3]) {
        if (points_.lines.size() >= static_cast<std::size_t>(INT_MAX / 3))
            throw Failure{ExitCode::input, name_ + ": too many points"};
        points_.coordinates.insert(points_.coordinates.end(), numbers, numbers + points_.dimension);
        points_.lines.push_back(line_number_);
    }

    static bool is_header(std::string_view line) {
        for (std::string_view text; !(text = take_field(line)).empty();)
            if (read_field(text, largest_coordinate).kind != Field::no_number) return false;
        return true;
    }

    std::string count_complaint(int found) const {
        return points_.dimension == 2
                   ? "2 numbers expected (x y), found " + std::to_string(found)
                   : "3 numbers expected (x y z), found " + std::to_string(found);
    }

    void complain(const std::string& what) {
        if (++complaint_count_ > named_complaints) return;
        if (complaint_count_ > 1) complaints_ += '\n';
        complaints_ += name_ + ':' + std::to_string(line_number_) + ": " + what;
    }

    std::string complaints() const {
        const int left = complaint_count_ - named_complaints;
        if (left <= 0) return complaints_;
        return complaints_ + '\n' + name_ + ": and " + std::to_string(left) +
               (left == 1 ? " more malformed line" : " more malformed lines");
    }

    std::string name_;
    Points points_;
    std::uint32_t line_number_ = 0;
    bool content_seen_ = false;
    int complaint_count_ = 0;
    std::string complaints_;
};

}  // namespace

Points read_points(const std::string& path, int dimension) {
    return parse_points(read_text(path), source_name(path), dimension);
}

Points parse_points(std::string_view text, const std::string& name, int dimension) {
    return Parser(name, dimension).parse(text);
}

}  // namespace tool
