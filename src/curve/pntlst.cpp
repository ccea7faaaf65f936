// Point lists.
#include "ztmath/pntlst.h"

#include <climits>
#include <cmath>
#include <cstring>

#include "curve/point_list.h"

using namespace ztmath;

namespace {

constexpr int reason_position = 1005337;

/// Work memory in place for a few points.
using FewPoints = WorkArray<double, 16>;

/// The points that the array holds, in use or not.
int held(const PNTLST& list) {
    return std::max(list.num_points, list.points_allocated);
}

bool is_point(const PNTLST& list, int position) {
    return position >= 0 && position < list.num_points;
}

bool is_in_array(const PNTLST& list, int position) {
    return position >= 0 && position < held(list);
}

std::size_t bytes_of_points(std::ptrdiff_t number, int dimension) {
    if (number > INT_MAX) return SIZE_MAX;  // a list cannot count them: the platform is to say so
    return bytes_of<double>(element_count(static_cast<int>(number), dimension));
}

std::size_t bytes_of_points(const PNTLST& list, std::ptrdiff_t number) {
    return bytes_of_points(number, list.dimension);
}

void copy_points(const PNTLST& list, int from, int number, double* out) {
    if (number > 0) std::memcpy(out, point_at(list, from), bytes_of_points(list, number));
}

void move_points(PNTLST& list, int from, int to, int number) {
    if (number > 0)
        std::memmove(point_at(list, to), point_at(list, from), bytes_of_points(list, number));
}

void release_array(PNTLST& list) {
    if (list.points_allocated != 0) SM_free(list.points);
    list.points = nullptr;
    list.points_allocated = 0;
}

/// Gives the list an array of its own for `capacity` points of a dimension. An array that is not
/// the list's stays with its owner.
void reallocate(PNTLST& list, std::ptrdiff_t capacity, int dimension) {
    const std::size_t bytes = bytes_of_points(capacity, dimension);
    if (list.points_allocated != 0 || list.points == nullptr) {
        list.points = static_cast<double*>(SM_realloc(list.points, bytes));
    } else {
        void* own = SM_alloc(bytes);
        std::memcpy(own, list.points, std::min(bytes, bytes_of_points(list, list.num_points)));
        list.points = static_cast<double*>(own);
    }
    list.points_allocated = static_cast<int>(capacity);
}

void reallocate(PNTLST& list, std::ptrdiff_t capacity) {
    reallocate(list, capacity, list.dimension);
}

PNTLST* new_list(double* points, int number, int allocated, int dimension) {
    auto* list = static_cast<PNTLST*>(SM_alloc(sizeof(PNTLST)));
    *list = {points, number, allocated, dimension};
    return list;
}

/// The capacity with which the array takes in more points.
std::ptrdiff_t grown_capacity(const PNTLST& list, int more) {
    const std::ptrdiff_t needed = std::ptrdiff_t{list.num_points} + more;
    return std::max<std::ptrdiff_t>(
        needed,
        std::min<std::ptrdiff_t>(needed + 2 * std::ptrdiff_t{list.points_allocated}, INT_MAX));
}

/// Gives an array of too narrow points the room that a conversion in place needs.
void widen_array(PNTLST& list) {
    const int capacity = held(list);
    const std::ptrdiff_t used = element_count(capacity, list.dimension);
    reallocate(list, capacity, 4);
    std::fill(list.points + used, list.points + element_count(capacity, 4), 0.0);
}

}  // namespace

PNTLST* PNTLST_allocate_struct(int dimension, int number) {
    if (number < 1) return nullptr;
    ListOwner list(new_list(nullptr, 0, 0, dimension));
    PNTLST_allocate_points(list.get(), number);
    return list.release();
}

void PNTLST_allocate_points(PNTLST* list, int number) {
    if (number < 1)
        release_array(*list);
    else
        reallocate(*list, number);
}

PNTLST* PNTLST_create_from_list_of_pts(double* points, int number, int dimension) {
    const int taken = std::max(number, 0);
    return new_list(points, taken, taken, dimension);
}

PNTLST* PNTLST_get_from_func(int number, int dimension, int (*fill)(int number, double* array)) {
    ListOwner list(PNTLST_allocate_struct(dimension, number));
    if (list.get() == nullptr) return nullptr;
    list->num_points = number;
    fill(number, list->points);
    return list.release();
}

PNTLST* PNTLST_copy_structure(const PNTLST* list) {
    if (list == nullptr) return nullptr;
    ListOwner copy(new_list(nullptr, 0, 0, list->dimension));
    PNTLST_allocate_points(copy.get(), list->num_points);
    copy_points(*list, 0, list->num_points, copy->points);
    copy->num_points = list->num_points;
    return copy.release();
}

void PNTLST_free_structure(PNTLST* list) {
    if (list == nullptr) return;
    release_array(*list);
    SM_free(list);
}

void PNTLST_free_all_but_points(PNTLST* list) {
    SM_free(list);
}

double* PNTLST_copy_points(const PNTLST* list, int* number, int* dimension) {
    const PNTLST source = *list;
    SmArray<double> copy(element_count(source.num_points, source.dimension));
    copy_points(source, 0, source.num_points, copy.data());
    *number = source.num_points;
    *dimension = source.dimension;
    return copy.release();
}

void PNTLST_copy_single_point(const PNTLST* list, int position, double* point) {
    if (checking() && !is_point(*list, position))
        pntlst_module.internal("Invalid Point Position Given");
    if (is_in_array(*list, position))
        std::memmove(point, point_at(*list, position), bytes_of_points(*list, 1));
    else
        std::fill(point, point + std::max(list->dimension, 0), 0.0);
}

double PNTLST_calc_point_distance(const PNTLST* list, int i, int j) {
    if (checking() && !(is_point(*list, i) && is_point(*list, j))) {
        pntlst_module.raise(reason_position, "Invalid Point Position Given");
        return 0.0;
    }
    if (!is_in_array(*list, i) || !is_in_array(*list, j)) return 0.0;
    const double* a = point_at(*list, i);
    const double* b = point_at(*list, j);
    double sum = 0.0;
    for (int k = 0; k < list->dimension; ++k)
        sum += length_squared(b[k] - a[k]);
    return std::sqrt(sum);
}

void PNTLST_insert_points(PNTLST* list, int number, int position, const double* points) {
    if (number < 1) return;
    const std::ptrdiff_t doubles = element_count(number, list->dimension);
    FewPoints given(doubles);
    std::memcpy(given.data(), points, bytes_of<double>(doubles));
    const int n = list->num_points;
    const int p = std::clamp(position, 0, n);
    if (list->points_allocated < std::ptrdiff_t{n} + number)
        reallocate(*list, grown_capacity(*list, number));
    // Kept as it stands: one place whatever the number. Who inserts several points at once writes
    // the places behind them too.
    move_points(*list, p, p + 1, n - p);
    std::memcpy(point_at(*list, p), given.data(), bytes_of<double>(doubles));
    list->num_points = n + number;
}

void PNTLST_concat_one_point(PNTLST* list, const double* point) {
    const std::ptrdiff_t doubles = element_count(1, list->dimension);
    FewPoints given(doubles);
    std::memcpy(given.data(), point, bytes_of<double>(doubles));
    // Kept as it stands: by one point, so that the capacity tells the number of points appended.
    // The platform's slack keeps this in proportion to the number.
    const int n = list->num_points;
    if (n >= list->points_allocated) reallocate(*list, std::ptrdiff_t{n} + 1);
    std::memcpy(point_at(*list, n), given.data(), bytes_of<double>(doubles));
    list->num_points = n + 1;
}

void PNTLST_replace_points(PNTLST* list, int number, int position, const double* points) {
    const std::ptrdiff_t end = std::ptrdiff_t{position} + number;
    if (checking() && end > list->num_points) pntlst_module.internal("Too Many Points To Replace");
    const int first = std::max(position, 0);
    const auto last = static_cast<int>(std::min<std::ptrdiff_t>(end, held(*list)));
    if (first >= last) return;
    std::memmove(point_at(*list, first), points + element_count(first - position, list->dimension),
                 bytes_of_points(*list, last - first));
}

void PNTLST_remove_points(PNTLST* list, int position, int number) {
    if (list == nullptr || number < 1) return;
    const int n = list->num_points;
    if (checking() && number > n) pntlst_module.internal("Too Many Points To Remove");
    list->num_points = std::max(n - number, 0);
    const int p = std::clamp(position, 0, n);
    if (number < n - p) move_points(*list, p + number, p, n - p - number);
}

void PNTLST_convert_4d_to_3d(PNTLST* list) {
    const int dimension = list->dimension;
    if (dimension == 3) return;
    if (checking() && dimension != 4)
        pntlst_module.internal("Dimension Of The Input Points Is Not Valid");
    if (dimension < 4 && held(*list) > 0) widen_array(*list);
    const std::ptrdiff_t stride = std::max(dimension, 0);
    for (std::ptrdiff_t i = 0; i < list->num_points; ++i)
        store(cartesian(list->points + stride * i), list->points + 3 * i);
    list->dimension = 3;
}
