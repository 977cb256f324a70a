// What the sources of the library share, and nobody outside sees, is called directly, and takes its first arguments in
// registers where the platform's convention would put all of them on the stack.

#ifndef GORVANET_FRAME_INTERNAL_H
#define GORVANET_FRAME_INTERNAL_H

#ifdef __i386__
#define IN_REGISTERS gnu::regparm(3)
#else
#define IN_REGISTERS
#endif

#define HIDDEN   gnu::visibility("hidden")
#define INTERNAL HIDDEN, IN_REGISTERS

#endif
