// ztmath arcs, as a person or a script calls it.
#include "run_tool.h"

namespace {

using namespace ztmath_test;
using Real = long double;

/// A word of the command line and its numbers: --circle 0,0,1.
struct Thing {
    std::string word;
    std::vector<double> v;
};

std::vector<Thing> things_in(const std::string& arguments) {
    std::vector<Thing> things;
    std::istringstream words(arguments);
    for (std::string word, numbers; words >> word >> numbers;)
        things.push_back({word.substr(2), json::parse('[' + numbers + ']')});
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

TEST(Arcs, CirclesMeetWhatIsGiven) {
    const Workshop w;
    for (const auto& [arguments, count] : problems) {
        const json solutions = json_of(w, "arcs circles " + arguments)["solutions"];
        EXPECT_EQ(solutions.size(), count) << arguments;
        const auto things = things_in(arguments);
        for (const json& s : solutions) {
            const double x = s["centre"][0], y = s["centre"][1], r = s["radius"];
            for (const Thing& thing : things)
                EXPECT_LT(std::fabs(miss(x, y, r, thing, things)), 1e-12) << thing.word << s;
            for (const json& contact : s["contacts"])
                EXPECT_LT(contact["residual"], 1e-12) << contact;
        }
    }
}

}  // namespace
