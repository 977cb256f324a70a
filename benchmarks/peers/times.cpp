// The peers have registered themselves.

#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
