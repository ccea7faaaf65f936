#include "arc_problem.h"

#include <ztmath/arc_spline_constructions.h>
#include <ztmath/arc_spline_primitives.h>
#include <ztmath/arc_spline_tangent_circles.h>

#include <cmath>

#include "arc_meetings.h"
#include "library_call.h"
#include "number.h"

namespace tool {

namespace {

/// What a construction writes.
struct Result {
    int status = 0;
    int count = 0;
    Segment circles[8]{};

    /// The first two, for functions that write two records.
    Segment& first() { return circles[0]; }
    Segment& second() { return circles[1]; }
};

/// What a status says; the words of status 1 come first.
using StatusWords = std::vector<const char*>;

const char* const coincident_points = "the points coincide within the tolerance";

Entity circle_of(const Vec2& centre, double radius, std::size_t number) {
    Entity circle;
    circle.kind = Entity::circle;
    circle.name = "solution " + std::to_string(number);
    circle.place = centre;
    circle.radius = radius;
    return circle;
}

ArcSolutions solutions(const Result& result, const StatusWords& words) {
    ArcSolutions found;
    if (result.status > 0) {
        const auto number = static_cast<std::size_t>(result.status - 1);
        found.fault =
            number < words.size() ? words[number] : "status " + std::to_string(result.status);
        return found;
    }
    for (int i = 0; i < result.count; ++i) {
        const Segment& record = result.circles[i];
        if (record.type == 1)
            found.circles.push_back(
                circle_of(load<2>(record.center), record.radius, found.circles.size() + 1));
        else
            found.remark = "the point lies on the line, which takes the circle's place";
    }
    return found;
}

const double* point(const Given& given, int number) {
    return given.of(Entity::point, number).place.data();
}

Segment circle(const Given& given, int number) {
    return given.of(Entity::circle, number).record();
}

double distance_from(const Entity& line, const Vec2& p, double tol, Vec2& foot) {
    double parm = 0.0;
    int side = 0;
    double distance = 0.0;
    const Segment s = line.record();
    call_library([&] {
        distance = ARC_SPLINE_ask_dist_pt_to_line_2d(p.data(), line.place.data(), s.direction, tol,
                                                     foot.data(), &parm, &side);
    });
    return std::fabs(distance);
}

/// The line that the point to touch at lies on.
struct Touched {
    int number = 0;
    std::string fault;
};

Touched line_touched(const Given& given, const Tolerances& tols) {
    Touched touched;
    double nearest = HUGE_VAL;
    Vec2 nearest_foot{};
    for (int i = 0; i < given.count(Entity::line); ++i) {
        Vec2 foot;
        const double distance =
            distance_from(given.of(Entity::line, i), *given.at, tols.distance(), foot);
        if (distance >= nearest) continue;
        nearest = distance;
        nearest_foot = foot;
        touched.number = i;
    }
    if (nearest > tols.distance())
        touched.fault = "the point to touch at is " + rounded(nearest, 2) + " off " +
                        given.of(Entity::line, touched.number).name + "; nearest to it is " +
                        exact(nearest_foot[0]) + ',' + exact(nearest_foot[1]);
    return touched;
}

// ---- The problems -------------------------------------------------------------------------------

ArcSolutions three_points(const Given& g, const Tolerances& tols) {
    Result r;
    call_library([&] {
        ARC_SPLINE_cre_circle_thru_3_points_2d(point(g, 0), point(g, 1), point(g, 2), tols.data(),
                                               &r.first(), &r.status);
    });
    r.count = 1;
    return solutions(r, {"the points lie on one line", coincident_points});
}

/// A circle of the radius about each point: the centres are where they meet. Only the circle on the
/// chord as diameter is made in one step.
ArcSolutions two_points_radius(const Given& g, const Tolerances& tols) {
    Result r;
    call_library([&] {
        ARC_SPLINE_cre_circle_thru_2_points_and_radius(point(g, 0), point(g, 1), *g.radius, 0,
                                                       tols.data(), &r.count, &r.first(),
                                                       &r.second(), &r.status);
    });
    if (r.status > 0 || r.count == 1) return solutions(r, {coincident_points});
    Given circles;
    for (Entity e : g.entities) {
        e.kind = Entity::circle;
        e.radius = *g.radius;
        circles.entities.push_back(std::move(e));
    }
    ArcSolutions found;
    for (const ArcFinding& meeting : meetings_of(circles, tols).found) {
        const std::size_t number = found.circles.size() + 1;
        found.circles.push_back(circle_of(meeting.shape.place, *g.radius, number));
    }
    return found;
}

ArcSolutions two_points_line(const Given& g, const Tolerances& tols) {
    Result r;
    const Entity& line = g.of(Entity::line, 0);
    call_library([&] {
        ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line(
            point(g, 0), point(g, 1), line.place.data(), line.direction.data(), tols.data(),
            &r.count, &r.first(), &r.second(), &r.status);
    });
    return solutions(r, {coincident_points, "the line has no direction"});
}

ArcSolutions two_points_circle(const Given& g, const Tolerances& tols) {
    Result r;
    const Segment c = circle(g, 0);
    call_library([&] {
        ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle(point(g, 0), point(g, 1), &c,
                                                              tols.data(), &r.count, &r.first(),
                                                              &r.second(), &r.status);
    });
    return solutions(r, {coincident_points, "the circle is smaller than the tolerance"});
}

ArcSolutions point_line_at(const Given& g, const Tolerances& tols) {
    const Touched touched = line_touched(g, tols);
    if (!touched.fault.empty()) return {{}, touched.fault, {}};
    Result r;
    call_library([&] {
        ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d(
            point(g, 0), g.at->data(), g.of(Entity::line, 0).direction.data(), tols.data(),
            &r.first(), &r.status);
    });
    r.count = 1;
    return solutions(r, {coincident_points, "the line has no direction"});
}

/// With an angle, or touching.
ArcSolutions circle_line_at(const Given& g, const Tolerances& tols) {
    const Touched touched = line_touched(g, tols);
    if (!touched.fault.empty()) return {{}, touched.fault, {}};
    Result r;
    const Segment c = circle(g, 0);
    const Segment line = g.of(Entity::line, 0).record();
    call_library([&] {
        if (g.angle)
            ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d(
                &c, &line, g.at->data(), *g.angle, tols.data(), &r.count, &r.first(), &r.second(),
                &r.status);
        else
            ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d(
                &c, &line, g.at->data(), tols.data(), &r.count, &r.first(), &r.second(), &r.status);
    });
    return solutions(r, {"the circle is smaller than the tolerance", "the line has no direction",
                         "the point to touch at is off the line", "the angle is not valid"});
}

ArcSolutions two_lines_at(const Given& g, const Tolerances& tols) {
    const Touched touched = line_touched(g, tols);
    if (!touched.fault.empty()) return {{}, touched.fault, {}};
    Result r;
    const Segment other = g.of(Entity::line, 1 - touched.number).record();
    const Segment line = g.of(Entity::line, touched.number).record();
    call_library([&] {
        ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d(
            &other, &line, g.at->data(), tols.data(), &r.count, &r.first(), &r.second(), &r.status);
    });
    return solutions(r, {"a line has no direction", "a line has no direction",
                         "the point to touch at is off the line"});
}

const StatusWords circle_faults{"circle 1 is smaller than the tolerance",
                                "circle 2 is smaller than the tolerance",
                                "the circles are one and the same"};

ArcSolutions two_circles_point(const Given& g, const Tolerances& tols) {
    Result r;
    const Segment c[]{circle(g, 0), circle(g, 1)};
    call_library([&] {
        ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt(&c[0], &c[1], point(g, 0), tols.data(),
                                                            &r.count, r.circles, &r.status);
    });
    return solutions(r, circle_faults);
}

ArcSolutions two_circles_radius(const Given& g, const Tolerances& tols) {
    Result r;
    const Segment c[]{circle(g, 0), circle(g, 1)};
    call_library([&] {
        ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d(
            &c[0], &c[1], *g.radius, tols.data(), &r.count, r.circles, &r.status);
    });
    StatusWords words = circle_faults;
    words.push_back("the radius is smaller than the tolerance");
    return solutions(r, words);
}

ArcSolutions three_circles(const Given& g, const Tolerances& tols) {
    Result r;
    const Segment c[]{circle(g, 0), circle(g, 1), circle(g, 2)};
    call_library([&] {
        ARC_SPLINE_cre_circle_tangent_to_3_circles(&c[0], &c[1], &c[2], tols.data(), &r.count,
                                                   r.circles, &r.status);
    });
    return solutions(r,
                     {circle_faults[0], circle_faults[1], "circle 3 is smaller than the tolerance",
                      "two of the circles are one and the same"});
}

constexpr ArcProblem problems[]{
    {"Circle through three points", "three points", 3, 0, 0, false, false, false, three_points},
    {"Circles of a radius through two points", "two points and a radius", 2, 0, 0, true, false,
     false, two_points_radius},
    {"Circles through two points that touch a line", "two points and a line", 2, 1, 0, false, false,
     false, two_points_line},
    {"Circles through two points that touch a circle", "two points and a circle", 2, 0, 1, false,
     false, false, two_points_circle},
    {"Circle through a point that touches a line at a point of it",
     "a point, a line and a point to touch at", 1, 1, 0, false, true, false, point_line_at},
    {"Circles that touch a circle, and a line at a point of it",
     "a line, a circle and a point to touch at", 0, 1, 1, false, true, false, circle_line_at},
    {"Circles that touch a line at a point of it and cross a circle at an angle",
     "a line, a circle, a point to touch at and an angle", 0, 1, 1, false, true, true,
     circle_line_at},
    {"Circles that touch two lines, one of them at a point of it",
     "two lines and a point to touch at", 0, 2, 0, false, true, false, two_lines_at},
    {"Circles through a point that touch two circles", "a point and two circles", 1, 0, 2, false,
     false, false, two_circles_point},
    {"Circles of a radius that touch two circles", "two circles and a radius", 0, 0, 2, true, false,
     false, two_circles_radius},
    {"Circles that touch three circles", "three circles", 0, 0, 3, false, false, false,
     three_circles},
};

}  // namespace

bool ArcProblem::fits(const Given& given) const {
    return given.count(Entity::point) == points && given.count(Entity::line) == lines &&
           given.count(Entity::circle) == circles && given.radius.has_value() == radius &&
           given.at.has_value() == at && given.angle.has_value() == angle;
}

const ArcProblem* problem_of(const Given& given) {
    for (const ArcProblem& problem : problems)
        if (problem.fits(given)) return &problem;
    return nullptr;
}

std::string possible_problems() {
    std::string lines;
    for (const ArcProblem& problem : problems)
        lines += std::string("  ") + problem.words + '\n';
    return lines;
}

}  // namespace tool
