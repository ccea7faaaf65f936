// Banded systems of any order and bandwidth.
#include "fuzz.h"
#include "ztmath/banded.h"

void fuzz::run(Bytes& bytes) {
    const int n = bytes.integer(-1, 40);
    const int bw = bytes.integer(-1, 45);
    double** matrix = nullptr;
    double* rhs = nullptr;
    merrorflush();
    msetup_banded(n, bw, &matrix, &rhs);
    require((matrix != nullptr) == (n >= 1 && bw >= 0), "a system is made for every order");
    if (matrix != nullptr) {
        for (int i = 0; i < n; ++i) {
            for (int j = std::max(0, i - bw); j <= std::min(n - 1, i + bw); ++j)
                matrix[i][j] = bytes.number();
            rhs[i] = bytes.number();
        }
        mdecompose_banded(matrix, n, bw);
        msolve_banded(matrix, n, bw, rhs);
    }
    mdispose_banded(&matrix, &rhs);
    require(matrix == nullptr && rhs == nullptr, "a system that is disposed of is gone");
}
