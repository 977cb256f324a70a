// The library's own functions, behind those of the tracer that have their names.

#ifndef GORVANET_TRACE_REAL_H
#define GORVANET_TRACE_REAL_H

namespace trace {

// Looked up for each call: a process may unload the library and load it again elsewhere. Each look-up also sees to it
// that the library's calls of the bus come past the tracer.
void *find_real(const char *name);

// The function of this type that has the caller's name.
template <typename Function> Function *real(const char *name = __builtin_FUNCTION())
{
    return reinterpret_cast<Function *>(find_real(name));
}

} // namespace trace

#endif
