/* Fits a plane to the measured corners of a table top. */
#include <stdio.h>
#include <ztmath/ztmath.h>

int main(void) {
    const double corners[] = {0, 0, 750.2, 1200, 0, 750, 1200, 800, 750.2, 0, 800, 750};
    double point[3], normal[3], distances[3]; /* distances: largest, rms, mean */
    int collinear;
    LSFIT_plane_to_points(corners, 4, point, normal, &collinear, distances);
    printf("normal %.3f %.3f %.3f, flat to %.3f mm\n", normal[0], normal[1], normal[2],
           distances[0]);
    return 0;
}
