// Colours of signed distances: blue below, grey at 0, red above.
#pragma once

#include <string>

namespace tool {

class Palette {
  public:
    /// Distances of this size and beyond have the strongest colours.
    explicit Palette(double limit) : limit_(limit) {}

    double limit() const { return limit_; }
    std::string color(double distance) const;

  private:
    double limit_;
};

}  // namespace tool
