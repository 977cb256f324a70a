// Every sequence of lifecycle events, up to four of them or, in the long form, up to six, against the model: results,
// calls of the bus, log lines and the whole descriptor after each event.

#include "model.h"

#include "support/long_form.h"

#include <iterator>

namespace {

class Sequence : public FrameTest {};

constexpr uint32_t kept_status = 0x77;
constexpr uint32_t hook_status = 0x66;
constexpr uint32_t number_without_block = 0x4321;
constexpr uint32_t unknown_number = 2;

// The numbers that the middleware grants next: never the same twice.
struct Granting {
    Grant cmd;
    Grant ntfy;
};

Granting next_grants()
{
    auto given = static_cast<uint32_t>(first_number + blocks().size());
    return {{given, true}, {given + 1, true}};
}

constexpr Grant refusal = {0xffff, false};
constexpr Grant number_only = {number_without_block, false};

struct Event {
    const char *name;
    // Tells the model, makes the bus answer as the event says, and gives what the model says.
    Outcome (*expect)(Model &model);
    uint32_t (*run)();
};

Outcome expect_add(Model &model, const Grant &cmd, const Grant &ntfy, uint32_t hook)
{
    answer_start(cmd, ntfy, hook);
    return model.add(cmd, ntfy, hook);
}

// Makes the middleware answer so to the release of each interface, which are told apart by their numbers.
void answer_stop(uint32_t cmd_status, uint32_t ntfy_status)
{
    uint32_t cmd = gorvaNet_base.cmd.num;
    answer("zebCore_putBase_msgMngt", [cmd, cmd_status, ntfy_status](const Words &words) -> uintptr_t {
        return words[0] == cmd ? cmd_status : ntfy_status;
    });
}

Outcome expect_del(Model &model, uint32_t cmd_status, uint32_t ntfy_status)
{
    answer_stop(cmd_status, ntfy_status);
    return model.del(cmd_status, ntfy_status);
}

Outcome expect_event_0(Model &model, uint32_t cmd_status, uint32_t ntfy_status)
{
    answer_stop(cmd_status, ntfy_status);
    return model.event_0(cmd_status, ntfy_status);
}

Outcome expect_del_while_withdrawn(Model &model)
{
    answer("zebCore_putBase_msgMngt", [](const Words &words) -> uintptr_t {
        auto number = static_cast<uint16_t>(words[0]);
        auto *unreg = number == gorvaNet_base.cmd.num ? gorvaNet_base.cmd.unreg : gorvaNet_base.ntfy.unreg;
        unreg(number);
        return 0;
    });
    return model.del(0, 0, true);
}

uint32_t send_event(int32_t event)
{
    gorvaNet_cbEvtBase(&gorvaNet_base, event);
    return 0;
}

uint32_t withdraw_cmd(uint16_t number)
{
    gorvaNet_cbEvtMsgMngt_unreg_msgCmd(number);
    return 0;
}

uint32_t withdraw_ntfy(uint16_t number)
{
    gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(number);
    return 0;
}

constexpr Event events[] = {
    {"add",
     [](Model &model) {
         auto [cmd, ntfy] = next_grants();
         return expect_add(model, cmd, ntfy, 0);
     },
     gorvaNet_addBase},
    {"add_without_cmd_block", [](Model &model) { return expect_add(model, refusal, next_grants().ntfy, 0); },
     gorvaNet_addBase},
    {"add_without_ntfy_block", [](Model &model) { return expect_add(model, next_grants().cmd, refusal, 0); },
     gorvaNet_addBase},
    {"add_with_number_but_no_cmd_block",
     [](Model &model) { return expect_add(model, number_only, next_grants().ntfy, 0); }, gorvaNet_addBase},
    {"add_with_number_but_no_ntfy_block",
     [](Model &model) { return expect_add(model, next_grants().cmd, number_only, 0); }, gorvaNet_addBase},
    {"add_without_hook",
     [](Model &model) {
         auto [cmd, ntfy] = next_grants();
         return expect_add(model, cmd, ntfy, hook_status);
     },
     gorvaNet_addBase},
    {"initialize",
     [](Model &model) {
         auto [cmd, ntfy] = next_grants();
         answer_start(cmd, ntfy, 0);
         return model.initialize(cmd, ntfy, 0);
     },
     gorvanet_initialize},
    {"del", [](Model &model) { return expect_del(model, 0, 0); }, gorvaNet_delBase},
    {"del_cmd_kept", [](Model &model) { return expect_del(model, kept_status, 0); }, gorvaNet_delBase},
    {"del_ntfy_kept", [](Model &model) { return expect_del(model, 0, kept_status); }, gorvaNet_delBase},
    {"del_while_withdrawn", expect_del_while_withdrawn, gorvaNet_delBase},
    {"event_0", [](Model &model) { return expect_event_0(model, 0, 0); }, [] { return send_event(0); }},
    {"event_0_cmd_kept", [](Model &model) { return expect_event_0(model, kept_status, 0); },
     [] { return send_event(0); }},
    {"event_0_ntfy_kept", [](Model &model) { return expect_event_0(model, 0, kept_status); },
     [] { return send_event(0); }},
    {"event_1", [](Model &model) { return model.other_event(1); }, [] { return send_event(1); }},
    {"unreg_cmd", [](Model &model) { return model.unreg_cmd(model.frame.cmd); },
     [] { return withdraw_cmd(gorvaNet_base.cmd.num); }},
    {"unreg_ntfy", [](Model &model) { return model.unreg_ntfy(model.frame.ntfy); },
     [] { return withdraw_ntfy(gorvaNet_base.ntfy.num); }},
    {"unreg_cmd_unknown", [](Model &model) { return model.unreg_cmd(unknown_number); },
     [] { return withdraw_cmd(unknown_number); }},
    {"unreg_ntfy_unknown", [](Model &model) { return model.unreg_ntfy(unknown_number); },
     [] { return withdraw_ntfy(unknown_number); }},
};

// The tree of all sequences: each node is one, and adds one event to its parent's. The descriptor is all that the
// library remembers (the test abi.*.writable), so putting it back is going back in time, and no sequence is run twice.
class Tree {
public:
    explicit Tree(uint32_t depth) : deepest(depth)
    {
    }

    void grow(const Model &model)
    {
        if (path.size() == deepest)
            return;
        const gorvaNet_descriptor descriptor_before = gorvaNet_base;
        const size_t blocks_before = blocks().size();
        for (const Event &event : events) {
            Model then = model;
            path.push_back(event.name);
            check(event, then);
            if (testing::Test::HasFailure())
                return;
            grow(then);
            if (testing::Test::HasFailure())
                return;
            path.pop_back();
            gorvaNet_base = descriptor_before;
            blocks().resize(blocks_before);
        }
    }

    uint32_t checked = 0;
    std::vector<std::string> path; // of the sequence that failed

private:
    void check(const Event &event, Model &model)
    {
        Outcome expected = event.expect(model);
        EXPECT_EQ(event.run(), expected.result);
        EXPECT_EQ(calls_made(), expected.calls);
        EXPECT_EQ(take_log(), expected.lines);
        EXPECT_EQ(frame(), model.frame);
        EXPECT_EQ(words_of_base(), expected_words(at_first, model.frame));
        checked++;
    }

    const BaseWords at_first = words_of_base();
    const uint32_t deepest;
};

// 19 + 19^2 + ... + 19^depth
uint32_t sequences(uint32_t depth)
{
    return depth ? static_cast<uint32_t>(std::size(events)) * (1 + sequences(depth - 1)) : 0;
}

} // namespace

TEST_F(Sequence, OfEventsBehavesAsTheModelSays)
{
    const uint32_t depth = by_form(4, 6);
    Tree tree(depth);
    tree.grow({});
    EXPECT_FALSE(HasFailure()) << "after " << testing::PrintToString(tree.path);
    EXPECT_EQ(tree.checked, sequences(depth));
    add_to_figure("sequences of up to " + std::to_string(depth) + " of 19 lifecycle events behave as the model says",
                  tree.checked);
}
