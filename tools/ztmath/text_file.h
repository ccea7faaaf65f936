// Files of text, read as a whole.
#pragma once

#include <string>

namespace tool {

/// The name a person knows the file by: "-" is the standard input.
std::string source_name(const std::string& path);

/// The contents of a file, or of the standard input for "-".
std::string read_text(const std::string& path);

}  // namespace tool
