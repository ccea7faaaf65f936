// Where results go.
#pragma once

#include <string>

namespace tool {

/// Says something about an input on the standard error.
void say(const std::string& source, const std::string& what);

/// Writes to the standard output.
void print(const std::string& text);

void write_file(const std::string& path, const std::string& text);

}  // namespace tool
