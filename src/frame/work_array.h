// Work memory that gives itself back on every way out, unwinding included.
#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>
#include <utility>

#include "syss/syss.h"

namespace ztmath {

/// The size in bytes of `count` elements; a negative count is none, and a product that does not fit
/// is a size that no platform can serve, which then says so.
template <class T>
constexpr std::size_t bytes_of(std::ptrdiff_t count) {
    if (count <= 0) return 0;
    const auto n = static_cast<std::size_t>(count);
    return n <= SIZE_MAX / sizeof(T) ? n * sizeof(T) : SIZE_MAX;
}

/// The number of elements of a rows x columns matrix, none where a dimension is not positive.
constexpr std::ptrdiff_t element_count(int rows, int columns) {
    return rows > 0 && columns > 0 ? static_cast<std::ptrdiff_t>(rows) * columns : 0;
}

/// Asks for elements that are zero.
struct Zeroed {};

/// Owns a platform block of elements, uninitialised unless said.
template <class T>
class SmArray {
    static_assert(std::is_trivial_v<T>, "elements are neither constructed nor destroyed");

  public:
    explicit SmArray(std::ptrdiff_t count) : data_(static_cast<T*>(SM_alloc(bytes_of<T>(count)))) {}
    SmArray(std::ptrdiff_t count, Zeroed)
        : data_(static_cast<T*>(
              SM_calloc(count > 0 ? static_cast<std::size_t>(count) : 0, sizeof(T)))) {}
    ~SmArray() { SM_free(data_); }
    SmArray(const SmArray&) = delete;
    SmArray& operator=(const SmArray&) = delete;

    T* data() const { return data_; }
    T& operator[](std::ptrdiff_t i) const { return data_[i]; }

    /// Hands the block to the caller.
    T* release() { return std::exchange(data_, nullptr); }

  private:
    T* data_;
};

/// Uninitialised work memory: in place up to `InPlace` elements, from the platform above that.
template <class T, std::ptrdiff_t InPlace>
class WorkArray {
    static_assert(std::is_trivial_v<T>, "elements are neither constructed nor destroyed");

  public:
    // cppcheck-suppress uninitMemberVar ; what is in place is work memory too
    explicit WorkArray(std::ptrdiff_t count)
        : data_(count > InPlace ? static_cast<T*>(SM_alloc(bytes_of<T>(count))) : in_place_) {}
    ~WorkArray() {
        if (data_ != in_place_) SM_free(data_);
    }
    WorkArray(const WorkArray&) = delete;
    WorkArray& operator=(const WorkArray&) = delete;

    T* data() { return data_; }
    const T* data() const { return data_; }
    T& operator[](std::ptrdiff_t i) { return data_[i]; }

  private:
    T in_place_[InPlace];
    T* data_;
};

}  // namespace ztmath
