/*
 * dgeom.h - local differential geometry of curves and surfaces, from their derivatives (Frenet,
 * 1852; Gauss, 1828).
 *
 * The derivatives are those of any regular parametrisation at one point: d1, d2, d3 of a curve; Su,
 * Sv, Suu, Suv, Svv of a surface. Vectors are three doubles. Nothing is kept, allocated or
 * reported: what a degenerate point leaves undefined is 0, or is answered by the result 1, as each
 * routine says. Outputs may alias or overlap inputs.
 *
 * "Short" means a length, or the quantity named, below 1e-10, whatever the unit: a curve whose
 * parameter is so fast or slow that |d1| or |d1 x d2| is that small counts as degenerate.
 */
#ifndef ZTMATH_DGEOM_H
#define ZTMATH_DGEOM_H

#include <ztmath/export.h>

ZTMATH_BEGIN_DECLS

/*
 * The curvature vector of a curve: it points to the centre of the osculating circle and is as long
 * as the reciprocal of its radius.
 *
 * curvature  out: the vector; zero where d1 is short
 *
 * Returns its length, the curvature.
 */
ZTMATH_API double DGEOM_crv_curvature(const double d1[3], const double d2[3], double curvature[3]);

/*
 * The torsion of a curve, the rate per length at which its osculating plane turns about the
 * tangent; positive for a right-handed helix.
 *
 * vector  out: the derivative of the unit binormal by arc length, minus the torsion times the
 *         principal normal as DGEOM_crv_diff_property gives it; zero where d1 x d2 is short
 *
 * Returns the torsion, 0 where d1 x d2 is short.
 */
ZTMATH_API double DGEOM_crv_torsion(const double d1[3], const double d2[3], const double d3[3],
                                    double vector[3]);

/*
 * Frenet frame, curvature and torsion of a curve.
 *
 * d3              not used where no torsion is wanted, but read
 * torsion_wanted  1 for the torsion; else it is 0
 * properties      out: unit tangent (3), unit binormal (3), unit principal normal (3), curvature,
 *                 torsion. All zero where d1 is short; only the tangent where d1 x d2 or the
 *                 curvature is short, as on a straight line
 */
ZTMATH_API void DGEOM_crv_diff_property(const double d1[3], const double d2[3], const double d3[3],
                                        int torsion_wanted, double properties[11]);

/*
 * The derivative of the curvature vector by arc length.
 *
 * variation  out: zero where d1 is short
 */
ZTMATH_API void DGEOM_crv_curvature_variation(const double d1[3], const double d2[3],
                                              const double d3[3], double variation[3]);

/*
 * The vector from a curve's point to the centre of its osculating circle, of a curvature vector, and
 * the reverse: the same direction, the reciprocal length.
 *
 * Returns 0; or 1, with nothing written, when the squared length of the argument is below 1e-38.
 */
ZTMATH_API int DGEOM_convert_crvatr_to_radius(const double curvature[3], double radius[3]);
ZTMATH_API int DGEOM_convert_radius_to_crvatr(const double radius[3], double curvature[3]);

/*
 * A second derivative that gives a curve this curvature vector: |d1|^2 times it, the one without a
 * part along the tangent.
 */
ZTMATH_API void DGEOM_convert_crvatr_to_deriv2(const double d1[3], const double curvature[3],
                                               double d2[3]);

/*
 * Curvatures of a surface at a point. With the unit normal n along Su x Sv, a surface that bends
 * away from n, such as a sphere whose n points outwards, has positive curvatures.
 *
 * principal_wanted  not 0 for all seven results, 0 for the first two
 * result            out: Gaussian curvature, mean curvature (two doubles); the smaller and the
 *                   larger principal curvature, the mean of their absolute values, the normal
 *                   curvatures along Su and along Sv (five more)
 *
 * Where rounding leaves no real principal curvatures both are the mean curvature, as they are when
 * they differ by less than about 2e-5.
 *
 * Returns 0; or 1, with nothing written, when |Su x Sv|^2 is short.
 */
ZTMATH_API int DGEOM_srf_curvatures(const double su[3], const double sv[3], const double suu[3],
                                    const double suv[3], const double svv[3], int principal_wanted,
                                    double *result);

/*
 * The curvature of the normal section of a surface in a direction. A surface that bends towards the
 * normal has a positive one: the sign opposite to that of DGEOM_srf_curvatures.
 *
 * normal     unit normal of the surface
 * tangent    direction, of any length; what it has along the normal does not count
 * curvature  out: one double; 0 where |Su x Sv|^2 is short or the tangent has no direction in the
 *            surface
 *
 * Returns 0.
 */
ZTMATH_API int DGEOM_srf_normal_curvature(const double su[3], const double sv[3],
                                          const double suu[3], const double suv[3],
                                          const double svv[3], const double normal[3],
                                          const double tangent[3], double *curvature);

ZTMATH_END_DECLS

#endif
