// What every test of the library starts from and ends with.

#ifndef GORVANET_TESTS_SUPPORT_LIBRARY_TEST_H
#define GORVANET_TESTS_SUPPORT_LIBRARY_TEST_H

#include "abort.h"
#include "bus.h"
#include "gorvanet.h"
#include "log.h"
#include "memory.h"
#include "text.h"

#include <gtest/gtest.h>

// Starts with the descriptor as the process found it, and with nothing logged, called or allocated. Ends with all of
// these taken by the test: a log line, a call of the bus or a block that the test did not ask for is a failure.
class LibraryTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
};

#endif
