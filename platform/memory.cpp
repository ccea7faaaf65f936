// Memory of the default platform library: blocks that know their length, counted and limited.
#include <algorithm>
#include <atomic>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "report.h"

namespace {

/// Stands before each block. `capacity` may exceed `length`: a block that grew once keeps slack, so
/// that growing step by step takes time in proportion to the final size.
struct alignas(std::max_align_t) Header {
    std::size_t length;
    std::size_t capacity;
};

std::atomic<std::size_t> blocks_out{0};
std::atomic<std::size_t> bytes_out{0};
std::atomic<std::size_t> bytes_limit{SIZE_MAX};

Header* header_of(void* block) {
    return static_cast<Header*>(block) - 1;
}

/// Enters `size` more bytes into the books, or reports that the limit refuses them.
void reserve(std::size_t size) {
    const std::size_t before = bytes_out.fetch_add(size, std::memory_order_relaxed);
    const std::size_t limit = bytes_limit.load(std::memory_order_relaxed);
    if (before > limit || size > limit - before) {
        bytes_out.fetch_sub(size, std::memory_order_relaxed);
        syss::out_of_memory(size);
    }
}

/// Obtains a header and `capacity` bytes behind it, from scratch or by moving `old`; null if
/// refused.
Header* obtain(Header* old, std::size_t capacity) {
    if (capacity > SIZE_MAX - sizeof(Header)) return nullptr;
    return static_cast<Header*>(std::realloc(old, sizeof(Header) + capacity));
}

Header* new_block(std::size_t size) {
    reserve(size);
    Header* header = obtain(nullptr, size);
    if (header == nullptr) {
        bytes_out.fetch_sub(size, std::memory_order_relaxed);
        syss::out_of_memory(size);
    }
    *header = {size, size};
    blocks_out.fetch_add(1, std::memory_order_relaxed);
    return header;
}

void* new_zeroed_block(std::size_t count, std::size_t size) {
    if (size != 0 && count > SIZE_MAX / size) syss::out_of_memory(SIZE_MAX);
    void* block = new_block(count * size) + 1;
    return std::memset(block, 0, count * size);
}

/// The capacity a block moves to when `size` no longer fits, or fits several times over.
std::size_t new_capacity(const Header& header, std::size_t size) {
    const bool grows_again = size > header.capacity && header.length != 0;
    return grows_again ? std::max(size, header.capacity + header.capacity / 2) : size;
}

}  // namespace

void* SM_alloc(std::size_t size) {
    return new_block(size) + 1;
}

void* SM_calloc(std::size_t count, std::size_t size) {
    return new_zeroed_block(count, size);
}

void* SM_calloc_persistent(std::size_t count, std::size_t size) {
    return new_zeroed_block(count, size);
}

void* SM_realloc(void* block, std::size_t size) {
    if (block == nullptr) return SM_alloc(size);
    Header* header = header_of(block);
    const std::size_t length = header->length;
    if (size > length) reserve(size - length);
    if (size > header->capacity || size < header->capacity / 4) {
        std::size_t capacity = new_capacity(*header, size);
        Header* moved = obtain(header, capacity);
        if (moved == nullptr) moved = obtain(header, capacity = size);  // without the slack, then
        if (moved == nullptr) {
            if (size <= length) return block;
            bytes_out.fetch_sub(size - length, std::memory_order_relaxed);
            syss::out_of_memory(size);
        }
        header = moved;
        header->capacity = capacity;
    }
    if (size < length) bytes_out.fetch_sub(length - size, std::memory_order_relaxed);
    header->length = size;
    return header + 1;
}

void SM_free(void* block) {
    if (block == nullptr) return;
    Header* header = header_of(block);
    bytes_out.fetch_sub(header->length, std::memory_order_relaxed);
    blocks_out.fetch_sub(1, std::memory_order_relaxed);
    std::free(header);
}

std::size_t SM_length(void* block) {
    return block != nullptr ? header_of(block)->length : 0;
}

std::size_t SYSS_block_count() {
    return blocks_out.load(std::memory_order_relaxed);
}

std::size_t SYSS_set_memory_limit(std::size_t limit) {
    return bytes_limit.exchange(limit, std::memory_order_relaxed);
}
