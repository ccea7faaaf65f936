// Random sequences of edits against a plain model: points with their slopes and curvatures in maps.
#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/shared_block.h"
#include "ztmath/bcdf_calc.h"

namespace {

using namespace ztmath_test;

/// Vectors by the position of their point; codes by index, as they may stray from their vectors.
struct Attached {
    std::map<int, Vector> at;
    std::vector<int> types;

    int size() const { return static_cast<int>(at.size()); }
    bool has(int p) const { return at.count(p) != 0; }
    int index_of(int p) const {
        return static_cast<int>(std::distance(at.begin(), at.lower_bound(p)));
    }

    void put(int p, const Vector& v, int type) {
        if (!has(p)) types.insert(types.begin() + index_of(p), type);
        at[p] = v;
        types[index_of(p)] = type;
    }
    /// Vectors go; of the codes behind them only as many move down.
    void remove(int first, int number) {
        const auto from = std::next(at.begin(), first);
        at.erase(from, std::next(from, number));
        for (int i = first; i < first + number && i + number < int(types.size()); ++i)
            types[i] = types[i + number];
        types.resize(at.size());
    }
    /// Points without vectors went.
    void close_gap(int first, int number) {
        std::map<int, Vector> moved_down;
        for (const auto& [p, v] : at)
            moved_down[p < first ? p : p - number] = v;
        at = moved_down;
    }
    void read_back(const PNTLST* vectors) {
        int k = 0;
        for (auto& [p, v] : at)
            v = vector_in(vectors, k++);
    }
    void write(Values& out, const Values& parameters) const {
        int k = 0;
        for (const auto& [p, v] : at)
            out.insert(out.end(), {parameters[p], v[0], v[1], v[2], double(types[k++])});
    }
};

/// What a copy holds, which goes. Its size is what the call for the copy tells.
template <class T>
Values taken(T* copy, const int& number, const int& width = 1) {
    const Values values(copy, copy + number * width);
    SM_free(copy);
    return values;
}

void write(Values& out, const PNTLST* vectors, const Values& sites, const Values& types) {
    for (int k = 0; vectors != nullptr && k < vectors->num_points; ++k) {
        const Vector v = vector_in(vectors, k);
        out.insert(out.end(), {sites.at(k), v[0], v[1], v[2], types.at(k)});
    }
}

/// What a record is by itself.
Values head_of(const BCDF* r) {
    Values head = values_of(r->weights);
    head.insert(head.end(), {double(BCDF_return_order(r)), double(BCDF_return_periodicity(r)),
                             r->ls_tolerance, double(r->ls_num_segments)});
    return head;
}

struct Model {
    BCDF* record;
    std::vector<Values> points;
    Values parameters;
    Attached slopes, curvatures;

    int size() const { return static_cast<int>(points.size()); }

    void set_parameters(const Values& given) {
        const double old_last = parameters.back();
        parameters = given.empty() ? Values{0.0} : given;
        for (std::size_t i = 1; parameters.size() < points.size(); ++i) {
            double sum = 0.0;
            for (std::size_t j = 0; j < points[i].size(); ++j)
                sum += (points[i][j] - points[i - 1][j]) * (points[i][j] - points[i - 1][j]);
            parameters.push_back(parameters.back() + std::sqrt(sum));
        }
        for (auto& [p, v] : slopes.at)
            for (double& component : v)
                component *= old_last / parameters.back();
    }

    void remove_slopes(int first, int number) {
        if (number == slopes.size()) curvatures = {};
        for (int k = first; k < first + number; ++k)
            if (const int p = std::next(slopes.at.begin(), k)->first; curvatures.has(p))
                curvatures.remove(curvatures.index_of(p), 1);
        slopes.remove(first, number);
    }

    void remove_points(int first, int number) {
        for (int p = first; p < first + number; ++p)
            if (slopes.has(p)) remove_slopes(slopes.index_of(p), 1);
        slopes.close_gap(first, number);
        curvatures.close_gap(first, number);
        points.erase(points.begin() + first, points.begin() + first + number);
        parameters.erase(parameters.begin() + first, parameters.begin() + first + number);
    }

    /// Looks at a copy, which is the record only if both are right.
    void expect_same() const {
        const Record copy(BCDF_make_bcdf_data_persistent(BCDF_copy_structure(record)));
        const BCDF* r = copy.get();
        EXPECT_EQ(head_of(r), head_of(record));
        ASSERT_EQ(BCDF_return_num_of_points(r), size());
        ASSERT_EQ(BCDF_return_num_of_slopes(r), slopes.size());
        ASSERT_EQ(BCDF_return_num_of_crvatrs(r), curvatures.size());
        EXPECT_EQ(values_of(r->weights).size(), r->weights == nullptr ? 0 : points.size());
        Values expected;
        for (const Values& point : points)
            expected.insert(expected.end(), point.begin(), point.end());
        expected.insert(expected.end(), parameters.begin(), parameters.end());
        slopes.write(expected, parameters);
        curvatures.write(expected, parameters);
        int n = 0, d = 0;
        Values found = taken(BCDF_copy_points(r, &n, &d), n, d);
        const Values at = taken(BCDF_copy_parameters(r, &n), n);
        found.insert(found.end(), at.begin(), at.end());
        EXPECT_EQ(taken(BCDF_copy_slopes(r, &n, &d), n, d), values_of(r->slopes));
        write(found, r->slopes, taken(BCDF_copy_slope_pars(r, &n), n),
              taken(BCDF_copy_slope_type_array(r), slopes.size()));
        write(found, r->curvatures, values_of(r->curvature_parameters),
              taken(BCDF_copy_crvatr_type_array(r), curvatures.size()));
        ASSERT_EQ(found, expected);
        for (int i = 0; i < size(); ++i)
            expect_searches(i, slopes.index_of(i), curvatures.index_of(i));
    }

    void expect_searches(int i, int slope, int curvature) const {
        int at = slope;
        EXPECT_EQ(BCDF_slope_at_point(record, i, &at), slopes.has(i));
        EXPECT_EQ(at, slope);
        at = curvature;
        EXPECT_EQ(BCDF_curvature_at_point(record, i, &at), curvatures.has(i));
        EXPECT_EQ(at, curvature);
        if (!curvatures.has(i)) return;
        Vector v;
        EXPECT_EQ(BCDF_slope_at_curvature(record, curvature, &at, v.data()), 1);
        EXPECT_EQ(v, slopes.at.at(i));
        EXPECT_EQ(BCDF_curvature_at_slope(record, at, &at), 1);
        EXPECT_EQ(at, curvature);
    }
};

/// Random edits of record and model alike. What an edit computes comes from the calculations; what
/// it makes of edited vectors is judged and read back.
struct Editor {
    Random& random;
    Model& m;
    BCDF* r = m.record;

    /// A place for up to `most` out of n.
    struct Range {
        int first, number;
    };
    Range some(int n, int most) {
        const int number = random.integer(1, std::min(n, most));
        return {random.integer(0, n - number), number};
    }

    void replace_point() {
        const int p = random.integer(0, m.size() - 1), given = random.integer(3, 4);
        Values& stored = m.points[p];
        const int own = int(stored.size());
        Values point = {random.normal(), random.normal(), random.normal(), random.uniform(1, 2)};
        BCDF_replace_defining_point(r, point.data(), p, given);
        for (int j = 0; j < 3; ++j)
            stored[j] = given == own ? point[j]
                        : own == 4   ? stored[3] * point[j]
                                     : point[j] / point[3];
        if (given == 4 && own == 4) stored[3] = point[3];
        if (r->periodicity == 0) return;
        if (p == 0) m.points.back() = stored;
        if (p == m.size() - 1) m.points.front() = stored;
    }

    void remove_points() {
        if (m.size() < 5) return;
        const auto [first, number] = some(m.size(), std::min(3, m.size() - 4));
        const bool end = first == 0 || first + number == m.size() - 1;
        const bool closing = first == m.size() - 1;
        BCDF_remove_defining_points(r, first, number);
        m.remove_points(first, number);
        if (end) m.set_parameters({});
        if (end) put_needed_slopes();
        if (r->periodicity == 0) return;
        if (end) std::copy_n(m.points.front().begin(), 3, m.points.back().begin());
        if (end && m.points[0].size() == 4) m.points[m.size() - 2][3] = m.points[0][3];
        if (!end && closing) m.points.front() = m.points.back();
    }

    void put_needed_slopes() {
        const int last = m.size() - 1;
        const bool one = m.slopes.has(0) != m.slopes.has(last);
        if (r->weights != nullptr ? !one : r->periodicity == 1 || r->order != 4) return;
        for (const int p : {0, last}) {
            Vector v{};
            BCDF_CALC_auto_slope(r, p, v.data());
            if (!m.slopes.has(p)) m.slopes.put(p, v, 0);
        }
    }

    void change_slope() {
        const int p = random.integer(0, m.size() - 1), type = random.integer(0, 5);
        const Vector v = random.vector();
        Vector stored = v;
        if (type == 0) BCDF_CALC_auto_slope(r, p, stored.data());
        BCDF_CALC_normalized_slope(r, type, p, stored.data());
        BCDF_change_slope(r, type, v.data(), p);
        m.slopes.put(p, stored, type);
        const Attached before = m.curvatures;  // one there has turned about z
        m.curvatures.read_back(r->curvatures);
        for (const auto& [q, k] : before.at)
            EXPECT_NEAR(m.curvatures.at[q][2], k[2], 1e-12 * (1 + length(k)));
    }

    void change_curvature() {
        if (m.slopes.size() == 0) return;
        const int p = std::next(m.slopes.at.begin(), some(m.slopes.size(), 1).first)->first;
        const int type = random.integer(0, 1);
        Vector v = random.vector();
        BCDF_change_curvature(r, type, v.data(), p, 0.5);
        if (type == 1) v = vector_in(r->curvatures, m.curvatures.index_of(p));
        if (type == 1) {
            EXPECT_NEAR(length(v), 2.0, 1e-12);
        }
        m.curvatures.put(p, v, type);
    }

    void remove_vectors() {
        const bool of_slopes = random.integer(0, 1) == 0;
        const int all = of_slopes ? m.slopes.size() : m.curvatures.size();
        if (all == 0) return;
        const auto [first, number] = some(all, 4);
        const auto remove = of_slopes ? BCDF_remove_slopes : BCDF_remove_curvatures;
        if (all > 1) remove(r, -99, all - 1);  // none of them
        remove(r, first, number);
        of_slopes ? m.remove_slopes(first, number) : m.curvatures.remove(first, number);
    }

    void set_parameters() {
        Values given;
        const bool chosen = random.integer(0, 1) == 0;
        while (chosen && int(given.size()) < m.size())
            given.push_back(given.empty() ? 0.0 : given.back() + random.uniform(0.1, 2));
        BCDF_add_params(r, given.empty() ? nullptr : given.data());
        m.set_parameters(given);
    }

    void toggle() {
        if (r->weights != nullptr || m.size() < 5) return;
        BCDF_toggle_periodicity(r);
        if (r->periodicity == 0) m.remove_points(m.size() - 1, 1);
        if (r->periodicity == 1) m.points.push_back(m.points.front());
        m.set_parameters({});
    }

    /// Fixed and kept slopes stay, and curvatures keep their radius.
    void update() {
        const Attached slopes = m.slopes;
        BCDF_update_slopes(r);
        m.slopes.read_back(r->slopes);
        m.curvatures.read_back(r->curvatures);
        for (const auto& [p, v] : slopes.at)
            if (const int type = slopes.types[slopes.index_of(p)]; type == 1 || type == 3) {
                EXPECT_EQ(m.slopes.at[p], v);
            }
        const Attached before = m.curvatures;
        BCDF_update_curvatures(r);
        m.curvatures.read_back(r->curvatures);
        for (const auto& [p, v] : before.at)
            EXPECT_NEAR(length(m.curvatures.at[p]), length(v), 1e-9 * (1 + length(v)));
    }
};

TEST(CurveEditing, RandomEditsLeaveWhatAPlainModelLeaves) {
    const CheckingLevel checking(1);
    const NoBlocksLeft watch;
    const ReportRecorder recorder;
    constexpr void (Editor::*edits[])() = {
        &Editor::replace_point,    &Editor::remove_points,  &Editor::change_slope,
        &Editor::change_slope,     &Editor::change_slope,   &Editor::change_curvature,
        &Editor::change_curvature, &Editor::remove_vectors, &Editor::set_parameters,
        &Editor::toggle,           &Editor::update};
    Random random;
    for (int sequence = 0; sequence < rounds(3000) && !HasFailure(); ++sequence) {
        const int width = random.integer(3, 4);
        Model m{nullptr, {}, {}, {}, {}};
        Values all;
        for (int i = random.integer(4, 12); i > 0; --i) {
            m.points.push_back({random.normal(), random.normal(), random.normal(), 1.5});
            m.points.back().resize(width);
            all.insert(all.end(), m.points.back().begin(), m.points.back().end());
        }
        const Record record = new_record(all, width, 0, sequence % 4 == 0);
        record->order = random.integer(4, 6);
        record->ls_tolerance = sequence;
        m.record = record.get();
        m.parameters = {1.0};
        m.set_parameters({});
        for (int step = 0; step < 30 && !HasFailure(); ++step) {
            (Editor{random, m}.*edits[random.integer(0, std::size(edits) - 1)])();
            m.expect_same();
        }
        ASSERT_FALSE(HasFailure()) << "sequence " << sequence;
    }
    EXPECT_EQ(recorder.reports(), Reports{});
}

}  // namespace
