// Points as text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "text_file.h"

namespace tool {

struct Points {
    int dimension;
    std::vector<double> coordinates;   // point after point
    std::vector<std::uint32_t> lines;  // where each point stands in the file, from 1

    int count() const { return static_cast<int>(lines.size()); }
    const double* at(int i) const {
        return coordinates.data() +
               static_cast<std::size_t>(i) * static_cast<std::size_t>(dimension);
    }
};

/// What the help texts say about files.
extern const char* const points_file_help;

/// Reads the points of a file, or of the standard input for "-".
Points read_points(const std::string& path, int dimension);

/// The points of a text; `name` is what messages call it. Malformed lines end in a Failure that
/// names the first few of them.
Points parse_points(std::string_view text, const std::string& name, int dimension);

}  // namespace tool
