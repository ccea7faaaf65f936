/*
 * lsfit.h - least-squares fits to points: lines and planes by perpendicular distance (Pearson, 1901),
 * circles and spheres by the algebraic fit of Pratt (1987).
 *
 * Points are passed as one array, point after point. Outputs are zeroed first; they may alias or
 * overlap inputs. Lengths are in millimetres, and so are the fixed thresholds: scale points of
 * another unit into millimetres.
 *
 * The normal of a line or plane is the eigenvector of the smallest eigenvalue of the points' scatter
 * matrix that is not negative. An eigenvalue of at most 1e-10 mm^2 counts as 0, points within 0.001
 * mm of each other count as coincident where no eigenvalue can be used (all negative, not finite, or
 * beyond 1e19 mm^2). For points that lie exactly in a plane or on a line and are spread over more
 * than about 100 mm, rounding can make the true eigenvalue negative beyond the threshold; the next
 * one is then used, and the fit is wrong, which the statistics show. Scale such points to a spread
 * of 100 or less.
 *
 * The coefficients of a circle or sphere A |p|^2 + B . p + D = 0 are the generalized eigenvector of
 * the largest eigenvalue of the constraint |B|^2 - 4 A D = 1 against the points' moments of
 * (1, p, |p|^2) about their centroid. It is used when it is at least 1e-10: it is about the reciprocal
 * of the sum of the squared deviations. Below that, and when the moments are not positive definite by
 * the measure of NR_cholesky_decomp (remainders of at least 1e-10), the fit falls back on three or
 * four of the points, which the second statistic, 0, tells. So it does for points that lie on their
 * circle or sphere within about 1e-8 radii, where that is as good, and for parts of some millimetres
 * given in metres, where it is not: a circle of 25 mm with deviations of 0.01 mm comes out 0.5 mm off.
 *
 * Where the eigenvalue is used, radii are up to 100 mm and deviations between 1e-6 and 1e-3 radii,
 * centre and radius are within 1e-11 radii of those of exact arithmetic for circles and 1e-10 for
 * spheres, from full circles down to arcs of one degree; less so where deviations are large (1e-5 at a
 * radius of 1000 mm and deviations of 10 mm), as the iteration for the eigenvalues stops at 1e-10.
 * Points that are 1e6 radii from the origin keep ten digits of the radius.
 *
 * Statistics are three doubles: the largest distance of a point from the fit; a second value; the mean
 * distance. The second value of lines and planes is the root-mean-square distance, from the
 * eigenvalue, or from the distances where no eigenvalue was used. That of circles and spheres is
 * sqrt(n / eigenvalue), about n times the root-mean-square distance, which callers know.
 *
 * With n < 1, "There are no input points." is reported by module "lsfit" through ERROR_internal,
 * and the outputs are zero, failed among them, but for radii, which are 1e19. Eigenvalues that do not
 * converge in 60 sweeps are reported as of NR_ask_eigenvalues_jacobi, and what
 * NR_generalized_eigenvalues_symm reports is reported.
 */
#ifndef ZTMATH_LSFIT_H
#define ZTMATH_LSFIT_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * Fits a line to points of the plane.
 *
 * points      x, y of each point (2 * n)
 * point       out: both coordinates hold the centroid's x, which callers know; the distances of the
 *             statistics are measured from the line through that point. Without a usable eigenvalue
 *             it is the centroid
 * normal      out: unit normal of the line
 * coincident  out: 1 when no eigenvalue can be used and the points coincide, the other outputs then
 *             being zero; else 0
 * stats       out: statistics
 */
ZTMATH_API void LSFIT_line_to_points_2d(const double *points, int n, double point[2],
                                        double normal[2], int *coincident, double stats[3]);

/*
 * Fits a plane to points of space.
 *
 * points     x, y, z of each point (3 * n)
 * point      out: the centroid
 * normal     out: unit normal
 * collinear  out: 1 when no eigenvalue can be used and the points are collinear; the normal is then
 *            perpendicular to their line. Else 0; coincident points without a usable eigenvalue
 *            have the normal (0, 0, 1)
 * stats      out: statistics
 *
 * Points that coincide or are collinear and have a usable eigenvalue, 0, are fitted like any
 * others: one of the planes through them comes out, and the flag stays 0.
 *
 * Returns 0.
 */
ZTMATH_API int LSFIT_plane_to_points(const double *points, int n, double point[3], double normal[3],
                                     int *collinear, double stats[3]);

/*
 * Fits a line to points of space: a plane is fitted, or taken from the caller, and a line of that
 * plane is fitted to the points projected into it.
 *
 * points       x, y, z of each point (3 * n)
 * normal       in: the plane's normal, of any length; a plane is fitted when its squared length is
 *              below 1e-20 or collinear is -1. out: the normal of the plane, the caller's as it came
 * collinear    in: -1 to have a plane fitted whatever the normal; another value but 0 says that the
 *              points are collinear. out: of the plane fit, or the caller's value as it came; 1 when
 *              the points of such a line coincide
 * coincident   out: 1 when the points coincide (where they are found to: see the top), else 0
 * point        out: a point of the line, whose place in the plane is that of
 *              LSFIT_line_to_points_2d
 * direction    out: unit direction of the line
 * plane_stats  out: the statistics of the plane fit; zero for the caller's plane
 * frame        out: the plane's frame: the centroid (3), then a 3x3 matrix, row-major, whose third
 *              row is the normal (9), as MTX3_init_z builds it
 */
ZTMATH_API void LSFIT_line_to_points_3d(const double *points, int n, double normal[3],
                                        int *collinear, int *coincident, double point[3],
                                        double direction[3], double plane_stats[3],
                                        double frame[12]);

/*
 * Fits a circle to points of the plane.
 *
 * points  x, y of each point (2 * n)
 * centre  out: zero when there is no circle
 * radius  out: 1e19 when there is no circle
 * failed  out: 0; 1 when the points lie on a line or coincide, or the circle through three points has
 *         no radius below 1e19; 2 when the first and the last point were to give that circle and
 *         coincide, as in a ring that ends where it began
 * stats   out: statistics; zero for the circle through three points and when there is none
 *
 * When there is no usable eigenvalue the circle runs through three points, the first, the one with
 * index n / 2 and the last, unless LSFIT_line_to_points_2d finds the points coincident or its second
 * statistic, the root-mean-square distance from the line, is below 0.005 mm.
 */
ZTMATH_API void LSFIT_circle_to_points_2d(const double *points, int n, double centre[2],
                                          double *radius, int *failed, double stats[3]);

/*
 * Fits a circle to points of space: a plane is fitted, or taken from the caller, and a circle of
 * that plane is fitted to the points projected into it.
 *
 * points       x, y, z of each point (3 * n)
 * plane_point  out: the centroid
 * normal       in: the plane's normal, of any length; a plane is fitted when its squared length is
 *              at most 1e-20. out: the normal of the plane, the caller's as it came
 * centre       out: zero when there is no circle
 * radius       out: 1e19 when there is no circle
 * failed       out: of LSFIT_circle_to_points_2d; 1 when the plane fit finds the points collinear
 * stats        out: statistics of the circle within the plane; of the plane fit when it finds the
 *              points collinear
 * frame        out: the plane's frame as of LSFIT_line_to_points_3d; zero when the plane fit finds
 *              the points collinear
 */
ZTMATH_API void LSFIT_circle_to_points_3d(const double *points, int n, double plane_point[3],
                                          double normal[3], double centre[3], double *radius,
                                          int *failed, double stats[3], double frame[12]);

/*
 * Fits a sphere to points of space.
 *
 * points  x, y, z of each point (3 * n)
 * centre  out: zero when there is no sphere
 * radius  out: 1e19 when there is no sphere
 * failed  out: 0; 1 when the points lie in a plane or closer together
 * stats   out: statistics; zero for the sphere through four points and when there is none
 *
 * When there is no usable eigenvalue the sphere runs through four points: p1, the farthest from the
 * plane (pl_pt, pl_n) of LSFIT_plane_to_points; p2, the farthest from the line through p1 along
 * pl_n; p3, that with the least parameter on the line through pl_pt along u0, the unit vector square
 * to pl_n and p2 - p1 on which p1 has no negative parameter; p4, the farthest from the plane of the
 * three; of equally far ones the first. There is no sphere when p1, p2 or p4 is less than 0.001 mm
 * away from its plane or line, when p1, p2 and p3 lie on a line, or when the radius is not below
 * 1e19.
 *
 * Where one of these points cannot be found, no distance being a number, module "lsfit" reports
 * through ERROR_internal "There was no point found at max distance from the plane (pl_pt,pl_n).",
 * "There was no point found at max distance from the line (p1,pl_n).", "There was no point found at
 * min parameter on the line (pl_pt,u0)." or "There was no point found at max distance from the plane
 * (p1,p2,p3).", and failed is 1.
 */
ZTMATH_API void LSFIT_sphere_to_points_3d(const double *points, int n, double centre[3],
                                          double *radius, int *failed, double stats[3]);

ZTMATH_END_DECLS

#endif
