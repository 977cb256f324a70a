#include "guard/fence.h"

#include <cstdlib>
#include <cstring>
#include <sys/mman.h>
#include <unistd.h>

namespace {

size_t page_size()
{
    return static_cast<size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

Fence::Fence(size_t room) : room_((room + page_size() - 1) / page_size() * page_size())
{
    void *memory = mmap(nullptr, room_ + page_size(), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (memory == MAP_FAILED || mprotect(static_cast<uint8_t *>(memory) + room_, page_size(), PROT_NONE) != 0)
        abort();
    memory_ = static_cast<uint8_t *>(memory);
}

Fence::~Fence()
{
    munmap(memory_, room_ + page_size());
}

std::span<const uint8_t> Fence::place(std::span<const uint8_t> bytes, size_t zeros)
{
    size_t size = bytes.size() + zeros;
    if (size > room_)
        abort();
    uint8_t *start = memory_ + room_ - size;
    if (!bytes.empty())
        memcpy(start, bytes.data(), bytes.size());
    memset(start + bytes.size(), 0, zeros);
    return {start, size};
}
