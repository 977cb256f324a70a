/* As little of a test framework as will do; any other does as well. */
#ifndef EXAMPLE_CHECK_H
#define EXAMPLE_CHECK_H

#include <stdio.h>

static int checks_failed;

#define CHECK(condition) check((condition), #condition, __LINE__)

static void check(int holds, const char *condition, int line)
{
    if (holds)
        return;
    printf("line %d: not so: %s\n", line, condition);
    checks_failed++;
}

#endif
