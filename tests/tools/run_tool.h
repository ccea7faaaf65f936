// Calls the built program.
#pragma once

#include "support/prelude.h"

#include <sys/wait.h>

#include <filesystem>
#include <nlohmann/json.hpp>

namespace ztmath_test {

using json = nlohmann::ordered_json;

inline std::string contents(const std::filesystem::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

/// A directory of the running test's own.
class Workshop {
  public:
    Workshop() {
        std::string name = ::testing::TempDir() + "ztmath_tool_XXXXXX";
        if (mkdtemp(name.data()) == nullptr) throw std::filesystem::filesystem_error(name, {});
        directory_ = name;
    }
    ~Workshop() { std::filesystem::remove_all(directory_); }
    Workshop(const Workshop&) = delete;
    Workshop& operator=(const Workshop&) = delete;

    std::filesystem::path path(const std::string& name) const { return directory_ / name; }

    void file(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
    }

    struct Outcome {
        int code;
        std::string out;
    };

    /// Runs a command of the shell in this directory; there, ztmath is the built program.
    Outcome shell(const std::string& command) const {
        const std::string line = "cd '" + directory_.string() +
                                 "' && PATH='" ZTMATH_FOLDER "':$PATH && {\n" + command +
                                 "\n} >stdout";
        const int status = std::system(line.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(path("stdout"))};
    }

    /// What `ztmath ARGUMENTS` prints; its errors go nowhere.
    std::string run(const std::string& arguments) const {
        return shell("ztmath " + arguments + " 2>/dev/null").out;
    }

  private:
    std::filesystem::path directory_;
};

/// What `ztmath ARGUMENTS --json` prints.
inline json json_of(const Workshop& w, const std::string& arguments) {
    return json::parse(w.run(arguments + " --json"));
}

/// Points as a file has them.
inline std::string text_of(const std::vector<double>& coordinates, std::size_t dimension) {
    std::string text;
    for (std::size_t i = 0; i < coordinates.size(); ++i)
        text += json(coordinates[i]).dump() + ((i + 1) % dimension == 0 ? '\n' : ' ');
    return text;
}

}  // namespace ztmath_test
