// The shared block: its memory, its layout, its initialisation.
#include "frame/acom.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

#include "ztmath/session.h"

ZTMATH_acom_t acom_;

// Hosts of the older generation read the block by byte offset.
static_assert(offsetof(ZTMATH_acom_t, words_320) == 320);
static_assert(offsetof(ZTMATH_acom_t, words_416) == 416);
static_assert(offsetof(ZTMATH_acom_t, words_632) == 632);
static_assert(offsetof(ZTMATH_acom_t, word_1032) == 1032);
static_assert(offsetof(ZTMATH_acom_t, model_scale) == 1040);
static_assert(offsetof(ZTMATH_acom_t, words_1048) == 1048);
static_assert(offsetof(ZTMATH_acom_t, tolerances) == 1120);
static_assert(offsetof(ZTMATH_acom_t, words_1248) == 1248);
static_assert(offsetof(ZTMATH_acom_t, words_1368) == 1368);
static_assert(offsetof(ZTMATH_acom_t, wcs_matrix) == 1440);
static_assert(offsetof(ZTMATH_acom_t, wcs_origin) == 1512);
static_assert(offsetof(ZTMATH_acom_t, display_count) == 2032);
static_assert(offsetof(ZTMATH_acom_t, display_ids) == 2036);
static_assert(offsetof(ZTMATH_acom_t, words_4088) == 4088);
static_assert(offsetof(ZTMATH_acom_t, words_4260) == 4260);
static_assert(offsetof(ZTMATH_acom_t, words_4344) == 4344);
static_assert(offsetof(ZTMATH_acom_t, word_4352) == 4352);
static_assert(offsetof(ZTMATH_acom_t, words_4356) == 4356);
static_assert(offsetof(ZTMATH_acom_t, words_4364) == 4364);
static_assert(offsetof(ZTMATH_acom_t, gca) == 4784);
static_assert(sizeof(ZTMATH_acom_t) == 5240);

namespace {

/// Stands in words that hold nothing yet.
constexpr int unset = -939;

template <class T, std::size_t N>
void set_all(T (&words)[N], T value) {
    std::fill(std::begin(words), std::end(words), value);
}

void clear_gca(int first, int last) {
    for (int k = first; k <= last; ++k)
        ztmath::gca(k) = 0;
}

/// What a running session keeps, and any other start resets.
void reset_session_words() {
    acom_.word_4352 = unset;
    set_all(acom_.words_4088, unset);
    set_all(acom_.words_4364, unset);
    set_all<double>(acom_.words_632, unset);
    clear_gca(2, 8);
    clear_gca(10, 22);
    clear_gca(24, 24);
    clear_gca(26, 26);
    clear_gca(28, 28);
    clear_gca(30, 50);
}

}  // namespace

void sys10_(const int* mode) {
    constexpr int keep_session = 1;

    set_all(acom_.words_320, 0.0);
    set_all<double>(acom_.words_416, unset);
    set_all<double>(acom_.words_1368, unset);
    set_all(acom_.words_4344, unset);
    set_all(acom_.words_4356, unset);
    acom_.word_1032 = 0.0;
    acom_.model_scale = unset;
    ztmath::gca(ztmath::gca_model_mode) = unset;
    set_all<double>(acom_.words_1048, unset);
    set_all<double>(acom_.tolerances, unset);
    set_all<double>(acom_.words_1248, unset);
    acom_.display_count = 0;
    set_all(acom_.display_ids, 0);
    acom_.word_4084 = 0;
    if (*mode != keep_session) reset_session_words();
    ztmath::gca(ztmath::gca_always_six) = 6;
}

void b120a_() {
    set_all(acom_.words_4260, 0);
}
