// The generalized eigenproblem of a size known when compiling.
#include "solve/generalized_eigen.h"
#include "support/matrix.h"

namespace {

using namespace ztmath_test;

TEST(Pencil, GivesTheSameBitsUnrolled) {
    constexpr int n = 5;
    Random random;
    for (int round = 0; round < rounds(50); ++round) {
        const Matrix r = random_matrix(random, n, n);
        Matrix a = r * diagonal({2, 1, 1, 0.5, -1}) * transposed(r),
               b = random_definite(random, n, 1);
        double blocks[2][ztmath::pencil_size(n)] = {};
        const auto solve = [&](double* block, auto size) {
            const ztmath::PencilArrays w = ztmath::pencil_arrays(block, n);
            std::copy_n(a.flat(), n * n, w.a);
            std::copy_n(b.flat(), n * n, w.b);
            EXPECT_TRUE(ztmath::solve_pencil(w, size, 60).definite);
        };
        solve(blocks[0], n);
        solve(blocks[1], std::integral_constant<int, n>{});
        EXPECT_TRUE(std::equal(blocks[0], std::end(blocks[0]), blocks[1]));
    }
}

}  // namespace
