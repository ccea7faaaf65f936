// Fits to any number of points.
#include <vector>

#include "fuzz.h"
#include "ztmath/lsfit.h"

void fuzz::run(Bytes& bytes) {
    const int n = bytes.integer(-1, 60);
    std::vector<double> points(static_cast<std::size_t>(std::max(n, 1)) * 3);
    std::generate(points.begin(), points.end(), [&] { return bytes.number(); });

    double point[3], direction[3], stats[3], plane_stats[3], frame[12];
    double normal[3] = {bytes.number(), bytes.number(), bytes.number()};
    int failed = 0;
    int coincident = 0;
    LSFIT_plane_to_points(points.data(), n, point, direction, &failed, stats);
    LSFIT_line_to_points_2d(points.data(), n, point, direction, &coincident, stats);
    LSFIT_line_to_points_3d(points.data(), n, normal, &failed, &coincident, point, direction,
                            plane_stats, frame);
    double centre[3], radius;
    LSFIT_circle_to_points_2d(points.data(), n, centre, &radius, &failed, stats);
    LSFIT_circle_to_points_3d(points.data(), n, point, normal, centre, &radius, &failed, stats,
                              frame);
    LSFIT_sphere_to_points_3d(points.data(), n, centre, &radius, &failed, stats);
}
