/* Opens the library once, lazily: callgrind counts what `measured_open` calls. */

#include <dlfcn.h>
#include <stdio.h>

__attribute__((noinline)) static void *measured_open(const char *path)
{
    return dlopen(path, RTLD_LAZY);
}

int main(int count, char **arguments)
{
    dlopen(NULL, RTLD_LAZY); /* binds the call */
    if (count != 2 || !measured_open(arguments[1])) {
        fprintf(stderr, "%s\n", dlerror());
        return 1;
    }
    return 0;
}
