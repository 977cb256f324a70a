// Attaching users to the interfaces, and what can be asked about the registration.

#include "frame_test.h"

namespace {

class Users : public FrameTest {};

int user_object, value_object, reference_object;
void *const user = &user_object;
void *const value = &value_object;
void *const reference = &reference_object;

Call attaches(uintptr_t number)
{
    return {"zebIntf_regUser_msgMngt", {word(user), word(value), word(reference), number, 0xffff, 0}};
}

Call detaches(uintptr_t number)
{
    return {"zebIntf_unregUser_msgMngt", {word(user), number, 0xffff, 0}};
}

LogLine attach_failed(int status, int number)
{
    return logged(3, "gorvaNet_regUser_msgMngt", "user(%p): regUser message management failed(%d) -> num(%d) ref(%p)\n",
                  user, status, number, reference);
}

LogLine detach_failed(int status, int number)
{
    return logged(3, "gorvaNet_unregUser_msgMngt", "user(%p): unregUser message management failed(%d) -> num(%d)\n",
                  user, status, number);
}

// Makes the middleware refuse the interface whose number is the argument at `place`.
void refuse(const char *function, size_t place, uintptr_t number, uintptr_t status)
{
    answer(function, [=](const Words &words) { return words[place] == number ? status : uintptr_t{0}; });
}

struct {
    uintptr_t status;
    int shown;
} const codes[] = {{1, 1}, {0xffffffff, -1}, {0x80000000, INT32_MIN}, {0x10000, 65536}};

} // namespace

TEST_F(Users, BeforeTheStartNothingIsAttachedOrDetached)
{
    for (uint32_t selector : {0u, 1u, 2u, 3u, 0xffffffffu}) {
        EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, selector), 0u);
        EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, selector), 0);
    }
}

TEST_F(Users, BeforeTheStartBothNumbersAreFfff)
{
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), 0xffff);
    EXPECT_EQ(gorvaNet_getNtfyIntfNum(), 0xffff);
}

TEST_F(Users, TheNumbersAreTheMiddlewaresUntilTheRelease)
{
    start();
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), 0x0101);
    EXPECT_EQ(gorvaNet_getNtfyIntfNum(), 0x0102);
    EXPECT_EQ(gorvaNet_delBase(), 0u);
    take_calls();
    EXPECT_EQ(gorvaNet_getCmdIntfNum(), 0xffff);
    EXPECT_EQ(gorvaNet_getNtfyIntfNum(), 0xffff);
}

TEST_F(Users, SelectorZeroAttachesToTheCommandThenToTheNotificationInterface)
{
    start();
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(calls_made(), (Calls{attaches(0x0101), attaches(0x0102)}));
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{detaches(0x0101), detaches(0x0102)}));
}

TEST_F(Users, SelectorOneActsOnTheCommandInterfaceOnly)
{
    start();
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 1), 0u);
    EXPECT_EQ(calls_made(), Calls{attaches(0x0101)});
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 1), 0);
    EXPECT_EQ(calls_made(), Calls{detaches(0x0101)});
}

TEST_F(Users, SelectorTwoActsOnTheNotificationInterfaceOnly)
{
    start();
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 2), 0u);
    EXPECT_EQ(calls_made(), Calls{attaches(0x0102)});
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 2), 0);
    EXPECT_EQ(calls_made(), Calls{detaches(0x0102)});
}

TEST_F(Users, AnyOtherSelectorActsOnNothing)
{
    start();
    answer("zebIntf_regUser_msgMngt", 1);
    answer("zebIntf_unregUser_msgMngt", 1);
    for (uint32_t selector : {3u, 4u, 0x100u, 0x10000u, 0x10001u, 0x80000000u, 0xffffffffu}) {
        EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, selector), 0u);
        EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, selector), 0);
    }
}

TEST_F(Users, NullArgumentsArePassedThrough)
{
    start();
    EXPECT_EQ(gorvaNet_regUser_msgMngt(nullptr, nullptr, nullptr, 1), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(nullptr, 1), 0);
    EXPECT_EQ(calls_made(), (Calls{{"zebIntf_regUser_msgMngt", {0, 0, 0, 0x0101, 0xffff, 0}},
                                   {"zebIntf_unregUser_msgMngt", {0, 0x0101, 0xffff, 0}}}));
}

TEST_F(Users, TheNumberIsPassedAsAnUnsigned16BitValue)
{
    gorvaNet_base.cmd.num = 0xfffe;
    gorvaNet_base.ntfy.num = 0;
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{attaches(0x0000fffe), attaches(0), detaches(0x0000fffe), detaches(0)}));
}

TEST_F(Users, AnInterfaceWithoutANumberIsSkipped)
{
    gorvaNet_base.ntfy.num = 0x0102;
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 1), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 1), 0);
    EXPECT_EQ(take_calls(), Calls{});
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{attaches(0x0102), detaches(0x0102)}));

    gorvaNet_base.cmd.num = 0x0101;
    gorvaNet_base.ntfy.num = 0xffff;
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{attaches(0x0101), detaches(0x0101)}));
}

TEST_F(Users, TheNumberDecidesAndNeitherFlagNorStateNorMagic)
{
    gorvaNet_base.magic = 0;
    gorvaNet_base.state = 0x55;
    gorvaNet_base.flags = 0;
    gorvaNet_base.cmd.num = 1;
    gorvaNet_base.ntfy.num = 2;
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{attaches(1), attaches(2), detaches(1), detaches(2)}));

    gorvaNet_base.flags = 3;
    gorvaNet_base.cmd.num = 0xffff;
    gorvaNet_base.ntfy.num = 0xffff;
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
}

TEST_F(Users, WhenTheCommandInterfaceIsRefusedTheOtherIsNotAttempted)
{
    start();
    for (const auto &[status, shown] : codes) {
        for (uint32_t selector : {0u, 1u}) {
            refuse("zebIntf_regUser_msgMngt", 3, 0x0101, status);
            EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, selector), status);
            EXPECT_EQ(calls_made(), Calls{attaches(0x0101)});
            EXPECT_EQ(take_log(), LogLines{attach_failed(shown, 0x0101)});

            refuse("zebIntf_unregUser_msgMngt", 1, 0x0101, status);
            EXPECT_EQ(static_cast<uint32_t>(gorvaNet_unregUser_msgMngt(user, selector)), status);
            EXPECT_EQ(calls_made(), Calls{detaches(0x0101)});
            EXPECT_EQ(take_log(), LogLines{detach_failed(shown, 0x0101)});
        }
    }
}

TEST_F(Users, WhenTheNotificationInterfaceIsRefusedNothingIsUndoneAndAttachingShowsTheCommandNumber)
{
    start();
    for (const auto &[status, shown] : codes) {
        refuse("zebIntf_regUser_msgMngt", 3, 0x0102, status);
        EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), status);
        EXPECT_EQ(calls_made(), (Calls{attaches(0x0101), attaches(0x0102)}));
        EXPECT_EQ(take_log(), LogLines{attach_failed(shown, 0x0101)});

        refuse("zebIntf_unregUser_msgMngt", 1, 0x0102, status);
        EXPECT_EQ(static_cast<uint32_t>(gorvaNet_unregUser_msgMngt(user, 0)), status);
        EXPECT_EQ(calls_made(), (Calls{detaches(0x0101), detaches(0x0102)}));
        EXPECT_EQ(take_log(), LogLines{detach_failed(shown, 0x0102)});
    }
}

TEST_F(Users, ARefusalOfTheNotificationInterfaceAloneShowsTheSameNumbers)
{
    start();
    refuse("zebIntf_regUser_msgMngt", 3, 0x0102, 6);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 2), 6u);
    EXPECT_EQ(take_log(), LogLines{attach_failed(6, 0x0101)});
    refuse("zebIntf_unregUser_msgMngt", 1, 0x0102, 6);
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 2), 6);
    EXPECT_EQ(take_log(), LogLines{detach_failed(6, 0x0102)});
    EXPECT_EQ(calls_made(), (Calls{attaches(0x0102), detaches(0x0102)}));
}

TEST_F(Users, TheCommandNumberOfThatLineMayBeFfff)
{
    gorvaNet_base.ntfy.num = 0x0102;
    answer("zebIntf_regUser_msgMngt", 6);
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 6u);
    EXPECT_EQ(take_log(), LogLines{attach_failed(6, 65535)});
    EXPECT_EQ(calls_made(), Calls{attaches(0x0102)});
}

TEST_F(Users, NumbersAreReadAgainWhenTheirTurnComes)
{
    start();
    answer("zebIntf_regUser_msgMngt", [](const Words &) {
        gorvaNet_base.ntfy.num = 0xffff;
        return 0;
    });
    EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
    EXPECT_EQ(calls_made(), Calls{attaches(0x0101)});

    answer("zebIntf_unregUser_msgMngt", [](const Words &) {
        gorvaNet_base.ntfy.num = 0x0999;
        return 0;
    });
    EXPECT_EQ(gorvaNet_unregUser_msgMngt(user, 0), 0);
    EXPECT_EQ(calls_made(), (Calls{detaches(0x0101), detaches(0x0999)}));
}

TEST_F(Users, EachFailureCarriesTheLineOfItsOwnStep)
{
    start();
    answer("zebIntf_regUser_msgMngt", 1);
    answer("zebIntf_unregUser_msgMngt", 1);
    gorvaNet_regUser_msgMngt(user, value, reference, 1);
    gorvaNet_regUser_msgMngt(user, value, reference, 2);
    EXPECT_TRUE(lines_ascend(take_log()));
    gorvaNet_unregUser_msgMngt(user, 1);
    gorvaNet_unregUser_msgMngt(user, 2);
    EXPECT_TRUE(lines_ascend(take_log()));
    take_calls();
}

TEST_F(Users, TheMiddlewareFindsTheUsersOfANotification)
{
    for (uintptr_t result : {uintptr_t{0}, uintptr_t{1}, uintptr_t{0x80000000}, uintptr_t{0xffffffff}}) {
        answer("zebIntf_findSrvMthdNtfyUser", result);
        EXPECT_EQ(gorvaNet_findSrvMthdNtfyUser(user, value, 0x1234, reference), result);
        EXPECT_EQ(calls_made(),
                  (Calls{{"zebIntf_findSrvMthdNtfyUser",
                          {word(user), word(value), word(gorvaNet_base.name), 0x1234, word(reference)}}}));
    }
}

TEST_F(Users, OfTheNumberToFindTheLow16BitsArePassed)
{
    struct {
        uint32_t given;
        uintptr_t passed;
    } cases[] = {{0, 0}, {0xffff, 0xffff}, {0x10000, 0}, {0xabcd8001, 0x8001}, {0xffffffff, 0xffff}};
    for (const auto &[given, passed] : cases) {
        gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, given, nullptr);
        EXPECT_EQ(calls_made(), (Calls{{"zebIntf_findSrvMthdNtfyUser", {0, 0, word(gorvaNet_base.name), passed, 0}}}));
    }
}

TEST_F(Users, TheNameToFindIsTheDescriptorsOwn)
{
    std::string name;
    answer("zebIntf_findSrvMthdNtfyUser", [&](const Words &words) {
        name = reinterpret_cast<const char *>(words[2]);
        return 0;
    });
    gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr);
    EXPECT_EQ(name, "GorvaNet");
    gorvaNet_base.name = "Other";
    gorvaNet_findSrvMthdNtfyUser(nullptr, nullptr, 0, nullptr);
    EXPECT_EQ(name, "Other");
    take_calls();
}

TEST_F(Users, ADebugValueIsStoredAndNothingElse)
{
    start();
    for (uint32_t debug : {1u, 0x89abcdefu, 0xffffffffu, 0u}) {
        BaseWords expected = words_of_base();
        expected[114] = debug;
        gorvaNet_modDebug(debug);
        EXPECT_EQ(words_of_base(), expected);
    }
}

TEST_F(Users, TheLifecycleNeitherReadsNorChangesTheDebugValue)
{
    for (uint32_t debug : {1u, 0xffffffffu}) {
        SetUp();
        gorvaNet_modDebug(debug);
        EXPECT_EQ(gorvanet_initialize(), 0u);
        EXPECT_EQ(calls_made(), (Calls{asks_for_cmd(), asks_for_ntfy(), hooks_event_loop()}));
        EXPECT_EQ(gorvaNet_regUser_msgMngt(user, value, reference, 0), 0u);
        EXPECT_EQ(calls_made(), (Calls{attaches(0x0101), attaches(0x0102)}));
        gorvaNet_cbEvtBase(nullptr, 0);
        EXPECT_EQ(calls_made(), (Calls{releases(0x0101), releases(0x0102)}));
        EXPECT_EQ(words_of_base()[114], debug);
    }
}
