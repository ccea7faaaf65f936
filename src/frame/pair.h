// Two doubles in vector lanes: the widest that every x86-64 has.
#pragma once

namespace ztmath {

using Pair = double __attribute__((vector_size(16)));

inline Pair load_pair(const double* p) {
    return Pair{p[0], p[1]};
}

inline void store(Pair pair, double* p) {
    p[0] = pair[0];
    p[1] = pair[1];
}

}  // namespace ztmath
