// Editing the slopes of curve defining data.
#include "curve/editing.h"
#include "curve/slope_length.h"
#include "kit/vec3.h"
#include "ztmath/bcdf_gen.h"
#include "ztmath/tolerance.h"

namespace ztmath {

namespace {

/// A unit curvature turned about z by the angle with this cosine and sine.
Vec3 turned(Vec3 k, double cosine, double sine) {
    return {k.x * cosine - k.y * sine, k.x * sine + k.y * cosine, k.z};
}

Vec3 direction(Vec3 v) {
    return unitize_unchecked(v, null_length).unit;
}

/// What a curvature becomes when the slope at its point changes.
Vec3 realigned(Vec3 curvature, Vec3 old_slope, Vec3 new_slope) {
    const double size = length(curvature);
    if (size < no_direction || is_perpendicular(curvature, new_slope, no_direction))
        return curvature;
    const Vec3 k = curvature * (1.0 / size);
    const Vec3 u = direction(old_slope);
    if (is_null(u)) return curvature;
    const Vec3 b = direction(cross(u, k));
    const Vec3 w = direction(new_slope - b * dot(new_slope, b));
    const double cosine = dot(w, u);
    const double sine = dot(w, k);
    // Kept as it stands: the turn is about z, whatever plane the slopes span. Plane curves come out
    // right, and the stored data of the others has been made this way.
    const Vec3 one_way = turned(k, cosine, sine);
    const bool fits = is_perpendicular(one_way, new_slope, no_direction);
    return (fits ? one_way : turned(k, cosine, -sine)) * size;
}

void realign_curvature(BCDF& record, int position, Vec3 old_slope, Vec3 new_slope) {
    const Found at = curvature_at_point(record, position);
    if (!at.found) return;
    const Vec3 curvature = vector_at(*record.curvatures, at.index);
    put(curvatures_of(record), at.index, realigned(curvature, old_slope, new_slope));
}

/// The parameters of a run of slopes have curvatures; these are removed.
void remove_curvatures_of(BCDF& record, Run run) {
    const auto slopes = slope_sites(record);
    remove_each(
        run.first, run.first + run.number,
        [&](int k) { return find_curvature(record, slopes[static_cast<std::size_t>(k)]); },
        [&](Run curvatures) { remove_curvature_run(record, curvatures); });
}

void remove_slopes(BCDF& record, Run run, int step) {
    const bool all = run.number == count(slopes_of(record));
    if (all)
        remove_all_curvatures(record);
    else
        remove_curvatures_of(record, run);
    remove(slopes_of(record), run.first, run.number, step);
}

/// A slope of type 4 that has come to point against the automatic one is turned round.
void keep_sense(BCDF& record, int k) {
    if (slope_type(record, k) != slope_direction_and_sense) return;
    const Vec3 slope = vector_at(*record.slopes, k);
    const int position = BCDF_point_at_slope(&record, k);
    if (is_site(record, position) && dot(slope, automatic_slope(record, position)) < 0.0)
        replace_slope(record, -slope, position, slope_direction_and_sense);
}

/// The slope at index k anew, by its type.
void derive_again(BCDF& record, int k) {
    const int type = slope_type(record, k);
    if (type == slope_fixed || type == slope_direction_kept) return;
    const Vec3 slope = vector_at(*record.slopes, k);
    const int position = BCDF_point_at_slope(&record, k);
    if (is_site(record, position)) change_slope(record, type, slope, position);
}

void put_automatic_slope(BCDF& record, int position) {
    change_slope(record, slope_automatic, {}, position);
}

/// Two points with one slope: the other end gets its mirror image.
void mirror_slope(BCDF& record, int slope, int last, int position) {
    const Vec3 image =
        mirrored_in_chord(vector_at(*record.slopes, slope), cartesian_point(record, 0),
                          cartesian_point(record, last), EQ_ask_length_tolerance());
    replace_slope(record, image, position, slope_type(record, slope));
}

void add_slopes_to_cubic(BCDF& record, bool start, bool end) {
    const int last = site_count(record) - 1;
    if (last < 1) return;
    if (last == 1 && start != end)
        return start ? mirror_slope(record, 0, last, last)
                     : mirror_slope(record, count(slopes_of(record)) - 1, last, 0);
    if (!start) put_automatic_slope(record, 0);
    if (!end) put_automatic_slope(record, last);
}

}  // namespace

void replace_slope(BCDF& record, Vec3 slope, int position, int type) {
    if (!is_site(record, position)) return;
    const Found at = slope_at_point(record, position);
    if (at.found) {
        const Vec3 old = vector_at(*record.slopes, at.index);
        overwrite(slopes_of(record), at.index, slope, type);
        realign_curvature(record, position, old, slope);
        return;
    }
    insert(slopes_of(record), record.points->dimension, at.index, slope,
           parameters(record)[static_cast<std::size_t>(position)], type);
}

void change_slope(BCDF& record, int type, Vec3 v, int position) {
    if (type < slope_automatic || type > slope_direction_corrected) return;
    const Vec3 slope = type == slope_automatic ? automatic_slope(record, position)
                                               : normalized_slope(record, type, position, v);
    replace_slope(record, slope, position, type);
}

void remove_slope_run(BCDF& record, Run run) {
    remove_slopes(record, run, 1);
}

}  // namespace ztmath

using namespace ztmath;

void BCDF_change_slope(BCDF* record, int type, const double vector[3], int position) {
    change_slope(*record, type, type == slope_automatic ? Vec3{} : load3(vector), position);
}

void BCDF_replace_slope(BCDF* record, const double vector[3], int position, int type) {
    replace_slope(*record, load3(vector), position, type);
}

void BCDF_remove_slopes(BCDF* record, int first, int number) {
    const int all = count(slopes_of(*record));
    const Run run = clipped(number == all ? 0 : first, number, all);
    if (number >= 1 && run.number >= 1) remove_slopes(*record, run, number);
}

void BCDF_update_slopes(BCDF* record) {
    const int number = count(slopes_of(*record));
    if (number < 1) return;
    const bool start = has_start_slope(*record);
    const bool end = has_end_slope(*record);
    for (int k = start ? 1 : 0; k < number - (end ? 1 : 0); ++k)
        keep_sense(*record, k);
    if (start) keep_sense(*record, 0);
    if (end) keep_sense(*record, number - 1);
    for (int k = 0; k < number; ++k)
        derive_again(*record, k);
    BCDF_update_end_slopes(record);
}

void BCDF_update_end_slopes(BCDF* record) {
    if (is_periodic(*record)) return;
    for (const int position : {0, site_count(*record) - 1})
        if (const Found at = slope_at_point(*record, position); at.found)
            derive_again(*record, at.index);
}

void BCDF_add_needed_slopes(BCDF* record) {
    const bool any = count(slopes_of(*record)) > 0;
    const bool start = any && has_start_slope(*record);
    const bool end = any && has_end_slope(*record);
    if (record->weights != nullptr) {
        if (end && !start) put_automatic_slope(*record, 0);
        if (start && !end) put_automatic_slope(*record, site_count(*record) - 1);
    } else if (!is_periodic(*record) && record->order == 4) {
        add_slopes_to_cubic(*record, start, end);
    }
}

void BCDF_unitize_slopes(BCDF* record) {
    const Attached slopes = slopes_of(*record);
    for (int k = 0; k < count(slopes); ++k) {
        const Vec3 slope = vector_at(*slopes.vectors, k);
        put(slopes, k, {});  // stays where a report that is raised does not return
        put(slopes, k, unit_slope(slope));
    }
}
