// ztmath arcs, as a person or a script calls it.
#include "run_tool.h"
#include "svg_document.h"

namespace {

using namespace ztmath_test;
using Real = long double;

/// A word of the command line and its numbers: --circle 0,0,1.
struct Thing {
    std::string word;
    std::vector<Real> v;
};

std::vector<Thing> things_in(const std::string& arguments) {
    std::vector<Thing> things;
    std::istringstream words(arguments);
    for (std::string word, numbers; words >> word >> numbers;) {
        things.push_back({word.substr(2), {}});
        std::istringstream list(numbers);
        for (std::string x; std::getline(list, x, ',');)
            things.back().v.push_back(std::stold(x));
    }
    return things;
}

/// How far a point is from the line or the circle of a thing.
Real distance(Real x, Real y, const Thing& t) {
    const auto& v = t.v;
    if (t.word == "line")
        return std::fabs((x - v[0]) * v[3] - (y - v[1]) * v[2]) / std::hypot(v[2], v[3]);
    return std::hypot(x - v[0], y - v[1]);
}

/// By how much a circle fails to meet a thing.
Real miss(Real x, Real y, Real r, const Thing& t, const std::vector<Thing>& all) {
    if (t.word == "radius") return r - t.v[0];
    if (t.word == "angle") return 0;
    const Real d = distance(x, y, t);
    if (t.word != "circle") return d - r;
    const Real degrees = all.back().word == "angle" ? all.back().v[0] : 0;
    const Real cosine = (d * d - r * r - t.v[2] * t.v[2]) / (2 * r * t.v[2]);
    return std::fabs(cosine) - std::cos(degrees / 180 * std::acos(Real(-1)));
}

const std::pair<std::string, std::size_t> problems[]{
    {"--point 0,0 --point 4,1 --point -1,3", 1},
    {"--point 0,0 --point 4,1 --radius 3", 2},
    {"--point 0,0 --point 3,4 --radius 2.5", 1},
    {"--point 0,0 --point 3,4 --radius 2.4", 0},
    {"--point 0,1 --point 4,2 --line 0,-1,2,0.2", 2},
    {"--point 0,0 --point 1,0.5 --circle 4,4,1.5", 2},
    {"--point 2,3 --line 0,0,1,0 --at 0.5,0", 1},
    {"--line 0,0,1,0 --circle 2,4,1 --at 1,0", 2},
    {"--line 0,0,1,0 --circle 2,4,1 --at 1,0 --angle 30", 2},
    {"--line 0,5,1,1 --line 0,0,1,0 --at 1,6", 2},
    {"--circle 0,0,1 --circle 5,0,2 --point 2,3", 4},
    {"--circle 0,0,1 --circle 5,0,2 --radius 3", 5},
    {"--circle 0,0,1 --circle 4,0,1.5 --circle 1,4,1", 8},
};

/// Solutions, tangents or points, which stand last.
json findings(const Workshop& w, const std::string& arguments) {
    return json_of(w, "arcs " + arguments).back();
}

TEST(Arcs, CirclesMeetWhatIsGiven) {
    const Workshop w;
    for (const auto& [arguments, count] : problems) {
        const json solutions = findings(w, "circles --svg out.svg " + arguments);
        const auto things = things_in(arguments);
        std::size_t drawn = 0;
        for (const json& s : solutions) {
            const double x = s["centre"][0], y = s["centre"][1], r = s["radius"];
            for (const Thing& thing : things)
                EXPECT_LT(std::fabs(miss(x, y, r, thing, things)), 1e-12) << thing.word << s;
            for (const json& contact : s["contacts"])
                EXPECT_LT(contact["residual"], 1e-12) << contact;
            const SvgDocument svg(contents(w.path("out.svg")));
            drawn += svg.find("found", "solution hue-" + std::to_string(drawn)).size();
        }
        EXPECT_EQ(drawn, count) << arguments;
    }
}

TEST(Arcs, ExitCodesAndWordsTellWhatHappened) {
    const Workshop w;
    w.file("words", "circle 0 0 1\nsquare 0 0 1\n");
    w.file("three", "circle 0 0 1 # the first\n\ncircle,4;0 1\npoint 2 3");
    const std::string two = "circles --point 0,0 --point 1,1 ";
    const std::vector<Ending> endings = {
        {two + "--point 2,2", 1, "ztmath: no circle: the points lie on one line\n"},
        {two + "--point 2,2.1 --tolerance 5", 1, "ztmath: no circle: the points "},
        {"circles --line 0,0,1,1 --point 3,0 --at 1,2", 1, "ztmath: no circle: the p"},
        {two + "--at 1,1", 2, "ztmath: no construction of circles from 2 points and a "},
        {two + "--circle 1,2", 2, "--circle: circle takes X,Y,R, not 2 numbers\n"},
        {"tangents --point 0,0 --point 1,1", 2, "ztmath: tangents are those of "},
        {"circles --file words", 3, "ztmath: words:2: \"square\" is not known here"},
    };
    expect_endings(w, "arcs ", endings);
    expect_parts(
        w.run("arcs circles --file three").out,
        {"Circles through a point that touch two circles\n", "solutions   4\n", "from around\n"});
}

TEST(Arcs, TangentsTouchAndPointsLieOnTheirCircles) {
    const Workshop w;
    const std::string circles = "--circle 0,0,2 --circle 6,1,1";
    for (const json& t : findings(w, "tangents " + circles)) {
        Thing line{"line", {t["point"].begin(), t["point"].end()}};
        line.v.insert(line.v.end(), t["direction"].begin(), t["direction"].end());
        for (const Thing& c : things_in(circles))
            EXPECT_LT(std::fabs(distance(c.v[0], c.v[1], line) - c.v[2]), 1e-14) << t;
    }
    const std::pair<std::string, std::string> rows[]{
        {"tangents " + circles, "outer 1, outer 2, inner 1, inner 2, "},
        {"tangents --point 0,5 --arc 0,0,2,-90,180", "tangent 1, "},
        {"intersect --line 3,0,0,1 --circle 0,0,5", "point 1[3.0,-4.0], point 2[3.0,4.0], "},
        {"intersect --arc 0,0,5,0,-90 --segment 3,1,3,-9", "point 1[3.0,-4.0], "},
        {"intersect --circle 0,0,5 --circle 8,0,3", "point 1[5.0,0.0], "},
        {"intersect --circle 0,0,5 --circle 1,0,1", ""},
    };
    for (const auto& [arguments, expected] : rows) {
        std::string found;
        for (const json& f : findings(w, arguments))
            found += f["name"].get<std::string>() + (f.size() > 3 ? "" : f["point"].dump()) + ", ";
        EXPECT_EQ(found, expected) << arguments;
    }
}

}  // namespace
