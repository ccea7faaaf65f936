#include "pictured.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

#include "number.h"

namespace tool {

namespace {

constexpr std::size_t drawn_evenly = 3000;
constexpr std::size_t stretches = 250;
constexpr std::size_t most_residuals = 400;

/// The points of smallest and largest distance in each of many stretches of the fit.
std::vector<int> extreme_points(const std::vector<double>& position, const std::vector<double>& d) {
    const auto [low, high] = std::minmax_element(position.begin(), position.end());
    const double length = *high > *low ? *high - *low : 1.0;
    std::vector<int> smallest(stretches, -1);
    std::vector<int> largest(stretches, -1);
    const auto at = [&](int i) { return d[static_cast<std::size_t>(i)]; };
    for (std::size_t i = 0; i < d.size(); ++i) {
        const auto part = static_cast<std::size_t>((position[i] - *low) / length * stretches);
        const std::size_t k = std::min(part, stretches - 1);
        if (smallest[k] < 0 || d[i] < at(smallest[k])) smallest[k] = static_cast<int>(i);
        if (largest[k] < 0 || d[i] > at(largest[k])) largest[k] = static_cast<int>(i);
    }
    std::vector<int> extremes;
    for (const std::vector<int>* side : {&smallest, &largest})
        std::copy_if(side->begin(), side->end(), std::back_inserter(extremes),
                     [](int i) { return i >= 0; });
    return extremes;
}

std::vector<int> chosen_by_stride(const Deviations& distances) {
    const std::size_t count = distances.of_point.size();
    const std::size_t stride = (count + drawn_evenly - 1) / drawn_evenly;
    std::vector<int> chosen;
    for (std::size_t i = 0; i < count; i += stride)
        chosen.push_back(static_cast<int>(i));
    if (stride > 1) chosen.push_back(distances.farthest);
    return chosen;
}

/// Each point once, the farthest last.
std::vector<int> in_drawing_order(std::vector<int> chosen, const Deviations& distances) {
    std::sort(chosen.begin(), chosen.end());
    chosen.erase(std::unique(chosen.begin(), chosen.end()), chosen.end());
    const auto size = [&](int i) {
        return std::fabs(distances.of_point[static_cast<std::size_t>(i)]);
    };
    std::stable_sort(chosen.begin(), chosen.end(), [&](int i, int j) { return size(i) < size(j); });
    return chosen;
}

double largest_coordinate(const Points& points) {
    double largest = 0.0;
    for (const double x : points.coordinates)
        largest = std::max(largest, std::fabs(x));
    return largest;
}

double dot_radius(std::size_t drawn) {
    return drawn <= 60 ? 4.0 : drawn <= 600 ? 2.8 : 1.9;
}

}  // namespace

std::string shown_name(const std::string& source) {
    constexpr std::size_t kept_at_each_end = 17;
    std::string name = source.substr(source.find_last_of('/') + 1);
    if (name.size() <= 2 * kept_at_each_end + 3) return name;
    std::size_t head = kept_at_each_end;
    std::size_t tail = name.size() - kept_at_each_end;
    const auto inside_character = [&](std::size_t i) {
        return (static_cast<unsigned char>(name[i]) & 0xc0) == 0x80;
    };
    while (head > 0 && inside_character(head))
        --head;
    while (tail < name.size() && inside_character(tail))
        ++tail;
    return name.substr(0, head) + "\u2026" + name.substr(tail);
}

Pictured::Pictured(const Points& p, const Deviations& d, const Unit& u, std::string shape,
                   const std::string& source, double extent, std::string size)
    : points(p),
      distances(d),
      unit(u),
      shape_(std::move(shape)),
      file_(shown_name(source)),
      size_(std::move(size)) {
    const double rounding = 8.0 * std::numeric_limits<double>::epsilon() * largest_coordinate(p);
    exact_ = d.max <= rounding;
    reach_ = exact_ ? 1.0e-3 * extent : d.max;
}

Palette Pictured::palette() const {
    return Palette(exact_ ? reach_ : std::min(distances.max, 3.0 * distances.rms));
}

std::string Pictured::title() const {
    std::string title = shape_ + " through " + file_;
    title[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(title[0])));
    return title;
}

std::string Pictured::subtitle() const {
    std::string words = counted(points.count()) + " points, " + size_;
    if (exact_) words += "; all of them lie on the " + shape_ + ", but for rounding";
    if (points.lines.size() > drawn_evenly)
        words += "; about " + counted(drawn_evenly) + " of them drawn, the farthest included";
    return words;
}

void Pictured::draw_heading(Svg& svg) const {
    const std::pair<const char*, double> statistics[]{{"rms distance", distances.rms},
                                                      {"mean distance", distances.mean},
                                                      {"largest distance", distances.max}};
    svg.open_group("heading");
    svg.text({32.0, 48.0}, title(), "title");
    svg.text({32.0, 74.0}, subtitle(), "subtitle");
    double x = picture_right - 2 * 130.0;
    for (const auto& [label, value] : statistics) {
        svg.text({x, 28.0}, label, "end");
        svg.text({x, 49.0}, with_unit(rounded(value, 3), unit), "value end");
        x += 130.0;
    }
    svg.close_group();
}

void Pictured::draw_dot(Svg& svg, Pixel at, int point, std::size_t drawn) const {
    svg.circle(at, dot_radius(drawn), "dot",
               palette().color(distances.of_point[static_cast<std::size_t>(point)]));
}

void Pictured::draw_ring(Svg& svg, Pixel at) const {
    if (!exact_) svg.circle(at, 7.0, "ring");
}

void Pictured::mark_farthest(Svg& svg, const Box& box, Pixel at) const {
    if (exact_) return;
    const auto line = points.lines[static_cast<std::size_t>(distances.farthest)];
    const bool to_the_right = at.x < box.x + 0.6 * box.width;
    draw_ring(svg, at);
    svg.text(
        {at.x + (to_the_right ? 12.0 : -12.0), std::max(at.y + 4.0, box.y + 14.0)},
        "largest " + with_unit(rounded(distances.max, 3), unit) + ", line " + std::to_string(line),
        to_the_right ? "callout" : "callout end");
}

std::vector<int> evenly_chosen(const Deviations& distances) {
    return in_drawing_order(chosen_by_stride(distances), distances);
}

std::vector<int> evenly_chosen_with_extremes(const Deviations& distances,
                                             const std::vector<double>& position) {
    std::vector<int> chosen = chosen_by_stride(distances);
    if (chosen.size() < position.size()) {
        const std::vector<int> extremes = extreme_points(position, distances.of_point);
        chosen.insert(chosen.end(), extremes.begin(), extremes.end());
    }
    return in_drawing_order(std::move(chosen), distances);
}

std::vector<int> with_residuals(const std::vector<int>& drawn) {
    return drawn.size() <= most_residuals ? drawn : std::vector<int>{};
}

}  // namespace tool
