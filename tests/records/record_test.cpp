#include "record_test.h"

#include <algorithm>

void RecordTest::SetUp()
{
    LibraryTest::SetUp();
    reset_nested_calls();
    clear_wire(unwritten_byte);
}

void RecordTest::TearDown()
{
    reset_nested_calls();
    EXPECT_EQ(allocations(), 0u) << "records are copied, cleaned, encoded and decoded where they stand";
    EXPECT_EQ(take_freed().size(), 0u);
    LibraryTest::TearDown();
}

void RecordTest::receive(const Bytes &content, size_t begin)
{
    clear_wire(0);
    overwrite(0, content);
    read_cursor = wire + begin;
}

void RecordTest::clear_wire(uint8_t content)
{
    memset(wire, content, sizeof wire);
    write_cursor = wire;
}

void RecordTest::expect_on_wire(const Bytes &expected)
{
    ASSERT_LE(expected.size(), sizeof wire);
    EXPECT_EQ(Bytes(wire, wire + expected.size()), expected);
    uint8_t behind = wire[sizeof wire - 1];
    EXPECT_EQ(std::count(wire + expected.size(), wire + sizeof wire, behind),
              static_cast<ptrdiff_t>(sizeof wire - expected.size()));
}

void RecordTest::overwrite(size_t at, const Bytes &content)
{
    ASSERT_LE(at + content.size(), sizeof wire);
    std::copy(content.begin(), content.end(), wire + at);
}

Bytes RecordTest::item_of_length(const Items &items, const Field &field, uint32_t length)
{
    Bytes item = bytes(items[field.item]);
    Bytes value(item.begin() + 8, item.begin() + 12);
    return big_endian(field.tag) + big_endian(length) + value;
}
