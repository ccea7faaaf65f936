#include "arc_meetings.h"

#include <ztmath/arc_spline_intersections.h>
#include <ztmath/arc_spline_primitives.h>

#include <algorithm>

#include "library_call.h"

namespace tool {

namespace {

int bound(const Entity& e) {
    return e.kind == Entity::segment || e.kind == Entity::arc ? 1 : 0;
}

struct Meeting {
    Vec2 at{};
    double parms[2]{};
    int flags[2]{};
};

struct Meetings {
    int status = 0;
    int count = 0;
    Meeting points[2];
};

Meetings meetings(const Segment& s1, int bounded_1, const Segment& s2, int bounded_2,
                  const Tolerances& tols) {
    Meetings m;
    Meeting& p = m.points[0];
    Meeting& q = m.points[1];
    call_library([&] {
        ARC_SPLINE_inter_of_2_circular_arcs_2d(&s1, &s2, bounded_1, bounded_2, tols.data(),
                                               &m.count, p.at.data(), p.parms, p.flags, q.at.data(),
                                               q.parms, q.flags, &m.status);
    });
    return m;
}

const char* domain_words(int flag, const Entity& e) {
    if (bound(e) == 0) return "";
    return flag == 0 ? "at an end" : "between its ends";
}

/// Circles that touch within the tolerance may count as crossing in two points; one stands for
/// both.
void join_where_touching(Meetings& m, const Segment s[2], const Tolerances& tols) {
    if (m.count < 2 || s[0].type != 1 || s[1].type != 1) return;
    int place = 0;
    call_library([&] {
        place = ARC_SPLINE_ask_where_is_circle_wrt_circle_2d(&s[0], &s[1], tols.distance());
    });
    if (place != 0 && place != -2 && place != -3) return;
    Meeting& p = m.points[0];
    p.at = along(p.at, 0.5, m.points[1].at - p.at);
    m.count = 1;
    call_library([&] {
        for (int k = 0; k < 2; ++k) {
            Vec2 foot;
            int domain = 0;
            ARC_SPLINE_ask_parm_at_a_point_2d(&s[k], p.at.data(), tols.data(), foot.data(),
                                              &p.parms[k], &domain, &m.status);
        }
    });
}

ArcFinding finding_of(const Meeting& p, const Entity* const e[2], std::size_t number) {
    ArcFinding finding;
    finding.shape.name = "point " + std::to_string(number);
    finding.shape.place = p.at;
    for (std::size_t k = 0; k < 2; ++k)
        finding.contacts.push_back(
            {e[k]->name, domain_words(p.flags[k], *e[k]), p.at, miss(*e[k], p.at), p.parms[k]});
    return finding;
}

void refuse_too_small(const Entity& e, const Tolerances& tols) {
    const bool is_small = e.kind == Entity::segment ? length(e.direction) <= tols.distance()
                                                    : e.is_round() && e.radius <= tols.distance();
    if (is_small)
        throw Failure{ExitCode::degenerate,
                      "no meeting points: " + e.name + " is smaller than the tolerance"};
}

}  // namespace

ArcReport meetings_of(const Given& given, const Tolerances& tols) {
    const Entity* const e[]{&given.entities[0], &given.entities[1]};
    for (const Entity* entity : e)
        refuse_too_small(*entity, tols);
    ArcReport report{"Where " + e[0]->name + " and " + e[1]->name + " meet", "points", {}, {}};
    const Segment s[]{e[0]->record(), e[1]->record()};
    Meetings m = meetings(s[0], bound(*e[0]), s[1], bound(*e[1]), tols);
    if (m.status > 0)
        throw Failure{ExitCode::degenerate,
                      "no meeting points: status " + std::to_string(m.status)};
    join_where_touching(m, s, tols);
    // Of circles one inside the other the library gives points that lie on neither.
    for (int i = 0; i < m.count; ++i)
        if (miss(*e[0], m.points[i].at) <= tols.distance())
            report.found.push_back(finding_of(m.points[i], e, report.found.size() + 1));
    if (m.count > 0 && report.found.empty()) report.remark = "one circle lies inside the other";
    return report;
}

}  // namespace tool
