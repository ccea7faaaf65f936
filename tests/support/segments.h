// Segments of arc splines for tests.
#pragma once

#include "support/by_value.h"
#include "support/plane.h"
#include "support/session.h"
#include "ztmath/arc_spline.h"

namespace ztmath_test {

using Segment = ARC_SPLINE_1_seg_2d_t;

inline constexpr char arc_module[] = "arc_spline_apollonian_constructions";

/// Of lengths, of angles in degrees and of curvatures, which have no part in most calls. A test
/// that changes them has them `Kept`.
using Tolerances = std::array<double, 3>;
inline constexpr Tolerances fine = {1e-9, 1e-7, NAN};
inline Tolerances tols = fine;

/// An arc between two tangent angles, the full circle if not told otherwise.
struct Arc : Segment {
    Arc(const Pair& c, double r, double from = 90, double to = 450, int sense = 1)
        : Segment{1, sense, {}, from, to, {c[0], c[1]}, {}, r, r} {
        std::ranges::copy(moved(c, sense * r, direction_at(from - 90)), start_point);
    }
};

inline Segment made_straight(const Pair& start, Pair end, const Pair& fallback = {7, 7}) {
    Segment straight{};
    called(ARC_SPLINE_cre_strt_seg_2d, start, end, fallback, &straight);
    return straight;
}

inline Pair start_of(const Segment& s) {
    return pair_at(s.start_point);
}

inline Pair center_of(const Segment& s) {
    return pair_at(s.center);
}

inline Pair direction_of(const Segment& s) {
    return pair_at(s.direction);
}

/// What an evaluation wrote; what it left alone is 9.
struct At {
    Pair point{9, 9}, tangent{9, 9};
    int status = -9;
};

inline At evaluated(const Segment& s, double parm, int extrapolate = 0) {
    At at;
    called(ARC_SPLINE_evaluate_1_seg_2d, &s, extrapolate, parm, at.point, at.tangent, &at.status);
    return at;
}

/// All that can be asked of a segment at once.
struct Data {
    explicit Data(const Segment* s, int want_corner = 1) {
        called(ARC_SPLINE_ask_1_seg_2d_data, s, want_corner, &type, &orientation, angles, &length,
               &curvature, center, start, start_tangent, end, end_tangent, corner, &status);
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

/// What a construction gave.
struct Made {
    const Segment& first() const { return circles.at(0); }

    int count = -1, status = -1;
    std::vector<Segment> circles{8, {7, 7, {7, 7}, 7, 7, {7, 7}, {7, 7}, 7, 7}};
};

/// Leaves the circles that were found; those beyond them must be blank.
inline Made without_blanks(Made m, std::size_t room) {
    for (std::size_t i = std::max(m.count, 0); i < room; ++i)
        expect_equal(m.circles[i], {}, 0);
    m.circles.resize(std::max(m.count, 0));
    return m;
}

template <class Function, class... Inputs>
Made made_one(Function construct, const Inputs&... inputs) {
    Made m;
    called(construct, inputs..., tols, m.circles[0], &m.status);
    m.count = m.status == 0 ? 1 : 0;
    return without_blanks(m, 1);
}

template <class Function, class... Inputs>
Made made_two(Function construct, const Inputs&... inputs) {
    Made m;
    called(construct, inputs..., tols, &m.count, m.circles[0], m.circles[1], &m.status);
    return without_blanks(m, 2);
}

/// Of two circles through two points, the first has its centre to the left of the way.
inline void expect_from_left(const Made& two, const Pair& p, const Pair& q) {
    const Pair apart = minus(center_of(two.circles.at(0)), center_of(two.circles.at(1)));
    EXPECT_GT(dot(left_of(minus(q, p)), apart), 0);
}

}  // namespace ztmath_test
