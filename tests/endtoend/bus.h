// The bus that the suite runs on: what it needs of a host. One source for each host defines it.

#ifndef ENDTOEND_BUS_H
#define ENDTOEND_BUS_H

#include <cstdint>

extern const unsigned bus_rounds; // of everything that there is to send

void *add_bus_user(const char *name);
// Carries what was sent, and all that follows. Result: whether all of it arrived.
bool carry_everything();
uint32_t open_messages();
int32_t tear_bus_down();

#endif
