// The bus answers 0, 1, -1 and 0xffff to every call of start, stop and the users' functions, and gives no blocks, in
// every combination: results, calls, log lines, blocks and descriptor are as the model says.

#include "model.h"

namespace {

class BusFaults : public FrameTest {};

constexpr uint32_t answers[] = {0, 1, 0xffffffff, 0xffff};

constexpr Grant grants[] = {{0, true},  {1, true},  {0xffffffff, true},  {0xffff, true},
                            {0, false}, {1, false}, {0xffffffff, false}, {0xffff, false}};

// The descriptor, the bus and the log as after the start of a test.
void expect_outcome(uint32_t result, const Outcome &expected, const Model &model, const BaseWords &at_first)
{
    EXPECT_EQ(result, expected.result);
    EXPECT_EQ(calls_made(), expected.calls);
    EXPECT_EQ(take_log(), expected.lines);
    EXPECT_EQ(words_of_base(), expected_words(at_first, model.frame));
}

// The blocks that were given, in order: a block is filled if its number was one, and not looked at otherwise.
void expect_blocks(const BaseWords &at_first, const Grant &cmd, const Grant &ntfy)
{
    const Words cmd_untouched(3 + 6 * 12 + guard_words, untouched);
    const Words ntfy_untouched(3 + 6 + guard_words, untouched);
    std::vector<Words> expected;
    bool cmd_registered = cmd.block && (cmd.number & 0xffff) != 0xffff;
    bool ntfy_registered = ntfy.block && (ntfy.number & 0xffff) != 0xffff;
    if (cmd.block)
        expected.push_back(cmd_registered ? filled(at_first, cmd_block, 12) : cmd_untouched);
    if (cmd_registered && ntfy.block)
        expected.push_back(ntfy_registered ? filled(at_first, ntfy_block, 1) : ntfy_untouched);
    EXPECT_EQ(blocks(), expected);
}

std::string described(const Grant &cmd, const Grant &ntfy, uint32_t hook)
{
    std::string text;
    for (const Grant &grant : {cmd, ntfy})
        text += std::to_string(grant.number) + (grant.block ? " with a block, " : " without a block, ");
    return text + "hook " + std::to_string(hook);
}

// Each of the 256 ways in which a start can be answered.
template <typename Check> void for_each_start(Check check)
{
    for (const Grant &cmd : grants)
        for (const Grant &ntfy : grants)
            for (uint32_t hook : answers) {
                SCOPED_TRACE(described(cmd, ntfy, hook));
                check(cmd, ntfy, hook);
            }
}

} // namespace

TEST_F(BusFaults, AtEachStepOfTheStart)
{
    for_each_start([this](const Grant &cmd, const Grant &ntfy, uint32_t hook) {
        for (bool initialize : {false, true}) {
            SetUp();
            const BaseWords at_first = words_of_base();
            Model model;
            answer_start(cmd, ntfy, hook);
            Outcome expected = initialize ? model.initialize(cmd, ntfy, hook) : model.add(cmd, ntfy, hook);
            expect_outcome(initialize ? gorvanet_initialize() : gorvaNet_addBase(), expected, model, at_first);
            expect_blocks(at_first, cmd, ntfy);
        }
    });
}

TEST_F(BusFaults, AtEachStepOfTheStopThatFollows)
{
    for_each_start([this](const Grant &cmd, const Grant &ntfy, uint32_t hook) {
        for (uint32_t cmd_status : answers)
            for (uint32_t ntfy_status : answers) {
                SetUp();
                const BaseWords at_first = words_of_base();
                Model model;
                answer_start(cmd, ntfy, hook);
                model.add(cmd, ntfy, hook);
                gorvaNet_addBase();
                take_calls();
                take_log();

                // Both may have the same number: the middleware tells them apart by their order.
                int releases = 0;
                answer("zebCore_putBase_msgMngt", [&releases, cmd_status, ntfy_status](const Words &) -> uintptr_t {
                    return releases++ ? ntfy_status : cmd_status;
                });
                Outcome expected = model.del(cmd_status, ntfy_status);
                expect_outcome(gorvaNet_delBase(), expected, model, at_first);

                // Once the middleware releases everything, what is left is given back, and nothing else.
                answer("zebCore_putBase_msgMngt", 0);
                expected = model.event_0(0, 0);
                gorvaNet_cbEvtBase(nullptr, 0);
                expect_outcome(0, expected, model, at_first);
            }
    });
}

// ---- The users' functions -------------------------------------------------------------------------------------------

namespace {

constexpr uint32_t numbers[] = {0, 1, 0x1234, 0xfffe, 0xffff};
constexpr uint32_t selectors[] = {0, 1, 2, 3, 0xffff, 0xffffffff};

void *const user = reinterpret_cast<void *>(0x2000);
void *const value = reinterpret_cast<void *>(0x3000);
void *const reference = reinterpret_cast<void *>(0x4000);

// Makes a function of the bus answer its first call with this and all others with that.
void answer_in_turn(const char *function, uint32_t first, uint32_t second)
{
    int calls = 0;
    answer(function, [calls, first, second](const Words &) mutable -> uintptr_t { return calls++ ? second : first; });
}

// The numbers of the interfaces that a selector stands for, but for those that are not registered.
Words selected(uint32_t selector, uint32_t cmd, uint32_t ntfy)
{
    Words chosen;
    if ((selector == GORVANET_SELECT_BOTH || selector == GORVANET_SELECT_CMD) && cmd != 0xffff)
        chosen.push_back(cmd);
    if ((selector == GORVANET_SELECT_BOTH || selector == GORVANET_SELECT_NTFY) && ntfy != 0xffff)
        chosen.push_back(ntfy);
    return chosen;
}

// Each selector, with each pair of numbers and each pair of answers.
template <typename Check> void for_each_use(Check check)
{
    for (uint32_t selector : selectors)
        for (uint32_t cmd : numbers)
            for (uint32_t ntfy : numbers)
                for (uint32_t first : answers)
                    for (uint32_t second : answers) {
                        SCOPED_TRACE(testing::Message() << "selector " << selector << ", numbers " << cmd << " and "
                                                        << ntfy << ", answers " << first << " and " << second);
                        gorvaNet_base.cmd.num = static_cast<uint16_t>(cmd);
                        gorvaNet_base.ntfy.num = static_cast<uint16_t>(ntfy);
                        check(selector, selected(selector, cmd, ntfy), Words{first, second});
                    }
}

// The calls are made in turn until one fails; `failed` gives its line.
template <typename MakeCall, typename MakeLine>
Outcome expected_use(const Words &chosen, const Words &statuses, MakeCall call, MakeLine failed)
{
    Outcome outcome;
    for (size_t i = 0; i < chosen.size() && !outcome.result; i++) {
        outcome.calls.push_back(call(chosen[i]));
        outcome.result = static_cast<uint32_t>(statuses[i]);
        if (outcome.result)
            outcome.lines = {failed(static_cast<int>(chosen[i]), static_cast<int>(outcome.result))};
    }
    return outcome;
}

void expect_use(uint32_t result, const Outcome &expected)
{
    EXPECT_EQ(result, expected.result);
    EXPECT_EQ(take_calls(), expected.calls);
    EXPECT_EQ(take_log(), expected.lines);
}

} // namespace

TEST_F(BusFaults, WhenAUserIsAttached)
{
    for_each_use([](uint32_t selector, const Words &chosen, const Words &statuses) {
        answer_in_turn("zebIntf_regUser_msgMngt", statuses[0], statuses[1]);
        Outcome expected = expected_use(
            chosen, statuses,
            [](uintptr_t number) {
                return Call{"zebIntf_regUser_msgMngt", {word(user), word(value), word(reference), number, 0xffff, 0}};
            },
            [](int, int status) {
                // The number of the command interface, whichever failed.
                return logged(3, "gorvaNet_regUser_msgMngt",
                              "user(%p): regUser message management failed(%d) -> num(%d) ref(%p)\n", user, status,
                              gorvaNet_base.cmd.num, reference);
            });
        expect_use(gorvaNet_regUser_msgMngt(user, value, reference, selector), expected);
    });
}

TEST_F(BusFaults, WhenAUserIsDetached)
{
    for_each_use([](uint32_t selector, const Words &chosen, const Words &statuses) {
        answer_in_turn("zebIntf_unregUser_msgMngt", statuses[0], statuses[1]);
        Outcome expected = expected_use(
            chosen, statuses,
            [](uintptr_t number) {
                return Call{"zebIntf_unregUser_msgMngt", {word(user), number, 0xffff, 0}};
            },
            [](int number, int status) {
                return logged(3, "gorvaNet_unregUser_msgMngt",
                              "user(%p): unregUser message management failed(%d) -> num(%d)\n", user, status, number);
            });
        expect_use(static_cast<uint32_t>(gorvaNet_unregUser_msgMngt(user, selector)), expected);
    });
}

TEST_F(BusFaults, WhenUsersAreLookedFor)
{
    for (uint32_t result : answers) {
        answer("zebIntf_findSrvMthdNtfyUser", result);
        EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(user, value, 0x12345678, reference), result);
        EXPECT_EQ(take_calls(),
                  (Calls{{"zebIntf_findSrvMthdNtfyUser",
                          {word(user), word(value), word(gorvaNet_base.name), 0x5678, word(reference)}}}));
    }
}
