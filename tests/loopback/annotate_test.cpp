// The demo's annotator, on sound and on damaged bytes.

#include "annotate.h"

#include <gtest/gtest.h>

namespace {

using namespace demo;

// Bytes from hexadecimal text; blanks are for the reader.
std::vector<uint8_t> bytes(const std::string &hex)
{
    std::vector<uint8_t> found;
    std::string digits;
    for (char c : hex)
        if (c != ' ')
            digits += c;
    for (size_t i = 0; i + 1 < digits.size(); i += 2)
        found.push_back(static_cast<uint8_t>(std::stoul(digits.substr(i, 2), nullptr, 16)));
    return found;
}

const std::string prologue = "00000000 00000004 39132011 00000001 00000004 00000000 ";

// A line for each row: offset, field, meaning, and the problem behind an exclamation mark.
std::string told(const std::vector<Row> &rows)
{
    std::string text;
    for (const Row &row : rows)
        text += std::to_string(row.offset) + " " + row.field + " " + row.meaning +
                (row.problem.empty() ? "" : " ! " + row.problem) + "\n";
    return text;
}

std::string told_request(const std::string &hex)
{
    auto body = bytes(hex);
    return told(annotate(find_layout("SetOsIfc", request), body));
}

constexpr const char *sound_prologue = "0 magic SetOsIfc\n12 version 0\n";

TEST(AnnotateTest, SoundBodies)
{
    EXPECT_EQ(told_request(prologue + "00000003 00000008 65746830 00000000"),
              std::string(sound_prologue) + "24 ifName \"eth0\", NUL, 3 zero bytes\n");
    EXPECT_EQ(told_request(prologue + "00000003 00000008 65746800 00000000"),
              std::string(sound_prologue) + "24 ifName \"eth\", NUL, 4 zero bytes\n");
    auto answer = bytes(prologue + "00000003 00000004 ffffffff");
    EXPECT_EQ(told(annotate(find_layout("SetOsIfc", response), answer)),
              std::string(sound_prologue) + "24 result 4294967295\n");
}

TEST(AnnotateTest, WithoutALayoutTheBytesAreShownAsTheyAre)
{
    EXPECT_EQ(find_layout("NoMethod", request), nullptr);
    EXPECT_EQ(find_layout("SetOsIfc", 2), nullptr);
    auto body = bytes("0102");
    auto rows = annotate(nullptr, body);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(told(rows), "0  no layout is known\n");
    EXPECT_EQ(rows[0].value.size(), 2u);
    EXPECT_TRUE(annotate(nullptr, {}).empty());
}

TEST(AnnotateTest, DamagedPrologues)
{
    EXPECT_EQ(told_request(""), "0 magic  ! an item begins with 8 bytes, 0 are left\n");
    EXPECT_EQ(told_request("00000000 000000"), "0 magic  ! an item begins with 8 bytes, 7 are left\n");
    EXPECT_EQ(told_request("00000002 00000004 39132011 00000001"), "0 magic  ! tag 2, expected 0\n12  not read\n");
    EXPECT_EQ(told_request("00000000 00000003 391320"), "0 magic  ! 3 bytes, at least 4 needed\n");
    EXPECT_EQ(told_request("00000000 ffffffff 39132011"), "0 magic  ! 4294967295 bytes announced, 4 are left\n");
    EXPECT_EQ(told_request("00000000 00000004 39132012 00000001 00000004 00000001 00000003 00000004 00000000"),
              "0 magic  ! 0x39132012, expected 0x39132011\n12 version  ! 0x1, expected 0x0\n"
              "24 ifName \"\", NUL, 3 zero bytes\n");
}

TEST(AnnotateTest, DamagedTexts)
{
    EXPECT_EQ(told_request(prologue + "00000003 00000004 65746830"),
              std::string(sound_prologue) + "24 ifName \"eth0\" ! the text has no NUL\n");
    EXPECT_EQ(told_request(prologue + "00000003 00000000"),
              std::string(sound_prologue) + "24 ifName  ! 0 bytes, at least 1 needed\n");
    EXPECT_EQ(told_request(prologue + "00000003 00000008 6574"),
              std::string(sound_prologue) + "24 ifName  ! 8 bytes announced, 2 are left\n");
    EXPECT_EQ(told_request(prologue + "00000003 00000008 65746830 00000001"),
              std::string(sound_prologue) + "24 ifName \"eth0\", NUL, 3 zero bytes ! the padding is not zero\n");
    EXPECT_EQ(told_request(prologue + "00000003 0000000c 65746830 00000000 00000000"),
              std::string(sound_prologue) +
                  "24 ifName \"eth0\", NUL, 7 zero bytes ! the padding has an unusual length\n");
    EXPECT_EQ(told_request(prologue + "00000003 00000004 1b5b0000"),
              std::string(sound_prologue) + "24 ifName \"\\x1b[\", NUL, 1 zero byte\n");
    std::string fifty;
    for (int i = 0; i < 50; i++)
        fifty += "61";
    EXPECT_NE(told_request(prologue + "00000003 00000034" + fifty + "0000").find("! 51 bytes with the NUL, 50 fit"),
              std::string::npos);
}

TEST(AnnotateTest, BytesBehindTheLastItem)
{
    EXPECT_EQ(told_request(prologue + "00000003 00000004 00000000 ff"),
              std::string(sound_prologue) + "24 ifName \"\", NUL, 3 zero bytes\n36  left over behind the last item\n");
}

// ---- Nested records, lists, signed and wide items, on layouts of the test's own -------------------------------------

constexpr Field element[] = {number(3, "first"), text(4, "second", 4)};
constexpr Field outer[] = {list(3, "elements", 2, element), record("inner", element), signed_number(5, "last")};
constexpr Field with_wide[] = {wide(4, "pointer"), number(5, "last")};
constexpr Layout nested = {layouts::Interface::command, 0, "Nested", request, 0x39132011, 0, outer};
constexpr Layout wide_layout = {layouts::Interface::command, 0, "Wide", request, 0x39132011, 0, with_wide};

const std::string one_element = "00000003 00000004 00000007 00000004 00000004 61000000 ";

TEST(AnnotateTest, NestedRecordsAndLists)
{
    auto body = bytes(prologue + "00000003 00000004 00000002" + one_element + one_element + one_element +
                      "00000005 00000004 ffffffff");
    EXPECT_EQ(told(annotate(&nested, body)), "0 magic Nested\n12 version 0\n24 elements 2 in the list\n"
                                             "36 elements[0].first 7\n48 elements[0].second \"a\", NUL, 2 zero bytes\n"
                                             "60 elements[1].first 7\n72 elements[1].second \"a\", NUL, 2 zero bytes\n"
                                             "84 inner.first 7\n96 inner.second \"a\", NUL, 2 zero bytes\n"
                                             "108 last -1\n");
}

TEST(AnnotateTest, AListThatIsTooLongAndDamaged)
{
    auto body = bytes(prologue + "00000003 00000004 ffffffff" + one_element + "00000009 00000000");
    EXPECT_EQ(told(annotate(&nested, body)),
              "0 magic Nested\n12 version 0\n24 elements 4294967295 in the list ! a list holds at most 2\n"
              "36 elements[0].first 7\n48 elements[0].second \"a\", NUL, 2 zero bytes\n"
              "60 elements[1].first  ! tag 9, expected 3\n");
}

TEST(AnnotateTest, OfAListThatIsTooLongAsManyAsFitAreRead)
{
    auto body = bytes(prologue + "00000003 00000004 00000003" + one_element + one_element + one_element +
                      "00000005 00000004 00000001");
    EXPECT_EQ(told(annotate(&nested, body)),
              "0 magic Nested\n12 version 0\n24 elements 3 in the list ! a list holds at most 2\n"
              "36 elements[0].first 7\n48 elements[0].second \"a\", NUL, 2 zero bytes\n"
              "60 elements[1].first 7\n72 elements[1].second \"a\", NUL, 2 zero bytes\n"
              "84 inner.first 7\n96 inner.second \"a\", NUL, 2 zero bytes\n"
              "108 last 1\n");
}

TEST(AnnotateTest, WideItems)
{
    auto body = bytes(prologue + "00000000 00000004 00000000 00000008 00000000 00000010 00000005 00000004 00000001");
    EXPECT_EQ(told(annotate(&wide_layout, body)), "0 magic Wide\n12 version 0\n24 pointer 16\n48 last 1\n");
    body = bytes(prologue + "00000001 00000004 00000000 00000008 00000000 00000010");
    EXPECT_EQ(told(annotate(&wide_layout, body)),
              "0 magic Wide\n12 version 0\n24 pointer  ! tag 4294967300, expected 4\n");
    body = bytes(prologue + "00000000 00000004 00000000");
    EXPECT_EQ(told(annotate(&wide_layout, body)),
              "0 magic Wide\n12 version 0\n24 pointer  ! an item begins with 16 bytes, 12 are left\n");
}

// ---- Any damage at all ----------------------------------------------------------------------------------------------

// The rows cover each byte once, whatever the bytes are.
void expect_covered(const std::vector<Row> &rows, size_t size)
{
    size_t position = 0;
    for (const Row &row : rows) {
        EXPECT_EQ(row.offset, position);
        position += row.header + row.value.size();
    }
    EXPECT_EQ(position, size);
}

std::vector<uint8_t> whole_body()
{
    return bytes(prologue + "00000003 00000004 00000002" + one_element + one_element + one_element +
                 "00000005 00000004 ffffffff");
}

TEST(AnnotateTest, EveryTruncationIsSurvivedAndReported)
{
    auto whole = whole_body();
    for (size_t size = 0; size < whole.size(); size++) {
        std::vector<uint8_t> part(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        auto rows = annotate(&nested, part);
        expect_covered(rows, size);
        EXPECT_NE(told(rows).find('!'), std::string::npos) << size;
    }
}

TEST(AnnotateTest, EveryDamagedByteIsSurvived)
{
    auto whole = whole_body();
    for (size_t i = 0; i < whole.size(); i++)
        for (int value = 0; value < 256; value++) {
            auto damaged = whole;
            damaged[i] = static_cast<uint8_t>(value);
            expect_covered(annotate(&nested, damaged), damaged.size());
        }
}

} // namespace
