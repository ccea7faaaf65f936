#include "arc_picture.h"

#include <algorithm>
#include <cmath>

#include "panel.h"
#include "pictured.h"

namespace tool {

namespace {

constexpr double legend_width = 206.0;
constexpr double legend_spacing = 22.0;
constexpr double label_width = 70.0;
constexpr Range panel_heights{320.0, 760.0};

/// Circles larger than so many times what is given do not set the picture's scale.
constexpr double largest_shown = 4.0;

/// How many colours the style sheet has for what was found.
constexpr std::size_t hue_count = 8;

class Ranges {
  public:
    void include(const Vec2& p, double around = 0.0) {
        for (std::size_t k = 0; k < 2; ++k) {
            low_[k] = std::fmin(low_[k], p[k] - around);
            high_[k] = std::fmax(high_[k], p[k] + around);
        }
    }

    /// An arc is taken for its circle; a line has no extent.
    void include(const Entity& e) {
        include(e.place, e.radius);
        if (e.kind == Entity::segment) include(e.end());
    }

    double size() const { return std::fmax(high_[0] - low_[0], high_[1] - low_[1]); }
    Range along(std::size_t axis) const { return padded({low_[axis], high_[axis]}, 0.06); }

  private:
    Vec2 low_{HUGE_VAL, HUGE_VAL};
    Vec2 high_{-HUGE_VAL, -HUGE_VAL};
};

Ranges ranges_of(const Given& given, const std::vector<ArcFound>& found) {
    Ranges ranges;
    for (const Entity& e : given.entities)
        ranges.include(e);
    if (given.at) ranges.include(*given.at);
    const double size = ranges.size();
    for (const ArcFound& f : found)
        if (size == 0.0 || f.shape.radius <= largest_shown * size) ranges.include(f.shape);
    return ranges;
}

class Drawing {
  public:
    Drawing(Svg& svg, const Panel& panel) : svg_(svg), panel_(panel) {}

    void entity(const Entity& e, const std::string& look) const {
        if (e.kind == Entity::point)
            svg_.circle(pixel(e.place), 4.0, "given-point");
        else if (e.kind == Entity::line)
            line(e, look);
        else if (e.kind == Entity::segment)
            svg_.line(pixel(e.place), pixel(e.end()), look);
        else if (e.kind == Entity::circle || std::fabs(e.covered) == 360.0)
            svg_.circle(pixel(e.place), pixels(e.radius), look);
        else
            arc(e, look.c_str());
    }

    void mark(const Vec2& p, const std::string& look) const { svg_.circle(pixel(p), 3.6, look); }

    /// The thing's name: in the middle of what is round, else beside it and within the panel.
    void label(const Entity& e) const {
        const Pixel at = pixel(e.place);
        if (e.is_round()) return svg_.text(at, e.name, "callout middle");
        const bool at_edge = at.x > panel_.box.right() - label_width;
        svg_.text({at.x + (at_edge ? -8.0 : 8.0), at.y - 8.0}, e.name,
                  at_edge ? "callout end" : "callout");
    }

  private:
    Pixel pixel(const Vec2& p) const { return panel_.at(p[0], p[1]); }
    double pixels(double distance) const { return distance / panel_.x.length() * panel_.box.width; }

    /// Through the whole panel, which holds a point of it.
    void line(const Entity& e, const std::string& look) const {
        const double reach = (panel_.x.length() + panel_.y.length()) / length(e.direction);
        svg_.line(pixel(along(e.place, -reach, e.direction)),
                  pixel(along(e.place, reach, e.direction)), look);
    }

    void arc(const Entity& e, const char* look) const {
        svg_.arc({pixel(e.at(e.start)), pixel(e.at(e.start + e.covered)), pixels(e.radius),
                  std::fabs(e.covered) > 180.0, e.covered < 0.0},
                 look);
    }

    Svg& svg_;
    const Panel& panel_;
};

std::string in_hue(const char* look, std::size_t i) {
    return look + (" hue-" + std::to_string(i % hue_count));
}

void draw_legend(Svg& svg, double left, const std::vector<ArcFound>& found) {
    svg.open_group("legend");
    double y = heading_height + 6.0;
    for (std::size_t i = 0; i < found.size(); ++i, y += legend_spacing) {
        svg.line({left, y - 4.0}, {left + 22.0, y - 4.0}, in_hue("solution", i));
        svg.text({left + 30.0, y}, found[i].words, "");
    }
    svg.close_group();
}

}  // namespace

std::string arc_picture(const std::string& title, const Given& given,
                        const std::vector<ArcFound>& found) {
    const Ranges ranges = ranges_of(given, found);
    const Panel panel = true_panel({picture_left, heading_height - 24.0},
                                   picture_right - picture_left - legend_width, panel_heights,
                                   ranges.along(0), ranges.along(1));
    Svg svg(picture_width, panel.box.bottom() + 58.0, title, "What is given, and what was found");
    svg.open_group("heading");
    svg.text({32.0, 48.0}, title, "title");
    svg.text({32.0, 74.0}, "given: " + given.words(), "subtitle");
    svg.close_group();
    draw_axes(svg, panel, {"", "", "x", "y"});
    const Drawing drawing(svg, panel);
    svg.open_clipped_group("found", panel.box);
    for (std::size_t i = 0; i < found.size(); ++i)
        if (found[i].shape.kind != Entity::point)
            drawing.entity(found[i].shape, in_hue("solution", i));
    svg.close_group();
    svg.open_clipped_group("given", panel.box);
    for (const Entity& e : given.entities)
        drawing.entity(e, "given");
    svg.close_group();
    svg.open_clipped_group("marks", panel.box);
    for (std::size_t i = 0; i < found.size(); ++i)
        for (const Vec2& p : found[i].marks)
            drawing.mark(p, in_hue("touch", i));
    for (const Entity& e : given.entities)
        drawing.label(e);
    svg.close_group();
    draw_border(svg, panel);
    draw_legend(svg, panel.box.right() + 16.0, found);
    return svg.str();
}

}  // namespace tool
