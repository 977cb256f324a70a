// Times all operations of the peers that have registered themselves. With --count, runs each once under callgrind, which
// leaves a count of instructions under its name; "nothing" is what counting itself takes.

#include "harness.h"

#include <valgrind/callgrind.h>

std::vector<Operation> &operations()
{
    static std::vector<Operation> all;
    return all;
}

namespace {

constexpr int times_before = 20; // symbols are bound, and the heap is as it stays

void count(const Operation &operation)
{
    for (int i = 0; i < times_before; i++)
        operation.once();
    CALLGRIND_ZERO_STATS;
    operation.once();
    CALLGRIND_DUMP_STATS_AT(operation.name.c_str());
}

void nothing()
{
}

void count_all()
{
    count({"nothing", nullptr, nothing});
    for (const Operation &operation : operations())
        count(operation);
}

void time_all()
{
    for (const Operation &operation : operations())
        benchmark::RegisterBenchmark(operation.name.c_str(), operation.time);
    benchmark::RunSpecifiedBenchmarks();
}

} // namespace

int main(int count, char **arguments)
{
    benchmark::Initialize(&count, arguments);
    if (count == 2 && std::string(arguments[1]) == "--count")
        count_all();
    else
        time_all();
    return 0;
}
