// The library's memory as a test sees it: this process's own malloc, calloc and free tell the library's calls from all
// others by where they come from, can refuse them, and remember what became of each block.

#ifndef GORVANET_TESTS_SUPPORT_MEMORY_H
#define GORVANET_TESTS_SUPPORT_MEMORY_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

// A block that the library released, as it was when `free` was called.
struct Freed {
    void *block;
    size_t size;                   // 0 for a block that the library did not allocate
    std::array<uint32_t, 4> words; // the first ones; 0 behind the end of a smaller block
};

// Refuses the library's n-th allocation from now on (1 is the next one), and with `rest` all that follow. 0: none.
void refuse_allocation(unsigned n, bool rest = false);

// Refuses those of the next 32 allocations whose bit is set; bit 0 is the next one.
void refuse_allocations(uint32_t which);

// Allocations that the library asked for since refuse_allocation, refuse_allocations or reset_memory, refused ones included.
unsigned allocations();

// Blocks that the library allocated and nobody has released.
std::vector<void *> live_blocks();
size_t size_of_block(const void *block);

// Blocks of the whole process that malloc and calloc have given and free has not taken back. More exact than what the
// allocator says of itself, which keeps some at hand.
long blocks_of_process();

// What the library has released since the last call.
std::vector<Freed> take_freed();

// Forgets all blocks and refusals.
void reset_memory();

#endif
