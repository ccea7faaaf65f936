// B-curve defining data: making a record.
#include "curve/bcdf.h"
#include "ztmath/bcdf_gen.h"

using namespace ztmath;

namespace {

constexpr Module module = bcdf_gen_module.part(9);

/// A record in the making, outside the heap. Left by an exception, what it was given stays the
/// caller's, and what it has made goes.
class Draft {
  public:
    explicit Draft(const BCDF& given) : given_(given), record_(given) {}
    ~Draft() {
        if (record_.points != given_.points) PNTLST_free_all_but_points(record_.points);
        if (record_.parameters != given_.parameters) PNTLST_free_structure(record_.parameters);
        if (record_.weights != given_.weights) PNTLST_free_structure(record_.weights);
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;

    BCDF& record() { return record_; }

    void complete(bool least_squares) {
        if (record_.parameters == nullptr) BCDF_add_params(&record_, nullptr);
        if (least_squares && record_.weights == nullptr) BCDF_add_weights(&record_);
    }

    /// The record in a block of its own.
    BCDF* hand_over() {
        auto* block = static_cast<BCDF*>(SM_alloc(sizeof(BCDF)));
        *block = record_;
        given_ = record_;
        return block;
    }

  private:
    BCDF given_, record_;
};

}  // namespace

BCDF* BCDF_create_from_pntlst(int periodicity, int order, int least_squares, PNTLST* points,
                              PNTLST* parameters, PNTLST* weights, PNTLST* slopes,
                              PNTLST* slope_parameters, int* slope_types, PNTLST* curvatures,
                              PNTLST* curvature_parameters, int* curvature_types) {
    if (checking() && points == nullptr) {
        module.raise(reason_no_points, "The Point List Is NULL");
        return nullptr;
    }
    if (checking() && slopes != nullptr && slope_parameters == nullptr) {
        module.raise(reason_no_slope_parameters, "Slope Position Array Is NULL");
        return nullptr;
    }
    bool fits = least_squares == 1;
    if (checking() && fits && weights == nullptr && periodicity == 1) {
        // As adding the weights would report, but before there is anything to lose.
        module.raise(reason_periodic_fit, "Periodic Least Squares Splines Are Not Allowed");
        fits = false;
    }
    BCDF given{};
    given.points = points;
    given.weights = fits ? weights : nullptr;
    given.parameters = parameters;
    given.slopes = slopes;
    given.slope_parameters = slope_parameters;
    given.curvatures = curvatures;
    given.curvature_parameters = curvature_parameters;
    given.slope_types = slope_types;
    given.curvature_types = curvature_types;
    given.order = order;
    given.periodicity = periodicity;
    Draft draft(given);
    draft.complete(fits);
    BCDF* record = draft.hand_over();
    if (!fits) PNTLST_free_structure(weights);
    return record;
}

BCDF* BCDF_create_df_from_pts(double* points, int number, int dimension, int least_squares) {
    Draft draft({});
    draft.record().points = PNTLST_create_from_list_of_pts(points, number, dimension);
    BCDF_change_order(&draft.record(), 4);
    draft.complete(least_squares == 1);
    return draft.hand_over();
}
