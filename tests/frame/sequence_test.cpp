// Every sequence of up to four lifecycle events, against a model of the interface written down separately: results,
// calls of the bus, log lines and the whole descriptor after each event.

#include "frame_test.h"

namespace {

class Sequence : public FrameTest {};

enum class Event {
    add,
    add_without_cmd_block,
    add_without_ntfy_block,
    add_with_number_but_no_cmd_block,
    add_without_hook,
    del,
    del_cmd_kept,
    del_ntfy_kept,
    event_0,
    event_0_cmd_kept,
    event_1,
    unreg_cmd,
    unreg_ntfy,
    unreg_cmd_unknown,
};

constexpr int events = 14;

// What an event leads to. Events without a result have 0.
struct Outcome {
    uint32_t result = 0;
    Calls calls;
    LogLines lines;
};

// The interface as it should be.
class Model {
public:
    Frame frame;

    Outcome happens(Event event);

private:
    Outcome add(Event event);
    Outcome del(Event event);
    Outcome event_0(Event event);
    Outcome unreg(uint32_t flag, const char *flag_name, const char *function);

    // The middleware counts the blocks that it hands out.
    uint32_t next_number = first_number;
};

constexpr uint32_t number_without_block = 0x4321;
constexpr uint32_t kept_status = 0x77;
constexpr uint32_t hook_status = 0x66;

LogLine wrong_state(const char *function, const char *state_name, uint32_t state, uint32_t found)
{
    return logged(3, function, "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n", state_name, state,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

Outcome Model::add(Event event)
{
    const char *name = "gorvaNet_addBase";
    if (frame.state == 1)
        return {3, {}, {wrong_state(name, "GORVANET_STATE_BASE_WAIT_INIT", 0, 1)}};
    frame.flags = 0;

    Outcome outcome{.result = 1, .calls = {asks_for_cmd()}, .lines = {}};
    if (event == Event::add_without_cmd_block || event == Event::add_with_number_but_no_cmd_block) {
        frame.cmd = event == Event::add_without_cmd_block ? 0xffff : number_without_block;
        outcome.lines = {logged(3, name, "Add command message management failed\n")};
        return outcome;
    }
    frame.cmd = next_number++;
    frame.flags = 1;

    outcome.calls.push_back(asks_for_ntfy());
    if (event == Event::add_without_ntfy_block) {
        frame.ntfy = 0xffff;
        outcome.lines = {logged(3, name, "Add notification message management failed\n")};
        return outcome;
    }
    frame.ntfy = next_number++;
    frame.flags = 3;

    outcome.calls.push_back(hooks_event_loop());
    if (event == Event::add_without_hook) {
        outcome.result = hook_status;
        outcome.lines = {logged(3, name, "Add event base failed(%d)\n", 0x66)};
        return outcome;
    }
    frame.state = 1;
    outcome.result = 0;
    return outcome;
}

Outcome Model::del(Event event)
{
    const char *name = "gorvaNet_delBase";
    if (frame.state == 0)
        return {3, {}, {wrong_state(name, "GORVANET_STATE_BASE_INIT", 1, 0)}};

    Outcome outcome;
    if (frame.flags & 1) {
        outcome.calls.push_back(releases(frame.cmd));
        if (event == Event::del_cmd_kept || event == Event::event_0_cmd_kept) {
            outcome.result = kept_status;
            outcome.lines = {logged(3, name, "Put command message management(%u) failed(%d)\n", frame.ntfy, 0x77)};
            return outcome;
        }
        frame.cmd = 0xffff;
        frame.flags = frame.flags & 2;
    }
    if (frame.flags & 2) {
        outcome.calls.push_back(releases(frame.ntfy));
        if (event == Event::del_ntfy_kept) {
            outcome.result = kept_status;
            outcome.lines = {logged(3, name, "Put notification message management(%u) failed(%d)\n", frame.ntfy, 0x77)};
            return outcome;
        }
        frame.ntfy = 0xffff;
        frame.flags = 0;
    }
    frame.state = 0;
    return outcome;
}

Outcome Model::event_0(Event event)
{
    Outcome outcome = del(event);
    if (outcome.result != 0)
        outcome.lines.push_back(logged(3, "gorvaNet_cbEvtBase", "Delete Base\n"));
    outcome.result = 0;
    return outcome;
}

// The middleware names the number that the interface has.
Outcome Model::unreg(uint32_t flag, const char *flag_name, const char *function)
{
    Outcome outcome;
    if ((frame.flags & flag) == 0)
        outcome.lines = {logged(4, function, "Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]\n", flag_name, flag,
                                static_cast<void *>(&gorvaNet_base), frame.flags, "")};
    frame.flags = frame.flags & ~flag;
    return outcome;
}

Outcome Model::happens(Event event)
{
    switch (event) {
    case Event::add:
    case Event::add_without_cmd_block:
    case Event::add_without_ntfy_block:
    case Event::add_with_number_but_no_cmd_block:
    case Event::add_without_hook:
        return add(event);
    case Event::del:
    case Event::del_cmd_kept:
    case Event::del_ntfy_kept:
        return del(event);
    case Event::event_0:
    case Event::event_0_cmd_kept:
        return event_0(event);
    case Event::event_1:
        return {0, {}, {logged(3, "gorvaNet_cbEvtBase", "Unknown event(%d)\n", 1)}};
    case Event::unreg_cmd:
        return unreg(1, "GORVANET_FLAGS_BASE_REG_CMD", "gorvaNet_cbEvtMsgMngt_unreg_msgCmd");
    case Event::unreg_ntfy:
        return unreg(2, "GORVANET_FLAGS_BASE_REG_NTFY", "gorvaNet_cbEvtMsgMngt_unreg_msgNtfy");
    case Event::unreg_cmd_unknown:
        return {0, {}, {logged(3, "gorvaNet_cbEvtMsgMngt_unreg_msgCmd", "Message management(%d) unknown\n", 2)}};
    }
    return {};
}

// Makes the bus answer as the event says; the numbers tell the two blocks of one descriptor apart.
void prepare_bus(Event event)
{
    answer("zebCore_getBase_msgMngt", hand_out_block);
    answer("zebCore_putBase_msgMngt", 0);
    answer("ruvo_addEvtBase", event == Event::add_without_hook ? hook_status : 0);
    if (event == Event::add_without_cmd_block)
        refuse_block(12);
    if (event == Event::add_without_ntfy_block)
        refuse_block(1);
    if (event == Event::add_with_number_but_no_cmd_block)
        give_number_without_block(12, number_without_block);
    if (event == Event::del_cmd_kept || event == Event::event_0_cmd_kept)
        keep_block(gorvaNet_base.cmd.num, kept_status);
    if (event == Event::del_ntfy_kept)
        keep_block(gorvaNet_base.ntfy.num, kept_status);
}

uint32_t run(Event event)
{
    switch (event) {
    case Event::add:
    case Event::add_without_cmd_block:
    case Event::add_without_ntfy_block:
    case Event::add_with_number_but_no_cmd_block:
    case Event::add_without_hook:
        return gorvaNet_addBase();
    case Event::del:
    case Event::del_cmd_kept:
    case Event::del_ntfy_kept:
        return gorvaNet_delBase();
    case Event::event_0:
    case Event::event_0_cmd_kept:
        gorvaNet_cbEvtBase(nullptr, 0);
        return 0;
    case Event::event_1:
        gorvaNet_cbEvtBase(nullptr, 1);
        return 0;
    case Event::unreg_cmd:
        gorvaNet_cbEvtMsgMngt_unreg_msgCmd(gorvaNet_base.cmd.num);
        return 0;
    case Event::unreg_ntfy:
        gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(gorvaNet_base.ntfy.num);
        return 0;
    case Event::unreg_cmd_unknown:
        gorvaNet_cbEvtMsgMngt_unreg_msgCmd(2);
        return 0;
    }
    return 0;
}

// The descriptor at first, with what the model says that may change.
BaseWords expected_words(const BaseWords &at_first, const Frame &frame)
{
    BaseWords words = at_first;
    words[5] = 0x000c0000 | frame.cmd;
    words[105] = 0x00010000 | frame.ntfy;
    words[115] = frame.flags << 8 | frame.state;
    return words;
}

// Both blocks that a successful start has filled hold all their records.
void check_latest_blocks(const BaseWords &at_first)
{
    const Words &cmd = blocks().at(blocks().size() - 2);
    const Words &ntfy = blocks().back();
    EXPECT_EQ(cmd[0], at_first[3]);
    EXPECT_EQ(cmd[3 + 6 * 11 + 1], at_first[cmd_rows + row_words * 11 + 2]);
    EXPECT_EQ(ntfy[0], at_first[103]);
    EXPECT_EQ(ntfy[3 + 1], at_first[ntfy_rows + 2]);
}

void check_sequence(const std::vector<Event> &sequence)
{
    const BaseWords at_first = words_of_base();
    Model model;
    for (Event event : sequence) {
        prepare_bus(event);
        Outcome expected = model.happens(event);
        EXPECT_EQ(run(event), expected.result);
        EXPECT_EQ(calls_made(), expected.calls);
        EXPECT_EQ(take_log(), expected.lines);
        EXPECT_EQ(frame(), model.frame);
        EXPECT_EQ(words_of_base(), expected_words(at_first, model.frame));
        if (event == Event::add && expected.result == 0)
            check_latest_blocks(at_first);
    }
}

std::string described(const std::vector<Event> &sequence)
{
    std::string text = "events";
    for (Event event : sequence)
        text += " " + std::to_string(static_cast<int>(event));
    return text;
}

} // namespace

TEST_F(Sequence, OfUpToFourEventsBehavesAsTheModelSays)
{
    size_t checked = 0;
    for (int first = 0; first < events; first++) {
        for (int rest = 0; rest < events * events * events; rest++) {
            // Shorter sequences are the beginnings of these.
            std::vector<Event> sequence = {static_cast<Event>(first), static_cast<Event>(rest / (events * events)),
                                           static_cast<Event>(rest / events % events),
                                           static_cast<Event>(rest % events)};
            SetUp();
            check_sequence(sequence);
            checked++;
            ASSERT_FALSE(HasFailure()) << described(sequence);
        }
    }
    EXPECT_EQ(checked, 38416u);
}
