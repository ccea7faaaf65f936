#include "axis.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "number.h"

namespace tool {

namespace {

double round_step(double rough) {
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (rough <= 1.000001 * factor * power) return factor * power;
    return 10.0 * power;
}

std::string with_true_minus(std::string text) {
    for (std::size_t at = 0; (at = text.find('-', at)) != std::string::npos;)
        text.replace(at, 1, "\u2212");
    return text;
}

std::string tick_label(double value, double step, double largest) {
    const int exponent = static_cast<int>(std::floor(std::log10(step) + 1e-9));
    if (exponent >= 0 && largest >= 1.0e5 && largest < 1.0e15)
        return with_true_minus(counted(std::llround(value)));
    if (exponent >= -5 && largest < 1.0e7)
        return with_true_minus(fixed(value, std::max(0, -exponent)));
    char text[40];
    const int digits = 1 + static_cast<int>(std::log10(std::max(largest / step, 1.0)) + 1e-9);
    std::snprintf(text, sizeof text, "%.*g", digits, value);
    return with_true_minus(text);
}

}  // namespace

Range padded(Range range, double part) {
    const double size = std::max(std::fabs(range.low), std::fabs(range.high));
    const double length = range.length();
    const double pad = length > 1e-12 * size ? part * length : size > 0.0 ? 1e-3 * size : 1.0;
    return {range.low - pad, range.high + pad};
}

std::vector<Tick> round_ticks(Range range, int about, double smallest_step) {
    std::vector<Tick> ticks;
    const double step = std::max(round_step(range.length() / about), smallest_step);
    const double first = std::ceil(range.low / step - 1e-9);
    const double largest = std::max(std::fabs(range.low), std::fabs(range.high));
    for (int i = 0; i < 2 * about; ++i) {
        const double value = (first + i) * step;
        if (!(value <= range.high + 1e-9 * step)) break;
        ticks.push_back({value, tick_label(value, step, largest)});
    }
    return ticks;
}

}  // namespace tool
