/* lazy_host LIBRARY: a process that lacks a function of the middleware loads the library and uses the rest of it. */

#include <dlfcn.h>
#include <stdint.h>
#include <stdio.h>
#include <string.h>

/* ISO C has no conversion from an object pointer to a function pointer. */
union symbol {
    void *address;
    uint32_t (*function)(void);
};

static uint32_t call(void *library, const char *name)
{
    union symbol symbol;
    symbol.address = dlsym(library, name);
    if (!symbol.address) {
        printf("%s\n", dlerror());
        return 1000;
    }
    return symbol.function();
}

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;

    /* The process does lack it: a library that wants all its symbols at once cannot be loaded here. */
    if (dlopen(argv[1], RTLD_NOW)) {
        printf("nothing is missing in this process\n");
        return 1;
    }
    const char *reason = dlerror();
    if (!strstr(reason, "zebIntf_sendReq_ntfy")) {
        printf("something else is missing: %s\n", reason);
        return 1;
    }

    void *library = dlopen(argv[1], RTLD_LAZY);
    if (!library) {
        printf("%s\n", dlerror());
        return 1;
    }
    uint32_t started = call(library, "gorvanet_initialize");
    uint32_t stopped = call(library, "gorvaNet_delBase");
    printf("started: %u, stopped: %u\n", (unsigned)started, (unsigned)stopped);
    return started || stopped;
}
