#include "unit.h"

#include <algorithm>

namespace tool {

const std::vector<Unit>& units() {
    static const std::vector<Unit> all{
        {"mm", 1.0, "mm"},        {"inch", 25.4, "in"},   {"m", 1000.0, "m"},
        {"um", 0.001, "\u00b5m"}, {"deg", 1.0, "\u00b0"}, {"none", 1.0, ""},
    };
    return all;
}

const Unit& unit_named(const std::string& name) {
    return *std::find_if(units().begin(), units().end(),
                         [&](const Unit& unit) { return unit.name == name; });
}

std::string with_unit(const std::string& number, const Unit& unit) {
    const std::string symbol = unit.symbol;
    if (symbol.empty()) return number;
    return symbol == "\u00b0" ? number + symbol : number + " " + symbol;
}

std::string labelled(const std::string& label, const Unit& unit) {
    return *unit.symbol == '\0' ? label : label + " (" + unit.symbol + ")";
}

}  // namespace tool
