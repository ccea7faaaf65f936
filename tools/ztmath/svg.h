// Drawings as SVG text.
#pragma once

#include <string>
#include <vector>

namespace tool {

/// A rectangle in pixels, y pointing down.
struct Box {
    double x;
    double y;
    double width;
    double height;

    double right() const { return x + width; }
    double bottom() const { return y + height; }
};

struct Pixel {
    double x;
    double y;
};

/// Builds a drawing. How things look is in the style sheet of svg.cpp; `look` names one of its
/// classes, or several.
class Svg {
  public:
    Svg(double width, double height, const std::string& title, const std::string& description);

    void open_group(const std::string& id);
    /// A group of which only what lies in the box is seen.
    void open_clipped_group(const std::string& id, const Box& box);
    void close_group();

    void line(Pixel from, Pixel to, const std::string& look);
    void circle(Pixel centre, double radius, const std::string& look, const std::string& fill = {});
    /// The arc of a circle, by its ends.
    struct Arc {
        Pixel from;
        Pixel to;
        double radius;
        bool large;      // more than half of the circle
        bool clockwise;  // as it is seen
    };
    void arc(const Arc& arc, const char* look);
    void polygon(const std::vector<Pixel>& corners, const char* look);
    void rectangle(const Box& box, const char* look, const std::string& fill = {});
    void text(Pixel at, const std::string& words, const char* look);
    /// Text that reads upwards.
    void upright_text(Pixel at, const std::string& words, const char* look);

    std::string str() const;

  private:
    void element(const char* name, const std::string& attributes, const std::string& look,
                 const std::string& fill);

    std::string text_;
};

}  // namespace tool
