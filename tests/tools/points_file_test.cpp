// Points as text.
#include "points_file.h"

#include "failure.h"
#include "support/prelude.h"

namespace {

using namespace tool;
using Numbers = std::vector<double>;
using Lines = std::vector<std::uint32_t>;

std::string complaint_of(std::string_view text, int dimension) {
    try {
        parse_points(text, "p.txt", dimension);
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.code, ExitCode::input);
        return failure.message;
    }
    return "";
}

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

TEST(PointsFile, NamesTheMalformedLine) {
    const std::pair<const char*, const char*> cases[]{
        {"1 2 3\n4 5\n", "p.txt:2: 3 numbers expected (x y z), found 2"},
        {"\n1 2 3 4", "p.txt:2: 3 numbers expected (x y z), found 4"},
        {"1 2 3\nx y z", "p.txt:2: \"x\" is not a number"},
        {"x 1 2", "p.txt:1: \"x\" is not a number"},
        {"1 2 3mm", "p.txt:1: \"3mm\" is not a number"},
        {"1 2 0x3", "p.txt:1: \"0x3\" is not a number"},
        {"nan nan nan", "p.txt:1: \"nan\" is not a finite number"},
        {"1 2 1e400", "p.txt:1: \"1e400\" is out of range (the largest coordinate is 1e15)"},
        {"1 -1.1e15 3", "p.txt:1: \"-1.1e15\" is out of range (the largest coordinate is 1e15)"},
        {"1 2 a\033[7mb", "p.txt:1: \"a?[7mb\" is not a number"},
        {"1 2 0123456789012345678901234567890x",
         "p.txt:1: \"012345678901234567890123456789...\" is not a number"},
    };
    for (const auto& [text, complaint] : cases)
        EXPECT_EQ(complaint_of(text, 3), complaint) << text;
}

TEST(PointsFile, NamesFiveMalformedLinesAndCountsTheRest) {
    const std::string five = complaint_of("1\n2\n1 2\n3\n4\n5\n", 2);
    EXPECT_EQ(five.substr(five.rfind('\n') + 1), "p.txt:6: 2 numbers expected (x y), found 1");
    const std::string six = complaint_of("1\n2\n3\n4\n5\n6\n", 2);
    EXPECT_EQ(six.substr(0, five.find('\n')), "p.txt:1: 2 numbers expected (x y), found 1");
    EXPECT_EQ(six.substr(six.rfind('\n') + 1), "p.txt: and 1 more malformed line");
}

}  // namespace
