// Complex numbers.
#include "solve/complex.h"

#include <complex>

#include "support/support.h"

namespace {

using namespace ztmath;
using namespace ztmath_test;

std::complex<long double> wide(Complex a) {
    return {a.re, a.im};
}

/// Of any sizes, those too that have no square among the numbers.
TEST(Complex, AgreesWithExtendedPrecision) {
    Random random;
    for (int round = 0; round < rounds(1000); ++round) {
        const auto any = [&] { return random.normal() * std::pow(10, random.uniform(-140, 140)); };
        const double scale = any();
        const Complex a{any(), any()}, b{random.normal() * scale, random.normal() * scale};
        for (const Complex x : {a, b, Complex{0, b.im}, Complex{b.re, 0}, Complex{b.re, 1}}) {
            const auto size = static_cast<double>(std::abs(wide(x)));
            EXPECT_NEAR(modulus(x) / size, 1, 1e-15);
            const auto root = std::sqrt(wide(x)), own = wide(square_root(x));
            EXPECT_LT(std::abs(own - root) / std::abs(root), 1e-15);
        }
        const auto quotient = wide(a) / wide(b);
        EXPECT_LT(std::abs(wide(a / b) - quotient) / std::abs(quotient), 1e-15);
    }
    EXPECT_EQ(square_root({-4, 0}), (Complex{0, 2}));
    EXPECT_EQ(square_root({0, 0}), (Complex{0, 0}));
}

}  // namespace
