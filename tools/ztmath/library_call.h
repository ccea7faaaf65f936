// Calls of the library, with what it reports turned into messages and a Failure.
#pragma once

#include <exception>

#include "failure.h"

namespace tool {

/// Calls body(data). Remarks of the library go to the standard error; a failure that it reports, or
/// memory that it cannot have, ends in a Failure.
void call_library_with(void (*body)(void* data), void* data);

/// Calls a function object that calls the library.
template <class Body>
void call_library(Body&& body) {
    call_library_with([](void* data) { (*static_cast<std::remove_reference_t<Body>*>(data))(); },
                      &body);
}

}  // namespace tool
