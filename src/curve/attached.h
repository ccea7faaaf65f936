// Vectors attached to points, the slopes or the curvatures of a record: a list of vectors, one of
// parameters, an array of type codes, kept in step.
#pragma once

#include "curve/sites.h"

namespace ztmath {

enum SlopeType {
    slope_automatic = 0,
    slope_fixed = 1,
    slope_direction = 2,
    slope_direction_kept = 3,
    slope_direction_and_sense = 4,
    slope_direction_corrected = 5,
};
enum CurvatureType { curvature_fixed = 0, curvature_of_radius = 1 };

struct Attached {
    PNTLST*& vectors;
    PNTLST*& parameters;
    int*& types;
    int type_of_given;  // for vectors that came without a code
};

inline Attached slopes_of(BCDF& record) {
    return {record.slopes, record.slope_parameters, record.slope_types, slope_fixed};
}
inline Attached curvatures_of(BCDF& record) {
    return {record.curvatures, record.curvature_parameters, record.curvature_types,
            curvature_fixed};
}

inline int count(const Attached& a) {
    return std::min(count(a.vectors), count(a.parameters));
}

/// A slope without a type code is as the user gave it.
inline int slope_type(const BCDF& record, int k) {
    return record.slope_types != nullptr ? record.slope_types[k] : slope_fixed;
}
inline int curvature_type(const BCDF& record, int k) {
    return record.curvature_types != nullptr ? record.curvature_types[k] : curvature_fixed;
}

/// Overwrites the vector only.
void put(const Attached& a, int k, Vec3 v);

/// Overwrites vector and code; without codes, all get one first. When memory runs out, all is as it
/// was.
void overwrite(const Attached& a, int k, Vec3 v, int type);

/// Inserts before k; lists that are absent are made, the vectors of the points' dimension. When
/// memory runs out, what the lists hold is as it was.
void insert(const Attached& a, int dimension, int k, Vec3 v, double parameter, int type);

/// Removes `number` vectors from k on, all of them released for good. `step` codes move down by as
/// many places, and no more.
void remove(const Attached& a, int k, int number, int step);

/// Releases lists and codes.
void release(const Attached& a);

/// Neighbours in a list, to be removed together.
struct Run {
    int first, number;
};

/// Has removed what `find` finds for each of [begin, end), one at a time in ascending order, but
/// neighbours together: a search that ends right behind them ends there too when they are gone.
template <class Find, class RemoveRun>
void remove_each(int begin, int end, Find find, RemoveRun remove_run) {
    Run run{0, 0};
    for (int i = begin; i < end; ++i) {
        Found at = find(i);
        if (run.number > 0 && at.index != run.first + run.number) {
            remove_run(run);
            run.number = 0;
            at = find(i);
        }
        if (!at.found) continue;
        if (run.number == 0) run.first = at.index;
        ++run.number;
    }
    if (run.number > 0) remove_run(run);
}

/// Removes curvatures that were found one by one.
void remove_curvature_run(BCDF& record, Run run);

}  // namespace ztmath
