// Constructions of circles and arcs from any points, lines and circles.
#include <cmath>
#include <tuple>
#include <type_traits>

#include "fuzz.h"
#include "interface/records.h"
#include "ztmath/arc_spline_constructions.h"
#include "ztmath/arc_spline_tangent_circles.h"

namespace {

using ztmath_test::Segment;

constexpr double tols[] = {1.0e-8, 1.0e-6, 1.0e-8};
constexpr double largest = 1.0e30;  // beyond it, squares of squares overflow

/// What is given to a construction, drawn as its parameters ask, and what it writes.
class Arguments {
  public:
    Arguments(fuzz::Bytes& bytes, int arrays) : bytes_(bytes), arrays_(arrays) {}

    template <class Parameter>
    Parameter next() {
        if constexpr (std::is_same_v<Parameter, const double*>)
            return --arrays_ > 0 ? pair() : tols;  // the tolerances come last
        else if constexpr (std::is_same_v<Parameter, double*>)
            return pair();
        else if constexpr (std::is_same_v<Parameter, double>)
            return number();
        else if constexpr (std::is_same_v<Parameter, int>)
            return bytes_.flag() ? 1 : 0;
        else if constexpr (std::is_same_v<Parameter, int*>)
            return &integers_[integer_count_++];
        else if constexpr (std::is_same_v<Parameter, const Segment*>)
            return &(given_[given_count_++] = segment());
        else
            return &made_[made_count_++];
    }

    /// Of a construction that writes no count, there is one circle where it succeeds.
    int count() const { return integer_count_ > 1 ? integers_[0] : status() == 0 ? 1 : 0; }
    int status() const { return integers_[integer_count_ - 1]; }
    const Segment* made() const { return made_; }
    bool ordinary() const { return ordinary_; }

  private:
    double number() {
        const double x = bytes_.number();
        if (!(std::fabs(x) < largest)) ordinary_ = false;
        return x;
    }
    double* pair() {
        double* const p = pairs_[pair_count_++];
        p[0] = number();
        p[1] = number();
        return p;
    }
    Segment segment() {
        double numbers[ztmath_test::segment_in];
        std::generate(std::begin(numbers), std::end(numbers), [&] { return number(); });
        return ztmath_test::segment_of(numbers);
    }

    fuzz::Bytes& bytes_;
    int arrays_;
    bool ordinary_ = true;
    int pair_count_ = 0;
    int given_count_ = 0;
    int made_count_ = 0;
    int integer_count_ = 0;
    double pairs_[8][2];
    Segment given_[4];
    Segment made_[8] = {};
    int integers_[2] = {-1, -1};
};

bool is_whole(const Segment& s) {
    double numbers[ztmath_test::segment_out];
    ztmath_test::numbers_of(s, numbers);
    return std::none_of(std::begin(numbers), std::end(numbers),
                        [](double x) { return std::isnan(x); });
}

template <auto construct, int limit, class... Parameters>
void try_construction(void (*)(Parameters...), fuzz::Bytes& bytes) {
    Arguments arguments(bytes, (0 + ... + std::is_same_v<Parameters, const double*>));
    const std::tuple<Parameters...> values{arguments.next<Parameters>()...};
    std::apply(construct, values);
    fuzz::require(arguments.count() >= 0 && arguments.count() <= limit, "the count is in bounds");
    fuzz::require(arguments.status() == 0 || arguments.count() == 0, "a failure makes nothing");
    for (int i = 0; i < arguments.count(); ++i)
        fuzz::require(is_whole(arguments.made()[i]) || !arguments.ordinary(), "circles are whole");
}

template <auto construct, int limit>
void attempt(fuzz::Bytes& bytes) {
    try_construction<construct, limit>(construct, bytes);
}

constexpr void (*attempts[])(fuzz::Bytes&) = {
    attempt<ARC_SPLINE_cre_circle_thru_3_points_2d, 1>,
    attempt<ARC_SPLINE_cre_circle_thru_2_points_and_radius, 2>,
    attempt<ARC_SPLINE_cre_circle_thru_2_points_tangent_to_line, 2>,
    attempt<ARC_SPLINE_cre_circle_thru_pt_and_tangent_to_line_at_pt_2d, 1>,
    attempt<ARC_SPLINE_cre_circle_from_chord_end_data_2d, 1>,
    attempt<ARC_SPLINE_cre_arc_from_ray_to_ray_2d, 1>,
    attempt<ARC_SPLINE_cre_circle_thru_2_points_tangent_to_circle, 2>,
    attempt<ARC_SPLINE_cre_circle_tangent_to_circle_and_line_at_pt_2d, 2>,
    attempt<ARC_SPLINE_cre_circle_tangent_to_line_and_line_at_pt_2d, 2>,
    attempt<ARC_SPLINE_cre_circle_at_angle_to_c_tangent_to_l_at_pt_2d, 2>,
    attempt<ARC_SPLINE_cre_circle_tangent_to_2_circles_and_a_pt, 4>,
    attempt<ARC_SPLINE_cre_circle_tangent_to_2_circles_and_given_radius_2d, 8>,
    attempt<ARC_SPLINE_cre_circle_tangent_to_3_circles, 8>,
};

}  // namespace

void fuzz::run(Bytes& bytes) {
    attempts[bytes.take<std::uint8_t>() % std::size(attempts)](bytes);
}
