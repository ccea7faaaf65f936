// B-curve defining data: copies of the record, of its arrays and of single vectors.
#include <cstring>

#include "curve/bcdf.h"

using namespace ztmath;

namespace {

constexpr Module module = bcdf_module.part(2);

/// A copy of type codes; null without any.
int* copy_types(const int* types, int number) {
    if (types == nullptr || number < 1) return nullptr;
    SmArray<int> copy(number);
    std::memcpy(copy.data(), types, bytes_of<int>(number));
    return copy.release();
}

/// A copy of the coordinates; null without any.
double* copy_coordinates(const PNTLST* list, int* number, int* dimension) {
    if (count(list) > 0) return PNTLST_copy_points(list, number, dimension);
    *number = *dimension = 0;
    return nullptr;
}

bool has(const PNTLST* list, int position) {
    return position >= 0 && position < count(list);
}

/// The vector at a position and its type code; zero where there is none.
void copy_vector(const PNTLST* list, const int* types, int position, double out[3], int* type) {
    const bool exists = has(list, position);
    const Vec3 vector = exists ? vector_at(*list, position) : Vec3{};
    const int code = exists && types != nullptr ? types[position] : 0;
    store(vector, out);
    *type = code;
}

}  // namespace

BCDF* BCDF_copy_structure(const BCDF* record) {
    if (record == nullptr) return nullptr;
    RecordOwner copy(static_cast<BCDF*>(SM_calloc(1, sizeof(BCDF))));
    for (const auto list : record_lists)
        copy.get()->*list = PNTLST_copy_structure(record->*list);
    copy->slope_types = BCDF_copy_slope_type_array(record);
    copy->curvature_types = BCDF_copy_crvatr_type_array(record);
    copy->ls_tolerance = record->ls_tolerance;
    copy->ls_num_segments = record->ls_num_segments;
    copy->order = record->order;
    copy->periodicity = record->periodicity;
    return copy.release();
}

double* BCDF_copy_points(const BCDF* record, int* number, int* dimension) {
    if (record->points != nullptr) return PNTLST_copy_points(record->points, number, dimension);
    *number = *dimension = 0;
    if (checking()) module.raise(reason_no_points, "Point Array Is NULL");
    return nullptr;
}

double* BCDF_copy_parameters(const BCDF* record, int* number) {
    int dimension;
    if (record->parameters != nullptr)
        return PNTLST_copy_points(record->parameters, number, &dimension);
    *number = 0;
    if (checking()) module.raise(reason_no_parameters, "Parameter Array Is NULL");
    return nullptr;
}

double* BCDF_copy_slopes(const BCDF* record, int* number, int* dimension) {
    return copy_coordinates(record->slopes, number, dimension);
}

double* BCDF_copy_slope_pars(const BCDF* record, int* number) {
    int dimension;
    return copy_coordinates(record->slope_parameters, number, &dimension);
}

int* BCDF_copy_slope_type_array(const BCDF* record) {
    return copy_types(record->slope_types, count(record->slopes));
}

int* BCDF_copy_crvatr_type_array(const BCDF* record) {
    return copy_types(record->curvature_types, count(record->curvatures));
}

void BCDF_copy_single_3d_point(const BCDF* record, int position, double point[3]) {
    const PNTLST* list = record->points;
    const int dimension = dimension_of(list);
    const bool exists = has(list, position);
    const bool served = exists && (dimension == 3 || dimension == 4 || !checking());
    // cppcheck-suppress nullPointerRedundantCheck ; nothing exists in a list that is not there
    store(served ? cartesian_at(*list, position) : Vec3{}, point);
    if (served || !checking()) return;
    if (list == nullptr)
        module.raise(reason_no_points, "No Points Allocated In Defining Data Structure.");
    else if (!exists)
        module.raise(reason_point_position, "Point Position Too Large For Point Array.");
    else
        module.raise(reason_dimension, "Point Dimension Is Not 3 Or 4.");
}

void BCDF_copy_single_3d_slope(const BCDF* record, int position, double slope[3], int* type) {
    copy_vector(record->slopes, record->slope_types, position, slope, type);
    if (!checking()) return;
    if (record->slopes == nullptr)
        module.raise(reason_no_slopes, "No Slope Allocated In Defining Data Structure.");
    else if (!has(record->slopes, position))
        module.raise(reason_position, "An Invalid Slope Position Was Given By Calling Routine");
}

void BCDF_copy_single_3d_crvatr(const BCDF* record, int position, double curvature[3], int* type) {
    copy_vector(record->curvatures, record->curvature_types, position, curvature, type);
    if (checking() && !has(record->curvatures, position))
        module.raise(reason_position, "An Invalid Curvature Position Was Given By Calling Routine");
}
