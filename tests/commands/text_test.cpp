// The text that some requests carry, and what becomes of one that is too long.

#include "commands/method.h"

#include <cstdlib>
#include <string>

namespace {

class TextTest : public BodyTest {
protected:
    const Text &text() const
    {
        return sample().text;
    }

    // The sample's request with another text: in memory, and encoded with an item of this value length.
    Bytes image_with(const std::string &characters)
    {
        Bytes image = sample().image;
        for (size_t i = 0; i < text().capacity; i++)
            image.at(text().place + i) = 0;
        return Image(image.size()).record(0, image.data(), image.size()).text(text().place, characters);
    }

    Bytes wire_with(const std::string &characters, uint32_t length)
    {
        Bytes item = Bytes(8 + std::max<size_t>(length, characters.size() + 1), 0);
        item = with_number(with_number(item, 0, 3), 4, length);
        for (size_t i = 0; i < characters.size(); i++)
            item[8 + i] = static_cast<uint8_t>(characters[i]);
        return with_more(without(sample().wire, text().offset, text().item_size), text().offset, item);
    }

    // Length of the value of n characters, their NUL and the padding.
    static uint32_t padded(uint32_t n)
    {
        return n + 5 - (n + 1) % 4;
    }

    void expect_sent(const char *given, const std::string &arrives)
    {
        text().send(given);
        void *body = sent_body();
        ASSERT_EQ(size_of_block(body), sample().image.size());
        EXPECT_EQ(contents(body, size_of_block(body)), image_with(arrives));
        free(body);
    }

    static LogLine announcement(const char *name, const void *start, uint32_t tag)
    {
        return logged(3, name, "pBody(%p): Type(%d) -> Error Before\n", start, static_cast<int>(tag));
    }
};

TEST_P(TextTest, ATextThatFillsTheArrayButForItsNulIsSentWhole)
{
    std::string longest(text().capacity - 1, 'a');
    expect_sent(longest.c_str(), longest);
}

TEST_P(TextTest, ALongerTextIsCutWithoutAMessage)
{
    std::string cut(text().capacity - 1, 'b');
    expect_sent((cut + "x").c_str(), cut);
    expect_sent((cut + "xy").c_str(), cut);
    expect_sent((cut + std::string(1000, 'z')).c_str(), cut);
}

TEST_P(TextTest, NoMoreThanTheArraysSizeIsReadFromTheSender)
{
    const std::vector<char> unterminated(text().capacity, 'c');
    expect_sent(unterminated.data(), std::string(text().capacity - 1, 'c'));
}

TEST_P(TextTest, AnEmptyTextIsSentAsZeros)
{
    expect_sent("", "");
}

TEST_P(TextTest, EveryLengthIsEncodedWithItsPadding)
{
    for (uint32_t n = 0; n < text().capacity; n++) {
        std::string characters(n, 'd');
        Bytes body = image_with(characters);
        ASSERT_EQ(encode(body.data()), 0u);
        Bytes expected = wire_with(characters, padded(n));
        EXPECT_EQ(size, expected.size());
        EXPECT_EQ(contents(output, size_of_block(output)), expected);
        free(output);
    }
}

TEST_P(TextTest, BytesBehindTheNulAreNotSent)
{
    Bytes body = image_with("g");
    body.at(text().place + 2) = 'h';
    body.at(text().place + 3) = 'i';
    ASSERT_EQ(encode(body.data()), 0u);
    EXPECT_EQ(contents(output, size), wire_with("g", 4));
    free(output);
}

TEST_P(TextTest, ThePaddedLengthsAreTheKnownOnes)
{
    const std::vector<std::pair<uint32_t, uint8_t>> known = {{0, 4},  {1, 4},  {2, 4},   {3, 8},   {4, 8},   {6, 8},
                                                             {7, 12}, {8, 12}, {45, 48}, {46, 48}, {47, 52}, {49, 52}};
    for (auto [n, length] : known) {
        Bytes body = image_with(std::string(n, 'e'));
        ASSERT_EQ(encode(body.data()), 0u);
        EXPECT_EQ(contents(static_cast<char *>(output) + text().offset + 4, 4), (Bytes{0, 0, 0, length}));
        free(output);
    }
}

TEST_P(TextTest, EveryLengthThatFitsIsDecoded)
{
    for (uint32_t n = 0; n < text().capacity; n++) {
        std::string characters(n, 'f');
        Bytes wire = wire_with(characters, padded(n));
        ASSERT_EQ(callbacks->unserialize(GetParam().type, wire.data(), &output, &size), 0);
        EXPECT_EQ(contents(output, size), image_with(characters));
        free(output);
    }
}

TEST_P(TextTest, BytesBehindTheNulAreNotTaken)
{
    Bytes wire = wire_with("g", 8);
    wire.at(text().offset + 8 + 2) = 'h';
    ASSERT_EQ(callbacks->unserialize(GetParam().type, wire.data(), &output, &size), 0);
    EXPECT_EQ(contents(output, size), image_with("g"));
    free(output);
}

TEST_P(TextTest, AReceivedTextThatDoesNotFitIsRefused)
{
    const std::string name = callbacks->log_name("unserializeBody");
    for (uint32_t excess : {0u, 1u, 2u, 500u}) {
        uint32_t n = text().capacity + excess;
        Bytes wire = wire_with(std::string(n, 'i'), padded(n));
        expect_refused(wire, 4, method().magic);
        LogLines expected = {logged(3, name.c_str(), "lgChainIn(%d) lgMaxChainOut(%d)\n", static_cast<int>(n + 1),
                                    static_cast<int>(text().capacity))};
        for (uint32_t tag : text().announced)
            expected.push_back(announcement(name.c_str(), wire.data(), tag));
        LogLines lines = take_log();
        EXPECT_EQ(lines, expected);
        EXPECT_TRUE(lines_ascend(lines));
    }
}

// No text is that long: the padded length wraps to 0.
TEST_P(TextTest, ATextThatCannotBeEncodedIsRefusedAndTheBufferStays)
{
    const std::string name = callbacks->log_name("serializeBody");
    const std::vector<std::pair<uint32_t, int>> lengths = {
        {0xfffffffb, -4}, {0xfffffffc, -3}, {0xfffffffd, -2}, {0xfffffffe, -1}};
    for (auto [length, shown] : lengths) {
        Bytes body = sample().image;
        pretend_length(body.data() + text().place, length);
        EXPECT_EQ(encode(body.data()), 4u);
        pretend_length(nullptr, 0);
        expect_untouched();
        ASSERT_EQ(live_blocks().size(), 1u);
        void *buffer = live_blocks()[0];
        LogLines expected = {logged(3, name.c_str(), "lgChainIn(%d) lgMaxChainOut(%d)\n", shown, 0)};
        for (uint32_t tag : text().announced_encoding)
            expected.push_back(announcement(name.c_str(), buffer, tag));
        expected.push_back(logged(3, name.c_str(), "BodyReq(%p): On serialize failed(%d)\n", buffer, 4));
        EXPECT_EQ(take_log(), expected);
        // The prologue is written, and nothing behind it.
        ASSERT_GE(size_of_block(buffer), 24u);
        EXPECT_EQ(contents(buffer, 24), contents(sample().wire.data(), 24));
        EXPECT_EQ(contents(static_cast<char *>(buffer) + 24, size_of_block(buffer) - 24),
                  Bytes(size_of_block(buffer) - 24, 0));
        EXPECT_EQ(take_freed().size(), 0u);
        free(buffer);
    }
}

GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(TextTest);
INSTANTIATE_TEST_SUITE_P(Methods, TextTest, testing::ValuesIn(bodies_with_text()), name_of_body);

} // namespace
