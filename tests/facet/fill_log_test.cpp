// The diagnostic record of a fill, which no exported function writes.
#include "facet/fill_log.h"
#include "support/prelude.h"

#include <filesystem>

namespace {

TEST(FillLog, WritesNodesElementsAndBoundary) {
    const double points[] = {0, 0, 1.5, -2, 0, 1e100};
    const PTF_triangle_t triangle{2, 0, 1, -1, -1, -1};
    ztmath::write_ansys_log(3, points, 1, &triangle);
    std::ostringstream text;
    text << std::ifstream("ansysptf.log").rdbuf();
    std::filesystem::remove("ansysptf.log");
    EXPECT_EQ(text.str(),
              "/dev,vect,0\n/prep7\nimmed,off\n/triad,off\n"
              "et,1,93\net,2,3\net,3,92\net,4,63\net,5,45\net,6,95\net,7,19\n/gopr\n"
              "NBLOCK,6,SOLID\n(3i8,6e16.9)\n"
              "       1       0       00.000000e+00    0.000000e+00    0.000000e+00    \n"
              "       2       0       01.500000e+00    -2.000000e+00   0.000000e+00    \n"
              "       3       0       00.000000e+00    1.000000e+100   0.000000e+00    \n"
              "     -1\n"
              "EBLOCK,19,SOLID\n(19i7)\n"
              "      1      4      1      1      0      0      0      0      8      0"
              "      1      3      1      2      0      0      0      0      0\n"
              "     -1\n"
              "type,2\ne,1,2\ntype,2\ne,2,3\ntype,2\ne,3,1\n"
              "/COM COMPLETED READING OF FEA MODEL\neplot\nimmed,on\n/gopr\n");
}

}  // namespace
