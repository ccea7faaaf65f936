#include "arc_tangents.h"

#include <ztmath/arc_spline_tangents.h>

#include "library_call.h"

namespace tool {

namespace {

/// Only tangents that touch the arc itself count.
int bound(const Entity& round) {
    return round.kind == Entity::arc ? 1 : 0;
}

struct CommonTangents {
    int status = 0;
    int count = 0;
    Segment tangents[2]{};
    double parms[2][2]{};  // on circle 1, on circle 2
};

using CommonTangentsFunction = decltype(&ARC_SPLINE_ask_tangents_exterior_to_circles_2d);

CommonTangents common_tangents(const Entity* circles[2], CommonTangentsFunction ask,
                               const Tolerances& tols) {
    CommonTangents t;
    const Segment c[]{circles[0]->record(), circles[1]->record()};
    call_library([&] {
        ask(&c[0], &c[1], bound(*circles[0]), bound(*circles[1]), tols.data(), &t.count,
            &t.tangents[0], &t.tangents[1], t.parms[0], t.parms[1], &t.status);
    });
    return t;
}

/// How a line touches a circle at a point.
Contact touch(const Entity& line, const Entity& circle, const Vec2& at, double parameter) {
    const double distance = miss(line, circle.place);
    return {circle.name, "touches it", at, std::fabs(distance - circle.radius), parameter};
}

Entity tangent_line(const std::string& name, const Vec2& place, const Vec2& direction) {
    Entity line;
    line.kind = Entity::line;
    line.name = name;
    line.place = place;
    line.direction = direction;
    return line;
}

void add(ArcReport& report, const char* kind, const CommonTangents& t, const Entity* circles[2]) {
    for (int i = 0; i < t.count; ++i) {
        const Segment& s = t.tangents[i];
        const Vec2 from = load<2>(s.start_point);
        const Vec2 direction = load<2>(s.direction);
        const Entity line = tangent_line(kind + (' ' + std::to_string(i + 1)), from, direction);
        report.found.push_back(
            {line,
             {touch(line, *circles[0], from, t.parms[0][i]),
              touch(line, *circles[1], along(from, s.radius, direction), t.parms[1][i])}});
    }
}

[[noreturn]] void refuse(const std::string& what) {
    throw Failure{ExitCode::degenerate, "no tangent: " + what};
}

ArcReport common_tangents_report(const Entity* circles[2], const Tolerances& tols) {
    ArcReport report{
        "Common tangents of " + circles[0]->name + " and " + circles[1]->name, "tangents", {}, {}};
    const CommonTangents outer =
        common_tangents(circles, ARC_SPLINE_ask_tangents_exterior_to_circles_2d, tols);
    if (outer.status == 1 || outer.status == 2)
        refuse(circles[outer.status - 1]->name + " is smaller than the tolerance");
    if (outer.status > 2) report.remark = "the circles touch from inside";
    add(report, "outer", outer, circles);
    add(report, "inner",
        common_tangents(circles, ARC_SPLINE_ask_tangents_interior_to_circles_2d, tols), circles);
    return report;
}

/// Along the tangent at a point of the circle when the points are one, else from one to the other.
Vec2 way(const Vec2& from, const Vec2& to, const Entity& circle, double tol) {
    const Vec2 out = to - circle.place;
    return length(to - from) > tol ? to - from : Vec2{-out[1], out[0]};
}

ArcReport point_tangents_report(const Entity& circle, const Entity& point, const Tolerances& tols) {
    ArcReport report{"Tangents of " + circle.name + " through " + point.name, "tangents", {}, {}};
    const Segment c = circle.record();
    int count = 0;
    Vec2 touched[2];
    double parms[2];
    int flags[2];
    int status = 0;
    call_library([&] {
        ARC_SPLINE_ask_tangents_thru_a_point_2d(&c, point.place.data(), bound(circle), tols.data(),
                                                &count, touched[0].data(), touched[1].data(), parms,
                                                flags, &status);
    });
    if (status > 0) refuse("the circle is too small, or the point lies in its centre");
    for (int i = 0; i < count; ++i) {
        const Entity line = tangent_line("tangent " + std::to_string(i + 1), point.place,
                                         way(point.place, touched[i], circle, tols.distance()));
        report.found.push_back(
            {line,
             {{point.name, "passes through it", point.place, miss(line, point.place)},
              touch(line, circle, touched[i], parms[i])}});
    }
    return report;
}

}  // namespace

ArcReport tangents_of(const Given& given, const Tolerances& tols) {
    const Entity* const entities[]{&given.entities[0], &given.entities[1]};
    if (entities[0]->kind == Entity::point)
        return point_tangents_report(*entities[1], *entities[0], tols);
    if (entities[1]->kind == Entity::point)
        return point_tangents_report(*entities[0], *entities[1], tols);
    const Entity* circles[]{entities[0], entities[1]};
    return common_tangents_report(circles, tols);
}

}  // namespace tool
