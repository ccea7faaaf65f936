// Reports: the one way in which the library says that something is wrong.
//
// A module names itself once, as a Module constant in its header; a file that holds sites of its
// own takes a part of it. A site is one line. Its number is 1000 * part + source line: fixed in a
// build and, as long as no two files share a part, distinct within the module.
#pragma once

#include "syss/syss.h"

namespace ztmath {

/// Whether assertions and argument checks are to be made.
inline bool checking() {
    return MACH__checking_level > 0;
}

/// A report's printf-style text, with the line of the site that gave it.
struct Format {
    const char* text;
    int line;

    // Converts, as a text in the argument list is all that a site writes.
    // NOLINTNEXTLINE(google-explicit-constructor)
    constexpr Format(const char* format, int site_line = __builtin_LINE())
        : text(format), line(site_line) {}
};

class Module {
  public:
    constexpr explicit Module(const char* name) : Module(name, 0) {}

    /// The same module, reporting from another file.
    constexpr Module part(int number) const { return Module(name_, 1000 * number); }

    /// Input that cannot be served. No work memory may be held here: the host may leave by a long
    /// jump.
    void raise(int code, Format message) const {
        ERROR_raise(name_, first_line_ + message.line, code, message.text);
    }

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-security"  // the texts are literals at every site
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
    /// A failed assertion or another broken expectation.
    template <class... Arguments>
    void internal(Format format, Arguments... arguments) const {
        ERROR_internal(name_, first_line_ + format.line, format.text, arguments...);
    }

    /// A repaired value, a fallback taken, an iteration that did not converge.
    template <class... Arguments>
    void note(Format format, Arguments... arguments) const {
        ERROR_note(name_, first_line_ + format.line, format.text, arguments...);
    }
#pragma GCC diagnostic pop

  private:
    constexpr Module(const char* name, int first_line) : name_(name), first_line_(first_line) {}

    const char* name_;
    int first_line_;
};

}  // namespace ztmath

/// Asserts an expression, which is not evaluated at checking level 0. The text is what is reported:
/// it is fixed, and not taken from the expression, so that reformatting the source cannot change
/// it.
#define ZTMATH_ASSERT(module, expression_text, ...)                     \
    do {                                                                \
        if (::ztmath::checking() && !(__VA_ARGS__))                     \
            (module).internal("Assertion failed: %s", expression_text); \
    } while (false)
