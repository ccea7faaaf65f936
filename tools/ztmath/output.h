// Where results go.
#pragma once

#include <string>

namespace tool {

/// Writes to the standard output.
void print(const std::string& text);

void write_file(const std::string& path, const std::string& text);

}  // namespace tool
