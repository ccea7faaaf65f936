#include "field.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace tool {

namespace {

bool is_separator(char c) {
    return c == ' ' || c == '\t' || c == ',' || c == ';' || c == '\r' || c == '\f' || c == '\v';
}

bool starts_comment(std::string_view text) {
    return text[0] == '#' || text[0] == '%' || text.starts_with("//");
}

}  // namespace

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

Field read_field(std::string_view text, double largest) {
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
    return {std::fabs(value) <= largest ? Field::number : Field::too_large, value};
}

std::string quoted(std::string_view field) {
    constexpr std::size_t shown = 30;
    std::string text(field.substr(0, shown));
    for (char& c : text)
        if (static_cast<unsigned char>(c) < 0x20 || c == 0x7f) c = '?';
    return '"' + text + (field.size() > shown ? "...\"" : "\"");
}

}  // namespace tool
