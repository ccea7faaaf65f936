// ztmath curve, as a person or a script calls it.
#include "curve_data.h"
#include "run_tool.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

constexpr int around = 24;
constexpr double step = 6.283185307179586 / around;

/// Points of a circle, the first one after some steps.
std::string ring(double r, int first) {
    std::vector<double> points;
    for (int i = first; i < first + around; ++i)
        points.insert(points.end(), {r * std::cos(i * step), r * std::sin(i * step)});
    return text_of(points, 2);
}

TEST(Curve, CirclesHaveTheirTangentsAndCurvatureInEveryUnit) {
    const Workshop w;
    w.file("tangents", ring(9, 6));
    for (const double r : {5.0, 5e-13, 5e13}) {
        w.file("ring", ring(r, 0));
        for (const std::string how : {"--all-slopes", "--slopes tangents --slope-type 5"}) {
            const json result = json_of(w, "curve --2d --periodic ring " + how);
            ASSERT_EQ(result["points"].size(), std::size_t{around});
            // A parabola through three points of the circle bends more than it and is slower than
            // the chords; the middle of the cubic that is corrected lies on the arc.
            const double c = std::cos(0.5 * step), bend = 1 / (c * c);
            const double speed = how == "--all-slopes" ? c : 2 / (1 + c);
            for (int i = 0; i < around; ++i) {
                const json& p = result["points"][i];
                const double u[] = {std::cos(step * i), std::sin(step * i)}, v[] = {-u[1], u[0]};
                EXPECT_NEAR(p["parameter"].get<double>() / r, 2 * i * std::sin(0.5 * step), 1e-12);
                for (const int k : {0, 1}) {
                    EXPECT_NEAR(p["curvature"][k].get<double>() * r, -bend * u[k], 1e-11);
                    EXPECT_NEAR(p["slope"][k].get<double>(), speed * v[k], 1e-11);
                }
            }
        }
    }
}

TEST(Curve, GivesBackAllMemory) {
    const NoBlocksLeft no_blocks_left;
    const tool::Points points{2, {1e15, -1e15, 0, 0, 1e-300, 1, 7, 7, 7, 7}, {1, 2, 3, 4, 5}};
    tool::CurveOptions options;
    for (const bool periodic : {false, true}) {
        options.least_squares = !(options.periodic = periodic);
        EXPECT_EQ(tool::curve_data(options, points, &points).coincident->second, 5U);
    }
}

}  // namespace
