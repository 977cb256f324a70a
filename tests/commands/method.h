// A method as its users see it, and what the tests of all methods share.
//
// Each method's own test file holds one Method: its numbers, its bodies as they stand in memory and as they travel, and
// how to send them. The shared tests prove on it what is the same for all methods.

#ifndef GORVANET_TESTS_COMMANDS_METHOD_H
#define GORVANET_TESTS_COMMANDS_METHOD_H

#include "commands/bytes.h"
#include "support/library_test.h"

#include <dlfcn.h>
#include <iosfwd>
#include <string>
#include <vector>

class RecordProbe;

// A field of a body that is one item of its own.
struct Field {
    uint32_t tag;
    size_t offset;                   // of its item in the encoded sample
    std::vector<uint32_t> announced; // tags of the lines that follow when it cannot be decoded
};

// The text of a body.
struct Text {
    uint32_t capacity = 0; // of its array; 0: the body has no text
    size_t place = 0;      // of the array in memory
    size_t offset = 0;     // of its item in the encoded sample
    size_t item_size = 0;
    std::vector<uint32_t> announced;          // when it cannot be decoded
    std::vector<uint32_t> announced_encoding; // when it cannot be encoded
    void (*send)(const char *text) = nullptr; // sends a request with this text to "server"
};

// The record of a body.
struct Record {
    RecordProbe *probe = nullptr;    // null: the body has no record
    const void *source = nullptr;    // what the sample is sent from
    size_t size = 0;                 // in memory
    size_t place = 0;                // of the record in the body
    size_t offset = 0;               // of its first item in the encoded sample
    std::string copy_failed;         // log line, without the line feed
    std::vector<uint32_t> announced; // tags of the lines that follow when it cannot be encoded or decoded
};

// One direction of a method, with a sample.
struct Body {
    Bytes image; // in memory; empty: there is no such body
    Bytes wire;  // encoded
    std::vector<Field> fields;
    Text text = {};
    Record record = {};
    // What the handler or the callback gets of a body at this address, behind its first two arguments.
    Words (*passed)(uintptr_t body) = nullptr;
};

// A method, or the notification.
struct Method {
    std::string suffix; // of its functions' names
    uint32_t index;
    uint32_t magic;
    std::string magic_name;
    uint32_t accept_magic;
    uint32_t version;
    Body request;
    Body response = {};
    // Sends the sample request. One-way methods take the second pass-through value only, and no callback.
    uint32_t (*send)(void *user, gorvaNet_function *callback, void *pass1, void *pass2, const char *server) = nullptr;
    void (*respond)(void *message) = nullptr; // with the sample response
    gorvaNet_function *handler = nullptr;     // keeps its arguments
    gorvaNet_function *callback = nullptr;    // keeps its arguments
    // What differs for the notification.
    std::string message = "msgCmd";
    std::string send_suffix = suffix; // of sendReq and recvReq
    bool null_request_checked = true;

    bool answered() const
    {
        return !response.image.empty();
    }
};

// The methods that this executable tests.
std::vector<const Method *> methods();

// What a handler or a callback was called with since the last take.
std::vector<Words> take_heard();
void keep_arguments(Words arguments);

template <typename Signature> struct Keeper;

template <typename... Arguments> struct Keeper<void(Arguments...)> {
    static void function(Arguments... arguments)
    {
        keep_arguments({word(arguments)...});
    }
};

// A handler or callback of this type that keeps its arguments.
template <typename Signature> gorvaNet_function *keeper()
{
    return reinterpret_cast<gorvaNet_function *>(Keeper<Signature>::function);
}

// An exported function by its name.
template <typename Signature> Signature *exported(const std::string &name)
{
    void *symbol = dlsym(RTLD_DEFAULT, name.c_str());
    EXPECT_NE(symbol, nullptr) << name << " is not exported";
    return reinterpret_cast<Signature *>(symbol);
}

// Addresses that stand for what the middleware and the users own: handed on, never looked into.
inline void *const user = reinterpret_cast<void *>(0x2000);
inline void *const core_user = reinterpret_cast<void *>(0x3000); // the bus answers with the user plus 0x1000
inline void *const message = reinterpret_cast<void *>(0x4000);
inline void *const data = reinterpret_cast<void *>(0x5000);
inline void *const pass1 = reinterpret_cast<void *>(0x6000);
inline void *const pass2 = reinterpret_cast<void *>(0x7000);
inline void *const value3 = reinterpret_cast<void *>(0x8000);
inline const char *const server = "service";

// The body that the last sending function handed to the bus; takes the calls.
void *sent_body();

// Gives a body in memory another magic.
void set_magic(void *body, uint32_t magic);

// Makes this function of the bus keep what the body it is handed holds at that moment, and overwrite the body.
void take_over(const std::string &function, Bytes &held);

// The body that was taken over last is as the bus left it; releases it.
void expect_left_alone();

// Tests of one method.
class MethodTest : public LibraryTest, public testing::WithParamInterface<const Method *> {
protected:
    const Method &method() const
    {
        return *GetParam();
    }

    void TearDown() override;

    std::string function(const std::string &family) const; // gorvaNet_<family>_<suffix>
};

// Tests of one direction of a method. The callbacks are found by name.
class BodyCallbacks {
public:
    BodyCallbacks(const Method &owner, uint32_t body_type);

    // The name of a callback, and the one that it logs under for this type of body.
    std::string name(const std::string &family) const;
    std::string log_name(const std::string &family) const;

    // A body with the sample's content that the library allocated.
    void *decoded() const;

    const Method &method;
    uint32_t type;
    const Body &body;
    gorvaNet_freeBody *free_body;
    gorvaNet_serializeBody *serialize;
    gorvaNet_unserializeBody *unserialize;
    gorvaNet_logBody *log;

private:
    std::string callback(const std::string &family, const std::string &direction) const;
};

struct Direction {
    const Method *method;
    uint32_t type;
};

class BodyTest : public LibraryTest, public testing::WithParamInterface<Direction> {
protected:
    void SetUp() override;
    void TearDown() override;

    const Method &method() const
    {
        return *GetParam().method;
    }

    // Decodes these bytes and expects a failure: nothing handed out, and the body that it began released plainly, with
    // this in its first word.
    void expect_refused(const Bytes &wire, int32_t status, uint32_t first_word);

    // Decodes these bytes and expects the sample.
    void expect_sample(const Bytes &wire);

    // Encodes the sample.
    uint32_t encode(const void *body);

    const Body &sample() const
    {
        return callbacks->body;
    }

    const BodyCallbacks *callbacks = nullptr;
    void *output = const_cast<char *>("untouched");
    uint32_t size = 0x5a5a5a5a;

    void expect_untouched();
};

// Lists for INSTANTIATE_TEST_SUITE_P, and the names of their tests.
std::vector<const Method *> answered_methods();
std::vector<const Method *> one_way_methods();
std::vector<Direction> bodies();
std::vector<Direction> bodies_with_text();
std::vector<Direction> bodies_with_record();
std::string name_of_method(const testing::TestParamInfo<const Method *> &info);
std::string name_of_body(const testing::TestParamInfo<Direction> &info);
void PrintTo(const Method *method, std::ostream *out);
void PrintTo(const Direction &direction, std::ostream *out);

#endif
