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
    const std::size_t limit = bytes_limit.load(std::memory_order_relaxed);
    std::size_t before = bytes_out.load(std::memory_order_relaxed);
    do {
        if (before > limit || size > limit - before) syss::out_of_memory(size);
    } while (!bytes_out.compare_exchange_weak(before, before + size, std::memory_order_relaxed));
}

void release(std::size_t size) {
    bytes_out.fetch_sub(size, std::memory_order_relaxed);
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
        release(size);
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

/// Whether a block moves to hold `size` bytes: they do not fit, or fit several times over.
bool must_move(const Header& header, std::size_t size) {
    return size > header.capacity || size < header.capacity / 4;
}

/// The capacity a block moves to: a block that grows gets slack, one that shrinks none.
std::size_t new_capacity(const Header& header, std::size_t size) {
    const bool grows = size > header.capacity && header.length != 0;
    return grows ? std::max(size, header.capacity + header.capacity / 2) : size;
}

/// Moves a block, with slack or, if that is refused, without; null, the block untouched, if that is
/// refused too.
Header* move_block(Header* header, std::size_t size) {
    const std::size_t wanted = new_capacity(*header, size);
    for (const std::size_t capacity : {wanted, size})
        if (Header* moved = obtain(header, capacity); moved != nullptr) {
            moved->capacity = capacity;
            return moved;
        }
    return nullptr;
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
    if (must_move(*header, size)) {
        if (Header* moved = move_block(header, size); moved != nullptr) {
            header = moved;
        } else if (size > length) {
            release(size - length);
            syss::out_of_memory(size);
        }  // else the block shrinks where it is
    }
    if (size < length) release(length - size);
    header->length = size;
    return header + 1;
}

void SM_free(void* block) {
    if (block == nullptr) return;
    Header* header = header_of(block);
    release(header->length);
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
