#include "guard/body_test.h"

#include <cstdlib>
#include <ostream>

namespace {

constexpr size_t zeros_behind = 4096;

} // namespace

guard::Verdict GuardedBodyTest::check(std::span<const uint8_t> bytes) const
{
    auto interface = body.is_notification ? guard::Interface::notification : guard::Interface::command;
    return guard::check({interface, body.index, body.direction}, bytes);
}

bool GuardedBodyTest::guarded(const Bytes &bytes)
{
    auto placed = fence.place(bytes);
    guard::Verdict verdict = check(placed);
    if (verdict.sound() != model::well_formed(body, placed)) {
        ADD_FAILURE() << body.name << ": the guard says \"" << guard::explain(verdict) << "\"";
        return false;
    }
    if (!verdict.sound()) {
        refused++;
        return true;
    }
    taken++;
    model::Decoding expected = model::decode(body, placed);
    return expected.status == 0 && decodes_as_said(placed, expected);
}

bool GuardedBodyTest::direct(const Bytes &bytes)
{
    auto placed = fence.place(bytes, zeros_behind);
    model::Decoding expected = model::decode(body, placed);
    if (!expected.leaves)
        return decodes_as_said(placed, expected);
    skipped++;
    return true;
}

bool GuardedBodyTest::decodes_as_said(std::span<const uint8_t> bytes, const model::Decoding &expected)
{
    void *decoded = nullptr;
    uint32_t size = 0;
    int32_t status = body.row().unserializeBody(body.direction, bytes.data(), &decoded, &size);
    EXPECT_EQ(status, expected.status) << body.name;
    EXPECT_EQ(take_log().empty(), status == 0 || expected.silent) << body.name;
    bool same = status == expected.status;
    if (decoded) {
        const auto *first = static_cast<const uint8_t *>(decoded);
        same = same && status == 0 && Bytes(first, first + size) == expected.image;
        EXPECT_TRUE(same) << body.name << ": the decoded body is another one";
        free(decoded);
    }
    take_freed();
    return same && (decoded || status);
}

std::vector<const model::Body *> every_body()
{
    std::vector<const model::Body *> all;
    for (const model::Body &body : model::bodies())
        all.push_back(&body);
    return all;
}

std::string name_of_body(const testing::TestParamInfo<const model::Body *> &info)
{
    return info.param->name;
}

void model::PrintTo(const Body *body, std::ostream *out)
{
    *out << body->name;
}
