// Fits a plane to points; what the library raises becomes a message.
#include <syss/host.h>
#include <ztmath/ztmath.h>

#include <cstdio>
#include <vector>

struct Fit {
    std::vector<double> points;
    double point[3], normal[3], distances[3];  // distances: largest, rms, mean
    int collinear;
};

void run(void* data) {
    Fit& f = *static_cast<Fit*>(data);
    LSFIT_plane_to_points(f.points.data(), static_cast<int>(f.points.size() / 3), f.point, f.normal,
                          &f.collinear, f.distances);
}

int main() {
    Fit f{{0, 0, 750.2, 1200, 0, 750, 1200, 800, 750.2, 0, 800, 750}, {}, {}, {}, 0};
    SYSS_failure_t failure;
    if (SYSS_call_guarded(run, &f, &failure) == SYSS_COMPLETED)
        std::printf("normal %.3f %.3f %.3f, flat to %.3f mm\n", f.normal[0], f.normal[1],
                    f.normal[2], f.distances[0]);
    else
        std::printf("%s: %s\n", failure.module, failure.message);
}
