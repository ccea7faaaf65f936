// What most tests need: random input, what is reported, the session's state, vectors and rotations,
// calls by value.
#pragma once

#include "support/by_value.h"
#include "support/reports.h"
#include "support/shared_block.h"
#include "support/vectors.h"
