// What the host process provides: the messaging middleware (zebCore_*, zebIntf_*) and the event loop (ruvo_*).
//
// The library defines none of these functions and links nothing that does; a process without a bus of its own takes
// them from one of the hosts in this repository.

#ifndef GORVANET_FRAME_MIDDLEWARE_H
#define GORVANET_FRAME_MIDDLEWARE_H

#include "gorvanet.h"

// A middleware-owned message-management block: this head, then one MethodRecord for each method.
struct MessageManagement {
    const char *name;
    gorvaNet_unreg *unreg;
    void *own; // the middleware's, never touched by the library
};

// Members `reserved` to `logBody` of a method row.
struct MethodRecord {
    uint32_t reserved;
    const char *name;
    gorvaNet_freeBody *freeBody;
    gorvaNet_serializeBody *serializeBody;
    gorvaNet_unserializeBody *unserializeBody;
    gorvaNet_logBody *logBody;
};

inline MethodRecord *method_records(MessageManagement *block)
{
    return reinterpret_cast<MethodRecord *>(block + 1);
}

// The middleware's request context, as far as the library reads it. Nothing else knows its layout.
struct RequestContext {
    gorvaNet_function *callback; // the user's response callback
    void *user_data;
};

// Takes an answer that arrives for a request: an argument to ignore, the request context, the response body.
using Receiver = void(void *ignored, RequestContext *context, void *body);

constexpr uint32_t any_number = 0xffff; // given where the middleware asks for a number that the library leaves open
constexpr uint32_t send_options = 18;   // given with every message

constexpr uint32_t answer_normal = 0;
constexpr uint32_t answer_unhandled_message = 20; // nobody handles the message

extern "C" {

// Hooks a callback into the event loop, which calls it with `context` and an event number; event 0 means that the
// interface is to be torn down. Result: 0 or an error code.
int32_t ruvo_addEvtBase(void (*callback)(void *context, int32_t event), void *context);

// Obtains a message-management block with room for `count` methods, to be filled by the caller. Result: a 16-bit
// message-management number, GORVANET_NUM_NONE on failure.
uint16_t zebCore_getBase_msgMngt(const char *interface_name, MessageManagement **block, uint32_t count);

// Releases a block. Result: 0 or an error code.
int32_t zebCore_putBase_msgMngt(uint32_t number, uint32_t zero);

// Sends a command request to the bus user `server`; owns `body` from here on. `receiver` is null when no answer is
// awaited. Result: handed to the caller of the send function.
uint32_t zebCore_sendMsgReq_toNameUser(void *core_user, void *body, Receiver *receiver, gorvaNet_function *callback,
                                       void *pass1, void *pass2, const char *server, uint32_t number, uint32_t method,
                                       uint32_t any, uint32_t options);

// Answers a message (given the message, or the request context of an answer that nobody takes). With status 0 it owns
// `body` from here on; with status 20 `body` is one that it owns already.
void zebCore_sendMsgRes(void *message, void *body, uint32_t status, uint32_t options);

// Result: 0 when the message awaits an answer.
int32_t zebCore_isMsg_needRes(void *message);

// Attaches a user to, or detaches it from, the interface with this message-management number. Result: 0 or an error
// code.
int32_t zebIntf_regUser_msgMngt(void *user, void *value, void *reference, uint32_t number, uint32_t any, uint32_t zero);
int32_t zebIntf_unregUser_msgMngt(void *user, uint32_t number, uint32_t any, uint32_t zero);

// Finds the users of a notification method. Result: handed to the caller of gorvaNet_findSrvMthdNtfyUser.
uint32_t zebIntf_findSrvMthdNtfyUser(void *first, void *second, const char *interface_name, uint32_t number,
                                     void *fourth);

// The core user to send with.
void *zebIntf_getCore_user(void *user);

// Makes a user serve a method. The three values are the caller's of the accept function. Result: 0 or an error code.
int32_t zebIntf_modSrv_mthd(void *user, gorvaNet_function *value1, void *value2, void *value3, uint32_t accept_magic,
                            const char *interface_name, struct gorvaNet_interface *cmd, struct gorvaNet_interface *ntfy,
                            uint32_t method, uint32_t any1, uint32_t any2);

// Makes a user receive a notification from the user `user_name` on the bus `bus_name`. Result: 0 or an error code.
int32_t zebIntf_modCliNtfyUser_mthd(void *user, gorvaNet_function *value1, void *value2, void *value3,
                                    uint32_t accept_magic, const char *bus_name, const char *user_name,
                                    const char *interface_name, struct gorvaNet_interface *cmd,
                                    struct gorvaNet_interface *ntfy, uint32_t method);

// Sends a notification; owns `body` from here on.
uint32_t zebIntf_sendReq_ntfy(void *user, void *body, uint32_t zero1, uint32_t zero2, uint32_t zero3, void *pass1,
                              void *pass2, const char *interface_name, uint32_t number, uint32_t zero4, uint32_t zero5,
                              uint32_t zero6, uint32_t options);
}

#endif
