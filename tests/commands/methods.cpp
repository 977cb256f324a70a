// The commands, in the order of their indexes.

#include "commands/method.h"

extern const Method set_os_ifc;

std::vector<const Method *> methods()
{
    return {&set_os_ifc};
}
