#include "svg.h"

#include <algorithm>

#include "number.h"

namespace tool {

namespace {

const char* const style_sheet = R"(<style>
text { font-family: "Liberation Sans", Arial, Helvetica, sans-serif; fill: #52606d; font-size: 12px; }
.title { font-size: 21px; font-weight: bold; fill: #1d2733; }
.subtitle { font-size: 13px; }
.value { font-size: 17px; font-weight: bold; fill: #1d2733; }
.heading { font-size: 14px; font-weight: bold; fill: #1d2733; }
.callout { fill: #1d2733; stroke: #f8f9fb; stroke-width: 5px; stroke-linejoin: round; paint-order: stroke; }
.band-label { font-size: 11px; fill: #44617d; stroke: #f8f9fb; stroke-width: 4px; stroke-linejoin: round; paint-order: stroke; }
.middle { text-anchor: middle; }
.end { text-anchor: end; }
.paper { fill: #ffffff; }
.frame { fill: #f8f9fb; stroke: none; }
.border { fill: none; stroke: #b8c1ca; }
.grid { stroke: #e3e8ed; }
.tick { stroke: #b8c1ca; }
.fit { stroke: #1d2733; stroke-width: 1.5; }
.band { fill: #7f9db9; fill-opacity: 0.2; }
.band-edge { stroke: #7f9db9; stroke-dasharray: 5 3; fill: none; }
.residual { stroke: #8794a1; stroke-width: 0.9; }
.dot { stroke: #3b4754; stroke-width: 0.5; stroke-opacity: 0.6; }
.ring { fill: none; stroke: #1d2733; stroke-width: 1.6; }
.face { fill: #dfe9f2; stroke: none; }
.side { stroke: #7f9db9; stroke-width: 0.6; }
.outline { fill: none; stroke: #1d2733; stroke-width: 1.2; stroke-linejoin: round; }
.given { fill: none; stroke: #1d2733; stroke-width: 1.8; }
.given-point { fill: #1d2733; }
.solution { fill: none; stroke: currentColor; stroke-width: 1.4; }
.touch { fill: currentColor; stroke: #ffffff; stroke-width: 0.8; }
.hue-0 { color: #215291; }
.hue-1 { color: #c2452d; }
.hue-2 { color: #2f8f5b; }
.hue-3 { color: #8b4fa8; }
.hue-4 { color: #c98a12; }
.hue-5 { color: #1d95a8; }
.hue-6 { color: #b0376f; }
.hue-7 { color: #6b7785; }
.arrow-head { fill: #1d2733; stroke: none; }
.bar { stroke: #6b7785; stroke-width: 0.6; }
</style>
)";

/// Two decimals are finer than any screen.
std::string pixel(double x) {
    return fixed(x, 2);
}

std::string attribute(const char* name, double value) {
    return std::string(" ") + name + "=\"" + pixel(value) + '"';
}

/// The length of the UTF-8 character that starts here, or 0 if none does.
std::size_t character_length(const std::string& text, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(at);
    if (first < 0x80) return first >= 0x20 && first != 0x7f ? 1 : 0;
    const std::size_t length = first >= 0xc2 && first < 0xe0   ? 2
                               : first >= 0xe0 && first < 0xf0 ? 3
                               : first >= 0xf0 && first < 0xf5 ? 4
                                                               : 0;
    if (length == 0 || at + length > text.size()) return 0;
    for (std::size_t i = at + 1; i < at + length; ++i)
        if ((byte(i) & 0xc0) != 0x80) return 0;
    const unsigned char second = byte(at + 1);
    const bool overlong = (first == 0xe0 && second < 0xa0) || (first == 0xf0 && second < 0x90);
    const bool no_character =
        (first == 0xed && second >= 0xa0) || (first == 0xf4 && second >= 0x90);
    return overlong || no_character ? 0 : length;
}

/// Text as XML may hold it; bytes that are no text, as a file's name can hold them, become "?".
std::string escaped(const std::string& text) {
    std::string safe;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = character_length(text, i);
        switch (text[i]) {
            case '&':
                safe += "&amp;";
                break;
            case '<':
                safe += "&lt;";
                break;
            case '>':
                safe += "&gt;";
                break;
            case '"':
                safe += "&quot;";
                break;
            default:
                safe += length > 0 ? text.substr(i, length) : "?";
        }
        i += std::max<std::size_t>(length, 1);
    }
    return safe;
}

std::string position(Pixel at) {
    return attribute("x", at.x) + attribute("y", at.y);
}

std::string sides(const Box& box) {
    return position({box.x, box.y}) + attribute("width", box.width) +
           attribute("height", box.height);
}

}  // namespace

Svg::Svg(double width, double height, const std::string& title, const std::string& description) {
    const std::string size = fixed(width, 0) + ' ' + fixed(height, 0);
    text_ =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\"" +
        attribute("width", width) + attribute("height", height) + " viewBox=\"0 0 " + size +
        "\">\n<title>" + escaped(title) + "</title>\n<desc>" + escaped(description) + "</desc>\n" +
        style_sheet;
    rectangle({0.0, 0.0, width, height}, "paper");
}

void Svg::open_group(const std::string& id) {
    text_ += "<g id=\"" + id + "\">\n";
}

void Svg::open_clipped_group(const std::string& id, const Box& box) {
    text_ += "<clipPath id=\"" + id + "-clip\"><rect" + sides(box) + "/></clipPath>\n<g id=\"" +
             id + "\" clip-path=\"url(#" + id + "-clip)\">\n";
}

void Svg::close_group() {
    text_ += "</g>\n";
}

void Svg::element(const char* name, const std::string& attributes, const std::string& look,
                  const std::string& fill) {
    text_ += std::string("<") + name + attributes + " class=\"" + look + '"';
    if (!fill.empty()) text_ += " fill=\"" + fill + '"';
    text_ += "/>\n";
}

void Svg::line(Pixel from, Pixel to, const std::string& look) {
    element("line",
            attribute("x1", from.x) + attribute("y1", from.y) + attribute("x2", to.x) +
                attribute("y2", to.y),
            look, {});
}

void Svg::circle(Pixel centre, double radius, const std::string& look, const std::string& fill) {
    element("circle",
            attribute("cx", centre.x) + attribute("cy", centre.y) + attribute("r", radius), look,
            fill);
}

void Svg::arc(const Arc& arc, const char* look) {
    const auto place = [](Pixel at) { return pixel(at.x) + ' ' + pixel(at.y); };
    element("path",
            " d=\"M " + place(arc.from) + " A " + pixel(arc.radius) + ' ' + pixel(arc.radius) +
                " 0 " + (arc.large ? "1 " : "0 ") + (arc.clockwise ? "1 " : "0 ") + place(arc.to) +
                '"',
            look, {});
}

void Svg::polygon(const std::vector<Pixel>& corners, const char* look) {
    std::string points;
    for (const Pixel& corner : corners)
        points += (points.empty() ? "" : " ") + pixel(corner.x) + ',' + pixel(corner.y);
    element("polygon", " points=\"" + points + '"', look, {});
}

void Svg::rectangle(const Box& box, const char* look, const std::string& fill) {
    element("rect", sides(box), look, fill);
}

void Svg::text(Pixel at, const std::string& words, const char* look) {
    text_ += "<text" + position(at) + " class=\"" + look + "\">" + escaped(words) + "</text>\n";
}

void Svg::upright_text(Pixel at, const std::string& words, const char* look) {
    text_ += "<text transform=\"translate(" + pixel(at.x) + ' ' + pixel(at.y) +
             ") rotate(-90)\" class=\"" + look + "\">" + escaped(words) + "</text>\n";
}

std::string Svg::str() const {
    return text_ + "</svg>\n";
}

}  // namespace tool
