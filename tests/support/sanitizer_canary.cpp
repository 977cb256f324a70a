// sanitizer_canary DEED: does one thing wrong with memory that the library allocated or released, or nothing wrong.

#include "bus.h"
#include "gorvanet.h"
#include "memory.h"

#include <cstdlib>
#include <cstring>

namespace {

// A request body that the library has allocated and handed to the middleware.
void *sent_body()
{
    gorvaNet_sendReq_setOsIfc(nullptr, nullptr, nullptr, nullptr, "service", "eth0");
    return reinterpret_cast<void *>(take_calls().back().words[1]);
}

void free_body(void *body)
{
    gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc(0, body);
}

// A buffer that the library has allocated for this body.
unsigned char *encoded(const void *body)
{
    void *buffer = nullptr;
    uint32_t size = 0;
    gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc(0, body, &buffer, &size);
    return static_cast<unsigned char *>(buffer);
}

// Kept from the optimiser's eyes.
volatile unsigned char seen;

void write_behind_a_buffer()
{
    void *body = sent_body();
    unsigned char *buffer = encoded(body);
    size_t behind = size_of_block(buffer);
    static_cast<volatile unsigned char *>(buffer)[behind] = 1;
}

void read_behind_a_body()
{
    const auto *body = static_cast<const unsigned char *>(sent_body());
    seen = static_cast<const volatile unsigned char *>(body)[size_of_block(body)];
}

void read_a_freed_body()
{
    void *body = sent_body();
    free_body(body);
    seen = *static_cast<const volatile unsigned char *>(body);
}

void free_a_body_twice()
{
    void *body = sent_body();
    free_body(body);
    free_body(body);
}

// The library itself reads behind the end of what it was given.
void decode_a_cut_buffer()
{
    void *body = sent_body();
    unsigned char *buffer = encoded(body);
    auto *cut = new unsigned char[28];
    memcpy(cut, buffer, 28);
    void *decoded = nullptr;
    uint32_t size = 0;
    gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc(0, cut, &decoded, &size);
}

// Every trace of the buffers is gone when this returns: they are lost.
[[gnu::noinline]] void lose_buffers()
{
    void *body = sent_body();
    for (int i = 0; i < 16; i++)
        encoded(body);
    free_body(body);
}

[[gnu::noinline]] void overwrite_stack()
{
    volatile unsigned char room[4096];
    for (volatile unsigned char &byte : room)
        byte = 0;
}

void nothing_wrong()
{
    void *body = sent_body();
    unsigned char *buffer = encoded(body);
    free_body(body);
    free(buffer);
}

struct {
    const char *name;
    void (*run)();
} const deeds[] = {
    {"nothing", nothing_wrong},
    {"write-behind", write_behind_a_buffer},
    {"read-behind", read_behind_a_body},
    {"use-after-free", read_a_freed_body},
    {"double-free", free_a_body_twice},
    {"cut-buffer", decode_a_cut_buffer},
    {"leak", lose_buffers},
};

} // namespace

int main(int argc, char **argv)
{
    for (const auto &deed : deeds)
        if (argc == 2 && strcmp(argv[1], deed.name) == 0) {
            deed.run();
            overwrite_stack();
            // The books hold the address of every block: what is in them is not lost.
            reset_memory();
            reset_bus();
            return 0;
        }
    return 2;
}
