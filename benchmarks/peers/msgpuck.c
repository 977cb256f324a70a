/* What msgpuck.h does not inline. */

#define MP_SOURCE 1
#include <msgpuck.h>
