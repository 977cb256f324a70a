// The captured log.

#ifndef GORVANET_TESTING_LOG_H
#define GORVANET_TESTING_LOG_H

namespace testing_bench {

void clear_log();

} // namespace testing_bench

#endif
