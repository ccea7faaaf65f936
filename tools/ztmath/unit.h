// Units of length.
#pragma once

#include <string>
#include <vector>

namespace tool {

struct Unit {
    const char* name;
    double millimetres;  // one of this unit
    const char* symbol;  // what follows a number in a table or a picture; may be empty
};

const std::vector<Unit>& units();

/// The unit of that name, which must be one.
const Unit& unit_named(const std::string& name);

/// The number's text with the unit's symbol behind it.
std::string with_unit(const std::string& number, const Unit& unit);

/// A label with the unit's symbol in parentheses.
std::string labelled(const std::string& label, const Unit& unit);

}  // namespace tool
