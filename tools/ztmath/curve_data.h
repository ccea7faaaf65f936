// What defines a curve through points: their parameters, slopes, curvatures and weights.
#pragma once

#include <string>
#include <vector>

#include "points_file.h"
#include "vec.h"

namespace tool {

struct CurveOptions {
    std::string file;
    std::string slopes;  // a file with a slope for each point; "" for none
    int slope_type = 1;
    bool all_slopes = false;
    bool planar = false;
    bool periodic = false;
    bool least_squares = false;
    int order = 4;
    double tolerance = 0.0;
    int segments = 0;
    bool json = false;
    std::string svg;  // "" for none

    std::string source() const { return source_name(file); }
};

struct CurvePoint {
    Vec3 at;
    double parameter;
    bool has_slope;
    Vec3 slope;      // given or automatic
    Vec3 curvature;  // automatic
    double weight;   // 0 without least squares
};

struct CurveData {
    std::vector<CurvePoint> points;
    int status;  // of the validation
    int constraints;
    int continuity;
    double length;  // of the polygon

    /// "valid", or what keeps a curve from being made.
    std::string status_words() const;
};

/// The defining data that the library makes of points, with slopes that belong to them or none.
CurveData curve_data(const CurveOptions& options, const Points& points, const Points* slopes);

}  // namespace tool
