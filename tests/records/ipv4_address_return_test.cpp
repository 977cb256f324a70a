#include "samples.h"

#include <cstddef>

namespace {

class Ipv4AddressReturnTest : public RecordTest {};

const ipv4_address_return with_result = {.result = 0xfedcba98};
const Items items = {"00000003 00000004 fedcba98"};
const Fields fields = {{0, 3, offsetof(ipv4_address_return, result), 0, {}}};

} // namespace

TEST_F(Ipv4AddressReturnTest, EncodesItsWireTableIn12Bytes)
{
    expect_encoding(with_result, items);
    expect_length(with_result, 12);
    expect_length(ipv4_address_return{0}, 12);
}

TEST_F(Ipv4AddressReturnTest, DecodesItsWireTableAndRefusesEveryDeviation)
{
    expect_fields(with_result, items, fields);
}

TEST_F(Ipv4AddressReturnTest, AnyOtherTagGivesTheTlLineAlone)
{
    receive(bytes("00000004 00000008 00000001"));
    ipv4_address_return record = {.result = 77};
    EXPECT_EQ(gorvaNet_ipv4_address_return_unserialize(&record, &read_cursor), 4u);
    EXPECT_EQ(record.result, 77u);
    EXPECT_EQ(moved(read_cursor), 0);
    EXPECT_EQ(take_log(), ExpectedLines("gorvaNet_ipv4_address_return_unserialize", wire).wrong_tag(4, 8, 3));
}

TEST_F(Ipv4AddressReturnTest, CopyAssignsTheResult)
{
    ipv4_address_return destination = {.result = 77};
    EXPECT_EQ(gorvaNet_ipv4_address_return_copy(&destination, &with_result), 0u);
    EXPECT_EQ(destination.result, 0xfedcba98);
}

TEST_F(Ipv4AddressReturnTest, CleanDoesNothing)
{
    ipv4_address_return record = with_result;
    gorvaNet_ipv4_address_return_clean(&record);
    EXPECT_EQ(record.result, 0xfedcba98);
    gorvaNet_ipv4_address_return_clean(nullptr);
}
