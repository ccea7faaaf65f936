// What defines a curve through points: their parameters, slopes, curvatures and weights.
#pragma once

#include <optional>
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
    int dimension() const { return planar ? 2 : 3; }
};

struct CurveSlope {
    Vec3 vector;
    int type;
};

struct CurvePoint {
    Vec3 at;
    double parameter;
    std::optional<CurveSlope> slope;  // given or automatic
    Vec3 curvature;                   // of the parabola through the point and its neighbours
    double weight;                    // 0 without least squares
};

/// Two neighbouring points that are one, by their lines in the file.
struct CoincidentPoints {
    std::uint32_t first, second;
};

struct CurveData {
    std::vector<CurvePoint> points;  // without the one that closes a periodic curve
    int status;                      // of the validation
    std::optional<CoincidentPoints> coincident;
    int constraints;
    int continuity;
    double length;  // of the polygon

    bool is_valid() const { return status == 0 && !coincident; }

    /// "valid", or what keeps a curve from being made.
    std::string validation(const CurveOptions& options) const;
};

/// The defining data that the library makes of at least two points, with a slope for each of them
/// or none; a slope of zero is none.
CurveData curve_data(const CurveOptions& options, const Points& points, const Points* slopes);

}  // namespace tool
