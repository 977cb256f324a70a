/* The header needs no other before it. */
#include "gorvanet.h"

extern const void *keep;
const void *keep = &gorvaNet_base;
