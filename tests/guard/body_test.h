// What the tests of the guard share: one body, and the library's decoder for it, reading right up to a fence.

#ifndef GORVANET_TESTS_GUARD_BODY_TEST_H
#define GORVANET_TESTS_GUARD_BODY_TEST_H

#include "guard.h"
#include "guard/fence.h"
#include "guard/model.h"
#include "support/library_test.h"

class GuardedBodyTest : public LibraryTest, public testing::WithParamInterface<const model::Body *> {
protected:
    // What the guard says of the bytes.
    guard::Verdict check(std::span<const uint8_t> bytes) const;

    // The guard takes the bytes exactly if they are well formed, and what it takes the library decodes as the model
    // does, without a look behind the last byte. Gives false, after a failure of the test, if not.
    bool guarded(const Bytes &bytes);

    // The library makes of the bytes, with zeros behind them, what the model does. Cases in which the items lead out of
    // the zeros are left out and counted.
    bool direct(const Bytes &bytes);

    const model::Body &body = *GetParam();
    unsigned taken = 0;
    unsigned refused = 0;
    unsigned skipped = 0;

private:
    bool decodes_as_said(std::span<const uint8_t> bytes, const model::Decoding &expected);

    Fence fence{16384};
};

std::vector<const model::Body *> every_body();
std::string name_of_body(const testing::TestParamInfo<const model::Body *> &info);

namespace model {
void PrintTo(const Body *body, std::ostream *out);
}

#endif
