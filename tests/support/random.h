// Seeded random input. ZTMATH_TEST_SEED chooses another seed, ZTMATH_TEST_ROUNDS multiplies the
// number of rounds: the same binary is the quick check, the soak and, by less than 1, the check
// under slow instruments.
#pragma once

#include "support/prelude.h"

namespace ztmath_test {

inline const char* environment(const char* name, const char* otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : otherwise;
}

/// How many rounds a random test makes: `quick`, or the multiple that the environment asks for.
inline int rounds(int quick) {
    return std::max(1, static_cast<int>(quick * std::atof(environment("ZTMATH_TEST_ROUNDS", "1"))));
}

class Random {
  public:
    Random()
        : seed_(std::strtoull(environment("ZTMATH_TEST_SEED", "20260101"), nullptr, 10)),
          engine_(seed_),
          trace_(__FILE__, __LINE__, "seed " + std::to_string(seed_)) {}

    double uniform(double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(engine_);
    }
    int integer(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(engine_);
    }
    double normal() { return std::normal_distribution<double>()(engine_); }

    /// A vector whose components are normal, so whose directions are uniform.
    template <std::size_t N = 3>
    std::array<double, N> vector() {
        std::array<double, N> v;
        for (double& component : v)
            component = normal();
        return v;
    }

  private:
    std::uint64_t seed_;
    std::mt19937_64 engine_;
    ::testing::ScopedTrace trace_;  // a failure names the seed
};

}  // namespace ztmath_test
