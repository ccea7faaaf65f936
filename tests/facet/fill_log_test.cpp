// The diagnostic record of a fill, which no exported function writes.
#include "facet/fill_log.h"
#include "support/prelude.h"

#include <filesystem>

namespace {

std::string text_in(const char* path) {
    return (std::ostringstream() << std::ifstream(path).rdbuf()).str();
}

TEST(FillLog, WritesNodesElementsAndBoundary) {
    const double points[] = {0, 0, 1.5, -2, 0, 1e100};
    const PTF_triangle_t triangle{2, 0, 1, -1, -1, -1};
    ztmath::write_ansys_log(3, points, 1, &triangle);
    const std::string expected = text_in(ZTMATH_FILL_LOG);
    EXPECT_NE(expected, "");
    EXPECT_EQ(text_in("ansysptf.log"), expected);
    std::filesystem::remove("ansysptf.log");
}

}  // namespace
