// B-curve defining data: reading the record's fields and arrays.
#include "curve/bcdf.h"

using namespace ztmath;

namespace {

constexpr Module module = bcdf_module.part(1);

const PNTLST* list_of(const BCDF* record, PNTLST* BCDF::*list) {
    return record != nullptr ? record->*list : nullptr;
}

double* hand_out(const PNTLST* list, int* number) {
    *number = count(list);
    return list != nullptr ? list->points : nullptr;
}

double* hand_out(const PNTLST* list, int* number, int* dimension) {
    *dimension = dimension_of(list);
    return hand_out(list, number);
}

/// Whether there is a record, which is reported if not.
bool is_given(const BCDF* record) {
    if (record != nullptr) return true;
    if (checking()) module.internal("Defining Data Structure Is NULL");
    return false;
}

/// Whether there is a record to read the fields of a fit from. Reading them from an interpolation
/// record is reported, and served.
bool is_given_for_fit(const BCDF* record) {
    if (!is_given(record)) return false;
    if (checking() && record->weights == nullptr) module.internal("Weights List Has A NULL Value");
    return true;
}

}  // namespace

int BCDF_return_num_of_points(const BCDF* record) {
    return count(list_of(record, &BCDF::points));
}

int BCDF_return_dimension(const BCDF* record) {
    return dimension_of(list_of(record, &BCDF::points));
}

int BCDF_return_num_of_slopes(const BCDF* record) {
    return count(list_of(record, &BCDF::slopes));
}

int BCDF_return_num_of_crvatrs(const BCDF* record) {
    return count(list_of(record, &BCDF::curvatures));
}

int BCDF_return_num_of_constraints(const BCDF* record) {
    return BCDF_return_num_of_points(record) + BCDF_return_num_of_slopes(record) +
           BCDF_return_num_of_crvatrs(record) - (BCDF_return_periodicity(record) == 1 ? 1 : 0);
}

double BCDF_return_ls_tolerance(const BCDF* record) {
    return is_given_for_fit(record) ? record->ls_tolerance : 0.0;
}

int BCDF_return_ls_num_of_segments(const BCDF* record) {
    return is_given_for_fit(record) ? record->ls_num_segments : 0;
}

int BCDF_return_order(const BCDF* record) {
    return is_given(record) ? record->order : 0;
}

int BCDF_return_periodicity(const BCDF* record) {
    return record != nullptr ? record->periodicity : 0;
}

double* BCDF_return_df_point_array(const BCDF* record, int* number, int* dimension) {
    return hand_out(list_of(record, &BCDF::points), number, dimension);
}

double* BCDF_return_param_array(const BCDF* record, int* number) {
    return hand_out(list_of(record, &BCDF::parameters), number);
}

double* BCDF_return_slope_array(const BCDF* record, int* number, int* dimension) {
    return hand_out(list_of(record, &BCDF::slopes), number, dimension);
}

double* BCDF_return_slope_pars_array(const BCDF* record, int* number) {
    return hand_out(list_of(record, &BCDF::slope_parameters), number);
}

int* BCDF_return_slope_type_array(const BCDF* record) {
    return record != nullptr ? record->slope_types : nullptr;
}

double* BCDF_return_crvatr_array(const BCDF* record, int* number, int* dimension) {
    return hand_out(list_of(record, &BCDF::curvatures), number, dimension);
}

double* BCDF_return_crvatr_pars_array(const BCDF* record, int* number) {
    return hand_out(list_of(record, &BCDF::curvature_parameters), number);
}

int* BCDF_return_crvatr_type_array(const BCDF* record) {
    return record != nullptr ? record->curvature_types : nullptr;
}

double* BCDF_return_weight_array(const BCDF* record, int* number) {
    return hand_out(list_of(record, &BCDF::weights), number);
}

double* BCDF_return_knot_sequence(const BCDF* record, int* number) {
    const bool given = is_given(record);
    *number = given ? record->num_knots : 0;
    return given ? record->knots : nullptr;
}

void BCDF_attach_knot_sequence(BCDF* record, int number, double* knots) {
    record->num_knots = number;
    record->knots = knots;
}

void BCDF_detach_knot_sequence(BCDF* record) {
    BCDF_attach_knot_sequence(record, 0, nullptr);
}
