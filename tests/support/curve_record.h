// Curve defining data for tests: records over points, released on every way out.
#pragma once

#include "support/support.h"
#include "syss/syss.h"
#include "ztmath/bcdf.h"
#include "ztmath/bcdf_gen.h"

namespace ztmath_test {

struct Release {
    void operator()(BCDF* record) const { BCDF_free_structure(record); }
    void operator()(PNTLST* list) const { PNTLST_free_structure(list); }
    void operator()(double* block) const { SM_free(block); }
};

/// Owns a record or a list, and goes where calls take one.
template <class T>
struct Owned : std::unique_ptr<T, Release> {
    using std::unique_ptr<T, Release>::unique_ptr;
    operator T*() const { return this->get(); }
};
using Record = Owned<BCDF>;
using List = Owned<PNTLST>;
using Values = std::vector<double>;

inline List new_list(const Values& values, int dimension = 3) {
    const int n = static_cast<int>(values.size()) / dimension;
    List list(PNTLST_allocate_struct(dimension, n));
    std::copy(values.begin(), values.end(), list->points);
    list->num_points = n;
    return list;
}

inline Values values_of(const PNTLST* list) {
    if (list == nullptr) return {};
    return {list->points, list->points + list->num_points * list->dimension};
}

/// A record of order 4 with chord-length parameters, which takes the lists.
inline BCDF* created(int periodicity, int least_squares, PNTLST* points, PNTLST* weights = nullptr,
                     PNTLST* slopes = nullptr) {
    return BCDF_create_from_pntlst(periodicity, 4, least_squares, points, nullptr, weights, slopes,
                                   nullptr, nullptr, nullptr, nullptr, nullptr);
}

inline Record new_record(const Values& points, int dimension = 3, int periodicity = 0,
                         int least_squares = 0) {
    List list = new_list(points, dimension);
    Record record(created(periodicity, least_squares, list));
    list.release();
    return record;
}

struct Slope {
    int position;
    Vector vector;
    int type = 1;
};

inline Record with_slopes(Record record, const std::vector<Slope>& slopes) {
    for (const auto& [position, vector, type] : slopes)
        BCDF_replace_slope(record, vector.data(), position, type);
    return record;
}

/// Vector k of a list; what a homogeneous one has fourth is left out.
inline Vector vector_in(const PNTLST* list, int k) {
    const double* at = list->points + static_cast<std::ptrdiff_t>(k) * list->dimension;
    return {at[0], at[1], at[2]};
}

/// What a call returns, and the integer that it writes behind its arguments, -1 if it does not.
template <class Call, class... Arguments>
auto answered(Call call, const Arguments&... arguments) {
    int number = -1;
    auto result = call(passed(arguments)..., &number);
    return std::pair(result, number);
}

/// What is in a copy, which goes; how much there is, the call that makes it tells.
template <class T>
Values taken(T* copy, const int& number, const int& width = 1) {
    const Values values(copy, copy + number * width);
    SM_free(copy);
    return values;
}

/// Sets checking while it lives, and tells whether this is what was reported.
struct Checked {
    ~Checked() { EXPECT_EQ(recorder.reports(), expected); }

    const Reports expected{};
    const ReportRecorder recorder{};
    const CheckingLevel checking{1};
};

}  // namespace ztmath_test
