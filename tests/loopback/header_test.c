/* The host's header is C99: a C program uses it as it is. */

#include "gorvanet_loopback.h"

#include <stddef.h>

void *add_user_from_c(const char *name);
uint32_t size_of_event_in_c(void);

void *add_user_from_c(const char *name)
{
    return gorvanet_loopback_add_user(name);
}

uint32_t size_of_event_in_c(void)
{
    return (uint32_t)sizeof(struct gorvanet_loopback_event);
}
