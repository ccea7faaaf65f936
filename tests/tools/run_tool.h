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

    std::string file(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name).string();
    }

    struct Outcome {
        int code;
        std::string out;
        std::string error;
    };

    /// Runs `ztmath ARGUMENTS`, which the shell sees as they are, in this directory.
    Outcome run(const std::string& arguments, const std::string& input = {}) const {
        file("stdin", input);
        const std::string command = "cd '" + directory_.string() + "' && '" ZTMATH_TOOL "' " +
                                    arguments + " <stdin 2>stderr " +
                                    (arguments.find('>') == std::string::npos ? ">stdout" : "");
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, contents(path("stdout")),
                contents(path("stderr"))};
    }

  private:
    std::filesystem::path directory_;
};

/// What `ztmath ARGUMENTS --json` prints.
inline json json_of(const Workshop& w, const std::string& arguments,
                    const std::string& input = {}) {
    return json::parse(w.run(arguments + " --json", input).out);
}

/// Arguments, the exit code that they lead to, how the standard error then begins, and the input.
struct Ending {
    std::string arguments;
    int code;
    std::string error;
    std::string input = {};
};

/// Errors say something.
inline void expect_endings(const Workshop& w, const std::string& command,
                           const std::vector<Ending>& endings) {
    for (const Ending& ending : endings) {
        SCOPED_TRACE(ending.arguments + '\n' + ending.input);
        const auto outcome = w.run(command + ending.arguments, ending.input);
        EXPECT_EQ(outcome.code, ending.code);
        EXPECT_EQ(outcome.error.substr(0, ending.error.size()), ending.error);
        EXPECT_EQ(outcome.error.empty(), ending.error.empty());
    }
}

/// Points as a file has them.
inline std::string text_of(const std::vector<double>& coordinates, std::size_t dimension) {
    std::string text;
    for (std::size_t i = 0; i < coordinates.size(); ++i)
        text += json(coordinates[i]).dump() + ((i + 1) % dimension == 0 ? '\n' : ' ');
    return text;
}

inline void expect_parts(const std::string& text, const std::vector<std::string>& parts) {
    for (const std::string& part : parts)
        EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
}

}  // namespace ztmath_test
