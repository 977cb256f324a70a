#include "memory.h"

#include "gorvanet.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <link.h>
#include <map>
#include <utility>

// The allocator behind: the sanitizer's where there is one, so that it still sees every block, else libc's.
extern "C" {
[[gnu::weak]] void *__interceptor_malloc(size_t);
[[gnu::weak]] void *__interceptor_calloc(size_t, size_t);
[[gnu::weak]] void __interceptor_free(void *);
void *__libc_malloc(size_t);
void *__libc_calloc(size_t, size_t);
void __libc_free(void *);
}

namespace {

struct Range {
    uintptr_t begin = 0;
    uintptr_t end = 0;
};

int find_library(dl_phdr_info *info, size_t, void *result)
{
    if (!info->dlpi_name || !__builtin_strstr(info->dlpi_name, "libGorvanet.so"))
        return 0;
    auto *range = static_cast<Range *>(result);
    range->begin = UINTPTR_MAX;
    for (int i = 0; i < info->dlpi_phnum; i++) {
        const auto &header = info->dlpi_phdr[i];
        if (header.p_type != PT_LOAD)
            continue;
        uintptr_t begin = info->dlpi_addr + header.p_vaddr;
        range->begin = begin < range->begin ? begin : range->begin;
        range->end = begin + header.p_memsz > range->end ? begin + header.p_memsz : range->end;
    }
    return 1;
}

Range library;

// Found before main, while nothing of the library has run.
[[gnu::constructor]] void locate_library()
{
    dl_iterate_phdr(find_library, &library);
}

bool from_library(const void *return_address)
{
    auto address = reinterpret_cast<uintptr_t>(return_address);
    return library.begin <= address && address < library.end;
}

struct Memory {
    std::map<const void *, size_t> live;
    std::vector<Freed> freed;
    unsigned allocations = 0;
    unsigned refused = 0;
    bool refuse_rest = false;
    uint32_t refused_places = 0;
};

// Made on the library's first allocation and never destroyed: blocks are released after the last destructor too.
Memory *memory;

Memory &the_memory()
{
    if (!memory)
        memory = new Memory;
    return *memory;
}

bool refuses(Memory &books)
{
    unsigned place = books.allocations++;
    if (place < 32 && books.refused_places >> place & 1)
        return true;
    return books.refused &&
           (books.allocations == books.refused || (books.refuse_rest && books.allocations > books.refused));
}

void *keep(void *block, size_t size)
{
    if (block)
        the_memory().live[block] = size;
    return block;
}

long given_blocks;

void *counted(void *block)
{
    given_blocks += block != nullptr;
    return block;
}

void *real_malloc(size_t size)
{
    return counted(__interceptor_malloc ? __interceptor_malloc(size) : __libc_malloc(size));
}

void *real_calloc(size_t count, size_t size)
{
    return counted(__interceptor_calloc ? __interceptor_calloc(count, size) : __libc_calloc(count, size));
}

void real_free(void *block)
{
    given_blocks -= block != nullptr;
    if (__interceptor_free)
        __interceptor_free(block);
    else
        __libc_free(block);
}

} // namespace

// What malloc gives the library is never zero by luck.
void *malloc(size_t size) noexcept
{
    if (!from_library(__builtin_return_address(0)))
        return real_malloc(size);
    if (refuses(the_memory()))
        return nullptr;
    auto *block = static_cast<unsigned char *>(real_malloc(size));
    for (size_t i = 0; block && i < size; i++)
        block[i] = 0xa5;
    return keep(block, size);
}

void *calloc(size_t count, size_t size) noexcept
{
    if (!from_library(__builtin_return_address(0)))
        return real_calloc(count, size);
    if (refuses(the_memory()))
        return nullptr;
    return keep(real_calloc(count, size), count * size);
}

void free(void *block) noexcept
{
    size_t size = 0;
    if (memory && block) {
        auto found = memory->live.find(block);
        if (found != memory->live.end()) {
            size = found->second;
            memory->live.erase(found);
        }
    }
    if (from_library(__builtin_return_address(0))) {
        Freed freed = {block, size, {}};
        if (size)
            memcpy(freed.words.data(), block, std::min(size, sizeof freed.words));
        the_memory().freed.push_back(freed);
    }
    real_free(block);
}

void refuse_allocation(unsigned n, bool rest)
{
    the_memory().allocations = 0;
    the_memory().refused = n;
    the_memory().refuse_rest = rest;
    the_memory().refused_places = 0;
}

void refuse_allocations(uint32_t which)
{
    refuse_allocation(0);
    the_memory().refused_places = which;
}

unsigned allocations()
{
    return the_memory().allocations;
}

std::vector<void *> live_blocks()
{
    std::vector<void *> blocks;
    for (const auto &entry : the_memory().live)
        blocks.push_back(const_cast<void *>(entry.first));
    return blocks;
}

size_t size_of_block(const void *block)
{
    auto found = the_memory().live.find(block);
    return found == the_memory().live.end() ? 0 : found->second;
}

long blocks_of_process()
{
    return given_blocks;
}

std::vector<Freed> take_freed()
{
    return std::exchange(the_memory().freed, {});
}

void reset_memory()
{
    the_memory() = Memory{};
}
