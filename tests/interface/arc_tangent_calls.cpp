// Tangent lines of arcs and circles.
#include "interface/mixed_row.h"
#include "ztmath/arc_spline_tangents.h"

namespace ztmath_test {

std::vector<Call> arc_tangent_calls() {
    constexpr std::size_t in = segment_in;
    constexpr std::size_t out = segment_out;
    return {
        mixed_row<ARC_SPLINE_ask_tangents_thru_a_point_2d>({in, 2, 1, 2}, {2, 2, 2, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_tangents_exterior_to_circles_2d>({in, in, 1, 1, 2},
                                                                  {2, out, out, 2, 2, 2}),
        mixed_row<ARC_SPLINE_ask_tangents_interior_to_circles_2d>({in, in, 1, 1, 2},
                                                                  {2, out, out, 2, 2, 2}),
        mixed_row<ARC_SPLINE_compute_tangent_at_other_end_of_chord_2d>({2, 2, 2, 2}, {2, 2}),
    };
}

}  // namespace ztmath_test
