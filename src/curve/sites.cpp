#include "curve/sites.h"

#include <cmath>
#include <limits>

#include "ztmath/bcdf_gen.h"

namespace ztmath {

namespace {

constexpr Module report = bcdf_gen_module.part(11);

/// So many values are walked; more are taken to ascend, but for neighbours nearer than `reach`
/// tolerances, which edits leave in any order.
constexpr std::size_t most_walked = 1024;
constexpr double reach = 8.0;

/// Walks to the first value that matches or ends the walk. Values below `before` and NaN do
/// neither, and nothing does where `before` is NaN.
template <class Matches, class Ends>
Found walk(std::span<const double> values, double before, Matches matches, Ends ends) {
    const auto is_before = [before](double value) { return !(value >= before); };
    const auto start = values.size() <= most_walked
                           ? std::find_if_not(values.begin(), values.end(), is_before)
                           : std::partition_point(values.begin(), values.end(), is_before);
    const auto at = std::find_if(start, values.end(),
                                 [&](double value) { return matches(value) || ends(value); });
    return {at != values.end() && matches(*at), static_cast<int>(at - values.begin())};
}

/// Walks to the first value that matches t or ends the walk.
template <class Ends>
Found walk_to(double t, std::span<const double> values, Ends ends) {
    return walk(
        values, t - reach * parameter_tolerance,
        [t](double value) { return parameters_match(value, t); }, ends);
}

/// A point's parameter, and those beside it; the ends have neighbours one whole span away.
struct Surroundings {
    double previous, t, next, span;
};

Surroundings surroundings(std::span<const double> t, int position) {
    const auto i = static_cast<std::size_t>(position);
    const double span = std::fabs(t.back() - t.front());
    return {i == 0 ? t[i] - span : t[i - 1], t[i], i + 1 == t.size() ? t[i] + span : t[i + 1],
            span};
}

}  // namespace

Found find_parameter(std::span<const double> values, double t) {
    return walk_to(t, values, [t](double value) { return value > t; });
}

Found find_curvature(const BCDF& record, double t) {
    return walk_to(t, curvature_sites(record), [t](double value) { return value >= t; });
}

Found slope_at_point(const BCDF& record, int position) {
    if (!is_site(record, position)) return {false, 0};
    const Surroundings site = surroundings(parameters(record), position);
    const double eps = parameter_tolerance * site.span;
    const auto matches = [&](double s) {
        const double distance = std::fabs(s - site.t);
        return distance <= eps && distance < std::fabs(s - site.previous) &&
               distance < std::fabs(s - site.next);
    };
    return walk(slope_sites(record), site.t - reach * eps, matches,
                [&](double s) { return s >= site.t - eps; });
}

Found curvature_at_point(const BCDF& record, int position) {
    if (!is_site(record, position)) return {false, 0};
    return find_curvature(record, parameters(record)[static_cast<std::size_t>(position)]);
}

Found find_point(const BCDF& record, double t) {
    const auto values = parameters(record);
    const bool ascend = values.size() > most_walked;
    return walk_to(t, values, [=](double value) { return ascend && value > t; });
}

Found point_at_parameter(const BCDF& record, double t) {
    const Found point = find_point(record, t);
    if (point.found) return point;
    if (checking()) report.internal("Bcurve Defining Data Structure Corrupt");
    return {false, count(record.points)};
}

void write_positions(std::span<const double> points, std::span<const double> sites,
                     int* positions) {
    std::fill_n(positions, sites.size(), 0);
    std::size_t k = 0;
    for (std::size_t i = 0; i < points.size() && k < sites.size(); ++i)
        if (parameters_match(points[i], sites[k])) positions[k++] = static_cast<int>(i) + 1;
}

}  // namespace ztmath

using namespace ztmath;

namespace {

int* new_position_array(const BCDF& record, std::span<const double> sites, int* number) {
    *number = static_cast<int>(sites.size());
    if (sites.empty()) return nullptr;
    SmArray<int> positions(*number);
    write_positions(parameters(record), sites, positions.data());
    return positions.release();
}

/// The index is stored where there was anything to search.
int answer(Found found, bool searched, int* index) {
    if (searched) *index = found.index;
    return found.found;
}

bool is_index(std::span<const double> sites, int index) {
    return index >= 0 && static_cast<std::size_t>(index) < sites.size();
}

/// The point of a slope or curvature; no site, when there is none, matches no point.
int point_of(const BCDF& record, std::span<const double> sites, int index) {
    constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();
    return point_at_parameter(
               record, is_index(sites, index) ? sites[static_cast<std::size_t>(index)] : nowhere)
        .index;
}

}  // namespace

int BCDF_parameter_in_list(const BCDF* record, double t, int* position) {
    if (checking() && record->parameters == nullptr)
        report.internal("The Parameter List Has A NULL Value");
    return answer(find_parameter(parameters(*record), t), true, position);
}

int BCDF_point_at_slope(const BCDF* record, int slope) {
    return point_of(*record, slope_sites(*record), slope);
}

int BCDF_point_at_curvature(const BCDF* record, int curvature) {
    return point_of(*record, curvature_sites(*record), curvature);
}

int BCDF_slope_at_point(const BCDF* record, int position, int* slope) {
    const bool searched = is_site(*record, position) && !slope_sites(*record).empty();
    return answer(slope_at_point(*record, position), searched, slope);
}

int BCDF_curvature_at_point(const BCDF* record, int position, int* curvature) {
    const bool searched = is_site(*record, position) && !curvature_sites(*record).empty();
    return answer(curvature_at_point(*record, position), searched, curvature);
}

int BCDF_curvature_at_slope(const BCDF* record, int slope, int* curvature) {
    const auto slopes = slope_sites(*record);
    const auto curvatures = curvature_sites(*record);
    if (!is_index(slopes, slope) || curvatures.empty()) return 0;
    return answer(find_curvature(*record, slopes[static_cast<std::size_t>(slope)]), true,
                  curvature);
}

int BCDF_slope_at_curvature(const BCDF* record, int curvature, int* slope_index, double slope[3]) {
    const int point = BCDF_point_at_curvature(record, curvature);
    const Found found = slope_at_point(*record, point);
    if (!found.found && checking()) report.internal("Point With Assigned Curvature Has No Slope");
    if (found.found) *slope_index = found.index;
    store(found.found ? vector_at(*record->slopes, found.index) : Vec3{}, slope);
    return found.found;
}

int* BCDF_create_slope_pos_array(const BCDF* record, int* number) {
    return new_position_array(*record, slope_sites(*record), number);
}

int* BCDF_create_crvatr_pos_array(const BCDF* record, int* number) {
    return new_position_array(*record, curvature_sites(*record), number);
}
