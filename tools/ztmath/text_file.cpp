#include "text_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "failure.h"

namespace tool {

namespace {

[[noreturn]] void fail_to_read(const std::string& name) {
    throw Failure{ExitCode::input, "cannot read " + name + ": " + std::strerror(errno)};
}

}  // namespace

std::string source_name(const std::string& path) {
    return path == "-" ? "standard input" : path;
}

std::string read_text(const std::string& path) {
    struct Close {
        void operator()(std::FILE* file) const {
            if (file != stdin) std::fclose(file);
        }
    };
    const std::unique_ptr<std::FILE, Close> file(path == "-" ? stdin
                                                             : std::fopen(path.c_str(), "rb"));
    if (!file) fail_to_read(source_name(path));
    std::string text;
    std::size_t length = 0;
    for (;;) {
        text.resize(std::max<std::size_t>(2 * length, 1 << 16));
        const std::size_t got =
            std::fread(text.data() + length, 1, text.size() - length, file.get());
        if (got == 0) break;
        length += got;
    }
    if (std::ferror(file.get()) != 0) fail_to_read(source_name(path));
    text.resize(length);
    return text;
}

}  // namespace tool
