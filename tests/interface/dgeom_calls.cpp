// Differential geometry.
#include "interface/table.h"
#include "ztmath/dgeom.h"

namespace ztmath_test {

std::vector<Call> dgeom_calls() {
    return {
        {"DGEOM_crv_curvature",
         {3, 3},
         {3},
         [](In in, Out out) { return DGEOM_crv_curvature(in[0], in[1], out[0]); }},
        {"DGEOM_crv_torsion",
         {3, 3, 3},
         {3},
         [](In in, Out out) { return DGEOM_crv_torsion(in[0], in[1], in[2], out[0]); }},
        {"DGEOM_crv_diff_property",
         {3, 3, 3},
         {11},
         [](In in, Out out) {
             DGEOM_crv_diff_property(in[0], in[1], in[2], 1, out[0]);
             return 0.0;
         }},
        {"DGEOM_crv_curvature_variation",
         {3, 3, 3},
         {3},
         [](In in, Out out) {
             DGEOM_crv_curvature_variation(in[0], in[1], in[2], out[0]);
             return 0.0;
         }},
        {"DGEOM_convert_crvatr_to_radius",
         {3},
         {3},
         [](In in, Out out) -> double { return DGEOM_convert_crvatr_to_radius(in[0], out[0]); }},
        {"DGEOM_convert_radius_to_crvatr",
         {3},
         {3},
         [](In in, Out out) -> double { return DGEOM_convert_radius_to_crvatr(in[0], out[0]); }},
        {"DGEOM_convert_crvatr_to_deriv2",
         {3, 3},
         {3},
         [](In in, Out out) {
             DGEOM_convert_crvatr_to_deriv2(in[0], in[1], out[0]);
             return 0.0;
         }},
        {"DGEOM_srf_curvatures",
         {3, 3, 3, 3, 3},
         {7},
         [](In in, Out out) -> double {
             return DGEOM_srf_curvatures(in[0], in[1], in[2], in[3], in[4], 1, out[0]);
         }},
        {"DGEOM_srf_normal_curvature",
         {3, 3, 3, 3, 3, 3, 3},
         {1},
         [](In in, Out out) -> double {
             return DGEOM_srf_normal_curvature(in[0], in[1], in[2], in[3], in[4], in[5], in[6],
                                               out[0]);
         }},
    };
}

}  // namespace ztmath_test
