// ztmath transform, as a person calls it.
#include <ztmath/mc.h>
#include <ztmath/mtx4.h>

#include "points_file.h"
#include "run_tool.h"
#include "support/by_value.h"

namespace {

using namespace ztmath_test;

using Transform = std::array<double, 16>;

const char* const points_text = "# x y z\n1 2 3\n-0.1,1e-17;12345.678901234567\n0 0 0\n";
const double points[] = {1, 2, 3, -0.1, 1e-17, 12345.678901234567, 0, 0, 0};

std::vector<double> flat(const json& rows) {
    std::vector<double> numbers;
    for (const auto& number : rows.flatten())
        numbers.push_back(number.get<double>());
    return numbers;
}

TEST(Transform, AppliesTheLibrarysMatrixToTheBit) {
    const Vector o{0, 0, 0}, p{1, -2, 3}, n{-1, 0, 2}, x{0, 1, 0}, y{0, 0, 1};
    const std::pair<std::string, Transform> cases[] = {
        {"scale --centre 1,-2,3 --factors -1,0,2", written<Transform>(MTX4_scaling, p, n)},
        {"scale --factors 2.5", {2.5, 0, 0, 0, 0, 2.5, 0, 0, 0, 0, 2.5, 0, 0, 0, 0, 1}},
        {"rotate --axis -1,0,2 --angle -33.3", written<Transform>(MTX4_rotation, o, n, -33.3)},
        {"rotate --point 1,-2,3 --axis -1,0,2 --angle 400",
         written<Transform>(MTX4_rotation, p, n, 400)},
        {"mirror --point 1,-2,3 --normal -1,0,2", written<Transform>(MTX4_mirror, p, n)},
        {"motion --from-origin 1,-2,3 --from-x -1,0,2 --from-y 0,5,0 --to-origin 0,0,9 "
         "--to-x 0,1,0 --to-y 0,0,1",
         written<Transform>(MTX4_csys_to_csys, p, n, Vector{0, 5, 0}, Vector{0, 0, 9}, x, y)},
        {"motion --to-origin 1,-2,3", {1, 0, 0, 1, 0, 1, 0, -2, 0, 0, 1, 3, 0, 0, 0, 1}},
    };
    const Workshop w;
    w.file("p", points_text);
    for (const auto& [arguments, expected] : cases) {
        SCOPED_TRACE(arguments);
        const std::string command = "transform " + arguments;
        const json result = json_of(w, command + " p");
        json only = json_of(w, command + " --matrix");
        EXPECT_EQ(only["matrix"], result["matrix"]);
        EXPECT_FALSE(only.contains("points"));
        EXPECT_EQ(flat(result["matrix"]), std::vector(expected.begin(), expected.end()));

        const tool::Points moved = tool::parse_points(w.run(command + " p").out, "moved", 3);
        std::vector<double> images(9);
        for (int i = 0; i < 9; i += 3)
            MC_apply_transform_to_point(expected.data(), points + i, &images[i]);
        EXPECT_EQ(moved.coordinates, images);
        EXPECT_EQ(flat(result["points"]), images);
    }
    EXPECT_EQ(w.run("transform scale --factors -1 --matrix").out,
              "-1 0 0 0\n0 -1 0 0\n0 0 -1 0\n0 0 0 1\n");
    EXPECT_EQ(w.run("transform mirror --normal 1,0,0 -", "0 0.1 2\n").out, "0 0.1 2\n");
}

TEST(Transform, RefusesWhatMakesNoTransform) {
    const Workshop w;
    w.file("p", points_text);
    const std::vector<Ending> endings = {
        {"", 2, "A subcommand is required"},
        {"rotate --axis 0,0 --angle 3 p", 2, "--axis: three numbers X,Y,Z expected, not 0,0\n"},
        {"rotate --axis 0,0,1 --angle ten p", 2, "--angle: a number of degrees expected, not ten"},
        {"rotate --axis 0,0,0 --angle 3 p", 2, "ztmath: --axis has no direction\n"},
        {"mirror --normal 1e-11,0,0 p", 2, "ztmath: --normal has no direction\n"},
        {"scale --factors 1,2 p", 2, "--factors: one number or three expected, not 1,2"},
        {"motion --from-x 1,1,0 p", 2, "ztmath: --from-x and --from-y are not perpendicular"},
        {"scale --factors 2", 2, "ztmath: FILE is required, or --matrix\n"},
        {"scale --factors 2 --matrix p", 2, "ztmath: --matrix reads no FILE\n"},
        {"scale --factors 2 missing", 3, "ztmath: cannot read missing: "},
        {"scale --factors 2 p >/dev/full", 4, "ztmath: cannot write the standard output: "},
    };
    expect_endings(w, "transform ", endings);
    for (const char* command : {"scale", "rotate", "mirror", "motion"})
        expect_parts(w.run("transform " + std::string(command) + " --help").out,
                     {"Examples:", "File format:", "Units:", "Output:", "Exit codes:"});
}

}  // namespace
