// Least-squares fits: what lines, planes, circles and spheres share.
#pragma once

#include "frame/report.h"
#include "frame/vec.h"

namespace ztmath {

inline constexpr Module lsfit_module{"lsfit"};

/// Sweeps that the eigenvalue iterations of the fits are allowed.
inline constexpr int fit_sweeps = 60;

/// Points this close to each other, in millimetres, coincide.
inline constexpr double coincidence_tolerance = 0.001;

/// How well a fit fits.
struct FitStatistics {
    double max = 0.0;
    double rms = 0.0;
    double mean = 0.0;
};

inline void store(const FitStatistics& s, double* stats) {
    ztmath::store(Vec3{s.max, s.rms, s.mean}, stats);
}

}  // namespace ztmath
