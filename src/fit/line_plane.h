// Least-squares lines and planes: what the other fits use of them.
#pragma once

#include "fit/lsfit.h"
#include "frame/mat3.h"

namespace ztmath {

struct LineFit {
    Vec2 point{};
    Vec2 normal{};
    FitStatistics statistics;
    bool coincident = false;
    bool converged = true;
};

struct PlaneFit {
    Vec3 point{};
    Vec3 normal{};
    FitStatistics statistics;
    bool collinear = false;
    bool converged = true;
};

/// A frame in a plane: its origin and its axes, of which the third is the normal.
struct PlaneFrame {
    Vec3 origin{};
    Mat3 axes{};

    Vec3 in_space(Vec2 p) const { return origin + transposed_times(axes, {p.x, p.y, 0.0}); }
};

// Of n points, n > 0.
LineFit fit_line(const double* points, int n);
PlaneFit fit_plane(const double* points, int n);
Vec3 centroid_of(const double* points, int n);

/// Zero axes where the normal gives none.
PlaneFrame plane_frame(Vec3 origin, Vec3 normal);

/// Writes the points' coordinates x, y in the frame.
void map_into_plane(const double* points, int n, const PlaneFrame& frame, double* in_plane);

void store(const PlaneFrame& frame, double* record);

/// Reports what a stored fit has to report.
void report_fit(bool has_points, bool converged);

}  // namespace ztmath
