// The program as a person or a script calls it.
#include <ztmath/ztmath.h>

#include "run_tool.h"
#include "support/random.h"

namespace {

using namespace ztmath_test;

TEST(Program, HelpTeaches) {
    const Workshop w;
    expect_parts(w.run("--help").out, {"ztmath fit plane --svg"});
    for (const std::string command :
         {"fit plane", "fit line", "fit circle", "fit sphere", "roots", "transform scale",
          "transform rotate", "transform mirror", "transform motion", "triangulate", "curve",
          "arcs circles", "arcs tangents", "arcs intersect"})
        expect_parts(w.run(command + " --help").out, {"Examples:", "Exit codes:"});
}

struct Example {
    std::string command;
    std::string printed;  // and its exit code
};

/// The commands of a text, each behind "$ ", and what stands below them in their blocks.
std::vector<Example> examples_in(const std::string& path) {
    std::vector<Example> examples;
    std::ifstream text(path);
    bool printing = false;
    for (std::string line; std::getline(text, line);) {
        const bool begins = line.starts_with("$ ");
        printing = begins || (printing && line != "```");
        if (begins)
            examples.push_back({line.substr(2), ""});
        else if (printing)
            examples.back().printed += line + '\n';
    }
    return examples;
}

TEST(Program, PrintsWhatIsWritten) {
    const Workshop w;
    std::filesystem::copy(ZTMATH_ROOT "/demo/data", w.path(""));
    for (const auto* text : {ZTMATH_ROOT "/README.md", ZTMATH_ROOT "/tests/tools/transcript.md"}) {
        const std::vector<Example> examples = examples_in(text);
        EXPECT_GE(examples.size(), 3U) << text;
        for (const auto& [command, expected] : examples) {
            const auto outcome = w.shell("{ " + command + "\n} 2>&1");
            std::string printed = outcome.out;
            if (outcome.code != 0) printed += '[' + std::to_string(outcome.code) + "]\n";
            const std::string dots = "  ...\n";  // for anything
            const std::size_t at = expected.find(dots);
            if (at != std::string::npos) {
                const std::size_t rest = expected.size() - at - dots.size();
                ASSERT_LE(at + rest, printed.size()) << command << '\n' << printed;
                printed.replace(at, printed.size() - at - rest, dots);
            }
            EXPECT_EQ(printed, expected) << command;
        }
    }
}

TEST(Program, JsonHoldsTheLibrarysNumbers) {
    Random random;
    std::vector<double> points;
    for (int i = 0; i < 300; ++i)
        points.insert(points.end(),
                      {random.uniform(0, 1e3), random.uniform(0, 300), random.normal()});
    const std::string text = text_of(points, 3);
    std::array<double, 3> point, normal, statistics;
    int collinear;
    LSFIT_plane_to_points(points.data(), 300, point.data(), normal.data(), &collinear,
                          statistics.data());

    const Workshop w;
    w.file("p.txt", text);
    json result = json_of(w, "fit plane p.txt");
    const json expected = {{"fit", "plane"},     {"count", 300},   {"unit", "mm"},
                           {"shape", "regular"}, {"point", point}, {"normal", normal}};
    for (const auto& [key, value] : expected.items())
        EXPECT_EQ(result[key], value) << key;
    const json& distances = result["distances"];
    const char* const names[] = {"max", "rms", "mean"};
    for (std::size_t k = 0; k < 3; ++k)
        EXPECT_NEAR(distances[names[k]].get<double>(), statistics[k], 1e-12);
    const auto farthest = 3 * (distances["farthest"]["line"].get<std::ptrdiff_t>() - 1);
    EXPECT_EQ(distances["farthest"]["point"],
              json(std::vector(points.begin() + farthest, points.begin() + farthest + 3)));

    EXPECT_EQ(std::exchange(result["source"], "standard input"), "p.txt");
    EXPECT_EQ(json_of(w, "fit plane -", text), result);
}

TEST(Program, TakesAMillionPoints) {
    const Workshop w;
    std::string text;
    char line[80];
    unsigned noise = 1;
    for (int i = 0; i < 1000000; ++i) {
        noise = noise * 1664525U + 1013904223U;
        std::snprintf(line, sizeof line, "%d %d %.4f\n", i % 1000, i / 1000,
                      1e-10 * noise + (i == 765432 ? 5.0 : 0.0));
        text += line;
    }
    const auto outcome = w.run("fit plane --json - --svg out.svg", text);
    ASSERT_EQ(outcome.code, 0);
    const json result = json::parse(outcome.out);
    EXPECT_EQ(result["count"], 1000000);
    EXPECT_EQ(result["distances"]["farthest"]["line"], 765433);
    EXPECT_LT(std::filesystem::file_size(w.path("out.svg")), 2000000U);
}

}  // namespace
