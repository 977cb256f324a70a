#include "model.h"

namespace {

constexpr uint32_t none = 0xffff;
constexpr uint32_t cmd_flag = 1;
constexpr uint32_t ntfy_flag = 2;

LogLine wrong_state(const char *function, const char *state_name, uint32_t state, uint32_t found)
{
    return logged(3, function, "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]\n", state_name, state,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

LogLine flag_not_set(const char *function, uint32_t flag, uint32_t found)
{
    const char *name = flag == cmd_flag ? "GORVANET_FLAGS_BASE_REG_CMD" : "GORVANET_FLAGS_BASE_REG_NTFY";
    return logged(4, function, "Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]\n", name, flag,
                  static_cast<void *>(&gorvaNet_base), found, "");
}

bool refused(const Grant &grant)
{
    return (grant.number & none) == none || !grant.block;
}

Outcome withdraw(Frame &frame, const char *function, uint32_t flag, uint32_t own_number, uint32_t number)
{
    if (number != own_number)
        return {0, {}, {logged(3, function, "Message management(%d) unknown\n", static_cast<int>(number))}};
    Outcome outcome;
    if ((frame.flags & flag) == 0)
        outcome.lines = {flag_not_set(function, flag, frame.flags)};
    frame.flags &= ~flag;
    return outcome;
}

} // namespace

Outcome Model::add(const Grant &cmd, const Grant &ntfy, uint32_t hook)
{
    const char *name = "gorvaNet_addBase";
    if (frame.state == 1)
        return {3, {}, {wrong_state(name, "GORVANET_STATE_BASE_WAIT_INIT", 0, 1)}};

    frame.flags = 0;
    frame.cmd = cmd.number & 0xffff;
    if (refused(cmd))
        return {1, {asks_for_cmd()}, {logged(3, name, "Add command message management failed\n")}};

    frame.flags = cmd_flag;
    frame.ntfy = ntfy.number & 0xffff;
    if (refused(ntfy))
        return {
            1, {asks_for_cmd(), asks_for_ntfy()}, {logged(3, name, "Add notification message management failed\n")}};

    frame.flags = cmd_flag | ntfy_flag;
    Outcome outcome{.result = hook, .calls = {asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}, .lines = {}};
    if (hook)
        outcome.lines = {logged(3, name, "Add event base failed(%d)\n", static_cast<int>(hook))};
    else
        frame.state = 1;
    return outcome;
}

Outcome Model::initialize(const Grant &cmd, const Grant &ntfy, uint32_t hook)
{
    Outcome outcome = add(cmd, ntfy, hook);
    if (outcome.result)
        outcome.lines.push_back(
            logged(3, "gorvanet_initialize", "Add Base failed(%d)\n", static_cast<int>(outcome.result)));
    return outcome;
}

Outcome Model::del(uint32_t cmd_status, uint32_t ntfy_status, bool withdrawn)
{
    const char *name = "gorvaNet_delBase";
    if (frame.state == 0)
        return {3, {}, {wrong_state(name, "GORVANET_STATE_BASE_INIT", 1, 0)}};

    Outcome outcome;
    if (frame.flags & cmd_flag) {
        outcome.calls.push_back(releases(frame.cmd));
        if (cmd_status) {
            outcome.result = cmd_status;
            // The number of the other interface.
            outcome.lines = {logged(3, name, "Put command message management(%u) failed(%d)\n", frame.ntfy,
                                    static_cast<int>(cmd_status))};
            return outcome;
        }
        if (withdrawn)
            outcome.lines.push_back(flag_not_set(name, cmd_flag, frame.flags & ~cmd_flag));
        frame.cmd = none;
        frame.flags &= ~cmd_flag;
    }
    if (frame.flags & ntfy_flag) {
        outcome.calls.push_back(releases(frame.ntfy));
        if (ntfy_status) {
            outcome.result = ntfy_status;
            outcome.lines.push_back(logged(3, name, "Put notification message management(%u) failed(%d)\n", frame.ntfy,
                                           static_cast<int>(ntfy_status)));
            return outcome;
        }
        if (withdrawn)
            outcome.lines.push_back(flag_not_set(name, ntfy_flag, 0));
        frame.ntfy = none;
        frame.flags &= ~ntfy_flag;
    }
    frame.state = 0;
    return outcome;
}

Outcome Model::event_0(uint32_t cmd_status, uint32_t ntfy_status)
{
    Outcome outcome = del(cmd_status, ntfy_status);
    if (outcome.result)
        outcome.lines.push_back(logged(3, "gorvaNet_cbEvtBase", "Delete Base\n"));
    outcome.result = 0;
    return outcome;
}

Outcome Model::other_event(int32_t event)
{
    return {0, {}, {logged(3, "gorvaNet_cbEvtBase", "Unknown event(%d)\n", event)}};
}

Outcome Model::unreg_cmd(uint32_t number)
{
    return withdraw(frame, "gorvaNet_cbEvtMsgMngt_unreg_msgCmd", cmd_flag, frame.cmd, number);
}

Outcome Model::unreg_ntfy(uint32_t number)
{
    return withdraw(frame, "gorvaNet_cbEvtMsgMngt_unreg_msgNtfy", ntfy_flag, frame.ntfy, number);
}

void answer_start(const Grant &cmd, const Grant &ntfy, uint32_t hook)
{
    answer("zebCore_getBase_msgMngt", [cmd, ntfy](const Words &words) -> uintptr_t {
        const Grant &grant = words[2] == GORVANET_COUNT_CMD ? cmd : ntfy;
        if (grant.block)
            hand_out_block(words);
        return grant.number;
    });
    answer("ruvo_addEvtBase", hook);
}

BaseWords expected_words(const BaseWords &at_first, const Frame &frame)
{
    BaseWords words = at_first;
    words[5] = word_of_numbers(frame.cmd, 12);
    words[105] = word_of_numbers(frame.ntfy, 1);
    words[115] = word_of_bytes(frame.state, frame.flags);
    return words;
}
