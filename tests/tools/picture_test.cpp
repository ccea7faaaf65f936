// Pictures, read back: what they show is where the numbers say it is.
#include "circle_picture.h"
#include "line_picture.h"
#include "plane_picture.h"
#include "run_tool.h"
#include "sphere_picture.h"
#include "support/random.h"
#include "svg_document.h"

namespace {

using namespace tool;
using namespace ztmath_test;

const Unit& millimetres = unit_named("mm");

Points scattered(int dimension, int count, double noise) {
    Random random;
    Points points{dimension, {}, {}};
    for (int i = 0; i < count; ++i) {
        points.coordinates.push_back(random.uniform(0.0, 100.0));
        if (dimension == 3) points.coordinates.push_back(random.uniform(0.0, 60.0));
        points.coordinates.push_back(7.0 + noise * random.normal());
        points.lines.push_back(static_cast<std::uint32_t>(i + 1));
    }
    return points;
}

SvgDocument plane_svg(const Points& points, const std::string& name = "p.txt") {
    SCOPED_TRACE(name);
    return SvgDocument(plane_picture(points, fit_plane(points, millimetres), millimetres, name));
}

/// The distances in the order in which points are drawn: the farthest last.
std::vector<double> drawn_distances(std::vector<double> distances) {
    std::stable_sort(distances.begin(), distances.end(),
                     [](double a, double b) { return std::fabs(a) < std::fabs(b); });
    return distances;
}

double distance_between(const SvgElement& a, const SvgElement& b) {
    return std::hypot(a.number("cx") - b.number("cx"), a.number("cy") - b.number("cy"));
}

/// Fails unless the heights of the dots are one linear function of the distances.
void expect_heights(const std::vector<SvgElement>& dots, const std::vector<double>& distances) {
    ASSERT_EQ(dots.size(), distances.size());
    const auto [low, high] = std::minmax_element(distances.begin(), distances.end());
    const auto y = [&](auto it) {
        return dots[static_cast<std::size_t>(it - distances.begin())].number("cy");
    };
    const double scale = (y(high) - y(low)) / (*high - *low);
    EXPECT_LT(scale, 0.0);
    for (std::size_t i = 0; i < dots.size(); ++i)
        EXPECT_NEAR(dots[i].number("cy"), y(low) + scale * (distances[i] - *low), 0.03);
}

void expect_ring_around(const SvgDocument& svg, const std::string& group, const SvgElement& dot) {
    const auto rings = svg.find(group, "ring");
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_EQ(distance_between(rings[0], dot), 0.0);
}

TEST(PlanePicture, ShowsEveryPointAtItsDistance) {
    for (const int count : {4, 400, 401}) {
        SCOPED_TRACE(count);
        const Points points = scattered(3, count, 0.1);
        const SvgDocument svg = plane_svg(points);
        const auto dots = svg.find("distances", "dot");
        expect_heights(dots, drawn_distances(fit_plane(points, millimetres).distances.of_point));
        expect_ring_around(svg, "distances", dots.back());
        expect_ring_around(svg, "plan", svg.find("plan", "dot").back());
        EXPECT_EQ(svg.find("distances", "residual").size(), count <= 400 ? count : 0U);
        EXPECT_EQ(svg.find("plan", "dot").size(), static_cast<std::size_t>(count));
    }
}

TEST(PlanePicture, ThinsOutButKeepsTheFarthest) {
    Points points = scattered(3, 50000, 0.1);
    points.coordinates[3 * 33333 + 2] += 9.0;
    const SvgDocument svg = plane_svg(points);
    const auto dots = svg.find("distances", "dot");
    EXPECT_LT(dots.size(), 3600U);
    EXPECT_LT(svg.find("plan", "dot").size(), 3100U);
    expect_ring_around(svg, "distances", dots.back());
    expect_parts(svg.words("distances"), {"line 33334"});
    expect_parts(svg.words("heading"), {"50 000 points", "about 3 000 of them drawn"});
}

TEST(PlanePicture, OfExactPointsClaimsNoDistances) {
    const Points points{3, {0, 0, 0, 10, 0, 0.1, 0, 7, 0.2}, {1, 2, 3}};
    const SvgDocument svg = plane_svg(points);
    EXPECT_TRUE(svg.find("distances", "ring").empty());
    expect_parts(svg.words("heading"), {"but for rounding"});
}

TEST(LinePicture, IsInTrueProportion) {
    for (const auto& slope : {0.7, -40.0}) {
        SCOPED_TRACE(slope);
        Points points = scattered(2, 60, 3.0);
        for (std::size_t i = 0; i < points.coordinates.size(); i += 2)
            points.coordinates[i + 1] += slope * points.coordinates[i];
        const Line2Fit fit = fit_line_2d(points, millimetres);
        const SvgDocument svg(line_picture(points, fit, millimetres, "p.txt"));
        expect_heights(svg.find("distances", "dot"), drawn_distances(fit.distances.of_point));
        expect_ring_around(svg, "points", svg.find("points", "dot").back());
        const SvgElement line = svg.find("points", "fit").at(0);
        const auto along = [](const SvgElement& e) {
            return Vec2{e.number("x2") - e.number("x1"), e.number("y2") - e.number("y1")};
        };
        const Vec2 direction = along(line);
        EXPECT_NEAR(direction[1] / direction[0], -fit.direction[1] / fit.direction[0],
                    0.01 * (1.0 + slope * slope));
        const auto residuals = svg.find("points", "residual");
        ASSERT_EQ(residuals.size(), 60U);
        for (const SvgElement& residual : residuals)  // they stand square on the line
            EXPECT_NEAR(dot(along(residual), direction) / length(direction), 0.0, 0.03);
    }
}

TEST(LinePicture, OfALineInSpaceShowsItFromTheSideAndEndOn) {
    const Points points = scattered(3, 50, 1.0);
    const Line3Fit fit = fit_line_3d(points, millimetres);
    const SvgDocument svg(line_picture(points, fit, millimetres, "p.txt"));
    expect_heights(svg.find("distances", "dot"), drawn_distances(fit.distances.of_point));
    const auto dots = svg.find("end-view", "dot");
    const SvgElement rms = svg.find("end-view", "band").at(0);
    const double per_unit = rms.number("r") / fit.distances.rms;
    EXPECT_NEAR(distance_between(dots.back(), rms), fit.distances.max * per_unit, 0.05);
}

/// Points about (3, 5) or (3, 5, 7): an arc of radius 40, or a cap.
Points around(int dimension, int count, double widest) {
    Random random;
    Points points{dimension, {}, {}};
    for (int i = 0; i < count; ++i) {
        const double a = random.uniform(0, widest), r = 40 + 0.1 * random.normal();
        const double b = dimension == 3 ? random.uniform(0, 6) : 0;
        points.coordinates.push_back(3 + r * std::cos(a));
        points.coordinates.push_back(5 + r * std::sin(a) * std::cos(b));
        if (dimension == 3) points.coordinates.push_back(7 + r * std::sin(a) * std::sin(b));
        points.lines.push_back(static_cast<std::uint32_t>(i + 1));
    }
    return points;
}

TEST(CirclePicture, IsInTrueProportionAndShowsTheDistances) {
    for (const double arc : {0.3, 6.2}) {
        const Points points = around(2, 90, arc);
        const CircleFit fit = fit_circle(points, millimetres);
        const SvgDocument svg(circle_picture(points, fit, millimetres, "p.txt"));
        const auto distances = drawn_distances(fit.distances.of_point);
        expect_heights(svg.find("distances", "dot"), distances);
        const SvgElement circle = svg.find("points", "fit")[0];
        const auto dots = svg.find("points", "dot");
        ASSERT_EQ(dots.size(), distances.size());
        const double scale = circle.number("r") / fit.radius;
        for (std::size_t i = 0; i < dots.size(); ++i)
            EXPECT_NEAR(distance_between(dots[i], circle), scale * (fit.radius + distances[i]),
                        0.03);
    }
}

TEST(SpherePicture, ShowsEveryPointWithinTheOutline) {
    const Points points = around(3, 300, 0.5);
    const SphereFit fit = fit_sphere(points, millimetres);
    const SvgDocument svg(sphere_picture(points, fit, millimetres, "p.txt"));
    expect_heights(svg.find("distances", "dot"), drawn_distances(fit.distances.of_point));
    const SvgElement outline = svg.find("plan", "fit")[0];
    EXPECT_EQ(svg.find("plan", "dot").size(), 300U);
    for (const SvgElement& dot : svg.find("plan", "dot"))
        EXPECT_LT(distance_between(dot, outline), 1.01 * outline.number("r"));
}

TEST(Picture, StaysWellFormedWhateverTheFileIsCalled) {
    const Points points = scattered(3, 9, 0.1);
    for (const char* name : {"a&b<c>\"d\".txt", "\xff\xfe\x01\x1b.txt", "\u00e9\u4e2d\U0001f600",
                             "\xc0\x80 \xed\xa0\x80 \xf4\x90\x80\x80 \xe4\xb8", ""})
        plane_svg(points, name);
    const auto heading = [&](const std::string& name) {
        return plane_svg(points, name).words("heading");
    };
    const std::string a(16, 'a'), b(60, 'b'), c(15, 'c');
    expect_parts(heading(a + "\u4e2d" + b + "\u4e2d" + c), {"through " + a + "\u2026" + c + "\n"});
    expect_parts(heading("d/a&\u00e9\xff"), {"Plane through a&\u00e9?"});
}

}  // namespace
