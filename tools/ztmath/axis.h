// Round tick values.
#pragma once

#include <string>
#include <vector>

namespace tool {

/// An interval of an axis.
struct Range {
    double low;
    double high;

    double length() const { return high - low; }
    double middle() const { return low + 0.5 * (high - low); }
};

/// The same interval with a part of its length added at each end; one of no length gets some.
Range padded(Range range, double part);

struct Tick {
    double value;
    std::string label;
};

/// Multiples of 1, 2 or 5 times a power of ten within the range: about so many, never more than
/// twice as many, and no closer than the smallest step.
std::vector<Tick> round_ticks(Range range, int about, double smallest_step = 0.0);

}  // namespace tool
