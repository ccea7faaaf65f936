// The error register of the banded solver.
#include "solve/error_register.h"

#include "ztmath/banded.h"

constinit ztmath::ErrorRegister ztmath::error_register = {0, 0};

void merrorpush(const void* /*context*/, int number, int level) {
    ztmath::push_error(number, level);
}

void merrorflush() {
    ztmath::push_error(0, 0);
}

int merrornum() {
    return ztmath::error_register.number;
}

int merrorlevel() {
    return ztmath::error_register.level;
}
