// The program as a person or a script calls it.
#include <ztmath/ztmath.h>

#include "points_file.h"
#include "run_tool.h"
#include "support/support.h"
#include "svg_document.h"

namespace {

using namespace ztmath_test;

/// Commands and what each prints, and its exit code.
using Examples = std::vector<std::pair<std::string, std::string>>;

/// The commands of a text, each behind "$ ", and what stands below them in their blocks.
Examples examples_in(const std::string& path) {
    Examples examples;
    std::ifstream text(path);
    bool printing = false;
    for (std::string line; std::getline(text, line);) {
        const bool begins = line.starts_with("$ ");
        printing = begins || (printing && line != "```");
        if (begins)
            examples.push_back({line.substr(2), ""});
        else if (printing)
            examples.back().second += line + '\n';
    }
    return examples;
}

TEST(Program, PrintsWhatIsWritten) {
    const Workshop w;
    std::filesystem::copy(ZTMATH_ROOT "/demo/data", w.path(""));
    for (const auto* text : {ZTMATH_ROOT "/README.md", ZTMATH_ROOT "/tests/tools/transcript.md"}) {
        const Examples examples = examples_in(text);
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
    int pictures = 0;
    for (const auto& file : std::filesystem::directory_iterator(w.path("")))
        if (file.path().extension() == ".svg") {
            SCOPED_TRACE(file.path());
            const SvgDocument well_formed(contents(file));
            ++pictures;
        }
    EXPECT_GE(pictures, 15);
}

TEST(Program, JsonHoldsTheLibrarysNumbers) {
    constexpr std::size_t count = 300;
    Random random;
    std::vector<double> points;
    for (std::size_t i = 0; i < count; ++i)
        points.insert(points.end(),
                      {random.uniform(0, 1e3), random.uniform(0, 300), random.normal()});
    const Workshop w;
    w.file("p.txt", text_of(points, 3));

    Vector point, normal, statistics;
    int collinear;
    LSFIT_plane_to_points(points.data(), count, point.data(), normal.data(), &collinear,
                          statistics.data());
    const json fit = json_of(w, "fit plane p.txt");
    EXPECT_EQ(fit["point"], json(point));
    EXPECT_EQ(fit["normal"], json(normal));
    const char* const names[] = {"max", "rms", "mean"};
    for (std::size_t k = 0; k < 3; ++k)
        EXPECT_NEAR(fit["distances"][names[k]].get<double>(), statistics[k], 1e-12);

    const auto matrix =
        written<std::array<double, 16>>(MTX4_rotation, Vector{1, -2, 3}, Vector{-1, 0, 2}, 400.0);
    const std::string rotation = "transform rotate --point 1,-2,3 --axis -1,0,2 --angle 400 p.txt";
    const json rotated = json_of(w, rotation);
    std::vector<double> images(points.size());
    for (std::size_t i = 0; i < points.size(); i += 3)
        MC_apply_transform_to_point(matrix.data(), &points[i], &images[i]);
    for (std::size_t i = 0; i < 16; ++i)
        EXPECT_EQ(rotated["matrix"][i / 4][i % 4], matrix[i]);
    for (std::size_t i = 0; i < points.size(); ++i)
        EXPECT_EQ(rotated["points"][i / 3][i % 3], images[i]);
    EXPECT_EQ(tool::parse_points(w.run(rotation), "rotated", 3).coordinates, images);
}

}  // namespace
