#include "curve/attached.h"

#include <algorithm>
#include <iterator>

namespace ztmath {

namespace {

void put(const PNTLST& list, int k, Vec3 v) {
    const double coordinates[] = {v.x, v.y, v.z, 0.0};
    std::copy_n(coordinates, std::min(std::ptrdiff_t{list.dimension}, std::ssize(coordinates)),
                point_at(list, k));
}

/// Room for one more code, kept when the rest of an edit fails.
void make_room_for_type(int*& types, int number, int type_of_given) {
    const std::size_t needed = bytes_of<int>(std::ptrdiff_t{number} + 1);
    if (types != nullptr && SM_length(types) >= needed) return;
    const bool is_new = types == nullptr;
    types = static_cast<int*>(SM_realloc(types, needed));
    if (is_new) std::fill_n(types, number, type_of_given);
}

PNTLST* list_or_new(PNTLST* list, int dimension) {
    return list != nullptr ? list : PNTLST_allocate_struct(dimension, 1);
}

/// A place for one more point at k, contents undefined.
void open_place(PNTLST& list, int k) {
    WorkArray<double, 4> nothing(list.dimension);
    std::fill_n(nothing.data(), std::max(list.dimension, 0), 0.0);
    PNTLST_insert_points(&list, 1, k, nothing.data());
}

/// Closes a place again when what belongs beside it cannot be had.
class OpenPlace {
  public:
    OpenPlace(PNTLST& list, int k) : list_(list), k_(k) {}
    OpenPlace(const OpenPlace&) = delete;
    OpenPlace& operator=(const OpenPlace&) = delete;
    ~OpenPlace() {
        if (!keeps_) PNTLST_remove_points(&list_, k_, 1);
    }

    void keep() { keeps_ = true; }

  private:
    PNTLST& list_;
    int k_;
    bool keeps_ = false;
};

void release(PNTLST*& list) {
    PNTLST_free_structure(list);
    list = nullptr;
}

}  // namespace

void put(const Attached& a, int k, Vec3 v) {
    put(*a.vectors, k, v);
}

void overwrite(const Attached& a, int k, Vec3 v, int type) {
    if (a.types == nullptr) make_room_for_type(a.types, count(a), a.type_of_given);
    put(a, k, v);
    a.types[k] = type;
}

void insert(const Attached& a, int dimension, int k, Vec3 v, double parameter, int type) {
    a.vectors = list_or_new(a.vectors, dimension);
    a.parameters = list_or_new(a.parameters, 1);
    const int number = count(a);
    make_room_for_type(a.types, number, a.type_of_given);
    open_place(*a.vectors, k);
    OpenPlace vector_place{*a.vectors, k};
    open_place(*a.parameters, k);
    vector_place.keep();
    std::copy_backward(a.types + k, a.types + number, a.types + number + 1);
    *point_at(*a.parameters, k) = parameter;
    overwrite(a, k, v, type);
}

void remove(const Attached& a, int k, int number, int step) {
    const int before = count(a);
    if (number == before) {
        release(a);
        return;
    }
    PNTLST_remove_points(a.vectors, k, number);
    PNTLST_remove_points(a.parameters, k, number);
    // Kept as it stands: as many codes move down as there are places to move, not the whole tail,
    // so that behind a removal codes stay with indices, not with vectors. Stored records rely on
    // it.
    if (a.types == nullptr || before - k <= step) return;
    std::copy_n(a.types + k + step, std::min(step, before - k - step), a.types + k);
}

void release(const Attached& a) {
    release(a.vectors);
    release(a.parameters);
    SM_free(a.types);
    a.types = nullptr;
}

void remove_curvature_run(BCDF& record, Run run) {
    remove(curvatures_of(record), run.first, run.number, 1);
}

}  // namespace ztmath
