// The fields of a line of text, as people write numbers.
#pragma once

#include <string>
#include <string_view>

namespace tool {

/// Takes the next field off the front of a line; it is empty at the line's end or a comment.
std::string_view take_field(std::string_view& line);

struct Field {
    enum Kind { number, infinite, too_large, no_number } kind;
    double value;
};

/// Reads a field that is to be a number of absolute value `largest` at most.
Field read_field(std::string_view text, double largest);

/// A field as a message may show it: short, and without control characters.
std::string quoted(std::string_view field);

}  // namespace tool
