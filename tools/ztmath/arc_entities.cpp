#include "arc_entities.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <numbers>
#include <utility>

#include "field.h"
#include "library_call.h"
#include "text_file.h"

namespace tool {

const char* const entities_file_help =
    R"(File: a line for each thing, the option's word and its numbers, as in "circle 4 0 2.5";
blanks, tabs, commas or semicolons separate them, and what follows #, % or // is skipped. FILE
may be - for the standard input.)";

namespace {

constexpr double largest_number = 1.0e9;
constexpr double largest_tolerance = 1.0e3;
constexpr double line_length = 1.0e6;  // of the straight that stands for a line
constexpr double relative_tolerance = 1.0e-9;
constexpr double angle_tolerance = 1.0e-6;  // degrees

/// How a thing is given.
struct Form {
    const char* word;
    const char* numbers;
    const char* description;
};

constexpr Form forms[]{
    {"point", "X,Y", "A point"},
    {"line", "X,Y,DX,DY", "A line through a point, along a direction"},
    {"segment", "X1,Y1,X2,Y2", "A straight from point to point"},
    {"circle", "X,Y,R", "A circle about a centre"},
    {"arc", "X,Y,R,START,ANGLE",
     "An arc about a centre: degrees where it starts and that it turns"},
    {"radius", "R", "The radius wanted"},
    {"at", "X,Y", "The point of the line to touch it at"},
    {"angle", "DEGREES", "The angle to cross the circle at, 0 to 90"},
};

const Form& form_of(const std::string& word) {
    return *std::find_if(std::begin(forms), std::end(forms),
                         [&](const Form& form) { return word == form.word; });
}

std::size_t number_count(const Form& form) {
    return 1 + static_cast<std::size_t>(
                   std::count(form.numbers, form.numbers + std::strlen(form.numbers), ','));
}

struct Numbers {
    std::vector<double> values;
    std::string complaint;
};

Numbers numbers_in(std::string_view text, const Form& form) {
    Numbers numbers;
    std::size_t found = 0;
    for (std::string_view field; !(field = take_field(text)).empty(); ++found) {
        const Field read = read_field(field, largest_number);
        if (read.kind == Field::too_large)
            return {{}, quoted(field) + " is out of range (the largest number is 1e9)"};
        if (read.kind != Field::number) return {{}, quoted(field) + " is not a number"};
        numbers.values.push_back(read.value);
    }
    if (found != number_count(form))
        numbers.complaint = std::string(form.word) + " takes " + form.numbers + ", not " +
                            std::to_string(found) + (found == 1 ? " number" : " numbers");
    return numbers;
}

Entity entity_of(const std::string& word, const std::vector<double>& v) {
    Entity e;
    e.place = {v[0], v[1]};
    if (word == "line") {
        e.kind = Entity::line;
        e.direction = {v[2], v[3]};
    } else if (word == "segment") {
        e.kind = Entity::segment;
        e.direction = {v[2] - v[0], v[3] - v[1]};
    } else if (word == "circle") {
        e.kind = Entity::circle;
        e.radius = v[2];
    } else if (word == "arc") {
        e.kind = Entity::arc;
        e.radius = v[2];
        e.start = v[3];
        e.covered = v[4];
    }
    return e;
}

/// What is wrong with it; "" for nothing.
std::string fault_of(const Entity& e) {
    if (e.is_round() && !(e.radius > 0.0)) return "the radius must be above 0";
    if (e.kind == Entity::line && length(e.direction) == 0.0) return "the line has no direction";
    if (e.kind == Entity::segment && length(e.direction) == 0.0) return "the segment has no length";
    if (e.kind == Entity::arc && (e.covered == 0.0 || std::fabs(e.covered) > 360.0))
        return "an arc turns by up to 360 degrees, and not by 0";
    return {};
}

template <class T>
std::string set_once(std::optional<T>& option, const T& value, const std::string& word) {
    if (option) return "a second " + word;
    option = value;
    return {};
}

/// Adds what a word and its numbers say; what is wrong with them, or "".
std::string add(Given& given, const std::string& word, std::string_view text) {
    const Numbers numbers = numbers_in(text, form_of(word));
    if (!numbers.complaint.empty()) return numbers.complaint;
    const std::vector<double>& v = numbers.values;
    if (word == "at") return set_once(given.at, {v[0], v[1]}, word);
    if (word == "radius")
        return v[0] > 0.0 ? set_once(given.radius, v[0], word) : "the radius must be above 0";
    if (word == "angle")
        return v[0] >= 0.0 && v[0] <= 90.0 ? set_once(given.angle, v[0], word)
                                           : "the angle must be from 0 to 90 degrees";
    Entity e = entity_of(word, v);
    std::string fault = fault_of(e);
    if (!fault.empty()) return fault;
    e.name = word + ' ' + std::to_string(given.count(e.kind) + 1);
    given.entities.push_back(std::move(e));
    return {};
}

std::string listed(const std::vector<std::string>& words) {
    std::string list;
    for (std::size_t i = 0; i < words.size(); ++i)
        list += (i == 0 ? "" : i + 1 == words.size() ? " and " : ", ") + words[i];
    return list;
}

std::string add_line(Given& given, const EntityWords& words, std::string_view line) {
    const std::string word(take_field(line));
    if (word.empty()) return {};
    if (std::find(words.begin(), words.end(), word) == words.end())
        return tool::quoted(word) + " is not known here: the words are " + listed(words);
    return add(given, word, line);
}

void read_file(Given& given, const ArcsOptions& options) {
    const std::string text = read_text(options.file);
    std::string_view rest = text;
    for (int number = 1; !rest.empty(); ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        const std::string complaint = add_line(given, options.words, rest.substr(0, end));
        if (!complaint.empty())
            throw Failure{ExitCode::input, source_name(options.file) + ':' +
                                               std::to_string(number) + ": " + complaint};
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
}

std::string some(int count, const std::string& noun) {
    return count == 1 ? (noun == "arc" ? "an " : "a ") + noun
                      : std::to_string(count) + ' ' + noun + 's';
}

}  // namespace

Vec2 Entity::at(double degrees) const {
    const double angle = degrees * std::numbers::pi / 180.0;
    return {place[0] + radius * std::cos(angle), place[1] + radius * std::sin(angle)};
}

Segment Entity::record() const {
    Segment s{};
    call_library([&] {
        if (kind == circle) {
            ARC_SPLINE_cre_circle_from_center_and_radius_2d(place.data(), radius, &s);
        } else if (kind == arc) {
            const double turn = covered < 0.0 ? -1.0 : 1.0;
            const Vec2 from = at(start);
            const Vec2 tangent{-turn * (from[1] - place[1]) / radius,
                               turn * (from[0] - place[0]) / radius};
            Vec2 to;
            Vec2 end_tangent;
            ARC_SPLINE_cre_arc_seg_2d(from.data(), tangent.data(), std::fabs(covered), radius,
                                      static_cast<int>(turn), &s, to.data(), end_tangent.data());
        } else {
            const Vec2 unit{direction[0] / length(direction), direction[1] / length(direction)};
            Vec2 to = kind == line ? along(place, line_length, unit) : end();
            ARC_SPLINE_cre_strt_seg_2d(place.data(), to.data(), unit.data(), &s);
        }
    });
    return s;
}

int Given::count(Entity::Kind kind) const {
    return static_cast<int>(std::count_if(entities.begin(), entities.end(),
                                          [&](const Entity& e) { return e.kind == kind; }));
}

const Entity& Given::of(Entity::Kind kind, int number) const {
    for (const Entity& e : entities)
        if (e.kind == kind && number-- == 0) return e;
    throw Failure{ExitCode::usage, "there are not so many things"};
}

double Given::size() const {
    double largest = radius.value_or(0.0);
    for (const Entity& e : entities)
        largest = std::max({largest, std::fabs(e.place[0]), std::fabs(e.place[1]), e.radius});
    return largest;
}

std::string Given::words() const {
    std::vector<std::string> parts;
    for (const Form& form : forms) {
        const std::string word = form.word;
        const auto is_such = [&](const Entity& e) { return e.name.starts_with(word + ' '); };
        const auto found = std::count_if(entities.begin(), entities.end(), is_such);
        if (found > 0) parts.push_back(some(static_cast<int>(found), word));
    }
    if (radius) parts.emplace_back("a radius");
    if (at) parts.emplace_back("a point to touch at");
    if (angle) parts.emplace_back("an angle");
    return parts.empty() ? "nothing" : listed(parts);
}

void add_arcs_options(CLI::App& command, ArcsOptions& options, const EntityWords& words) {
    options.words = words;
    for (const std::string& word : words) {
        const Form& form = form_of(word);
        const std::string name = "--" + word;
        const auto read = [name, word, &options](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) {
                const std::string complaint = add(options.given, word, text);
                if (!complaint.empty()) throw CLI::ValidationError(name, complaint);
            }
        };
        command.add_option_function<std::vector<std::string>>(name, read, form.description)
            ->type_name(form.numbers)
            ->allow_extra_args(false);
    }
    command.add_option("--file", options.file, "Take things from a file, - for stdin")
        ->type_name("FILE");
    command.add_option("--tolerance", options.tolerance, "Lengths up to this count as 0")
        ->check(CLI::Range(1.0e-10, largest_tolerance))
        ->type_name("T");
    command.add_flag("--json", options.json, "Print the result as JSON");
    command.add_option("--svg", options.svg, "Draw what is given and found into a file")
        ->type_name("OUT");
}

Given all_given(const ArcsOptions& options) {
    Given given = options.given;
    if (!options.file.empty()) read_file(given, options);
    return given;
}

Tolerances tolerances(const ArcsOptions& options, const Given& given) {
    const double from_size = relative_tolerance * given.size();
    return {{options.tolerance.value_or(std::max(from_size, 1.0e-10)), angle_tolerance, 1.0e-10}};
}

}  // namespace tool
