#include "curve_picture.h"

#include <algorithm>

#include "number.h"
#include "panel.h"
#include "pictured.h"

namespace tool {

namespace {

constexpr Range panel_heights{200.0, 700.0};

/// How long the longest tooth of the comb is, as a part of the larger extent.
constexpr double longest_tooth = 0.1;

/// How long a slope vector of length 1 is drawn, as a part of the mean distance of the points.
constexpr double slope_length = 0.6;

/// Two of the three axes: those along which the points extend farthest.
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

class Drawing {
  public:
    explicit Drawing(const CurveData& data)
        : data_(data), view_(widest_view(data)), panel_(panel_of(data, view_)) {
        double largest = 0.0;
        for (const CurvePoint& p : data.points)
            largest = std::max(largest, length(view_.of(p.curvature)));
        const double reach = longest_tooth * std::max(panel_.x.length(), panel_.y.length());
        tooth_ = largest > 0.0 ? reach / largest : 0.0;
    }

    const Panel& panel() const { return panel_; }

    PanelLabels labels() const {
        const char* const names[] = {"x", "y", "z"};
        return {"Points, slopes and curvatures", "true proportion", names[view_.across],
                names[view_.up]};
    }

    void draw(Svg& svg) const {
        svg.open_clipped_group("comb", panel_.box);
        for (std::size_t i = 0; i < data_.points.size(); ++i) {
            const CurvePoint& p = data_.points[i];
            svg.line(at(p.at), tip(p), "residual");
            if (i > 0) svg.line(tip(data_.points[i - 1]), tip(p), "side");
        }
        svg.close_group();
        svg.open_clipped_group("points", panel_.box);
        for (std::size_t i = 1; i < data_.points.size(); ++i)
            svg.line(at(data_.points[i - 1].at), at(data_.points[i].at), "tick");
        const double scale = slope_length * data_.length / static_cast<double>(data_.points.size());
        for (const CurvePoint& p : data_.points) {
            if (p.has_slope) svg.line(at(p.at), at(along(p.at, scale, p.slope)), "fit");
            svg.circle(at(p.at), data_.points.size() > 300 ? 1.2 : 3.0, "dot", "#c0504d");
        }
        svg.close_group();
    }

  private:
    static Panel panel_of(const CurveData& data, const View& view) {
        return true_panel({picture_left, heading_height}, picture_right - picture_left,
                          panel_heights, padded(range_along(data, view.across), 0.08),
                          padded(range_along(data, view.up), 0.12));
    }

    Pixel at(const Vec3& p) const { return panel_.at(p[view_.across], p[view_.up]); }

    /// Teeth stand on the outer side, away from the centre of curvature.
    Pixel tip(const CurvePoint& p) const { return at(along(p.at, -tooth_, p.curvature)); }

    const CurveData& data_;
    View view_;
    Panel panel_;
    double tooth_ = 0.0;  // for a curvature of 1
};

}  // namespace

std::string curve_picture(const CurveData& data, const std::string& source) {
    const Drawing drawing(data);
    const std::string title = "Defining data of " + source.substr(source.find_last_of('/') + 1);
    Svg svg(picture_width, drawing.panel().box.bottom() + 58.0, title,
            "Points of a curve with slope vectors and a comb of curvatures");
    svg.open_group("heading");
    svg.text({32.0, 48.0}, title, "title");
    svg.text({32.0, 74.0},
             counted(static_cast<long long>(data.points.size())) + " points, polygon length " +
                 rounded(data.length, 6) + ", " + data.status_words(),
             "subtitle");
    svg.close_group();
    draw_axes(svg, drawing.panel(), drawing.labels());
    drawing.draw(svg);
    draw_border(svg, drawing.panel());
    return svg.str();
}

}  // namespace tool
