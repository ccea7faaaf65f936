#include "curve_picture.h"

#include <algorithm>
#include <cmath>

#include "number.h"
#include "panel.h"
#include "pictured.h"

namespace tool {

namespace {

constexpr Range panel_heights{200.0, 700.0};

// Parts of the larger extent.
constexpr double longest_tooth = 0.1;
constexpr double margin = 0.13;
constexpr Range slope_lengths{0.006, 0.1};

/// How long the longest slope is drawn within these limits, in mean distances of the points.
constexpr double slope_reach = 0.6;

/// Curvatures below this, times the extent, are rounding.
constexpr double straight = 1.0e-9;

/// The inverse of a length above this is finite.
constexpr double no_slope = 1.0e-200;

constexpr std::size_t most_drawn = 2000;

/// Of three axes the two along which the points extend farthest.
struct View {
    std::size_t across, up;

    Vec2 of(const Vec3& v) const { return {v[across], v[up]}; }
};

Range range_along(const CurveData& data, std::size_t axis) {
    Range range{data.points[0].at[axis], data.points[0].at[axis]};
    for (const CurvePoint& p : data.points) {
        range.low = std::min(range.low, p.at[axis]);
        range.high = std::max(range.high, p.at[axis]);
    }
    return range;
}

View widest_view(const CurveData& data) {
    std::size_t thinnest = 2;
    for (const std::size_t axis : {std::size_t{1}, std::size_t{0}})
        if (range_along(data, axis).length() < range_along(data, thinnest).length())
            thinnest = axis;
    return {thinnest == 0 ? std::size_t{1} : 0, thinnest == 2 ? std::size_t{1} : 2};
}

double size_in(const View& view, const Vec3& v) {
    return std::hypot(v[view.across], v[view.up]);
}

/// An even choice of points in order, the last one among them.
std::vector<CurvePoint> evenly_chosen(const std::vector<CurvePoint>& points) {
    const std::size_t stride = (points.size() + most_drawn - 1) / most_drawn;
    std::vector<CurvePoint> chosen;
    for (std::size_t i = 0; i < points.size(); i += stride)
        chosen.push_back(points[i]);
    if ((points.size() - 1) % stride != 0) chosen.push_back(points.back());
    return chosen;
}

/// The curvature of the longest teeth: the largest one, unless that is of a few sharp corners
/// beside which the others would not be seen.
double limit_of(std::vector<double> curvatures) {
    constexpr double most = 0.95;
    constexpr double times = 4.0;
    const auto last = static_cast<double>(curvatures.size() - 1);
    const auto high = curvatures.begin() + static_cast<std::ptrdiff_t>(most * last);
    const double largest = *std::max_element(curvatures.begin(), curvatures.end());
    std::nth_element(curvatures.begin(), high, curvatures.end());
    return *high > 0.0 ? std::min(largest, times * *high) : largest;
}

/// How the teeth of the comb are drawn.
struct Comb {
    double limit = 0.0;  // the curvature at which they end
    double scale = 0.0;  // how long a curvature of 1 is drawn
    bool cut = false;    // whether some are larger

    Comb() = default;
    Comb(const std::vector<double>& curvatures, double extent) : limit(limit_of(curvatures)) {
        cut = *std::max_element(curvatures.begin(), curvatures.end()) > limit;
        if (limit * extent > straight) scale = longest_tooth * extent / limit;
    }
};

/// How long a slope of length 1 is drawn among points that are so far apart.
double slope_scale(const std::vector<double>& slopes, double extent, double spacing) {
    const double reach =
        std::clamp(slope_reach * spacing, slope_lengths.low * extent, slope_lengths.high * extent);
    const double longest = *std::max_element(slopes.begin(), slopes.end());
    return longest > no_slope ? reach / longest : 0.0;
}

class Drawing {
  public:
    Drawing(const CurveData& data, bool closed)
        : view_(widest_view(data)), drawn_(evenly_chosen(data.points)), dots_(drawn_.size()) {
        const Range x = range_along(data, view_.across);
        const Range y = range_along(data, view_.up);
        const double extent = std::max(x.length(), y.length());
        const auto with_margin = [extent](Range range) {
            return padded({range.low - margin * extent, range.high + margin * extent}, 0.0);
        };
        panel_ = true_panel({picture_left, heading_height}, picture_right - picture_left,
                            panel_heights, with_margin(x), with_margin(y));
        comb_ = Comb(sizes([](const CurvePoint& p) { return p.curvature; }), extent);
        slope_ = slope_scale(
            sizes([](const CurvePoint& p) { return p.slope ? p.slope->vector : Vec3{}; }), extent,
            data.length / static_cast<double>(data.points.size()));
        if (closed) drawn_.push_back(drawn_.front());
    }

    const Panel& panel() const { return panel_; }
    std::size_t dots() const { return dots_; }

    PanelLabels labels() const {
        const char* const names[] = {"x", "y", "z"};
        std::string note = "true proportion";
        if (comb_.scale > 0.0)
            note += "; longest teeth: curvature " + rounded(comb_.limit, 3) +
                    (comb_.cut ? " and more" : "");
        return {"Points, slopes and comb of curvatures", note, names[view_.across],
                names[view_.up]};
    }

    void draw(Svg& svg) const {
        svg.open_clipped_group("comb", panel_.box);
        draw_chain(svg, &Drawing::tip, "side");
        for (std::size_t i = 0; i < dots_; ++i)
            svg.line(place(drawn_[i]), tip(drawn_[i]), "residual");
        svg.close_group();
        svg.open_clipped_group("polygon", panel_.box);
        draw_chain(svg, &Drawing::place, "tick");
        svg.close_group();
        svg.open_clipped_group("slopes", panel_.box);
        for (std::size_t i = 0; i < dots_; ++i)
            if (drawn_[i].slope) draw_slope(svg, drawn_[i]);
        svg.close_group();
        svg.open_clipped_group("points", panel_.box);
        for (std::size_t i = 0; i < dots_; ++i)
            svg.circle(place(drawn_[i]), dots_ > 300 ? 1.2 : 3.0, "dot", "#c0504d");
        svg.close_group();
    }

  private:
    template <class VectorOf>
    std::vector<double> sizes(VectorOf vector_of) const {
        std::vector<double> found;
        for (const CurvePoint& p : drawn_)
            found.push_back(size_in(view_, vector_of(p)));
        return found;
    }

    Pixel pixel(const Vec2& p) const { return panel_.at(p[0], p[1]); }
    Pixel place(const CurvePoint& p) const { return pixel(view_.of(p.at)); }

    /// Teeth stand on the outer side, away from the centre of curvature.
    Pixel tip(const CurvePoint& p) const {
        const double size = size_in(view_, p.curvature);
        const double part = size > comb_.limit ? comb_.limit / size : 1.0;
        return pixel(along(view_.of(p.at), -part * comb_.scale, view_.of(p.curvature)));
    }

    void draw_chain(Svg& svg, Pixel (Drawing::*of)(const CurvePoint&) const,
                    const char* look) const {
        for (std::size_t i = 1; i < drawn_.size(); ++i)
            svg.line((this->*of)(drawn_[i - 1]), (this->*of)(drawn_[i]), look);
    }

    void draw_slope(Svg& svg, const CurvePoint& p) const {
        const Pixel from = place(p);
        const Pixel to = pixel(along(view_.of(p.at), slope_, view_.of(p.slope->vector)));
        svg.line(from, to, "fit");
        const Vec2 arrow{to.x - from.x, to.y - from.y};
        if (const double size = length(arrow); size > 0.0) {
            const double barb = std::min(8.0, 0.5 * size) / size;
            const Pixel base{to.x - barb * arrow[0], to.y - barb * arrow[1]};
            const Vec2 side{-0.4 * barb * arrow[1], 0.4 * barb * arrow[0]};
            svg.polygon(
                {to, {base.x + side[0], base.y + side[1]}, {base.x - side[0], base.y - side[1]}},
                "arrow-head");
        }
    }

    View view_;
    std::vector<CurvePoint> drawn_;  // with the first one again where the curve closes
    std::size_t dots_;               // without it
    Panel panel_;
    Comb comb_;
    double slope_ = 0.0;  // how long a slope of length 1 is drawn
};

std::string subtitle(const CurveOptions& options, const CurveData& data, std::size_t dots) {
    std::string words = counted(static_cast<long long>(data.points.size())) + " points, order " +
                        std::to_string(options.order) + ", polygon length " +
                        rounded(data.length, 6);
    if (dots < data.points.size())
        words += "; " + counted(static_cast<long long>(dots)) + " of the points drawn";
    return words;
}

}  // namespace

std::string curve_picture(const CurveOptions& options, const CurveData& data) {
    const Drawing drawing(data, options.periodic);
    const std::string title = "Curve through " + shown_name(options.source());
    Svg svg(picture_width, drawing.panel().box.bottom() + 58.0, title,
            "Points of a curve with slope vectors and a comb of curvatures");
    svg.open_group("heading");
    svg.text({32.0, 48.0}, title, "title");
    svg.text({32.0, 74.0}, subtitle(options, data, drawing.dots()), "subtitle");
    svg.close_group();
    draw_axes(svg, drawing.panel(), drawing.labels());
    drawing.draw(svg);
    draw_border(svg, drawing.panel());
    return svg.str();
}

}  // namespace tool
