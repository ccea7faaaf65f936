// ztmath roots, as a person or a script calls it.
#include "polynomial.h"
#include "run_tool.h"

namespace {

using namespace ztmath_test;

std::vector<double> roots_of(const json& result) {
    std::vector<double> x;
    for (const json& root : result["roots"])
        x.push_back(root["root"].get<double>());
    return x;
}

TEST(Roots, ExitCodesTellWhatHappened) {
    const Workshop w;
    w.file("cubic", "-6 11\n# ascending\n-6; 1\n");
    w.file("words", "1 2\n3 x\n");
    w.file("none", "# nothing\n");
    const std::vector<Ending> endings = {
        {"6 -5 1", 0, ""},
        {"-- -.5 1", 0, ""},
        {"--file cubic", 0, ""},
        {"5", 1, "ztmath: 5 is a constant\n"},
        {"0 0 1e-10", 1, "ztmath: 1e-10 x^2 is a constant\n"},
        {"", 2, "ztmath: no coefficients\n"},
        {"1 2 3 4 5 6", 2, "ztmath: 6 coefficients: the largest degree is 4"},
        {"1 two", 2, "ztmath: \"two\" is not a number\n"},
        {"1 inf", 2, "ztmath: \"inf\" is not a finite number\n"},
        {"--file missing", 3, "ztmath: cannot read missing: No such file or directory\n"},
        {"--file words", 3, "ztmath: words:2: \"x\" is not a number\n"},
        {"--file none", 3, "ztmath: none: no coefficients\n"},
        {"6 -5 1 >/dev/full", 4, "ztmath: cannot write the standard output: "},
    };
    expect_endings(w, "roots ", endings);
    expect_parts(w.run("roots --help").out, {"Examples:", "ascending power", "Exit codes:"});
}

TEST(Roots, PrintsATable) {
    const Workshop w;
    expect_parts(
        w.run("roots -6,11,-6,1").out,
        {"Real roots of -6 + 11 x - 6 x^2 + x^3\n", "closed form, degree 3\n", "real roots  3\n",
         "\n  x1          1.000000000000000 ", "\n  x3          3.000000000000000 "});
    expect_parts(w.run("roots 1 0 0 0 1").out, {"real roots  none"});
    expect_parts(w.run("roots -1 0 0 0 1 --laguerre").out, {"Laguerre's iteration, degree 4"});
}

TEST(Roots, JsonHoldsRootsInOrderWithTheirResiduals) {
    const Workshop w;
    const json result = json_of(w, "roots 4 0 -5 0 1");
    EXPECT_EQ(result["coefficients"], json::parse("[4.0, 0.0, -5.0, 0.0, 1.0]"));
    EXPECT_EQ(result["degree"], 4);
    EXPECT_EQ(result["method"], "closed form");
    EXPECT_EQ(roots_of(result), (std::vector<double>{-2, -1, 1, 2}));
    for (const json& root : result["roots"])
        EXPECT_EQ(root["residual"], 0.0);

    // 1e-8 beside 1e4: small roots are what the iteration is for.
    const std::string wide = "1e-4 -10000.00000001 1";
    for (const char* option : {"", " --laguerre"}) {
        const json two = json_of(w, "roots " + wide + option);
        ASSERT_EQ(two["roots"].size(), 2U);
        EXPECT_NEAR(roots_of(two)[0], 1e-8, 1e-22);
        for (const json& root : two["roots"]) {
            const long double x = root["root"].get<double>();
            const long double value = (x - 10000.00000001) * x + 1e-4;
            EXPECT_EQ(root["residual"].get<double>(), static_cast<double>(std::fabs(value)));
            EXPECT_LT(root["relative"], 1e-15);
        }
    }
    const json dropped = json_of(w, "roots -6 2 0 1e-11");
    EXPECT_EQ(dropped["degree"], 1);
    EXPECT_EQ(roots_of(dropped), std::vector<double>{3});
    EXPECT_EQ(json_of(w, "roots --file -", "1 0\n1\n")["roots"], json::array());
}

TEST(Roots, PolynomialsReadAsAPersonWritesThem) {
    const std::pair<std::vector<double>, const char*> rows[]{
        {{6, -5, 1}, "6 - 5 x + x^2"},      {{0, -1, 0, 2.5}, "-x + 2.5 x^3"},
        {{-1, 0, 0, 0, -1}, "-1 - x^4"},    {{0, 0}, "0"},
        {{1e-12, 1e20}, "1e-12 + 1e+20 x"},
    };
    for (const auto& [coefficients, text] : rows)
        EXPECT_EQ(tool::Polynomial{coefficients}.str(), text);
}

}  // namespace
