// Numbers as text.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// With a fixed count of decimals; never "-0".
std::string fixed(double x, int decimals);

/// With about that many significant digits, as a person writes it: fixed, or with an exponent when
/// very large or small.
std::string rounded(double x, int digits);

/// Several numbers alike, so that they line up: the largest has that many significant digits.
std::vector<std::string> aligned(const std::vector<double>& numbers, int digits);

/// With as many digits as it takes to read the same number back; never "-0".
std::string exact(double x);

/// A count with its thousands set apart.
std::string counted(long long n);

/// A number of few significant digits, in full, its thousands set apart.
std::string grouped(double x);

/// How many characters a text shows, which are not its bytes.
std::size_t character_count(const std::string& text);

}  // namespace tool
