#include "points_file.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>

#include "failure.h"

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

bool is_separator(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == ';' || c == '\r' || c == '\f' || c == '\v';
}

bool starts_comment(std::string_view text) {
    return text[0] == '#' || text[0] == '%' || text.starts_with("//");
}

/// Takes the next field off the front of a line; it is empty at the line's end or a comment.
std::string_view take_field(std::string_view& line) {
    while (!line.empty() && is_separator(line[0]))
        line.remove_prefix(1);
    std::size_t length = 0;
    while (length < line.size() && !is_separator(line[length]) &&
           !starts_comment(line.substr(length)))
        ++length;
    const std::string_view field = line.substr(0, length);
    line.remove_prefix(length);
    return field;
}

struct Field {
    enum Kind { number, infinite, too_large, no_number } kind;
    double value;
};

Field read_field(std::string_view text) {
    if (text.size() > 1 && text[0] == '+' && text[1] != '-') text.remove_prefix(1);
    double value = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument || end != text.data() + text.size())
        return {Field::no_number, 0.0};
    // A number too small for a double is out of range as well; it is as good as 0.
    if (error == std::errc::result_out_of_range)
        value = std::strtod(std::string(text).c_str(), nullptr);
    else if (!std::isfinite(value))
        return {Field::infinite, value};
    return {std::fabs(value) <= largest_coordinate ? Field::number : Field::too_large, value};
}

/// A field as a message may show it: short, and without control characters.
std::string quoted(std::string_view field) {
    constexpr std::size_t shown = 30;
    std::string text(field.substr(0, shown));
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = '?';
    return '"' + text + (field.size() > shown ? "...\"" : "\"");
}

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
            const Field field = read_field(text);
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
            if (read_field(text).kind != Field::no_number) return false;
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

[[noreturn]] void fail_to_read(const std::string& name) {
    throw Failure{ExitCode::input, "cannot read " + name + ": " + std::strerror(errno)};
}

std::string read_text(const std::string& path) {
    struct Close {
        void operator()(std::FILE* file) const {
            if (file != stdin) std::fclose(file);
        }
    };
    const std::unique_ptr<std::FILE, Close> file(path == "-" ? stdin
                                                             : std::fopen(path.c_str(), "rb"));
    if (!file) fail_to_read(source_name(path));
    std::string text;
    std::size_t length = 0;
    for (;;) {
        text.resize(std::max<std::size_t>(2 * length, 1 << 16));
        const std::size_t got =
            std::fread(text.data() + length, 1, text.size() - length, file.get());
        if (got == 0) break;
        length += got;
    }
    if (std::ferror(file.get()) != 0) fail_to_read(source_name(path));
    text.resize(length);
    return text;
}

}  // namespace

std::string source_name(const std::string& path) {
    return path == "-" ? "standard input" : path;
}

Points read_points(const std::string& path, int dimension) {
    return parse_points(read_text(path), source_name(path), dimension);
}

Points parse_points(std::string_view text, const std::string& name, int dimension) {
    return Parser(name, dimension).parse(text);
}

}  // namespace tool
