// How long a slope is to be whose direction alone is given.
//
// A curve that runs evenly through its parameters has a derivative as long as chord over parameter
// span; arcs are longer than their chords, and what they need on top is the magnitude correction.
#pragma once

#include "frame/vec.h"

namespace ztmath {

/// Slopes, curvatures and chords shorter than this have no direction.
inline constexpr double no_direction = 1.0e-10;

/// Where a slope stands among its neighbours: chord lengths and the parameter span they take.
struct Stretch {
    double chord, span;
};

/// The methods of the legacy routine.
enum class LengthMethod {
    automatic = 1,
    as_given,
    like_automatic,
    mean_speed_in_sense,
    mean_speed
};

Vec3 with_length_by(LengthMethod method, Vec3 automatic, Stretch stretch, Vec3 v);

/// s reflected in the line through a and b; s itself when they are within the tolerance.
Vec3 mirrored_in_chord(Vec3 s, Vec3 a, Vec3 b, double tolerance);

/// Which end derivatives an arc is made of.
enum class ArcModel { cubic, with_curvature };

/// How much longer than chord over span the end derivatives of an arc are, by the cosine of the
/// angle between chord and end derivative.
double arc_length_factor(double cosine, ArcModel model);

/// One side of a slope: the chord to the neighbour, away from the point on the next side and
/// towards it on the previous one, its parameter span, and the neighbour's own slope, null if none.
struct Side {
    Vec3 chord;
    double span;
    Vec3 neighbour_slope;
};

/// v as long as the arc on one side wants it.
Vec3 corrected_one_sided(Vec3 v, const Side& side, ArcModel model);

/// v as long as suits the arcs on both sides.
Vec3 corrected_between(Vec3 v, const Side& previous, const Side& next, ArcModel model);

}  // namespace ztmath
