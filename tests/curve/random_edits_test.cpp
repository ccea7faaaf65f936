// Random sequences of edits against a plain model: points with what is attached to them. What an
// edit computes comes from the calculations; the model says what is then where.
#include <optional>

#include "support/curve_record.h"
#include "ztmath/bcdf_calc.h"

namespace {

using namespace ztmath_test;

enum Kind { slope, curvature };

struct Place {
    Values point;
    double parameter = 0.0;
    std::optional<Vector> vectors[2];  // by kind
};

/// Codes are kept by index, as they may stray from their vectors.
struct Model {
    std::vector<Place> places;
    std::vector<int> codes[2];

    int size() const { return static_cast<int>(places.size()); }
    bool has(Kind kind, int p) const { return places[p].vectors[kind].has_value(); }
    int index_of(Kind kind, int p) const {
        return p == 0 ? 0 : index_of(kind, p - 1) + has(kind, p - 1);
    }
    int count(Kind kind) const { return index_of(kind, size()); }
    int position_of(Kind kind, int k) const {
        int p = 0;
        while (index_of(kind, p + 1) <= k)
            ++p;
        return p;
    }

    void put(Kind kind, int p, const Vector& v, int code) {
        const int k = index_of(kind, p);
        if (!has(kind, p)) codes[kind].insert(codes[kind].begin() + k, code);
        places[p].vectors[kind] = v;
        codes[kind][k] = code;
    }

    /// Vectors go; of the codes behind them only as many move down.
    void remove(Kind kind, int first, int number) {
        for (int k = 0; k < number; ++k)
            places[position_of(kind, first)].vectors[kind].reset();
        for (int k = first; k < first + number && k + number < std::ssize(codes[kind]); ++k)
            codes[kind][k] = codes[kind][k + number];
        codes[kind].resize(count(kind));
    }

    void remove_slopes(int first, int number) {
        for (int k = first; k < first + number; ++k)
            if (const int p = position_of(slope, k); has(curvature, p))
                remove(curvature, index_of(curvature, p), 1);
        remove(slope, first, number);
    }

    void remove_points(int first, int number) {
        for (int p = first; p < first + number; ++p)
            if (has(slope, p)) remove_slopes(index_of(slope, p), 1);
        places.erase(places.begin() + first, places.begin() + first + number);
    }

    void set_parameters(const Values& given) {
        const auto squared = [](double a, double b) { return (b - a) * (b - a); };
        const double old_last = places.back().parameter;
        places[0].parameter = 0.0;
        for (int p = 1; p < size(); ++p) {
            const auto &a = places[p - 1].point, &b = places[p].point;
            const double chord = std::sqrt(
                std::inner_product(a.begin(), a.end(), b.begin(), 0.0, std::plus(), squared));
            places[p].parameter = given.empty() ? places[p - 1].parameter + chord : given[p];
        }
        for (Place& place : places)
            for (std::size_t j = 0; place.vectors[slope] && j < 3; ++j)
                (*place.vectors[slope])[j] *= old_last / places.back().parameter;
    }

    void read_back(Kind kind, const PNTLST* vectors) {
        int k = 0;
        for (Place& place : places)
            if (place.vectors[kind]) place.vectors[kind] = vector_in(vectors, k++);
    }
};

/// What a record is by itself.
Values head_of(const BCDF* r) {
    Values head = values_of(r->weights);
    head.insert(head.end(), {double(BCDF_return_order(r)), double(BCDF_return_periodicity(r)),
                             r->ls_tolerance, double(r->ls_num_segments)});
    return head;
}

/// Looks at a copy, which is the record only if both are right.
void expect_same(const BCDF* record, const Model& m) {
    const Record r(BCDF_make_bcdf_data_persistent(BCDF_copy_structure(record)));
    EXPECT_EQ(head_of(r), head_of(record));
    ASSERT_EQ(BCDF_return_num_of_points(r), m.size());
    ASSERT_EQ(BCDF_return_num_of_slopes(r), m.count(slope));
    ASSERT_EQ(BCDF_return_num_of_crvatrs(r), m.count(curvature));
    EXPECT_EQ(values_of(r->weights).size(), r->weights == nullptr ? 0 : m.places.size());
    int n = 0, d = 0;
    EXPECT_EQ(taken(BCDF_copy_slopes(r, &n, &d), n, d), values_of(r->slopes));
    const PNTLST* vectors[] = {r->slopes, r->curvatures};
    const Values sites[] = {taken(BCDF_copy_slope_pars(r, &n), n),
                            values_of(r->curvature_parameters)};
    const Values codes[] = {taken(BCDF_copy_slope_type_array(r), m.count(slope)),
                            taken(BCDF_copy_crvatr_type_array(r), m.count(curvature))};
    const Values parameters = taken(BCDF_copy_parameters(r, &n), n);
    const Values points = taken(BCDF_copy_points(r, &n, &d), n, d);
    for (int p = 0; p < m.size(); ++p) {
        const auto& [point, parameter, attached] = m.places[p];
        EXPECT_EQ(Values(&points[p * d], &points[p * d] + d), point);
        EXPECT_EQ(parameters[p], parameter);
        for (const Kind kind : {slope, curvature}) {
            const int k = m.index_of(kind, p);
            if (!m.has(kind, p)) continue;
            EXPECT_EQ(vector_in(vectors[kind], k), *attached[kind]);
            EXPECT_EQ(sites[kind].at(k), parameter);
            EXPECT_EQ(codes[kind].at(k), m.codes[kind][k]);
        }
    }
}

/// Random edits of record and model alike.
struct Editor : Model {
    Random& random;
    BCDF* r;

    std::pair<int, int> some(int n, int most) {
        const int number = random.integer(1, std::min(n, most));
        return {random.integer(0, n - number), number};
    }

    void replace_point() {
        const int p = random.integer(0, size() - 1), given = random.integer(3, 4);
        Values& stored = places[p].point;
        const int own = int(stored.size());
        Values point = {random.normal(), random.normal(), random.normal(), random.uniform(1, 2)};
        BCDF_replace_defining_point(r, point.data(), p, given);
        for (int j = 0; j < 3; ++j)
            stored[j] = given == own ? point[j]
                        : own == 4   ? stored[3] * point[j]
                                     : point[j] / point[3];
        if (given == 4 && own == 4) stored[3] = point[3];
        if (r->periodicity == 0) return;
        if (p == 0) places.back().point = stored;
        if (p == size() - 1) places.front().point = stored;
    }

    void remove_points() {
        if (size() < 5) return;
        const auto [first, number] = some(size(), std::min(3, size() - 4));
        const bool end = first == 0 || first + number == size() - 1;
        const bool closing = first == size() - 1;
        BCDF_remove_defining_points(r, first, number);
        Model::remove_points(first, number);
        if (end) Model::set_parameters({});
        if (end) put_needed_slopes();
        if (r->periodicity == 0) return;
        Values &start = places.front().point, &last = places.back().point;
        if (end) std::copy_n(start.begin(), 3, last.begin());
        if (end && start.size() == 4) places[size() - 2].point[3] = start[3];
        if (!end && closing) start = last;
    }

    void put_needed_slopes() {
        const int last = size() - 1;
        const bool one = has(slope, 0) != has(slope, last);
        if (r->weights != nullptr ? !one : r->periodicity == 1 || r->order != 4) return;
        for (const int p : {0, last})
            if (!has(slope, p)) put(slope, p, written(BCDF_CALC_auto_slope, r, p), 0);
    }

    void change_slope() {
        const int p = random.integer(0, size() - 1), type = random.integer(0, 5);
        const Vector v = random.vector();
        Vector stored = type == 0 ? written(BCDF_CALC_auto_slope, r, p) : v;
        BCDF_CALC_normalized_slope(r, type, p, stored.data());
        BCDF_change_slope(r, type, v.data(), p);
        put(slope, p, stored, type);
        read_back(curvature, r->curvatures);
    }

    void change_curvature() {
        if (count(slope) == 0) return;
        const int p = position_of(slope, random.integer(0, count(slope) - 1));
        const int type = random.integer(0, 1);
        const Vector v = random.vector();
        BCDF_change_curvature(r, type, v.data(), p, 0.5);
        put(curvature, p, v, type);
        if (type == 1) read_back(curvature, r->curvatures);
    }

    void remove_vectors() {
        const Kind kind = random.integer(0, 1) == 0 ? slope : curvature;
        const int all = count(kind);
        if (all == 0) return;
        const auto [first, number] = some(all, 4);
        const auto remove_from = kind == slope ? BCDF_remove_slopes : BCDF_remove_curvatures;
        if (all > 1) remove_from(r, -99, all - 1);  // none of them
        remove_from(r, first, number);
        kind == slope ? remove_slopes(first, number) : remove(kind, first, number);
    }

    void set_parameters() {
        Values given;
        const bool chosen = random.integer(0, 1) == 0;
        while (chosen && int(given.size()) < size())
            given.push_back(given.empty() ? 0.0 : given.back() + random.uniform(0.1, 2));
        BCDF_add_params(r, given.empty() ? nullptr : given.data());
        Model::set_parameters(given);
    }

    void toggle() {
        if (r->weights != nullptr || size() < 5) return;
        BCDF_toggle_periodicity(r);
        const double period = places.back().parameter;
        if (r->periodicity == 0) Model::remove_points(size() - 1, 1);
        if (r->periodicity == 1) places.push_back({places[0].point, 0.0, {}});
        places.back().parameter = period;
        Model::set_parameters({});
    }

    void update() {
        BCDF_update_slopes(r);
        BCDF_update_curvatures(r);
        read_back(slope, r->slopes);
        read_back(curvature, r->curvatures);
    }
};

TEST(CurveEditing, RandomEditsLeaveWhatAPlainModelLeaves) {
    const NoBlocksLeft watch;
    const Checked silent{};
    constexpr void (Editor::*edits[])() = {
        &Editor::replace_point,    &Editor::remove_points,  &Editor::change_slope,
        &Editor::change_slope,     &Editor::change_slope,   &Editor::change_curvature,
        &Editor::change_curvature, &Editor::remove_vectors, &Editor::set_parameters,
        &Editor::toggle,           &Editor::update};
    Random random;
    for (int sequence = 0; sequence < rounds(3000) && !HasFailure(); ++sequence) {
        const int width = random.integer(3, 4);
        Model model;
        Values all;
        for (int i = random.integer(4, 12); i > 0; --i) {
            Values point = {random.normal(), random.normal(), random.normal(), 1.5};
            point.resize(width);
            all.insert(all.end(), point.begin(), point.end());
            model.places.push_back({point, 0.0, {}});
        }
        const Record record = new_record(all, width, 0, sequence % 4 == 0);
        record->order = random.integer(4, 6);
        record->ls_tolerance = sequence;
        model.set_parameters({});
        Editor editor{model, random, record.get()};
        for (int step = 0; step < 30 && !HasFailure(); ++step) {
            (editor.*edits[random.integer(0, std::size(edits) - 1)])();
            expect_same(record, editor);
        }
        ASSERT_FALSE(HasFailure()) << "sequence " << sequence;
    }
}

}  // namespace
