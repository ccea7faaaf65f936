// The program as a person or a script calls it.
#include <ztmath/ztmath.h>

#include "run_tool.h"
#include "support/random.h"
#include "svg_document.h"

namespace {

using namespace ztmath_test;

const char* const square = "0 0 0.1\n10 0 -0.1\n10 10 0.1\n0 10 -0.1\n";

TEST(Program, ExitCodesTellWhatHappened) {
    const Workshop w;
    w.file("square", square);
    w.file("line", "0 0 0\n1 1 1\n2 2 2\n");
    w.file("flat", "0 0 0\n1 0 0\n0 1 0\n2 2 0\n");
    w.file("broken", "0 0 0\n1 1\n");
    const std::vector<Ending> endings = {
        {"fit line square --svg line.svg", 0, ""},
        {"fit plane line", 1, "ztmath: line: collinear: the points lie on one line"},
        {"fit plane line --json --svg x.svg", 1, "ztmath: line: collinear: "},
        {"fit plane -", 1, "ztmath: standard input: too few points: a plane needs 3"},
        {"fit line --2d /dev/null", 1, "ztmath: /dev/null: too few points: a line needs 2"},
        {"fit circle --3d square", 0, ""},
        {"fit circle square", 3, "ztmath: square:1: 2 numbers expected (x y), found 3\n"},
        {"fit sphere line", 1, "ztmath: line: too few points: a sphere needs 4"},
        {"fit sphere flat", 1, "ztmath: flat: coplanar: the points lie in one plane\n"},
        {"", 2, "A subcommand is required"},
        {"fit plane", 2, "FILE is required"},
        {"fit plane square --unit ell", 2, "--unit: ell not in {mm,inch,m,um,deg,none}"},
        {"fit plane missing", 3, "ztmath: cannot read missing: No such file or directory\n"},
        {"fit plane .", 3, "ztmath: cannot read .: Is a directory\n"},
        {"fit plane broken", 3, "ztmath: broken:2: 3 numbers expected (x y z), found 2\n"},
        {"fit plane square --svg no/x.svg", 4,
         "ztmath: cannot write no/x.svg: No such file or directory\n"},
        {"fit plane square --svg /dev/full", 4,
         "ztmath: cannot write /dev/full: No space left on device\n"},
        {"fit plane square >/dev/full", 4,
         "ztmath: cannot write the standard output: No space left on device\n"},
    };
    expect_endings(w, "", endings);
    const SvgDocument well_formed(contents(w.path("line.svg")));
    EXPECT_FALSE(std::filesystem::exists(w.path("x.svg")));
}

TEST(Program, HelpTeaches) {
    const Workshop w;
    EXPECT_EQ(w.run("--version").out.substr(0, 7), "ztmath ");
    expect_parts(w.run("--help").out, {"ztmath fit plane --svg"});
    for (const char* what : {"plane", "line", "circle", "sphere"})
        expect_parts(w.run("fit " + std::string(what) + " --help").out,
                     {"Examples:", "File format:", "Units:", "Exit codes:", "--unit"});
}

TEST(Program, PrintsATable) {
    const Workshop w;
    w.file("square.csv", "x;y;z\n0;0;0.1\n10;0;-0.1\n10;10;0.1\n0;10;-0.1\n");
    const auto outcome = w.run("fit plane square.csv --unit inch");
    EXPECT_EQ(outcome.code, 0);
    expect_parts(outcome.out, {"Least-squares plane through square.csv\n",
                               "  points            4\n", "neither coincident nor collinear\n",
                               "  point (centroid)   5.000000   5.000000   0.000000  in\n",
                               "  distance             0.1000     0.1000     0.1000  in\n",
                               "  farthest point    line "});
    expect_parts(w.run("fit plane -", "1 1 1\n2 2 2\n3 3 3\n").out, {"shape   collinear: "});
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

TEST(Program, JsonOfLines) {
    const Workshop w;
    // The library's own point is (1,1), and its distances are 2.
    const json plane = json_of(w, "fit line --2d -", "0 3\n1 3\n2 3\n");
    EXPECT_EQ(plane["point"], json::parse("[1.0, 3.0]"));
    EXPECT_EQ(plane["direction"], json::parse("[1.0, 0.0]"));
    EXPECT_EQ(plane["distances"]["max"], 0.0);
    const json space = json_of(w, "fit line -", square);
    EXPECT_EQ(space["dimension"], 3);
    EXPECT_LT(space["plane_distances"]["max"], space["distances"]["max"]);
    const json none = json_of(w, "fit line -", "1 2 3\n1 2 3\n");
    EXPECT_EQ(none["shape"], "coincident");
    EXPECT_FALSE(none.contains("direction"));
    w.file("\xff\xfe", square);
    EXPECT_EQ(json_of(w, "fit plane '\xff\xfe'")["count"], 4);
}

TEST(Program, TablesAndJsonOfCirclesAndSpheres) {
    const Workshop w;
    const char* const ring = "6 5\n5 6\n4 5\n5 4\n";
    const json circle = json_of(w, "fit circle --unit inch -", ring);
    EXPECT_EQ(circle["centre"], json::parse("[5.0, 5.0]"));
    EXPECT_EQ(circle["radius"], 1);
    EXPECT_EQ(circle["arc_degrees"], 270);
    expect_parts(w.run("fit circle --unit inch -", ring).out, {"  radius       1.00000000  in\n"});
    const json space = json_of(w, "fit circle --3d -", "6 5 1\n5 6 1\n4 5 1\n");
    EXPECT_EQ(space["centre"], json::parse("[5.0, 5.0, 1.0]"));
    EXPECT_TRUE(space.contains("plane_distances"));
    const json sphere = json_of(w, "fit sphere -", "1 0 0\n0 1 0\n-1 0 0\n0 0 1\n");
    EXPECT_NEAR(sphere["radius"].get<double>(), 1, 1e-12);
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
