// Points as text.
#include "points_file.h"

#include "support/prelude.h"

namespace {

using namespace tool;
using Numbers = std::vector<double>;
using Lines = std::vector<std::uint32_t>;

TEST(PointsFile, ReadsWhatPeopleWrite) {
    const std::tuple<const char*, const char*, Numbers, Lines> cases[]{
        {"nothing", "", {}, {}},
        {"blank lines and no end of the last", "\n1 2\n \t\n3 4", {1, 2, 3, 4}, {2, 4}},
        {"all separators", "1,2\n3;4\n5\t6\n  7 ,; 8  ,\n", {1, 2, 3, 4, 5, 6, 7, 8}, {1, 2, 3, 4}},
        {"carriage returns", "1 2\r\n\r\n3 4\r\n", {1, 2, 3, 4}, {1, 3}},
        {"byte order mark", "\xef\xbb\xbf-1 2\n", {-1, 2}, {1}},
        {"comments", "# a\n1 2 # b\n% 9 9\n3 4//c\n5 6%", {1, 2, 3, 4, 5, 6}, {2, 4, 5}},
        {"header", "# c\n\nX;Y [mm]\n1;2\n", {1, 2}, {4}},
        {"signs and exponents", "+1e3 -2.5E-3\n.5 -7.\n", {1e3, -2.5e-3, .5, -7}, {1, 2}},
        {"too small for a double", "1e-400 -1e-400\n", {0, -0.0}, {1}},
        {"the largest", "1e15 -1e15", {1e15, -1e15}, {1}},
    };
    for (const auto& [what, text, numbers, lines] : cases) {
        SCOPED_TRACE(what);
        const Points points = parse_points(text, "p.txt", 2);
        EXPECT_EQ(points.coordinates, numbers);
        EXPECT_EQ(points.lines, lines);
    }
}

}  // namespace
