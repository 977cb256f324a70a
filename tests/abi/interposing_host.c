/* interposing_host LIBRARY: a process that defines exported functions itself is called in their place, by the library
 * too. */

#include "gorvanet.h"

#include <dlfcn.h>
#include <stdio.h>
#include <string.h>
#include <syslog.h>

static int failures;
static unsigned add_calls, del_calls, copy_calls, length_calls, lines;

uint32_t gorvaNet_addBase(void)
{
    add_calls++;
    return 0x55;
}

uint32_t gorvaNet_delBase(void)
{
    del_calls++;
    return 0x66;
}

uint32_t gorvaNet_ipv6_prefix_copy(struct ipv6_prefix *destination, const struct ipv6_prefix *source)
{
    (void)destination;
    (void)source;
    copy_calls++;
    return 0;
}

uint32_t gorvaNet_ipv6_prefix_serialize_lg(const struct ipv6_prefix *record)
{
    (void)record;
    length_calls++;
    return 1000;
}

/* One line for each call that failed. */
void syslog(int priority, const char *format, ...)
{
    (void)priority;
    (void)format;
    lines++;
}

static void expect(const char *what, uint32_t found, uint32_t expected)
{
    if (found == expected)
        return;
    printf("%s: %u, expected %u\n", what, (unsigned)found, (unsigned)expected);
    failures++;
}

/* ISO C has no conversion from an object pointer to a function pointer. */
static void *own_library;

static void find(const char *name, void *function)
{
    void *address = dlsym(own_library, name);
    expect(name, address != NULL, 1);
    memcpy(function, &address, sizeof address);
}

int main(int argc, char **argv)
{
    uint32_t (*initialize)(void);
    void (*event)(void *context, int32_t number);
    uint32_t (*copy)(struct ipv6_prefix_config * destination, const struct ipv6_prefix_config *source);
    uint32_t (*length)(const struct ipv6_prefix_config *record);
    static struct ipv6_prefix_config from, to;

    if (argc != 2)
        return 2;
    own_library = dlopen(argv[1], RTLD_LAZY);
    if (!own_library) {
        printf("%s\n", dlerror());
        return 1;
    }
    find("gorvanet_initialize", &initialize);
    find("gorvaNet_cbEvtBase", &event);
    find("gorvaNet_ipv6_prefix_config_copy", &copy);
    find("gorvaNet_ipv6_prefix_config_serialize_lg", &length);
    if (failures)
        return 1;

    expect("the start returns", initialize(), 0x55);
    expect("calls of addBase", add_calls, 1);
    expect("lines about the start", lines, 1);

    event(NULL, 0);
    expect("calls of delBase", del_calls, 1);
    expect("lines about start and stop", lines, 2);

    expect("the copy returns", copy(&to, &from), 0);
    expect("calls of the inner copy", copy_calls, 1);
    expect("the inner length counts", length(&from) >= 1000, 1);
    expect("calls of the inner length", length_calls, 1);
    return failures != 0;
}
