#include "output.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

#include "failure.h"

namespace tool {

namespace {

bool write_all(std::FILE* file, const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size();
}

[[noreturn]] void fail_to_write(const std::string& name) {
    throw Failure{ExitCode::output, "cannot write " + name + ": " + std::strerror(errno)};
}

}  // namespace

void say(const std::string& source, const std::string& what) {
    std::fprintf(stderr, "ztmath: %s: %s\n", source.c_str(), what.c_str());
}

void print(const std::string& text) {
    if (!write_all(stdout, text) || std::fflush(stdout) != 0) fail_to_write("the standard output");
}

void write_file(const std::string& path, const std::string& text) {
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr) fail_to_write(path);
    const bool written = write_all(file, text);
    if (std::fclose(file) != 0 || !written) fail_to_write(path);
}

}  // namespace tool
