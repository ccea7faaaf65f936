// Random sequences of edits against a plain model: points with their slopes and curvatures in maps.
#include <gtest/gtest.h>

#include <map>

#include "support/curve_record.h"
#include "support/reports.h"
#include "support/session.h"
#include "support/shared_block.h"
#include "ztmath/bcdf_calc.h"
#include "ztmath/session.h"
#include "ztmath/tolerance.h"

namespace {

using namespace ztmath_test;

/// Vectors by the position of their point; codes by index, as they may stray from their vectors.
struct Attached {
    std::map<int, Vector> at;
    std::vector<int> types;

    int index_of(int position) const {
        return static_cast<int>(std::distance(at.begin(), at.lower_bound(position)));
    }
    int position_of(int index) const { return std::next(at.begin(), index)->first; }

    void put(int position, const Vector& v, int type) {
        if (at.count(position) == 0) types.insert(types.begin() + index_of(position), type);
        at[position] = v;
        types[static_cast<std::size_t>(index_of(position))] = type;
    }

    /// Vectors go; of the codes behind them as many move down as vectors went.
    void remove(int first, int number) {
        const auto from = std::next(at.begin(), first);
        at.erase(from, std::next(from, number));
        const int size = static_cast<int>(types.size());
        for (int i = first; i < first + number && i + number < size; ++i)
            types[static_cast<std::size_t>(i)] = types[static_cast<std::size_t>(i + number)];
        types.resize(static_cast<std::size_t>(size - number));
    }

    /// Points were removed, none of which has a vector any more.
    void close_gap(int first, int number) {
        std::map<int, Vector> moved_down;
        for (const auto& [position, v] : at)
            moved_down[position < first ? position : position - number] = v;
        at = moved_down;
    }
};

struct Model {
    explicit Model(BCDF* record_) : record(record_) { reload(); }

    BCDF* record;
    std::vector<std::vector<double>> points;
    std::vector<double> parameters;
    Attached slopes, curvatures;

    int size() const { return static_cast<int>(points.size()); }

    void reload() {
        const int width = record->points->dimension;
        const double* p = record->points->points;
        points.clear();
        for (int i = 0; i < record->points->num_points; ++i, p += width)
            points.emplace_back(p, p + width);
        const double* t = record->parameters->points;
        parameters.assign(t, t + record->parameters->num_points);
        slopes = read(record->slopes, record->slope_parameters, record->slope_types);
        curvatures =
            read(record->curvatures, record->curvature_parameters, record->curvature_types);
    }

    Attached read(const PNTLST* vectors, const PNTLST* sites, const int* types) const {
        Attached a;
        for (int k = 0; vectors != nullptr && k < vectors->num_points; ++k) {
            const auto t =
                std::lower_bound(parameters.begin(), parameters.end(), sites->points[k] - 1e-10);
            a.put(static_cast<int>(t - parameters.begin()), vector_in(vectors, k), types[k]);
        }
        return a;
    }

    void set_parameters(const std::vector<double>& given = {}) {
        const double old_last = parameters.back();
        parameters = given.empty() ? std::vector<double>{0.0} : given;
        for (std::size_t i = 1; given.empty() && i < points.size(); ++i) {
            double sum = 0.0;
            for (std::size_t j = 0; j < points[i].size(); ++j)
                sum += (points[i][j] - points[i - 1][j]) * (points[i][j] - points[i - 1][j]);
            parameters.push_back(parameters.back() + std::sqrt(sum));
        }
        const double factor = old_last / parameters.back();
        for (auto& [position, v] : slopes.at)
            for (double& component : v)
                component *= factor;
    }

    void put_automatic(int position) {
        Vector v{};
        BCDF_CALC_auto_slope(record, position, v.data());
        slopes.put(position, v, 0);
    }

    void remove_slopes(int first, int number) {
        if (number == static_cast<int>(slopes.at.size())) curvatures = {};
        for (int k = first; k < first + number; ++k) {
            const int position = slopes.position_of(k);
            if (curvatures.at.count(position) != 0)
                curvatures.remove(curvatures.index_of(position), 1);
        }
        slopes.remove(first, number);
    }

    void remove_points(int first, int number) {
        for (int i = first; i < first + number; ++i)
            if (slopes.at.count(i) != 0) remove_slopes(slopes.index_of(i), 1);
        slopes.close_gap(first, number);
        curvatures.close_gap(first, number);
        points.erase(points.begin() + first, points.begin() + first + number);
        parameters.erase(parameters.begin() + first, parameters.begin() + first + number);
    }

    void expect_same() const {
        const auto n = static_cast<std::size_t>(record->points->num_points);
        ASSERT_EQ(n, points.size());
        ASSERT_EQ(record->parameters->num_points, size());
        if (record->weights != nullptr) {
            ASSERT_EQ(record->weights->num_points, size());
        }
        std::vector<double> coordinates;
        for (const auto& point : points)
            coordinates.insert(coordinates.end(), point.begin(), point.end());
        ASSERT_TRUE(std::equal(coordinates.begin(), coordinates.end(), record->points->points));
        ASSERT_TRUE(std::equal(parameters.begin(), parameters.end(), record->parameters->points));
        expect_same(slopes, record->slopes, record->slope_parameters, record->slope_types);
        expect_same(curvatures, record->curvatures, record->curvature_parameters,
                    record->curvature_types);
        expect_searches();
    }

    void expect_same(const Attached& a, const PNTLST* vectors, const PNTLST* sites,
                     const int* types) const {
        ASSERT_EQ(vectors == nullptr, a.at.empty());
        ASSERT_EQ(sites == nullptr, a.at.empty());
        ASSERT_EQ(types == nullptr, a.at.empty());
        if (a.at.empty()) return;
        ASSERT_EQ(vectors->num_points, static_cast<int>(a.at.size()));
        ASSERT_EQ(sites->num_points, static_cast<int>(a.at.size()));
        ASSERT_TRUE(std::equal(a.types.begin(), a.types.end(), types));
        int k = 0;
        for (const auto& [position, v] : a.at) {
            ASSERT_EQ(sites->points[k], parameters[static_cast<std::size_t>(position)]);
            ASSERT_EQ(vector_in(vectors, k), v);
            if (vectors->dimension == 4) {
                ASSERT_EQ(vectors->points[4 * k + 3], 0.0);
            }
            ++k;
        }
    }

    void expect_searches() const {
        for (int i = 0; i < size(); ++i) {
            int slope = slopes.index_of(i);
            int curvature = curvatures.index_of(i);
            int at = slope;
            ASSERT_EQ(BCDF_slope_at_point(record, i, &at), slopes.at.count(i));
            ASSERT_EQ(at, slope);
            at = curvature;
            ASSERT_EQ(BCDF_curvature_at_point(record, i, &at), curvatures.at.count(i));
            ASSERT_EQ(at, curvature);
            if (slopes.at.count(i) != 0) {
                ASSERT_EQ(BCDF_point_at_slope(record, slope), i);
            }
            if (curvatures.at.count(i) == 0) continue;
            Vector v;
            ASSERT_EQ(BCDF_point_at_curvature(record, curvature), i);
            ASSERT_EQ(BCDF_slope_at_curvature(record, curvature, &at, v.data()), 1);
            ASSERT_EQ(v, slopes.at.at(i));
            ASSERT_EQ(BCDF_curvature_at_slope(record, slope, &at), 1);
            ASSERT_EQ(at, curvature);
        }
    }
};

/// One random edit of record and model. What an edit computes comes from the calculations, asked
/// before the edit; what depends on edited values is read back and judged.
class Editor {
  public:
    Editor(Random& random, Model& model) : random_(random), m_(model), r_(model.record) {}

    void edit() {
        switch (random_.integer(0, 12)) {
            case 0:
                return replace_point();
            case 1:
                return remove_points();
            case 2:
            case 3:
                return change_slope();
            case 4:
                return replace_slope();
            case 5:
                return remove_slopes();
            case 6:
            case 7:
                return put_curvature();
            case 8:
                return remove_curvatures();
            case 9:
                return set_parameters();
            case 10:
                return toggle();
            case 11:
                return update();
            default:
                return fit();
        }
    }

  private:
    int any_position() { return random_.integer(0, m_.size() - 1); }
    bool periodic() const { return r_->periodicity == 1; }

    void replace_point() {
        const int p = any_position();
        const int given = random_.integer(3, 4);
        std::vector<double> point(4);
        for (double& x : point)
            x = random_.uniform(1, 9);
        BCDF_replace_defining_point(r_, point.data(), p, given);
        auto& stored = m_.points[static_cast<std::size_t>(p)];
        const double w = given == 3 && stored.size() == 4   ? stored[3]
                         : given == 4 && stored.size() == 3 ? 1 / point[3]
                                                            : 1.0;
        for (std::size_t j = 0; j < 3; ++j)
            stored[j] = given == 4 && stored.size() == 3 ? point[j] / point[3] : w * point[j];
        if (given == 4 && stored.size() == 4) stored[3] = point[3];
        if (!periodic()) return;
        if (p == 0) m_.points.back() = stored;
        if (p == m_.size() - 1) m_.points.front() = stored;
    }

    void remove_points() {
        if (m_.size() < 5) return;
        const int number = random_.integer(1, std::min(3, m_.size() - 4));
        const int first = random_.integer(0, m_.size() - number);
        const int n = m_.size();
        BCDF_remove_defining_points(r_, first, number);
        m_.remove_points(first, number);
        const bool end = first == 0 || first + number == n - 1;
        if (end) {
            m_.set_parameters();
            add_needed_slopes();
        }
        if (!periodic()) return;
        if (end) {
            std::copy_n(m_.points.front().begin(), 3, m_.points.back().begin());
            if (r_->points->dimension == 4)
                m_.points[m_.points.size() - 2][3] = m_.points.front()[3];
        } else if (first == n - 1) {
            m_.points.front() = m_.points.back();
        }
    }

    /// In the order in which the ends are served; an end's slope depends on its neighbour's alone.
    void add_needed_slopes() {
        const bool start = m_.slopes.at.count(0) != 0;
        const bool end = m_.slopes.at.count(m_.size() - 1) != 0;
        const bool fit = r_->weights != nullptr;
        if (fit ? start == end : periodic() || r_->order != 4) return;
        if (!start) m_.put_automatic(0);
        if (!end) m_.put_automatic(m_.size() - 1);
    }

    void change_slope() {
        const int p = any_position();
        const int type = random_.integer(0, 5);
        Vector v = random_.vector();
        Vector stored = v;
        if (type == 0) BCDF_CALC_auto_slope(r_, p, stored.data());
        BCDF_CALC_normalized_slope(r_, type, p, stored.data());
        BCDF_change_slope(r_, type, v.data(), p);
        slope_was_put(p, stored, type);
    }

    void replace_slope() {
        const int p = any_position();
        const Vector v = random_.vector();
        BCDF_replace_slope(r_, v.data(), p, 3);
        slope_was_put(p, v, 3);
    }

    /// A curvature there turns with its slope, about z.
    void slope_was_put(int p, const Vector& v, int type) {
        m_.slopes.put(p, v, type);
        if (m_.curvatures.at.count(p) == 0) return;
        Vector& known = m_.curvatures.at.at(p);
        const Vector turned = vector_in(r_->curvatures, m_.curvatures.index_of(p));
        EXPECT_NEAR(turned[2], known[2], 1e-12 * (1 + length(known)));
        known = turned;
    }

    void remove_slopes() {
        const int all = static_cast<int>(m_.slopes.at.size());
        if (all == 0) return;
        const int number = random_.integer(1, std::min(all, 4));
        const int first = random_.integer(0, all - number);
        BCDF_remove_slopes(r_, first, number);
        m_.remove_slopes(first, number);
    }

    void put_curvature() {
        if (m_.slopes.at.empty() || r_->weights != nullptr) return;
        const int k = random_.integer(0, static_cast<int>(m_.slopes.at.size()) - 1);
        const int p = m_.slopes.position_of(k);
        const int type = random_.integer(0, 1);
        Vector v = random_.vector();
        BCDF_change_curvature(r_, type, v.data(), p, 0.5);
        if (type == 1) {
            v = vector_in(r_->curvatures, m_.curvatures.index_of(p));
            EXPECT_NEAR(length(v), 2.0, 1e-12);
        }
        m_.curvatures.put(p, v, type);
    }

    void remove_curvatures() {
        const int all = static_cast<int>(m_.curvatures.at.size());
        if (all == 0) return;
        const int number = random_.integer(1, std::min(all, 3));
        const int first = random_.integer(0, all - number);
        BCDF_remove_curvatures(r_, first, number);
        m_.curvatures.remove(first, number);
    }

    void set_parameters() {
        std::vector<double> given;
        if (random_.integer(0, 1) == 0)
            for (int i = 0; i < m_.size(); ++i)
                given.push_back(i == 0 ? 0.0 : given.back() + random_.uniform(0.1, 2.0));
        BCDF_add_params(r_, given.empty() ? nullptr : given.data());
        m_.set_parameters(given);
    }

    void toggle() {
        if (r_->weights != nullptr || m_.size() < 4) return;
        BCDF_toggle_periodicity(r_);
        if (periodic())
            m_.points.push_back(m_.points.front());
        else
            m_.remove_points(m_.size() - 1, 1);
        m_.set_parameters();
    }

    /// Fixed and kept vectors stay, inner ones of type 4 go with the automatic slope; curvatures
    /// keep their radius; codes stay.
    void update() {
        const Model before = m_;
        BCDF_update_slopes(r_);
        m_.reload();
        ASSERT_EQ(m_.slopes.types, before.slopes.types);
        std::size_t k = 0;
        for (const auto& [position, v] : before.slopes.at) {
            const int type = before.slopes.types[k++];
            if (type == 1 || type == 3) {
                ASSERT_EQ(m_.slopes.at.at(position), v);
            }
            if (type != 4 || position == 0 || position == m_.size() - 1) continue;
            Vector automatic;
            BCDF_CALC_auto_slope(r_, position, automatic.data());
            ASSERT_GE(dot(m_.slopes.at.at(position), automatic), 0.0);
        }
        const Attached curvatures = m_.curvatures;
        BCDF_update_curvatures(r_);
        m_.reload();
        ASSERT_EQ(m_.curvatures.types, curvatures.types);
        for (const auto& [position, v] : curvatures.at)
            ASSERT_NEAR(length(m_.curvatures.at.at(position)), length(v), 1e-9 * (1 + length(v)));
    }

    /// A record that becomes a least-squares one keeps unit slopes at its ends at most.
    void fit() {
        if (periodic() || random_.integer(0, 3) > 0) return;
        const bool converts = r_->weights == nullptr;
        BCDF_change_number_of_segments(r_, 2);
        EXPECT_EQ(r_->ls_num_segments, 2);
        if (!converts) return;
        m_.reload();
        EXPECT_EQ(r_->points->dimension, 3);
        EXPECT_TRUE(m_.curvatures.at.empty());
        EXPECT_LE(m_.slopes.at.size(), 3U);
        for (const auto& [position, v] : m_.slopes.at)
            EXPECT_NEAR(length(v), 1.0, 1e-12);
    }

    Random& random_;
    Model& m_;
    BCDF* r_;
};

TEST(CurveEditing, RandomEditsLeaveWhatAPlainModelLeaves) {
    const KeepBlock keep;
    const CheckingLevel checking(1);
    const NoBlocksLeft watch;
    set_word_at(1128, 1e-6);  // the length tolerance
    ReportRecorder recorder;
    Random random;
    for (int sequence = 0; sequence < rounds(3000); ++sequence) {
        SCOPED_TRACE("sequence " + std::to_string(sequence));
        const int width = random.integer(3, 4);
        std::vector<double> points;
        for (int i = random.integer(4, 12) * width; i > 0; --i)
            points.push_back(random.uniform(1, 9));
        const Record record = new_record(points, width, 0, sequence % 4 == 0 && width == 3);
        record->order = random.integer(4, 6);
        if (sequence % 3 == 1 && record->weights == nullptr) BCDF_toggle_periodicity(record.get());
        Model model(record.get());
        Editor editor(random, model);
        for (int step = 0; step < 30; ++step) {
            editor.edit();
            model.expect_same();
            ASSERT_FALSE(HasFailure()) << "step " << step;
        }
        ASSERT_EQ(recorder.take(), Reports{});
    }
}

}  // namespace
