// B-curve defining data: the end of a record.
#include "curve/bcdf.h"

using namespace ztmath;

namespace {

void free_all_but_point_list(BCDF* record) {
    for (const auto list : record_lists)
        if (list != &BCDF::points) PNTLST_free_structure(record->*list);
    SM_free(record->slope_types);
    SM_free(record->curvature_types);
    SM_free(record);
}

}  // namespace

void BCDF_free_structure(BCDF* record) {
    if (record == nullptr) return;
    PNTLST_free_structure(record->points);
    free_all_but_point_list(record);
}

void BCDF_free_all_but_points(BCDF* record) {
    if (record == nullptr) return;
    PNTLST_free_all_but_points(record->points);
    free_all_but_point_list(record);
}
