/*
 * ztmath.h - the whole interface of libztmath.
 *
 * Points, vectors, matrices and records are arrays of doubles or plain structs that the caller
 * owns, passed by address. An output may be, or overlap, any input of the same call. Pointers must
 * not be null unless said. Lengths are in millimetres, angles in radians unless said.
 *
 * Failures of input are answered by the documented result or reported through the platform library
 * (<syss/syss.h>); each header says what it reports. Calls on different data may run in parallel as
 * long as nobody writes the shared block (acom.h).
 */
#ifndef ZTMATH_ZTMATH_H
#define ZTMATH_ZTMATH_H

#include <ztmath/acom.h>
#include <ztmath/arc_spline.h>
#include <ztmath/arc_spline_constructions.h>
#include <ztmath/arc_spline_intersections.h>
#include <ztmath/arc_spline_planes.h>
#include <ztmath/arc_spline_primitives.h>
#include <ztmath/arc_spline_tangent_circles.h>
#include <ztmath/arc_spline_tangents.h>
#include <ztmath/banded.h>
#include <ztmath/bc_pole.h>
#include <ztmath/bcdf.h>
#include <ztmath/bcdf_calc.h>
#include <ztmath/bcdf_gen.h>
#include <ztmath/box3.h>
#include <ztmath/csys.h>
#include <ztmath/dgeom.h>
#include <ztmath/facet.h>
#include <ztmath/lsfit.h>
#include <ztmath/mc.h>
#include <ztmath/mtx3.h>
#include <ztmath/mtx4.h>
#include <ztmath/nr.h>
#include <ztmath/nr_functions.h>
#include <ztmath/pln3.h>
#include <ztmath/pnt3.h>
#include <ztmath/pntlst.h>
#include <ztmath/ptf.h>
#include <ztmath/roots.h>
#include <ztmath/session.h>
#include <ztmath/solve.h>
#include <ztmath/tolerance.h>
#include <ztmath/vec2.h>
#include <ztmath/vec3.h>
#include <ztmath/wcs.h>

#endif
