// Differential geometry.
#include "interface/row.h"
#include "ztmath/dgeom.h"

namespace ztmath_test {

std::vector<Call> dgeom_calls() {
    return {
        row<DGEOM_crv_curvature>({3, 3}, {3}),
        row<DGEOM_crv_torsion>({3, 3, 3}, {3}),
        row<DGEOM_crv_diff_property, 1>({3, 3, 3}, {11}),
        row<DGEOM_crv_curvature_variation>({3, 3, 3}, {3}),
        row<DGEOM_convert_crvatr_to_radius>({3}, {3}),
        row<DGEOM_convert_radius_to_crvatr>({3}, {3}),
        row<DGEOM_convert_crvatr_to_deriv2>({3, 3}, {3}),
        row<DGEOM_srf_curvatures, 1>({3, 3, 3, 3, 3}, {7}),
        row<DGEOM_srf_normal_curvature>({3, 3, 3, 3, 3, 3, 3}, {1}),
    };
}

}  // namespace ztmath_test
