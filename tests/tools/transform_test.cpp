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
        EXPECT_EQ(json_of(w, command + " --matrix")["matrix"], result["matrix"]);
        EXPECT_EQ(flat(result["matrix"]), std::vector(expected.begin(), expected.end()));

        const tool::Points moved = tool::parse_points(w.run(command + " p").out, "moved", 3);
        std::vector<double> images(9);
        for (int i = 0; i < 9; i += 3)
            MC_apply_transform_to_point(expected.data(), points + i, &images[i]);
        EXPECT_EQ(moved.coordinates, images);
        EXPECT_EQ(flat(result["points"]), images);
    }
}

}  // namespace
