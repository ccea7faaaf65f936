// Circles as points of space, planes, projections, rotations and maps from vectors.
#include "interface/mixed_row.h"
#include "ztmath/arc_spline_planes.h"

namespace ztmath_test {

using Plane = ARC_SPLINE_monge_plane_t;

template <>
class Passed<const Plane*> {
  public:
    Passed(Cursor& at, bool) : plane_(read(*at.in++)) {}
    const Plane* get() { return &plane_; }
    void finish() {}

    static Plane read(const double* p) { return {{p[0], p[1], p[2]}, p[3], 0}; }

  private:
    Plane plane_;
};

template <>
class Passed<Plane*> {
  public:
    Passed(Cursor& at, bool in_out) : array_(*at.out++), plane_{} {
        if (in_out) plane_ = Passed<const Plane*>::read(*at.in++);
    }
    Plane* get() { return &plane_; }
    void finish() {
        std::copy_n(plane_.normal, 3, array_);
        array_[3] = plane_.offset;
        array_[4] = plane_.normalised;
    }

  private:
    double* array_;
    Plane plane_;
};

template <>
class Passed<unsigned char*> : public PassedOut<unsigned char> {
    using PassedOut::PassedOut;
};

namespace {

/// Unit normals for the second and fourth array.
void prepare_normals(Random& random, Arrays& inputs) {
    const Matrix r = random_rotation(random);
    std::copy_n(r.begin(), 3, inputs[1].begin());
    std::copy_n(r.begin() + 3, 3, inputs[3].begin());
}

}  // namespace

std::vector<Call> arc_plane_calls() {
    return {
        row<ARC_SPLINE_convert_circle_to_3d_pt>({2, 1}, {3}),
        mixed_row<ARC_SPLINE_convert_3d_pt_to_circle_2d>({3}, {2, segment_out}),
        mixed_row<ARC_SPLINE_ask_polar_plane_of_circle>({2, 1}, {5}),
        mixed_row<ARC_SPLINE_copy_monge_plane>({4}, {5}),
        mixed_row<ARC_SPLINE_normalize_monge_plane, 1>({4}, {5}),
        mixed_row<ARC_SPLINE_ask_pt_and_normal_of_monge_plane>({4}, {3, 3}),
        mixed_row<ARC_SPLINE_inter_2_monge_planes>({4, 4, 2}, {3, 3, 2}),
        mixed_row<ARC_SPLINE_inter_3_monge_planes>({4, 4, 4, 2}, {3, 2, 2, 2}),
        row<h634_>({3, 3, 3, 3, 1, 1}, {3, 3}, prepare_normals),
        row<ARC_SPLINE_proj_pt_to_pln>({3, 3, 3}, {3}),
        in_place<ARC_SPLINE_adjust_pt_on_pln, 3, 3, 3>(),
        row<ARC_SPLINE_proj_vec_to_pln>({3, 3}, {3}),
        in_place<ARC_SPLINE_adjust_vec_on_pln, 3, 3>(),
        row<ARC_SPLINE_proj_pt_along_vec_on_plane>({3, 3, 3, 3, 2}, {3, 1}),
        row<ARC_SPLINE_ask_householder_rotation>({3, 3}, {9}),
        row<ARC_SPLINE_ask_householder_transformation>({3, 3}, {16}),
        row<ARC_SPLINE_ask_translation_matrix>({3}, {16}),
        row<ARC_SPLINE_combine_translation_matrix>({3, 16}, {16}),
        row<ARC_SPLINE_combine_rotation_translation>({9, 3}, {16}),
        row<ARC_SPLINE_cre_mtx3_from_2_vecs_to_2_vecs>({3, 3, 3, 3}, {9}),
        row<ARC_SPLINE_cre_mtx3_from_3_vecs_to_3_vecs>({3, 3, 3, 3, 3, 3}, {9}),
    };
}

}  // namespace ztmath_test
