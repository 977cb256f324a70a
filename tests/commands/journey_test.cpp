// A message on its whole way, as the middleware leads it: sent, encoded, decoded, described, handled, answered, and the
// answer likewise. Memory is refused at every combination of places: singly, in pairs, from each place on, and in all
// other ways.

#include "commands/method.h"

#include <cstdlib>
#include <cstring>

namespace {

using Receiver = void(void *ignored, void *context, void *body);

// What was done, and what was logged.
struct Story {
    std::vector<std::string> done;
    LogLines lines;
    unsigned allocations = 0;

    bool operator==(const Story &) const = default;
};

std::ostream &operator<<(std::ostream &out, const Story &story)
{
    return out << testing::PrintToString(story.done) << ", " << testing::PrintToString(story.lines) << ", "
               << story.allocations << " allocations";
}

// A step that asks for memory, once.
struct Step {
    std::string deed;
    LogLine without_memory;
    bool goes_on = false; // without it, too
};

// ---- What must happen -----------------------------------------------------------------------------------------------

std::vector<Step> steps_of(const Method &method)
{
    const BodyCallbacks request(method, GORVANET_BODY_REQUEST);
    const BodyCallbacks response(method, GORVANET_BODY_RESPONSE);
    auto body_line = [](const std::string &name) { return logged(3, name.c_str(), "Allocating Memory Ctx[%s]\n", ""); };
    auto output_line = [](const std::string &name) {
        return logged(3, name.c_str(), "Allocating Memory N Ctx[%s]\n", "");
    };
    std::vector<Step> steps = {
        {"request sent", body_line("gorvaNet_sendReq_" + method.send_suffix)},
        {"request encoded", output_line(request.log_name("serializeBody"))},
        {"request decoded", body_line(request.log_name("unserializeBody"))},
        {"request described", output_line(request.name("logBody")), true},
    };
    if (method.answered()) {
        steps.push_back({"response sent", body_line("gorvaNet_sendRes_" + method.suffix)});
        steps.push_back({"response encoded", output_line(response.log_name("serializeBody"))});
        steps.push_back({"response decoded", body_line(response.log_name("unserializeBody"))});
        steps.push_back({"response described", output_line(response.name("logBody")), true});
    }
    return steps;
}

// Bit n of `refused` is the allocation n, in the order in which they are asked for.
Story expected_story(const Method &method, uint32_t refused)
{
    Story story;
    for (const Step &step : steps_of(method)) {
        bool granted = (refused >> story.allocations++ & 1) == 0;
        if (granted)
            story.done.push_back(step.deed);
        else
            story.lines.push_back(step.without_memory);
        if (!granted && !step.goes_on)
            break;
    }
    return story;
}

// ---- What happens ---------------------------------------------------------------------------------------------------

class JourneyTest : public MethodTest {
protected:
    Story travel(uint32_t refused)
    {
        story = {};
        refuse_allocations(refused);
        if (void *request = send()) {
            if (void *arrived = carry(GORVANET_BODY_REQUEST, request)) {
                handle(arrived);
                release(GORVANET_BODY_REQUEST, arrived);
            }
        }
        story.lines = take_log();
        story.allocations = allocations();
        return story;
    }

    Receiver *receiver = nullptr;
    Words context = {word(method().callback), word(data)};
    void *const untouched_output = &context;

private:
    void *send()
    {
        uint32_t result = method().send(user, method().callback, pass1, pass2, server);
        EXPECT_EQ(result, 0u); // which is what the bus answers, too
        Calls calls = take_calls();
        if (calls.empty())
            return nullptr;
        story.done.push_back("request sent");
        receiver = reinterpret_cast<Receiver *>(calls.back().words.at(2));
        return reinterpret_cast<void *>(calls.back().words.at(1));
    }

    // Hands the request to the handler, and brings the answer to the callback.
    void handle(void *request)
    {
        auto *receive = exported<gorvaNet_recvReq>("gorvaNet_recvReq_" + method().send_suffix);
        receive(message, request, method().handler, data);
        expect_heard({word(message), word(data)}, method().request, request);
        if (!method().answered())
            return;
        method().respond(message);
        Calls calls = take_calls();
        if (calls.size() != 2)
            return;
        story.done.push_back("response sent");
        void *arrived = carry(GORVANET_BODY_RESPONSE, reinterpret_cast<void *>(calls[1].words.at(1)));
        if (!arrived)
            return;
        receiver(nullptr, context.data(), arrived);
        expect_heard({word(context.data()), word(data)}, method().response, arrived);
        release(GORVANET_BODY_RESPONSE, arrived);
    }

    // Encodes a body and decodes it elsewhere. Gives the body that arrives, or null.
    void *carry(uint32_t type, void *body)
    {
        const BodyCallbacks callbacks(method(), type);
        const std::string name = type == GORVANET_BODY_REQUEST ? "request" : "response";
        void *buffer = untouched_output;
        uint32_t size = untouched;
        uint32_t status = callbacks.serialize(type, body, &buffer, &size);
        EXPECT_EQ(contents(body, callbacks.body.image.size()), callbacks.body.image);
        release(type, body);
        if (!expect_output(status, buffer, size, callbacks.body.wire))
            return nullptr;
        story.done.push_back(name + " encoded");

        void *decoded = untouched_output;
        size = untouched;
        status = static_cast<uint32_t>(callbacks.unserialize(type, buffer, &decoded, &size));
        free(buffer);
        if (!expect_output(status, decoded, size, callbacks.body.image))
            return nullptr;
        story.done.push_back(name + " decoded");
        describe(callbacks, decoded, size);
        return decoded;
    }

    // Either the output with this content, or status 5 and nothing.
    bool expect_output(uint32_t status, const void *output, uint32_t size, const Bytes &expected) const
    {
        if (status) {
            EXPECT_EQ(status, 5u);
            EXPECT_EQ(output, untouched_output);
            EXPECT_EQ(size, untouched);
            return false;
        }
        EXPECT_EQ(size_of_block(output), expected.size());
        EXPECT_EQ(contents(output, size), expected);
        return true;
    }

    void describe(const BodyCallbacks &callbacks, const void *body, uint32_t size)
    {
        char *text = static_cast<char *>(untouched_output);
        callbacks.log(callbacks.type, body, size, &text);
        if (!text)
            return;
        EXPECT_STREQ(text, "");
        story.done.push_back(callbacks.type == GORVANET_BODY_REQUEST ? "request described" : "response described");
        free(text);
    }

    void release(uint32_t type, void *body)
    {
        take_freed();
        const BodyCallbacks callbacks(method(), type);
        callbacks.free_body(type, body);
        std::vector<Freed> freed = take_freed();
        ASSERT_EQ(freed.size(), 1u);
        EXPECT_EQ(freed[0].block, body);
        EXPECT_EQ(freed[0].size, callbacks.body.image.size());
        EXPECT_EQ(freed[0].words[0], 0xdeadbeefu);
    }

    static void expect_heard(Words expected, const Body &body, const void *address)
    {
        Words passed = body.passed(word(address));
        expected.insert(expected.end(), passed.begin(), passed.end());
        EXPECT_EQ(take_heard(), std::vector<Words>{expected});
    }

    Story story;
};

TEST_P(JourneyTest, EndsWhereMemoryIsRefusedAndLeavesNothingBehind)
{
    const Bytes descriptor = contents(&gorvaNet_base, sizeof gorvaNet_base);
    const auto places = static_cast<uint32_t>(steps_of(method()).size());
    EXPECT_EQ(places, method().answered() ? 8u : 4u);
    for (uint32_t refused = 0; refused < 1u << places; refused++) {
        SCOPED_TRACE(testing::Message() << "refused: bits of " << refused);
        EXPECT_EQ(travel(refused), expected_story(method(), refused));
        ASSERT_EQ(live_blocks(), std::vector<void *>{});
    }
    EXPECT_EQ(contents(&gorvaNet_base, sizeof gorvaNet_base), descriptor);
}

INSTANTIATE_TEST_SUITE_P(Methods, JourneyTest, testing::ValuesIn(methods()), name_of_method);

} // namespace
