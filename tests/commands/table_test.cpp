// The commands side by side: their rows in the descriptor, and the magics and versions that tell their bodies apart.

#include "commands/method.h"

#include <cstdlib>

namespace {

class TableTest : public LibraryTest {};

TEST_F(TableTest, EveryMethodStandsInTheRowOfItsIndex)
{
    ASSERT_EQ(methods().size(), 12u);
    for (uint32_t index = 0; index < 12; index++) {
        const Method &method = *methods()[index];
        BodyCallbacks callbacks(method, GORVANET_BODY_REQUEST);
        const gorvaNet_method &row = gorvaNet_base.cmdMethods[index];
        EXPECT_EQ(method.index, index);
        EXPECT_EQ(row.index, index);
        EXPECT_EQ(row.recvReq, exported<gorvaNet_recvReq>("gorvaNet_recvReq_" + method.suffix));
        EXPECT_EQ(row.freeBody, callbacks.free_body);
        EXPECT_EQ(row.serializeBody, callbacks.serialize);
        EXPECT_EQ(row.unserializeBody, callbacks.unserialize);
        EXPECT_EQ(row.logBody, callbacks.log);
    }
}

TEST_F(TableTest, ABodyOfAnotherVersionIsRefusedWithoutALine)
{
    for (const Method *sender : methods())
        for (const Method *receiver : methods()) {
            if (sender->version == receiver->version)
                continue;
            void *body = nullptr;
            uint32_t size = 0;
            BodyCallbacks request(*receiver, GORVANET_BODY_REQUEST);
            EXPECT_EQ(request.unserialize(GORVANET_BODY_REQUEST, sender->request.wire.data(), &body, &size), 2);
            if (!sender->answered() || !receiver->answered())
                continue;
            EXPECT_EQ(request.unserialize(GORVANET_BODY_RESPONSE, sender->response.wire.data(), &body, &size), 2);
        }
}

TEST_F(TableTest, BodiesOfSetOsIfcAndSetDhcpAreTakenForEachOther)
{
    // Each is released by the other's function.
    for (auto [maker, user_of_it] : {std::pair{0, 1}, std::pair{1, 0}})
        for (uint32_t type : {GORVANET_BODY_REQUEST, GORVANET_BODY_RESPONSE}) {
            void *body = BodyCallbacks(*methods()[static_cast<size_t>(maker)], type).decoded();
            BodyCallbacks(*methods()[static_cast<size_t>(user_of_it)], type).free_body(type, body);
            auto freed = take_freed();
            ASSERT_EQ(freed.size(), 1u);
            EXPECT_EQ(freed[0].words[0], 0xdeadbeefu);
        }
}

TEST_F(TableTest, BodiesOfAllOtherMethodsAreForeignToEachOther)
{
    for (const Method *maker : methods())
        for (const Method *other : methods()) {
            if (maker->magic == other->magic)
                continue;
            void *body = BodyCallbacks(*maker, GORVANET_BODY_REQUEST).decoded();
            auto *free_body = BodyCallbacks(*other, GORVANET_BODY_REQUEST).free_body;
            EXPECT_TRUE(aborts([free_body, body] { free_body(GORVANET_BODY_REQUEST, body); }));
            EXPECT_EQ(take_log().size(), 1u);
            free(body);
        }
}

TEST_F(TableTest, TheLibraryKeepsNothingOfAMessage)
{
    const Bytes before = contents(&gorvaNet_base, sizeof gorvaNet_base);
    for (const Method *method : methods()) {
        method->send(user, method->callback, pass1, pass2, server);
        free(sent_body());
        for (const Direction &direction : bodies())
            free(BodyCallbacks(*direction.method, direction.type).decoded());
    }
    EXPECT_EQ(contents(&gorvaNet_base, sizeof gorvaNet_base), before);
}

} // namespace
