// Segments of arc splines for tests.
#pragma once

#include "support/plane.h"
#include "ztmath/arc_spline.h"

namespace ztmath_test {

using Segment = ARC_SPLINE_1_seg_2d_t;

inline constexpr char arc_module[] = "arc_spline_apollonian_constructions";

struct MadeArc {
    Segment arc;
    Pair end, end_tangent;
};

inline MadeArc made_arc(const Pair& start, double angle, double central, double radius,
                        int orientation) {
    MadeArc made{};
    const Pair tangent = direction_at(angle);
    ARC_SPLINE_cre_arc_seg_2d(start.data(), tangent.data(), central, radius, orientation, &made.arc,
                              made.end.data(), made.end_tangent.data());
    return made;
}

inline Segment made_straight(const Pair& start, Pair end, const Pair& fallback = {7, 7}) {
    Segment straight{};
    ARC_SPLINE_cre_strt_seg_2d(start.data(), end.data(), fallback.data(), &straight);
    return straight;
}

inline Segment made_circle(const Pair& center, double radius) {
    Segment circle{};
    ARC_SPLINE_cre_circle_from_center_and_radius_2d(center.data(), radius, &circle);
    return circle;
}

inline Pair center_of(const Segment& s) {
    return {s.center[0], s.center[1]};
}

/// What an evaluation wrote; what it left alone is 9.
struct At {
    Pair point{9, 9}, tangent{9, 9};
    int status = -9;
};

inline At evaluated(const Segment& s, double parm, int extrapolate = 0) {
    At at;
    ARC_SPLINE_evaluate_1_seg_2d(&s, extrapolate, parm, at.point.data(), at.tangent.data(),
                                 &at.status);
    return at;
}

/// All that can be asked of a segment at once.
struct Data {
    explicit Data(const Segment* s, int want_corner = 1) {
        ARC_SPLINE_ask_1_seg_2d_data(s, want_corner, &type, &orientation, angles.data(), &length,
                                     &curvature, center.data(), start.data(), start_tangent.data(),
                                     end.data(), end_tangent.data(), corner.data(), &status);
    }
    int type = 9, orientation = 9, status = 9;
    Pair angles{}, center{}, start{}, start_tangent{}, end{}, end_tangent{}, corner{9, 9};
    double length = 9, curvature = 9;
};

inline void expect_equal(const Segment& a, const Segment& b, double tolerance = 1e-11) {
    std::array<double, 10> x, y;
    std::memcpy(x.data(), a.start_point, sizeof x);
    std::memcpy(y.data(), b.start_point, sizeof y);
    EXPECT_EQ(a.type, b.type);
    EXPECT_EQ(a.orientation, b.orientation);
    for (std::size_t i = 0; i < x.size(); ++i)
        EXPECT_NEAR(x[i], y[i], tolerance) << "number " << i;
}

}  // namespace ztmath_test
