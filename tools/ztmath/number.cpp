#include "number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace tool {

namespace {

std::string formatted(const char* format, int precision, double x) {
    char text[400];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    std::snprintf(text, sizeof text, format, precision, x);
#pragma GCC diagnostic pop
    const bool is_zero = std::string(text).find_first_of("123456789") == std::string::npos;
    return is_zero && text[0] == '-' ? text + 1 : text;
}

/// Decimals that give a number of this size so many significant digits; -1 where an exponent reads
/// better.
int decimals_for(double size, int digits) {
    if (size == 0.0) return 0;
    const int exponent = static_cast<int>(std::floor(std::log10(size)));
    if (exponent < -4 || exponent > 11) return -1;
    return std::max(0, digits - 1 - exponent);
}

}  // namespace

std::string fixed(double x, int decimals) {
    return formatted("%.*f", decimals, x);
}

std::string rounded(double x, int digits) {
    return aligned({x}, digits).front();
}

std::vector<std::string> aligned(const std::vector<double>& numbers, int digits) {
    double largest = 0.0;
    for (const double x : numbers)
        largest = std::max(largest, std::fabs(x));
    const int decimals = decimals_for(largest, digits);
    std::vector<std::string> texts;
    texts.reserve(numbers.size());
    for (const double x : numbers)
        texts.push_back(decimals < 0 ? formatted("%.*e", digits - 1, x) : fixed(x, decimals));
    return texts;
}

std::string exact(double x) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, x == 0.0 ? 0.0 : x).ptr;
    return {text, end};
}

std::string counted(long long n) {
    std::string text = std::to_string(n);
    const std::size_t start = n < 0 ? 1 : 0;
    for (std::size_t end = text.size(); end > start + 3; end -= 3)
        text.insert(end - 3, 1, ' ');
    return text;
}

std::string grouped(double x) {
    return x >= 100.0 && x < 1.0e15 ? counted(std::llround(x)) : rounded(x, 2);
}

std::size_t character_count(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xc0) != 0x80;
    }));
}

}  // namespace tool
