// Where arcs and straights meet.
#include "interface/mixed_row.h"
#include "ztmath/arc_spline_intersections.h"

namespace ztmath_test {

std::vector<Call> arc_crossing_calls() {
    const std::vector<std::size_t> inputs = {segment_in, segment_in, 1, 1, 2};
    const std::vector<std::size_t> outputs(8, 2);
    return {mixed_row<ARC_SPLINE_inter_of_2_circular_arcs_2d>(inputs, outputs),
            mixed_row<ARC_SPLINE_inter_circular_arc_line_seg_2d>(inputs, outputs)};
}

}  // namespace ztmath_test
