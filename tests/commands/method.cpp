#include "commands/method.h"

#include "commands/record.h"

#include <cstdlib>
#include <cstring>
#include <ostream>
#include <utility>

namespace {

std::vector<Words> heard;

constexpr uint8_t overwritten = 0x77;

std::vector<Direction> select(bool (*wanted)(const Body &))
{
    std::vector<Direction> selected;
    for (const Method *method : methods()) {
        if (wanted(method->request))
            selected.push_back({method, GORVANET_BODY_REQUEST});
        if (wanted(method->response))
            selected.push_back({method, GORVANET_BODY_RESPONSE});
    }
    return selected;
}

std::vector<const Method *> select_methods(bool answered)
{
    std::vector<const Method *> selected;
    for (const Method *method : methods())
        if (method->answered() == answered)
            selected.push_back(method);
    return selected;
}

} // namespace

void keep_arguments(Words arguments)
{
    heard.push_back(std::move(arguments));
}

std::vector<Words> take_heard()
{
    return std::exchange(heard, {});
}

void *sent_body()
{
    Calls calls = take_calls();
    if (calls.empty() || calls.back().words.size() < 2) {
        ADD_FAILURE() << "nothing was sent";
        return nullptr;
    }
    return reinterpret_cast<void *>(calls.back().words[1]);
}

void set_magic(void *body, uint32_t magic)
{
    memcpy(body, &magic, sizeof magic);
}

void take_over(const std::string &function, Bytes &held)
{
    answer(function, [&held](const Words &words) {
        auto *body = reinterpret_cast<void *>(words.at(1));
        held = contents(body, size_of_block(body));
        memset(body, overwritten, held.size());
        return 0;
    });
}

void expect_left_alone()
{
    void *body = sent_body();
    ASSERT_GT(size_of_block(body), 0u);
    EXPECT_EQ(contents(body, size_of_block(body)), Bytes(size_of_block(body), overwritten));
    free(body);
}

void MethodTest::TearDown()
{
    EXPECT_EQ(take_heard(), std::vector<Words>{}) << "calls of handlers or callbacks that the test did not expect";
    LibraryTest::TearDown();
}

std::string MethodTest::function(const std::string &family) const
{
    return "gorvaNet_" + family + "_" + method().suffix;
}

BodyCallbacks::BodyCallbacks(const Method &owner, uint32_t body_type)
    : method(owner), type(body_type), body(type == GORVANET_BODY_REQUEST ? owner.request : owner.response),
      free_body(exported<gorvaNet_freeBody>(name("freeBody"))),
      serialize(exported<gorvaNet_serializeBody>(name("serializeBody"))),
      unserialize(exported<gorvaNet_unserializeBody>(name("unserializeBody"))),
      log(exported<gorvaNet_logBody>(name("logBody")))
{
}

std::string BodyCallbacks::callback(const std::string &family, const std::string &direction) const
{
    return "gorvaNet_cbEvtMsgMngt_" + family + "_" + method.message + direction + "_" + method.suffix;
}

std::string BodyCallbacks::name(const std::string &family) const
{
    return callback(family, "");
}

std::string BodyCallbacks::log_name(const std::string &family) const
{
    return callback(family, type == GORVANET_BODY_REQUEST ? "Req" : "Res");
}

void *BodyCallbacks::decoded() const
{
    void *decoded_body = nullptr;
    uint32_t decoded_size = 0;
    EXPECT_EQ(unserialize(type, body.wire.data(), &decoded_body, &decoded_size), 0);
    take_freed();
    return decoded_body;
}

void BodyTest::SetUp()
{
    LibraryTest::SetUp();
    callbacks = new BodyCallbacks(method(), GetParam().type);
    if (sample().record.probe)
        sample().record.probe->reset();
}

void BodyTest::TearDown()
{
    if (sample().record.probe)
        sample().record.probe->reset();
    delete callbacks;
    LibraryTest::TearDown();
}

void BodyTest::expect_refused(const Bytes &wire, int32_t status, uint32_t first_word)
{
    take_freed();
    EXPECT_EQ(callbacks->unserialize(GetParam().type, wire.data(), &output, &size), status);
    expect_untouched();
    auto freed = take_freed();
    ASSERT_EQ(freed.size(), 1u);
    EXPECT_EQ(freed[0].size, sample().image.size());
    EXPECT_EQ(freed[0].words[0], first_word);
}

void BodyTest::expect_sample(const Bytes &wire)
{
    ASSERT_EQ(callbacks->unserialize(GetParam().type, wire.data(), &output, &size), 0);
    EXPECT_EQ(size, sample().image.size());
    ASSERT_EQ(size_of_block(output), sample().image.size());
    EXPECT_EQ(contents(output, size), sample().image);
    free(output);
}

uint32_t BodyTest::encode(const void *body)
{
    return callbacks->serialize(GetParam().type, body, &output, &size);
}

void BodyTest::expect_untouched()
{
    EXPECT_STREQ(static_cast<const char *>(output), "untouched");
    EXPECT_EQ(size, 0x5a5a5a5au);
}

std::vector<const Method *> answered_methods()
{
    return select_methods(true);
}

std::vector<const Method *> one_way_methods()
{
    return select_methods(false);
}

std::vector<Direction> bodies()
{
    return select([](const Body &body) { return !body.image.empty(); });
}

std::vector<Direction> bodies_with_text()
{
    return select([](const Body &body) { return body.text.capacity != 0; });
}

std::vector<Direction> bodies_with_record()
{
    return select([](const Body &body) { return body.record.probe != nullptr; });
}

std::string name_of_method(const testing::TestParamInfo<const Method *> &info)
{
    return info.param->suffix;
}

std::string name_of_body(const testing::TestParamInfo<Direction> &info)
{
    return info.param.method->suffix + (info.param.type == GORVANET_BODY_REQUEST ? "Request" : "Response");
}

// Without these, an address would stand in the list of tests.

void PrintTo(const Method *method, std::ostream *out)
{
    *out << method->suffix;
}

void PrintTo(const Direction &direction, std::ostream *out)
{
    *out << direction.method->suffix << ", type " << direction.type;
}
