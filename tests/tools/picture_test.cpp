// Pictures of fits, read back: what they show is where the numbers say it is.
#include "circle_picture.h"
#include "line_picture.h"
#include "pictured.h"
#include "plane_picture.h"
#include "support/support.h"
#include "svg_document.h"

namespace {

using namespace tool;
using namespace ztmath_test;
using Numbers = std::vector<double>;

const Unit& millimetres = unit_named("mm");

template <class Rule>
Points points_by(Rule rule) {
    Random random;
    Points points{std::tuple_size_v<decltype(rule(random))>, {}, {}};
    for (std::uint32_t line = 1; line <= 90; ++line) {
        const auto p = rule(random);
        points.coordinates.insert(points.coordinates.end(), p.begin(), p.end());
        points.lines.push_back(line);
    }
    return points;
}

/// How many pixels one is, where all pixels must be one linear function of the numbers.
double slope_of(const Numbers& pixels, const Numbers& numbers) {
    EXPECT_EQ(pixels.size(), numbers.size());
    const auto [low, high] = std::minmax_element(numbers.begin(), numbers.end());
    const double low_pixel = pixels.at(low - numbers.begin());
    const double slope = (pixels.at(high - numbers.begin()) - low_pixel) / (*high - *low);
    for (std::size_t i = 0; i < pixels.size(); ++i)
        EXPECT_NEAR(pixels[i], low_pixel + slope * (numbers.at(i) - *low), 0.03);
    return slope;
}

/// The dots of a picture show the distances in one panel and the places in another, which is in
/// true proportion; the last dot is the farthest, and in a ring.
template <class Fit, class PlaceOf>
void expect_dots(const Points& points, const Fit& fit, const Deviations& distances,
                 std::string (*picture)(const Points&, const Fit&, const Unit&, const std::string&),
                 const std::string& panel, PlaceOf place_of) {
    const SvgDocument svg(picture(points, fit, millimetres, "p.txt"));
    Numbers x, y, d;
    for (const int i : evenly_chosen(distances)) {
        const Vec2 place = place_of(points.at(i));
        x.push_back(place[0]);
        y.push_back(place[1]);
        d.push_back(distances.of_point[static_cast<std::size_t>(i)]);
    }
    EXPECT_EQ(std::fabs(d.back()), distances.max);
    EXPECT_LT(slope_of(svg.numbers("distances", "dot", "cy"), d), 0.0);
    const double scale = slope_of(svg.numbers(panel, "dot", "cx"), x);
    EXPECT_NEAR(slope_of(svg.numbers(panel, "dot", "cy"), y), -scale, 0.01 * scale);
    for (const std::string& group : {panel, std::string("distances")})
        for (const char* axis : {"cx", "cy"})
            EXPECT_EQ(svg.numbers(group, "ring", axis),
                      Numbers{svg.numbers(group, "dot", axis).back()});
}

/// Where points are in a plane, by its axes.
auto seen_from(const Vec3& origin, const Vec3& right, const Vec3& up) {
    return [=](const double* p) {
        const Vec3 offset = load<3>(p) - origin;
        return Vec2{dot(offset, right), dot(offset, up)};
    };
}

TEST(Picture, OfAPlaneOrALineInSpaceShowsItsPoints) {
    const Points points = points_by([](Random& random) {
        return Vec3{random.uniform(0, 100), random.uniform(0, 60), 7 + 0.1 * random.normal()};
    });
    const PlaneFit plane = fit_plane(points, millimetres);
    expect_dots(points, plane, plane.distances, plane_picture, "plan",
                seen_from(plane.point, plane.axes[0], plane.axes[1]));
    const Line3Fit line = fit_line_3d(points, millimetres);
    expect_dots(points, line, line.distances, line_picture, "points",
                seen_from(line.point, line.direction, line.across));
    expect_dots(points, line, line.distances, line_picture, "end-view",
                seen_from(line.point, line.across, line.normal));
}

TEST(Picture, OfALineOrACircleShowsItsPoints) {
    for (const double slope : {0.0, 0.7, -40.0}) {
        const Points points = points_by([slope](Random& random) {
            const double x = random.uniform(0, 100);
            return Vec2{x, 7 + slope * x + random.normal()};
        });
        const Line2Fit fit = fit_line_2d(points, millimetres);
        expect_dots(points, fit, fit.distances, line_picture, "points", load<2>);
    }
    for (const double arc : {0.3, 6.2}) {
        const Points points = points_by([arc](Random& random) {
            const double a = random.uniform(0, arc), r = 40 + 0.1 * random.normal();
            return Vec2{3 + r * std::cos(a), 5 + r * std::sin(a)};
        });
        const CircleFit fit = fit_circle(points, millimetres);
        expect_dots(points, fit, fit.distances, circle_picture, "points", load<2>);
    }
}

}  // namespace
