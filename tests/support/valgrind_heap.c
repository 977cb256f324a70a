/* Preloaded under valgrind: the allocator behind the test process's own malloc, calloc and free, which take it for a
 * sanitizer's. It is libc's, reached by the names that valgrind watches. */

#define _GNU_SOURCE
#include <dlfcn.h>
#include <stddef.h>

void *__interceptor_malloc(size_t size);
void *__interceptor_calloc(size_t count, size_t size);
void __interceptor_free(void *block);

/* C has no cast from a data pointer to a function pointer. */
union next {
    void *address;
    void *(*malloc)(size_t);
    void *(*calloc)(size_t, size_t);
    void (*free)(void *);
};

void *__interceptor_malloc(size_t size)
{
    return (union next){dlsym(RTLD_NEXT, "malloc")}.malloc(size);
}

void *__interceptor_calloc(size_t count, size_t size)
{
    return (union next){dlsym(RTLD_NEXT, "calloc")}.calloc(count, size);
}

void __interceptor_free(void *block)
{
    (union next){dlsym(RTLD_NEXT, "free")}.free(block);
}
