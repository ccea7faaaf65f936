// Counts, and other integers, that ask for little or make no sense.
#include "interface/row.h"
#include "interface/whole_calls.h"
#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"

namespace {

using namespace ztmath_test;

/// A record of eight points, with a slope and a curvature at each.
Record full_record(const double* numbers) {
    Record record = new_record({numbers, numbers + 24});
    for (int i = 0; i < 8; ++i) {
        BCDF_replace_slope(record.get(), numbers + i, i, 0);
        BCDF_replace_curvature(record.get(), numbers + i, i, 0);
    }
    return record;
}

/// Lays out whatever a function's parameters ask for: numbers, arrays, matrices by rows, integers,
/// lists, records. All arrays lie in two blocks, where their neighbours stand guard.
class Bench {
  public:
    /// All integers are 3, but the one that is swept.
    explicit Bench(int swept = -1, int value = 0) : swept_(swept), value_(value) {
        for (int i = 0; i < size; ++i) {  // with large diagonals, 3 and 8 wide
            numbers_[i] = 1.0 / (2 + 37 * i % 1009) + (i % 4 == 0 || i % 9 == 0 ? 4.0 : 0.0);
            integers_[i] = 7;
        }
    }

    template <class Result, class... Parameters>
    void call(Result (*function)(Parameters...)) {
        const std::tuple<Parameters...> values{next<Parameters>()...};
        if constexpr (std::is_void_v<Result>)
            std::apply(function, values);
        else
            keep(std::apply(function, values));
        keep(record_.release());
        keep(list_.release());
        for (int k = 0; k < matrices_; ++k)  // blocks handed out
            if (rows_[k][0] < numbers_ || rows_[k][0] >= numbers_ + size) SM_free(rows_[k][0]);
    }

    int integer_count() const { return integer_count_; }

    /// The places where it holds something else than another.
    std::vector<int> changes_from(const Bench& other) const {
        std::vector<int> places;
        for (int i = 0; i < size; ++i) {
            if (!same_bits(numbers_[i], other.numbers_[i])) places.push_back(2 * i);
            if (integers_[i] != other.integers_[i]) places.push_back(2 * i + 1);
        }
        return places;
    }

    /// Whether a call gave back, and left in records and lists, what another did.
    bool answers_as(const Bench& other) const { return answers_ == other.answers_; }

  private:
    static constexpr int room = 128;   // of an array and those that guard it
    static constexpr int guards = 32;  // before it
    static constexpr int width = 8;    // of a matrix
    static constexpr int size = 16 * room;

    void keep(double answer) { answers_.push_back(std::bit_cast<std::uint64_t>(answer)); }
    void keep(double** rows) { SM_free(rows); }
    void keep(const int*) {}  // one that was passed

    void keep(PNTLST* made) {
        const List list(made);
        if (list == nullptr) return;
        list->num_points = std::min(list->num_points, list->points_allocated);  // the caller's duty
        for (const int field : {list->num_points, list->points_allocated, list->dimension})
            keep(field);
        const List copy(PNTLST_copy_structure(list.get()));
        if (list->dimension < 1) return;
        for (const double value : values_of(copy.get()))
            keep(value);
    }

    void keep(BCDF* made) {
        const Record record(made);
        if (record == nullptr) return;
        for (const int field : {record->order, record->periodicity, record->ls_num_segments,
                                record->num_knots, BCDF_check_defining_data(record.get())})
            keep(field);
        const Record copy(BCDF_copy_structure(record.get()));
        for (PNTLST** list :
             {&copy->points, &copy->parameters, &copy->weights, &copy->slopes,
              &copy->slope_parameters, &copy->curvatures, &copy->curvature_parameters})
            keep(std::exchange(*list, nullptr));
    }

    template <class Parameter>
    Parameter next() {
        const int at = room * array_count_++ + guards;
        if constexpr (std::is_same_v<Parameter, double>) {
            return numbers_[at];
        } else if constexpr (std::is_same_v<Parameter, double**>) {
            for (int i = 0; i < width; ++i)
                rows_[matrices_][i] = &numbers_[at + width * i];
            return rows_[matrices_++];
        } else if constexpr (std::is_convertible_v<BCDF*, Parameter>) {
            return (record_ = full_record(&numbers_[at])).get();
        } else if constexpr (std::is_convertible_v<PNTLST*, Parameter>) {
            return (list_ = new_list({&numbers_[at], &numbers_[at] + 24})).get();
        } else if constexpr (std::is_convertible_v<double*, Parameter>) {
            return &numbers_[at];
        } else {
            integers_[at] = integer_count_++ == swept_ ? value_ : 3;
            if constexpr (std::is_pointer_v<Parameter>)
                return &integers_[at];
            else
                return static_cast<Parameter>(integers_[at]);
        }
    }

    double numbers_[size];
    int integers_[size];
    double* rows_[3][width];
    Record record_;
    List list_;
    std::vector<std::uint64_t> answers_;
    int array_count_ = 0;
    int integer_count_ = 0;
    int matrices_ = 0;
    int swept_;
    int value_;
};

void banded_dumped(double** matrix, const double* b, int n, int bw) {
    testing::internal::CaptureStdout();
    mdump_banded(matrix, b, n, bw);
    testing::internal::GetCapturedStdout();
}

void space_line(const double* points, int n, double* normal, int* coincident, double* point,
                double* direction, double* stats, double* frame) {
    int collinear = -1;  // fits a plane
    LSFIT_line_to_points_3d(points, n, normal, &collinear, coincident, point, direction, stats,
                            frame);
}

void space_circle(const double* points, int n, double* point, double* normal, double* centre,
                  double* radius, int* failed, double* stats, double* frame) {
    std::fill_n(normal, 3, 0.0);  // fits a plane
    LSFIT_circle_to_points_3d(points, n, point, normal, centre, radius, failed, stats, frame);
}

PNTLST* list_from_function(int number, int dimension) {
    PNTLST* const list = PNTLST_get_from_func(number, dimension, [](int, double*) { return 0; });
    if (list != nullptr) std::fill_n(list->points, number * std::max(dimension, 0), 1.0);
    return list;
}

double* block_of_points() {
    int n = 0;
    int dimension = 0;
    return PNTLST_copy_points(new_list(Values(24, 1.0)).get(), &n, &dimension);
}

/// Without points, a block stays the caller's.
BCDF* record_over_block(int number, int dimension, int least_squares) {
    double* const points = block_of_points();
    BCDF* const record = BCDF_create_df_from_pts(points, number, dimension, least_squares);
    if (number < 1) SM_free(points);
    return record;
}

BCDF* record_over_list(int number, int dimension, int periodicity, int order, int least_squares) {
    double* const points = block_of_points();
    PNTLST* const list = PNTLST_create_from_list_of_pts(points, number, dimension);
    if (number < 1) SM_free(points);
    return BCDF_create_from_pntlst(periodicity, order, least_squares, list, nullptr, nullptr,
                                   nullptr, nullptr, nullptr, nullptr, nullptr, nullptr);
}

/// Without the last places, which hold whatever was in the array.
void inserted(PNTLST* list, int number, int position, const double* points) {
    PNTLST_insert_points(list, number, position, points);
    if (number > 1) PNTLST_remove_points(list, list->num_points - (number - 1), number - 1);
}

void fitted(BCDF* record, int segments, int position, double weight) {
    BCDF_change_number_of_segments(record, segments);
    BCDF_replace_weight(record, position, weight);
}

/// What looks at a position for some types and modes only.
int curved(BCDF* record, const double* vector, int position) {
    for (const int type : {0, 1})
        BCDF_change_curvature(record, type, vector, position, 2.0);
    return BCDF_check_overlap_points(record, 1, position, vector) +
           BCDF_check_overlap_points(record, 2, position, vector);
}

struct Row {
    std::string name;
    void (*run)(Bench&);
};

template <auto... functions>
std::vector<Row> rows_to_sweep() {
    return {{name_of<functions>(), [](Bench& bench) { bench.call(functions); }}...};
}

/// Left out, since they only store a number of the session, or one by which the caller knows an
/// object: ACOM_set_application, DISPLAY_set_system_color, DISPLAY_set_view_of_last_cursor,
/// PX_set_default_face_grid_counts, WCS__set_matrix_tag, WCS_set_linked_to_view, WCS_set_tag,
/// WCS_set_wcs_display, a406_, cu0008_, d7391_, merrorpush, sys10_.
const std::vector<Row> rows =
    rows_to_sweep<lu_solved, vertex_normal, space_line, space_circle, banded_solved, banded_dumped,
                  minimised, equation_integrated, integrated, filled, list_from_function,
                  record_over_block, record_over_list, inserted, fitted, curved,
                  BCDF_change_curvature, BCDF_check_overlap_points, BCDF_replace_curvature,
                  BCDF_replace_slope, PNTLST_remove_points,
#include "counted.inc"
                  >();

Bench called(const Row& row, Bench bench) {
    row.run(bench);
    ++calls_made;
    return bench;
}

TEST(EveryCount, WritesNowhereElseBeingSmallOrNegativeAndLeavesTheNextCallAsItWas) {
    const ReportRecorder quiet;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        const NoBlocksLeft watch;
        const Bench usual = called(row, Bench());
        for (int swept = 0; swept < usual.integer_count(); ++swept)
            for (const int value : {0, 1, -1})
                for (const int level : {0, 1}) {
                    const CheckingLevel checking(level);
                    const Bench bench = called(row, Bench(swept, value));
                    EXPECT_TRUE(std::ranges::includes(usual.changes_from(Bench()),
                                                      bench.changes_from(Bench())))
                        << "integer " << swept << " being " << value;
                    const Bench again = called(row, Bench());
                    EXPECT_TRUE(again.changes_from(usual).empty() && again.answers_as(usual));
                }
    }
    tell_calls();
}

}  // namespace
