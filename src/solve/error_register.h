// The error register of the banded solver: state of the process, which only its host clears.
#pragma once

namespace ztmath {

struct ErrorRegister {
    int number;
    int level;
};

/// Both zero when clear.
extern ErrorRegister error_register;

/// Overwrites what was pushed before.
inline void push_error(int number, int level) {
    error_register = {number, level};
}

}  // namespace ztmath
