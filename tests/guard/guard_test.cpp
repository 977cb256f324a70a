// What the guard says, on bytes written down by hand.

#include "guard.h"
#include "records/wire.h"

#include <gtest/gtest.h>

namespace {

using guard::Interface;
using guard::Reason;

constexpr guard::Which set_os_ifc = {Interface::command, 0, 0};
constexpr guard::Which set_os_ifc_response = {Interface::command, 0, 1};
constexpr guard::Which set_dhcp = {Interface::command, 1, 0};
constexpr guard::Which set_mtu = {Interface::command, 6, 0};
constexpr guard::Which get_ipv4_props = {Interface::command, 3, 0};
constexpr guard::Which register_prefix_status = {Interface::command, 9, 0};
constexpr guard::Which configure = {Interface::command, 10, 0};
constexpr guard::Which prefix_status = {Interface::notification, 0, 0};

const std::string prologue = "00000000 00000004 39132011 00000001 00000004 00000000 ";

std::string told(guard::Which which, const std::string &text)
{
    return guard::explain(guard::check(which, bytes(text)));
}

std::string told(const std::string &text)
{
    return told(set_os_ifc, text);
}

} // namespace

TEST(GuardTest, SoundBodies)
{
    EXPECT_EQ(told(prologue + "00000003 00000008 'eth0' 00 000000"), "sound");
    EXPECT_EQ(told(set_os_ifc_response, prologue + "00000003 00000004 00000000"), "sound");
    EXPECT_EQ(told(get_ipv4_props, "00000000 00000004 23331110 00000001 00000004 00000001"), "sound");
    EXPECT_EQ(told(prefix_status, "00000000 00000004 20150226 00000001 00000004 00000000"
                                  "00000003 00000004 00000000 00000003 00000004 00000000"),
              "sound");
}

TEST(GuardTest, BodiesThatDoNotExist)
{
    EXPECT_EQ(told({Interface::command, 12, 0}, prologue), "there is no such body");
    EXPECT_EQ(told({Interface::command, 0xffffffff, 0}, prologue), "there is no such body");
    EXPECT_EQ(told({Interface::command, 0, 2}, prologue), "there is no such body");
    EXPECT_EQ(told({Interface::notification, 1, 0}, prologue), "there is no such body");
    EXPECT_EQ(told({Interface::notification, 0, 1}, prologue), "there is no such body");
    for (uint32_t one_way : {8u, 10u, 11u})
        EXPECT_EQ(told({Interface::command, one_way, 1}, prologue), "there is no such body");
}

TEST(GuardTest, Prologues)
{
    EXPECT_EQ(told(""), "byte 0, magic: an item begins with 8 bytes, 0 are left");
    EXPECT_EQ(told("00000000 000000"), "byte 0, magic: an item begins with 8 bytes, 7 are left");
    EXPECT_EQ(told("00000001 00000004 39132011"), "byte 0, magic: tag 1, expected 0");
    EXPECT_EQ(told("00000000 00000003 391320"), "byte 0, magic: 3 bytes, at least 4 needed");
    EXPECT_EQ(told("00000000 00000004 391320"), "byte 0, magic: 4 bytes announced, 3 are left");
    EXPECT_EQ(told("00000000 00000004 39132012"), "byte 0, magic: 0x39132012, expected 0x39132011");
    EXPECT_EQ(told("00000000 00000004 39132011 00000002 00000004 00000000"), "byte 12, version: tag 2, expected 1");
    EXPECT_EQ(told("00000000 00000004 39132011 00000001 00000004 00000001"), "byte 12, version: 1, expected 0");
    EXPECT_EQ(told("00000000 00000005 39132011 ff 00000001 00000004 00000001"), "byte 13, version: 1, expected 0");
}

// Of the version the low 16 bits count, as in the decoder.
TEST(GuardTest, TheHighHalfOfTheVersion)
{
    EXPECT_EQ(told(set_mtu, "00000000 00000004 20190222 00000001 00000004 00010000 00000003 00000004 00000000"),
              "sound");
    EXPECT_EQ(told(get_ipv4_props, "00000000 00000004 23331110 00000001 00000004 ffff0001"), "sound");
    EXPECT_EQ(told(get_ipv4_props, "00000000 00000004 23331110 00000001 00000004 00010000"),
              "byte 12, version: 0, expected 1");
}

TEST(GuardTest, Items)
{
    EXPECT_EQ(told(prologue), "byte 24, ifName: an item begins with 8 bytes, 0 are left");
    EXPECT_EQ(told(prologue + "00000004 00000004 00000000"), "byte 24, ifName: tag 4, expected 3");
    EXPECT_EQ(told(prologue + "00000003 fffffff8 00000000"), "byte 24, ifName: 4294967288 bytes announced, 4 are left");
    EXPECT_EQ(told(prologue + "00000003 00000004 00000000 ff"), "byte 36: 1 bytes left over behind the last item");
    EXPECT_EQ(told(set_os_ifc_response, prologue + "00000003 00000003 000000"),
              "byte 24, result: 3 bytes, at least 4 needed");
    EXPECT_EQ(told(set_os_ifc_response, prologue + "00000003 00000000"), "byte 24, result: 0 bytes, at least 4 needed");
    EXPECT_EQ(told(set_os_ifc_response, prologue + "00000003 00000006 00000000 ffff"), "sound");
}

TEST(GuardTest, Texts)
{
    EXPECT_EQ(told(prologue + "00000003 00000000"), "byte 24, ifName: 0 bytes, at least 1 needed");
    EXPECT_EQ(told(prologue + "00000003 00000001 00"), "sound");
    EXPECT_EQ(told(prologue + "00000003 00000004 'eth0'"), "byte 24, ifName: no NUL in 4 bytes");
    EXPECT_EQ(told(prologue + "00000003 00000032 'a'*49 00"), "sound");
    EXPECT_EQ(told(prologue + "00000003 00000033 'a'*50 00"), "byte 24, ifName: 51 bytes with the NUL, 50 fit");
    EXPECT_EQ(told(prologue + "00000003 00000008 'a' 00 ff ff ff ff ff ff"), "sound");
}

TEST(GuardTest, TextsThatOtherItemsFollow)
{
    const std::string dhcp = " 00000004 00000004 00000001";
    auto told_text = [&](const std::string &item) { return told(set_dhcp, prologue + item + dhcp); };
    EXPECT_EQ(told_text("00000003 00000008 'eth0' 00 000000"), "sound");
    EXPECT_EQ(told_text("00000003 00000001 00"), "sound");
    EXPECT_EQ(told_text("00000003 00000008 'a' 00 ff ff ff ff ff ff"), "sound");
    EXPECT_EQ(told_text("00000003 00000000"), "byte 24, ifName: 0 bytes, at least 1 needed");
    EXPECT_EQ(told_text("00000003 00000004 'eth0'"), "byte 24, ifName: no NUL in 4 bytes");
    EXPECT_EQ(told_text("00000003 00000033 'a'*50 00"), "byte 24, ifName: 51 bytes with the NUL, 50 fit");
    EXPECT_EQ(told_text("00000003 00000100 00"), "byte 24, ifName: 256 bytes announced, 13 are left");
}

TEST(GuardTest, WideItems)
{
    const std::string before = "00000000 00000004 20150227 00000001 00000004 00000000 00000003 00000004 00000007 ";
    const std::string last = "00000005 00000004 00000009";
    auto told_wide = [&](const std::string &item) { return told(register_prefix_status, before + item + last); };
    EXPECT_EQ(told_wide("00000000 00000004 00000000 00000008 00000000 ffffffff"), "sound");
    EXPECT_EQ(told_wide("00000000 00000004 ffffffff 00000008 00000000 ffffffff"), "sound");
    EXPECT_EQ(told_wide("00000000 00000004 00000000 0000000c 00000000 ffffffff ffffffff"), "sound");
    EXPECT_EQ(told_wide("00000000 00000004 00000000 00000008 00000001 00000000"),
              "byte 36, pointer: 0x100000000 does not fit 32 bits");
    EXPECT_EQ(told_wide("00000001 00000004 00000000 00000008 00000000 00000000"),
              "byte 36, pointer: tag 4294967300, expected 4");
    EXPECT_EQ(told_wide("00000000 00000004 00000000 00000007 00000000 000000"),
              "byte 36, pointer: 7 bytes, at least 8 needed");
    EXPECT_EQ(told(register_prefix_status, before + "00000000 00000004 00000000 000000"),
              "byte 36, pointer: an item begins with 16 bytes, 15 are left");
    EXPECT_EQ(told(register_prefix_status, before + "00000000 00000004 00000000 00000008 00000000 000000"),
              "byte 36, pointer: 8 bytes announced, 7 are left");
}

// Two methods share a magic; their versions tell them apart.
TEST(GuardTest, ConfigureIsNoAskStateRenotification)
{
    EXPECT_EQ(told(configure, "00000000 00000004 13235326 00000001 00000004 00000000"),
              "byte 12, version: 0, expected 1");
}

TEST(GuardTest, AnAdmittedBodyIsACopyWithATail)
{
    Bytes body = bytes(prologue + "00000003 00000008 'eth0' 00 000000");
    guard::Admission admission = guard::admit(set_os_ifc, body);
    EXPECT_TRUE(admission.verdict.sound());
    Bytes with_tail = body;
    with_tail.resize(body.size() + 32);
    EXPECT_EQ(Bytes(admission.body.get(), admission.body.get() + with_tail.size()), with_tail);
    EXPECT_NE(admission.body.get(), body.data());
}

TEST(GuardTest, ARefusedBodyIsNotHandedOut)
{
    guard::Admission admission = guard::admit(set_os_ifc, bytes(prologue));
    EXPECT_EQ(admission.verdict.reason, Reason::cut_header);
    EXPECT_EQ(admission.verdict.offset, 24u);
    EXPECT_STREQ(admission.verdict.field, "ifName");
    EXPECT_EQ(admission.verdict.found, 0u);
    EXPECT_EQ(admission.verdict.expected, 8u);
    EXPECT_EQ(admission.body, nullptr);
}
