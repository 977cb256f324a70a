// What the tracer prints and records is what a witness on the bus saw, and the traced process does not notice.

#include "capture.h"
#include "run.h"

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>

namespace {

const std::string trace = TRACE_COMMAND;
const std::string witness = TRACE_WITNESS;

// Method, direction on the wire, whether it has a response: written down from the interface.
struct Known {
    const char *method;
    unsigned index;
    bool has_response;
    bool is_notification;
};

constexpr Known all_methods[] = {
    {"SetOsIfc", 0, true, false},
    {"SetDhcp", 1, true, false},
    {"SetRdisc6", 2, true, false},
    {"GetIPv4Props", 3, true, false},
    {"GetIPv6Props", 4, true, false},
    {"SetIPv4Address", 5, true, false},
    {"SetMtu", 6, true, false},
    {"SetIPv6PrefixAndAddress", 7, true, false},
    {"AskStateRenotification", 8, false, false},
    {"RegisterPrefixStatus", 9, true, false},
    {"Configure", 10, false, false},
    {"ConfigureAllIPv6Intf", 11, false, false},
    {"PrefixStatus", 0, false, true},
};

std::string method_name(const Packet &packet)
{
    for (const Known &known : all_methods)
        if (known.index == packet.method && known.is_notification == (packet.direction == 2))
            return known.method;
    return "?";
}

// The line of the witness that says the same. An answer that nobody handles the message has no body and no line.
std::string as_witnessed(const Packet &packet)
{
    return std::string(packet.side ? "received " : "sent ") + method_name(packet) +
           (packet.direction == 1 ? " back " : " forth ") + packet.body;
}

std::vector<std::string> sorted(std::vector<std::string> lines)
{
    std::sort(lines.begin(), lines.end());
    return lines;
}

// The value of a member of a line of JSON that holds no other of this name in front of it.
std::string member(const std::string &line, const std::string &name)
{
    std::smatch found;
    if (!std::regex_search(line, found, std::regex("\"" + name + "\":(\"([^\"]*)\"|([0-9]+))")))
        return "";
    return found[2].str() + found[3].str();
}

// Runs the witness under the tracer, which captures and prints JSON.
class Traced : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(run(trace + " -o " + scratch_.file("pcap") + " -p " + scratch_.file("json") + " --json " + witness +
                      " " + scratch_.file("seen") + " >" + scratch_.file("out")),
                  0);
        packets_ = read_capture(scratch_.content("pcap"));
    }

    Scratch scratch_;
    std::vector<Packet> packets_;
};

TEST_F(Traced, CapturesWhatTheWitnessSaw)
{
    std::vector<std::string> captured;
    for (const Packet &packet : packets_)
        if (!packet.body.empty())
            captured.push_back(as_witnessed(packet));
    EXPECT_EQ(sorted(captured), sorted(scratch_.lines("seen")));
}

TEST_F(Traced, EveryMessageOfAllThirteenMethodsIsThere)
{
    std::set<std::string> there;
    for (const Packet &packet : packets_)
        there.insert(as_witnessed(packet).substr(0, as_witnessed(packet).rfind(' ')));
    for (const Known &known : all_methods)
        for (const char *side : {"sent ", "received "}) {
            EXPECT_TRUE(there.contains(std::string(side) + known.method + " forth")) << known.method;
            EXPECT_EQ(there.contains(std::string(side) + known.method + " back"), known.has_response) << known.method;
        }
    EXPECT_EQ(packets_.size(), scratch_.lines("seen").size() + 1); // and the one answer without a body
}

TEST_F(Traced, PrintsWhatItCaptures)
{
    std::vector<std::string> lines = scratch_.lines("json");
    ASSERT_EQ(lines.size(), packets_.size());
    const char *const directions[] = {"request", "response", "notification"};
    for (size_t i = 0; i < lines.size(); i++) {
        EXPECT_EQ(member(lines[i], "hex"), packets_[i].body);
        EXPECT_EQ(member(lines[i], "size"), std::to_string(packets_[i].body.size() / 2));
        EXPECT_EQ(member(lines[i], "direction"), directions[packets_[i].direction]);
        EXPECT_EQ(member(lines[i], "side"), packets_[i].side ? "received" : "sent");
        EXPECT_EQ(member(lines[i], "method"), method_name(packets_[i]));
        EXPECT_EQ(member(lines[i], "number"), std::to_string(packets_[i].number));
        EXPECT_EQ(member(lines[i], "user"), packets_[i].user);
    }
}

TEST_F(Traced, TellsTheTime)
{
    std::string line = scratch_.lines("json").at(0);
    auto at = static_cast<time_t>(packets_.at(0).seconds);
    EXPECT_LE(std::abs(difftime(time(nullptr), at)), 60);
    char text[32];
    strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S.", gmtime(&at));
    EXPECT_EQ(member(line, "time").substr(0, 20), text);
}

TEST_F(Traced, KnowsWhomARequestGoesToAndItsResponseComesFrom)
{
    for (const Packet &packet : packets_) {
        EXPECT_EQ(packet.interface, "GorvaNet");
        bool is_of_client = packet.direction != 2 && packet.direction == packet.side;
        bool is_known = packet.number != 0 && is_of_client;
        EXPECT_EQ(packet.user, is_known ? "service" : "") << as_witnessed(packet);
    }
}

// Each request of the process has a number of its own, which the response has too: once as the client sees both, once
// as the service does.
TEST_F(Traced, PairsResponsesWithTheirRequests)
{
    std::map<uint32_t, const Packet *> requests;
    unsigned unknown = 0;
    unsigned paired = 0;
    for (const Packet &packet : packets_) {
        if (packet.direction == 0) {
            EXPECT_NE(packet.number, 0U);
            EXPECT_TRUE(requests.emplace(packet.number, &packet).second) << "a number is used again";
        } else if (packet.direction == 1 && packet.number == 0) {
            unknown++;
        } else if (packet.direction == 1) {
            ASSERT_TRUE(requests.contains(packet.number));
            EXPECT_EQ(requests[packet.number]->method, packet.method);
            EXPECT_NE(requests[packet.number]->side, packet.side);
            paired++;
        }
    }
    EXPECT_EQ(unknown, 2U); // two SetMtu at once: the client's side cannot tell which answer is whose
    EXPECT_EQ(paired, 2 * 9U + 2 + 1);
}

// The bytes are worked out by hand.
TEST_F(Traced, DecodesTheBody)
{
    std::string expected =
        "\"method\":\"SetMtu\",\"index\":6,\"number\":N,\"user\":\"service\",\"status\":0,\"size\":36,"
        "\"hex\":\"000000000000000420190222000000010000000400000000000000030000000400000578\","
        "\"fields\":{\"mtu\":1400}}";
    std::string json = std::regex_replace(scratch_.content("json"), std::regex("\"number\":[0-9]+"), "\"number\":N");
    EXPECT_NE(json.find("\"side\":\"sent\",\"direction\":\"request\"," + expected), std::string::npos);
    EXPECT_NE(json.find("\"fields\":{\"first\":1,\"pointer\":4096,\"last\":2}}"), std::string::npos);
    EXPECT_NE(json.find("\"fields\":{\"state\":3,\"info\":\"once more, please\"}}"), std::string::npos);
    EXPECT_NE(json.find("\"infos\":[{\"field3\":\"192.0.2.53\",\"field4\":\"name server\"},"
                        "{\"field3\":\"192.0.2.123\",\"field4\":\"time server\"}]},\"result\":0}}"),
              std::string::npos);
}

// gorvanet-decode knows the same format from the same page.
TEST_F(Traced, CapturesForTheDecoder)
{
    if (run("command -v python3 >/dev/null") != 0)
        GTEST_SKIP() << "python3 is not installed";
    ASSERT_EQ(run(TRACE_DECODE " --json " + scratch_.file("pcap") + " >" + scratch_.file("decoded")), 0);
    std::vector<std::string> lines = scratch_.lines("decoded");
    ASSERT_EQ(lines.size(), packets_.size());
    for (size_t i = 0; i < lines.size(); i++) {
        EXPECT_EQ(lines[i].find("\"problem\""), std::string::npos) << lines[i];
        EXPECT_NE(lines[i].find("\"request\": " + std::to_string(packets_[i].number)), std::string::npos) << lines[i];
    }
}

// ---- In words -------------------------------------------------------------------------------------------------------

std::string without_times(const std::string &text)
{
    return std::regex_replace(text, std::regex("[0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{6}Z  [0-9]+"), "TIME");
}

std::string printed(const Scratch &scratch, const std::string &options)
{
    EXPECT_EQ(run(trace + " " + options + " " + witness + " " + scratch.file("seen") + " >" + scratch.file("out") +
                  " 2>" + scratch.file("err")),
              0);
    return scratch.content("err");
}

TEST(Trace, PrintsForPeople)
{
    Scratch scratch;
    std::string text = without_times(printed(scratch, ""));
    EXPECT_EQ(text.find("TIME  sent      SetOsIfc request #1 to \"service\", 40 bytes\n"
                        "    ifName  \"eth0\"\n"
                        "TIME  received  SetOsIfc request #2, 40 bytes\n"
                        "    ifName  \"eth0\"\n"
                        "TIME  sent      SetOsIfc response #2, 36 bytes\n"
                        "    result  0\n"
                        "TIME  received  SetOsIfc response #1 from \"service\", 36 bytes\n"
                        "    result  0\n"),
              0U);
    EXPECT_NE(text.find("    properties.infos            2 in the list\n"
                        "    properties.infos[0].field3  \"192.0.2.53\"\n"
                        "    properties.infos[0].field4  \"name server\"\n"),
              std::string::npos);
    EXPECT_TRUE(
        std::regex_search(text, std::regex("sent      SetMtu response #[0-9]+, status 20: nobody handles it\n")));
}

TEST(Trace, IsPlainInAPipeAndColouredWhenAsked)
{
    Scratch scratch;
    std::string plain = without_times(printed(scratch, ""));
    std::string coloured = printed(scratch, "--colour");
    EXPECT_EQ(plain.find('\x1b'), std::string::npos);
    EXPECT_NE(coloured.find("\x1b[36msent"), std::string::npos);
    EXPECT_EQ(without_times(std::regex_replace(coloured, std::regex("\x1b\\[[0-9;]*m"), "")), plain);
}

// script(1) gives the command a terminal.
TEST(Trace, IsColouredOnATerminal)
{
    if (run("command -v script >/dev/null") != 0)
        GTEST_SKIP() << "script is not installed";
    Scratch scratch;
    std::string command =
        "script -qec '" + trace + " " + witness + " " + scratch.file("seen") + "' /dev/null >" + scratch.file("out");
    EXPECT_EQ(run("unset NO_COLOR; TERM=xterm " + command), 0);
    EXPECT_NE(scratch.content("out").find("\x1b[36msent"), std::string::npos);
    EXPECT_EQ(run("TERM=xterm NO_COLOR=1 " + command), 0);
    EXPECT_EQ(scratch.content("out").find('\x1b'), std::string::npos);
    EXPECT_EQ(run("unset NO_COLOR; TERM=dumb " + command), 0);
    EXPECT_EQ(scratch.content("out").find('\x1b'), std::string::npos);
}

// ---- The traced process ---------------------------------------------------------------------------------------------

TEST(Trace, LeavesOutputAndExitStatusAlone)
{
    Scratch scratch;
    std::string command = witness + " " + scratch.file("seen") + " >" + scratch.file("plain");
    ASSERT_EQ(run(command), 0);
    printed(scratch, "");
    EXPECT_EQ(scratch.content("out"), scratch.content("plain"));
    EXPECT_FALSE(scratch.content("out").empty());
    EXPECT_EQ(run(trace + " " + witness + " 2>/dev/null"), 2);
}

TEST(Trace, OutlivesAReaderThatLeaves)
{
    Scratch scratch;
    std::string command = "{ " + trace + " " + witness + " " + scratch.file("seen") + " 2>&1 >" + scratch.file("out") +
                          "; echo $? >" + scratch.file("status") + "; } | true";
    EXPECT_EQ(run(command), 0);
    EXPECT_EQ(scratch.content("status"), "0\n");
    EXPECT_FALSE(scratch.content("out").empty());
}

// A library that is loaded later, for its loader alone, unloaded and loaded again; a bus in the executable; functions
// found by dlsym; damaged bytes.
TEST(Trace, FollowsALibraryThatIsLoadedLater)
{
    Scratch scratch;
    ASSERT_EQ(run(trace + " -o " + scratch.file("pcap") + " " TRACE_LOADING_HOST " " TRACE_LIBRARY " >" +
                  scratch.file("out") + " 2>" + scratch.file("err")),
              0)
        << scratch.content("out");
    EXPECT_EQ(scratch.content("out"), "answer 1401\nanswer 1401\n");
    std::string once = "TIME  sent      SetMtu request #N to \"far away\", 36 bytes\n"
                       "    mtu  1400\n"
                       "TIME  received  SetMtu request #M, 36 bytes\n"
                       "    mtu  1400\n"
                       "TIME  sent      SetMtu response #M, 36 bytes\n"
                       "    result  1401\n"
                       "TIME  received  SetMtu response #N from \"far away\", 36 bytes\n"
                       "    result  1401\n"
                       "TIME  received  SetMtu response, refused: status 4, 32 bytes\n"
                       "    not as the layout says, from byte 24 on:\n"
                       "        00000005 00000004\n"
                       "TIME  received  SetOsIfc request #O, refused: status 4, 93 bytes\n"
                       "    not as the layout says, from byte 24 on:\n"
                       "        00000003 00000040 61616161 61616161 61616161 61616161 61616161 61616161\n"
                       "        61616161 61616161 61616161 61616161 61616161 61616161 61616161 61616161\n"
                       "        61616161 00\n";
    auto numbered = [&](const char *first, const char *second, const char *third) {
        std::string text = std::regex_replace(once, std::regex("#N"), first);
        return std::regex_replace(std::regex_replace(text, std::regex("#M"), second), std::regex("#O"), third);
    };
    std::string text = without_times(scratch.content("err"));
    // The library says of the damaged bytes what it always says.
    text = std::regex_replace(text, std::regex("[^\n]*\\[GORVANET\\][^\n]*\n"), "");
    EXPECT_EQ(text, numbered("#1", "#2", "#3") + numbered("#4", "#5", "#6"));
    EXPECT_EQ(read_capture(scratch.content("pcap")).size(), 12U);
}

// The host looks at errno; here every attempt of the tracer to write sets it.
TEST(Trace, FilesThatCannotBeWrittenAreNoHarm)
{
    Scratch scratch;
    EXPECT_EQ(run("LD_PRELOAD=" TRACE_OBJECT
                  " GORVANET_TRACE_FILE=/nowhere/text GORVANET_TRACE_PCAP=/nowhere/pcap " TRACE_LOADING_HOST
                  " " TRACE_LIBRARY " >" +
                  scratch.file("out") + " 2>" + scratch.file("err")),
              0);
    EXPECT_EQ(scratch.content("out"), "answer 1401\nanswer 1401\n");
}

TEST(Trace, FilesThatBecomeTooLargeAreNoHarm)
{
    Scratch scratch;
    std::string command =
        "ulimit -f 2; " + trace + " -q -o " + scratch.file("pcap") + " " + witness + " /dev/null >/dev/null";
    ASSERT_EQ(run("bash -c '" + command + "'"), 0);
    EXPECT_EQ(run(TRACE_DECODE " " + scratch.file("pcap") + " >/dev/null"), 0); // whole packets only
    EXPECT_EQ(run("bash -c 'ulimit -f 2; " + trace + " -p " + scratch.file("text") + " " + witness +
                  " /dev/null >/dev/null'"),
              0);
}

TEST(Trace, PipesThatNobodyReadsAreNoHarm)
{
    Scratch scratch;
    ASSERT_EQ(run("mkfifo " + scratch.file("pipe")), 0);
    EXPECT_EQ(run("timeout 30 env LD_PRELOAD=" TRACE_OBJECT " GORVANET_TRACE_FILE=" + scratch.file("pipe") +
                  " GORVANET_TRACE_PCAP=" + scratch.file("pipe") + " " + witness + " /dev/null >/dev/null"),
              0);
}

TEST(Trace, SeveralProcessesShareAFile)
{
    Scratch scratch;
    std::string one = witness + " " + scratch.file("seen");
    std::string command = trace + " -q -o " + scratch.file("pcap") + " sh -c '" + one + ".1 & " + one + ".2 & wait' >" +
                          scratch.file("out") + " 2>" + scratch.file("err");
    ASSERT_EQ(run(command), 0);
    std::vector<std::string> captured;
    for (const Packet &packet : read_capture(scratch.content("pcap")))
        if (!packet.body.empty())
            captured.push_back(as_witnessed(packet));
    std::vector<std::string> seen = scratch.lines("seen.1");
    for (const std::string &line : scratch.lines("seen.2"))
        seen.push_back(line);
    EXPECT_EQ(sorted(captured), sorted(seen));
}

// Another host, and three processes that talk to each other: what one received, another has sent.
TEST(Trace, SeesProcessesThatTalkOverDBus)
{
    const std::string program = TRACE_DBUS_DEMO;
    if (program.empty() || run("command -v dbus-daemon >/dev/null") != 0)
        GTEST_SKIP() << "there is no 32-bit libsystemd, or no dbus-daemon";
    Scratch scratch;
    std::string script = TRACE_SOURCE "/examples/demo/dbus.sh ";
    ASSERT_EQ(run(trace + " -q -o " + scratch.file("pcap") + " " + script + program + " >" + scratch.file("out") +
                  " 2>" + scratch.file("err")),
              0)
        << scratch.content("err");
    std::set<std::string> sent;
    std::set<std::string> received;
    for (const Packet &packet : read_capture(scratch.content("pcap"))) {
        std::string line = as_witnessed(packet);
        (packet.side ? received : sent).insert(line.substr(line.find(' ')));
    }
    for (const std::string &message : received)
        EXPECT_TRUE(sent.contains(message)) << message;
    for (const Known &known : all_methods) {
        auto first = received.lower_bound(std::string(" ") + known.method + " forth ");
        ASSERT_NE(first, received.end());
        EXPECT_EQ(first->find(std::string(" ") + known.method + " forth "), 0U) << known.method;
    }
}

// ---- The command ----------------------------------------------------------------------------------------------------

TEST(TraceCommand, PrintsToADescriptorOfItsOwn)
{
    Scratch scratch;
    ASSERT_EQ(run(trace + " -p /dev/fd/2 " + witness + " " + scratch.file("seen") + " 2>&1 >/dev/null | cat >" +
                  scratch.file("out")),
              0);
    EXPECT_NE(scratch.content("out").find("  sent  "), std::string::npos);
}

TEST(TraceCommand, SaysWhatIsWrong)
{
    Scratch scratch;
    std::string err = " 2>" + scratch.file("err");
    EXPECT_EQ(run(trace + err), 2);
    EXPECT_NE(scratch.content("err").find("gorvanet-trace [OPTION ...] COMMAND"), std::string::npos);
    EXPECT_EQ(run(trace + " --nonsense true" + err), 2);
    EXPECT_EQ(scratch.content("err"), "gorvanet-trace: unknown option --nonsense; --help lists them\n");
    EXPECT_EQ(run(trace + " -o" + err), 2);
    EXPECT_EQ(scratch.content("err"), "gorvanet-trace: -o needs a file\n");
    EXPECT_EQ(run(trace + " -o /nowhere/at/all true" + err), 2);
    EXPECT_EQ(scratch.content("err"), "gorvanet-trace: cannot write /nowhere/at/all\n");
    EXPECT_EQ(run("true | " + trace + " -o /dev/fd/0 true" + err), 2);
    EXPECT_EQ(scratch.content("err"), "gorvanet-trace: a capture cannot go through a pipe: /dev/fd/0\n");
    EXPECT_EQ(run(trace + " --help >" + scratch.file("out")), 0);
    EXPECT_NE(scratch.content("out").find("--json"), std::string::npos);
}

} // namespace
