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

/// Points by a rule, as a file has them.
template <class Rule>
Points points_by(int count, Rule rule) {
    Random random;
    Points points{std::tuple_size_v<decltype(rule(random))>, {}, {}};
    for (int i = 0; i < count; ++i) {
        const auto p = rule(random);
        points.coordinates.insert(points.coordinates.end(), p.begin(), p.end());
        points.lines.push_back(static_cast<std::uint32_t>(i + 1));
    }
    return points;
}

Vec3 near_plane(Random& random) {
    return {random.uniform(0, 100), random.uniform(0, 60), 7 + 0.1 * random.normal()};
}

double distance_between(const SvgElement& a, const SvgElement& b) {
    return std::hypot(a.number("cx") - b.number("cx"), a.number("cy") - b.number("cy"));
}

void expect_ring_around_last(const SvgDocument& svg, const std::string& group) {
    const auto rings = svg.find(group, "ring");
    ASSERT_EQ(rings.size(), 1U);
    EXPECT_EQ(distance_between(rings[0], svg.find(group, "dot").back()), 0.0);
}

/// The distances in the order in which points are drawn: the farthest last.
std::vector<double> drawn_distances(std::vector<double> distances) {
    std::stable_sort(distances.begin(), distances.end(),
                     [](double a, double b) { return std::fabs(a) < std::fabs(b); });
    return distances;
}

/// A picture in whose panel of distances the heights of all dots are one linear function of the
/// distances, the farthest marked.
template <class Fit>
SvgDocument picture_of(const Points& points, const Fit& fit,
                       std::string (*picture)(const Points&, const Fit&, const Unit&,
                                              const std::string&)) {
    SvgDocument svg(picture(points, fit, millimetres, "p.txt"));
    const auto distances = drawn_distances(fit.distances.of_point);
    const auto dots = svg.find("distances", "dot");
    EXPECT_EQ(dots.size(), distances.size());
    const auto [low, high] = std::minmax_element(distances.begin(), distances.end());
    const double y_low = dots.at(low - distances.begin()).number("cy");
    const double scale = (dots.at(high - distances.begin()).number("cy") - y_low) / (*high - *low);
    EXPECT_LT(scale, 0.0);
    for (std::size_t i = 0; i < dots.size(); ++i)
        EXPECT_NEAR(dots[i].number("cy"), y_low + scale * (distances.at(i) - *low), 0.03);
    expect_ring_around_last(svg, "distances");
    return svg;
}

TEST(PlanePicture, ShowsEveryPointAtItsDistance) {
    for (const int count : {4, 400, 401}) {
        SCOPED_TRACE(count);
        const Points points = points_by(count, near_plane);
        const SvgDocument svg = picture_of(points, fit_plane(points, millimetres), plane_picture);
        expect_ring_around_last(svg, "plan");
        EXPECT_EQ(svg.find("distances", "residual").size(), count <= 400 ? count : 0U);
        EXPECT_EQ(svg.find("plan", "dot").size(), static_cast<std::size_t>(count));
    }
}

SvgDocument plane_svg(const Points& points, const std::string& name = "p.txt") {
    SCOPED_TRACE(name);
    return SvgDocument(plane_picture(points, fit_plane(points, millimetres), millimetres, name));
}

TEST(PlanePicture, ThinsOutButKeepsTheFarthest) {
    Points points = points_by(50000, near_plane);
    points.coordinates[3 * 33333 + 2] += 9.0;
    const SvgDocument svg = plane_svg(points);
    EXPECT_LT(svg.find("distances", "dot").size(), 3600U);
    EXPECT_LT(svg.find("plan", "dot").size(), 3100U);
    expect_ring_around_last(svg, "distances");
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
    for (const double slope : {0.7, -40.0}) {
        SCOPED_TRACE(slope);
        const Points points = points_by(60, [slope](Random& random) {
            const double x = random.uniform(0, 100);
            return Vec2{x, 7 + slope * x + 3 * random.normal()};
        });
        const Line2Fit fit = fit_line_2d(points, millimetres);
        const SvgDocument svg = picture_of(points, fit, line_picture);
        expect_ring_around_last(svg, "points");
        const auto along = [](const SvgElement& e) {
            return Vec2{e.number("x2") - e.number("x1"), e.number("y2") - e.number("y1")};
        };
        const Vec2 direction = along(svg.find("points", "fit").at(0));
        EXPECT_NEAR(direction[1] / direction[0], -fit.direction[1] / fit.direction[0],
                    0.01 * (1.0 + slope * slope));
        const auto residuals = svg.find("points", "residual");
        ASSERT_EQ(residuals.size(), 60U);
        for (const SvgElement& residual : residuals)  // they stand square on the line
            EXPECT_NEAR(dot(along(residual), direction) / length(direction), 0.0, 0.03);
    }
}

TEST(LinePicture, OfALineInSpaceShowsItFromTheSideAndEndOn) {
    const Points points = points_by(50, near_plane);
    const Line3Fit fit = fit_line_3d(points, millimetres);
    const SvgDocument svg = picture_of(points, fit, line_picture);
    const SvgElement rms = svg.find("end-view", "band").at(0);
    const double farthest = distance_between(svg.find("end-view", "dot").back(), rms);
    EXPECT_NEAR(farthest / rms.number("r"), fit.distances.max / fit.distances.rms, 1e-3);
}

TEST(CirclePicture, IsInTrueProportionAndShowsTheDistances) {
    for (const double arc : {0.3, 6.2}) {
        const Points points = points_by(90, [arc](Random& random) {
            const double a = random.uniform(0, arc), r = 40 + 0.1 * random.normal();
            return Vec2{3 + r * std::cos(a), 5 + r * std::sin(a)};
        });
        const CircleFit fit = fit_circle(points, millimetres);
        const SvgDocument svg = picture_of(points, fit, circle_picture);
        const SvgElement circle = svg.find("points", "fit")[0];
        const double scale = circle.number("r") / fit.radius;
        const auto distances = drawn_distances(fit.distances.of_point);
        const auto dots = svg.find("points", "dot");
        ASSERT_EQ(dots.size(), distances.size());
        for (std::size_t i = 0; i < dots.size(); ++i)
            EXPECT_NEAR(distance_between(dots[i], circle), scale * (fit.radius + distances[i]),
                        0.03);
    }
}

TEST(SpherePicture, ShowsEveryPointWithinTheOutline) {
    const Points cap = points_by(300, [](Random& random) {
        const double a = random.uniform(0, 0.5), b = random.uniform(0, 6);
        const double r = 40 + 0.1 * random.normal(), s = r * std::sin(a);
        return Vec3{3 + r * std::cos(a), 5 + s * std::cos(b), 7 + s * std::sin(b)};
    });
    const SvgDocument svg = picture_of(cap, fit_sphere(cap, millimetres), sphere_picture);
    const SvgElement outline = svg.find("plan", "fit")[0];
    EXPECT_EQ(svg.find("plan", "dot").size(), 300U);
    for (const SvgElement& dot : svg.find("plan", "dot"))
        EXPECT_LT(distance_between(dot, outline), 1.01 * outline.number("r"));
}

TEST(Picture, StaysWellFormedWhateverTheFileIsCalled) {
    const Points points = points_by(9, near_plane);
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
