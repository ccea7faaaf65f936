// The other platform: the names that the library needs, served in the plainest way.
#include "abi/other_platform.h"

#include <cstdlib>
#include <cstring>

#include "syss/syss.h"

using ztmath_test::Chance;
using ztmath_test::OtherPlatform;

namespace {

OtherPlatform controls;

void take(Chance chance) {
    if (controls.on_chance != nullptr) controls.on_chance(chance);
}

/// Blocks begin 16 bytes behind their size.
constexpr std::size_t prefix = 16;

void* block_of(void* memory, std::size_t size) {
    if (memory == nullptr) throw ztmath_test::Interrupted{};
    std::memcpy(memory, &size, sizeof size);
    return static_cast<char*>(memory) + prefix;
}

void* memory_of(void* block) {
    return static_cast<char*>(block) - prefix;
}

void* allocate(std::size_t size, int fill) {
    take(Chance::allocation);
    void* block = block_of(std::malloc(prefix + size), size);
    ++controls.blocks_out;
    return std::memset(block, fill, size);
}

void report(Chance chance) {
    ++controls.reports;
    take(chance);
}

}  // namespace

extern "C" {

SYSS_API OtherPlatform* other_platform();
OtherPlatform* other_platform() {
    return &controls;
}

int MACH__checking_level = 0;

// Fresh memory is not zero: whoever relies on that finds out.
void* SM_alloc(std::size_t size) {
    return allocate(size, 0xA5);
}

void* SM_calloc(std::size_t count, std::size_t size) {
    return allocate(count * size, 0);
}

void* SM_calloc_persistent(std::size_t count, std::size_t size) {
    if (controls.persistent_before_null >= 0 && controls.persistent_before_null-- == 0)
        return nullptr;
    return allocate(count * size, 0);
}

void* SM_realloc(void* block, std::size_t size) {
    if (block == nullptr) return SM_alloc(size);
    take(Chance::allocation);
    return block_of(std::realloc(memory_of(block), prefix + size), size);
}

void SM_free(void* block) {
    if (block == nullptr) return;
    --controls.blocks_out;
    std::free(memory_of(block));
}

std::size_t SM_length(void* block) {
    std::size_t size = 0;
    if (block != nullptr) std::memcpy(&size, memory_of(block), sizeof size);
    return size;
}

void ERROR_raise(const char*, int, int, const char*) {
    report(Chance::raised);
}

void ERROR_internal(const char*, int, const char*, ...) {
    report(Chance::report);
}

void ERROR_note(const char*, int, const char*, ...) {
    report(Chance::report);
}

void ERROR_lprintf(const char*, ...) {
    report(Chance::report);
}

int ZT_REASON_ask_reason_number(int reason) {
    return reason + 1000;
}

void CALLBACK_call_list(int, void*) {}

}  // extern "C"
