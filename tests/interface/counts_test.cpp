// Counts, and other integers, that ask for little or make no sense.
#include "interface/row.h"
#include "interface/whole_calls.h"
#include "support/support.h"

namespace {

using namespace ztmath_test;

/// What the integers of all rows are.
int integers[24];

/// The calls of functions that read all they are passed, arrays of 64 numbers and 8 by 8 matrices.
template <auto... functions>
std::vector<Call> calls_of() {
    return {general_row<functions, ~0U, 64, 8, integers>()...};
}

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

/// Left out, since they only store a number of the session, or one by which the caller knows an
/// object: ACOM_set_application, DISPLAY_set_system_color, DISPLAY_set_view_of_last_cursor,
/// PX_set_default_face_grid_counts, WCS__set_matrix_tag, WCS_set_linked_to_view, WCS_set_tag,
/// WCS_set_wcs_display, a406_, cu0008_, d7391_, merrorpush, sys10_.
const std::vector<Call> calls =
    calls_of<lu_solved, vertex_normal, space_line, space_circle, banded_solved, banded_dumped,
             minimised, equation_integrated, integrated, filled, list_from_function,
             record_over_block, record_over_list, inserted, fitted, curved, BCDF_change_curvature,
             BCDF_check_overlap_points, BCDF_replace_curvature, BCDF_replace_slope,
             PNTLST_remove_points,
#include "counted.inc"
             >();

/// Calls with integers that are all the same, but the one at a place. Matrices, 3 and 8 wide, have
/// large diagonals.
Outcome outcome_with(const Call& call, int integer, int place = 0, int value = 3) {
    std::ranges::fill(integers, integer);
    integers[place] = value;
    Arrays inputs;
    for (const std::size_t length : call.inputs) {
        inputs.emplace_back(length);
        for (std::size_t i = 0; i < length; ++i)
            inputs.back()[i] = 1.0 / (2 + 37 * (i + 128 * inputs.size()) % 1009) +
                               (i % 4 == 0 || i % 9 == 0 ? 4.0 : 0.0);
    }
    return outcome_of(call, inputs);
}

/// Whether a call left alone what the usual one did, in all that it wrote but structures.
bool writes_within(const Outcome& usual, const Outcome& before, const Outcome& outcome) {
    for (std::size_t o = 0; o < before.outputs.size(); ++o) {
        const std::vector<double>& stood = before.outputs[o];
        for (std::size_t i = 0; stood.size() != structure_out && i < stood.size(); ++i)
            if (same_bits(usual.outputs[o][i], stood[i]) &&
                !same_bits(outcome.outputs[o][i], stood[i]))
                return false;
    }
    return true;
}

TEST(EveryCount, WritesNowhereElseBeingSmallOrNegativeAndLeavesTheNextCallAsItWas) {
    const ReportRecorder quiet;
    for (const Call& call : calls) {
        SCOPED_TRACE(call.name);
        const NoBlocksLeft watch;
        calls_nothing = true;
        const Outcome before = outcome_with(call, 7, 0, 7);
        calls_nothing = false;
        const Outcome usual = outcome_with(call, 3);
        for (int swept = 0; swept < call.integers; ++swept)
            for (const int value : {0, 1, -1})
                for (const int level : {0, 1}) {
                    const CheckingLevel checking(level);
                    EXPECT_TRUE(writes_within(usual, before, outcome_with(call, 3, swept, value)))
                        << "integer " << swept << " being " << value;
                    EXPECT_TRUE(same_bits(outcome_with(call, 3), usual));
                }
    }
    tell_calls();
}

}  // namespace
