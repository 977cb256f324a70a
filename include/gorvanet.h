/* libGorvanet: the bus interface "GorvaNet" of the IP-configuration service.
 *
 * The one public header, for the service and for its clients, in C99 and in C++.
 *
 * Conventions
 *
 * 1. Threads. There is one: the thread that runs the event loop and the middleware calls every function. The library
 *    takes no lock. Its only state is gorvaNet_base; the record functions touch nothing but their arguments.
 * 2. Results. 0 is success unless a function says otherwise. Failures are written to the system log.
 * 3. Log lines. Every line goes through syslog(3) with a format that begins "[GORVANET] -> %s(%d): ", followed by the
 *    name of the function that logs and its source line. Below, a line is quoted without that beginning and without
 *    the line feed at its end. Priority 3 (error) unless stated; 4 (warning) where a state or flag is already as it is
 *    being set; 0 (emergency) directly before abort(3).
 * 4. Sizes are in bytes. A text is NUL-terminated; an array of N characters holds at most N - 1 of them and the NUL.
 * 5. Bodies. A message body is a heap block that begins with a 32-bit magic and a 16-bit flag. Send and response
 *    functions allocate it and hand it to the middleware, which owns it from then on, on failures too, and releases it
 *    through the method's freeBody callback. Handlers and callbacks borrow what they are given for the length of the
 *    call.
 * 6. A wrong magic in the descriptor or in a body is a programming error: one line of priority 0, then abort(3).
 */
#ifndef GORVANET_H
#define GORVANET_H

#include <stdint.h>

#define GORVANET_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/* ---- The interface descriptor ------------------------------------------------------------------------------------ */

#define GORVANET_MAGIC_BASE 0x24142720u
#define GORVANET_MAGIC_CMD  0x24142721u /* the command interface block */
#define GORVANET_MAGIC_NTFY 0x24142722u /* the notification interface block */
#define GORVANET_MAGIC_FREE 0xdeadbeefu /* a body on its way to free(3) */

#define GORVANET_STATE_BASE_WAIT_INIT 0u /* interfaces not, or not fully, registered */
#define GORVANET_STATE_BASE_INIT      1u /* both interfaces registered, event-loop hook in place */

#define GORVANET_FLAGS_BASE_REG_CMD  0x1u /* the command interface is registered with the middleware */
#define GORVANET_FLAGS_BASE_REG_NTFY 0x2u /* the notification interface is registered */

#define GORVANET_NUM_NONE 0xffffu /* no message-management number */

#define GORVANET_COUNT_CMD  12 /* methods of the command interface */
#define GORVANET_COUNT_NTFY 1  /* methods of the notification interface */

/* First argument of every body callback. */
#define GORVANET_BODY_REQUEST  0u
#define GORVANET_BODY_RESPONSE 1u

/* Any function: handlers and callbacks of all methods travel through the middleware as this type. Cast it back before
 * the call. */
typedef void gorvaNet_function(void);

/* Receives a request or notification that arrived for a registered user. `handler` and `data` are what the user gave
 * when it accepted the method. */
typedef void gorvaNet_recvReq(void *message, void *body, gorvaNet_function *handler, void *data);

/* The four body callbacks; see "Body callbacks" below. */
typedef void gorvaNet_freeBody(uint32_t type, void *body);
typedef uint32_t gorvaNet_serializeBody(uint32_t type, const void *body, void **buffer, uint32_t *size);
typedef int32_t gorvaNet_unserializeBody(uint32_t type, const void *buffer, void **body, uint32_t *size);
typedef void gorvaNet_logBody(uint32_t type, const void *body, uint32_t size, char **text);

/* Tells the library that the middleware has dropped the interface with this message-management number. */
typedef void gorvaNet_unreg(uint16_t number);

/* Method row: what the middleware needs to know about one method. Rows never change at run time. */
struct gorvaNet_method {
    gorvaNet_recvReq *recvReq;
    uint32_t reserved; /* 0 */
    const char *name;
    gorvaNet_freeBody *freeBody;
    gorvaNet_serializeBody *serializeBody;
    gorvaNet_unserializeBody *unserializeBody;
    gorvaNet_logBody *logBody;
    uint32_t index; /* of the method within its interface */
};

/* Interface block. Its `count` method rows follow it directly in memory. */
struct gorvaNet_interface {
    uint32_t magic;
    const char *name;
    gorvaNet_unreg *unreg;
    uint16_t num; /* message-management number; GORVANET_NUM_NONE before the start and after a release */
    uint16_t count;
};

struct gorvaNet_descriptor {
    uint32_t magic;
    const char *name;
    struct gorvaNet_interface cmd;
    struct gorvaNet_method cmdMethods[GORVANET_COUNT_CMD];
    struct gorvaNet_interface ntfy;
    struct gorvaNet_method ntfyMethods[GORVANET_COUNT_NTFY];
    uint32_t debug; /* stored by gorvaNet_modDebug, never read by the library */
    uint8_t state;  /* GORVANET_STATE_BASE_* */
    uint8_t flags;  /* GORVANET_FLAGS_BASE_* */
};

/* The one descriptor of the interface; alive, at this address, for the life of the process. */
extern GORVANET_API struct gorvaNet_descriptor gorvaNet_base;

/* ---- Lifecycle --------------------------------------------------------------------------------------------------- */

/* Starts the interface: call it once per process, before anything else. The name is spelled with a lowercase "net".
 *
 * Result: that of gorvaNet_addBase.
 * Log: "Add Base failed(%d)" with a result other than 0, after the lines of gorvaNet_addBase. */
GORVANET_API uint32_t gorvanet_initialize(void);

/* Registers both interfaces with the middleware and gorvaNet_cbEvtBase with the event loop.
 *
 * Result: 0; 1 when the middleware refuses a message-management block; 3 when the interface is started already; the
 * event loop's own error code when it refuses the hook. Nothing is rolled back on a failure: what is registered stays
 * registered, and the next call starts over.
 * Log: "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]" with result 3; "Add command message management failed",
 * "Add notification message management failed" with result 1; "Add event base failed(%d)"; warnings
 * "Set Flag[%s-%X] in ctx(%p) already set[%X] text[%s]" and "Set State[%s-%d] in ctx(%p) already set"; at priority 0
 * "Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]" before abort(3). */
GORVANET_API uint32_t gorvaNet_addBase(void);

/* Releases both registrations. The event-loop hook stays.
 *
 * Result: 0; 3 when the interface is not started; the middleware's own error code when it keeps a block, and then the
 * interface stays started with what has not been released yet.
 * Log: "Check State[%s-%X] Ctx[ptr(%p) state(%X)] text[%s]" with result 3;
 * "Put command message management(%u) failed(%d)" (which shows the notification interface's number: kept for
 * compatibility) and "Put notification message management(%u) failed(%d)"; warnings
 * "Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]" and "Set State[%s-%d] in ctx(%p) already set". */
GORVANET_API uint32_t gorvaNet_delBase(void);

/* The event loop's way in. Event 0 tears the interface down with gorvaNet_delBase; `context` is ignored.
 *
 * Log: "Delete Base" when that fails, after its lines; "Unknown event(%d)" for any other event. */
GORVANET_API void gorvaNet_cbEvtBase(void *context, int32_t event);

/* Does nothing. Kept because it is part of the interface. */
GORVANET_API void gorvaNet_cbEvtMsgError(void);

/* ---- Users ------------------------------------------------------------------------------------------------------- */

/* Selector of gorvaNet_regUser_msgMngt and gorvaNet_unregUser_msgMngt. Any other value selects nothing. */
#define GORVANET_SELECT_BOTH 0u /* the command interface, then the notification interface */
#define GORVANET_SELECT_CMD  1u
#define GORVANET_SELECT_NTFY 2u

/* Attaches a middleware user to the selected interfaces. One whose number is GORVANET_NUM_NONE is skipped. `value` and
 * `reference` are passed to the middleware unchanged.
 *
 * Result: 0 or the middleware's error code; the first failure ends the call and nothing is undone.
 * Log: "user(%p): regUser message management failed(%d) -> num(%d) ref(%p)", with the command interface's number
 * whichever interface failed (kept for compatibility). */
GORVANET_API uint32_t gorvaNet_regUser_msgMngt(void *user, void *value, void *reference, uint32_t selector);

/* Detaches a middleware user from the selected interfaces, as gorvaNet_regUser_msgMngt attaches it.
 *
 * Result: 0 or the middleware's error code.
 * Log: "user(%p): unregUser message management failed(%d) -> num(%d)" with the number of the interface that failed. */
GORVANET_API int32_t gorvaNet_unregUser_msgMngt(void *user, uint32_t selector);

/* Asks the middleware for the users of a notification method of this interface. Of `number` the low 16 bits count; the
 * other arguments are passed on unchanged. Result: the middleware's. Logs nothing. */
GORVANET_API uint32_t gorvaNet_findSrvMthdNtfyUser(void *first, void *second, uint32_t number, void *fourth);

/* The message-management numbers; GORVANET_NUM_NONE before the start and after a release. */
GORVANET_API uint16_t gorvaNet_getCmdIntfNum(void);
GORVANET_API uint16_t gorvaNet_getNtfyIntfNum(void);

/* Stores a debug value in the descriptor. The library never reads it. */
GORVANET_API void gorvaNet_modDebug(uint32_t value);

/* The `unreg` callbacks of the two interface blocks: the middleware has dropped the interface. Clears its registration
 * flag and leaves its number, so that the getters and the user functions keep seeing the old one (kept for
 * compatibility).
 *
 * Log: "Message management(%d) unknown" for another number than the interface's, which changes nothing; warning
 * "Unset Flag[%s-%X] in ctx(%p) not set[%X] text[%s]". */
GORVANET_API void gorvaNet_cbEvtMsgMngt_unreg_msgCmd(uint16_t number);
GORVANET_API void gorvaNet_cbEvtMsgMngt_unreg_msgNtfy(uint16_t number);

/* ---- Records -----------------------------------------------------------------------------------------------------
 *
 * Plain structures without pointers: whoever holds one owns all of it. Members without a meaning of their own in the
 * library are named after their wire tag. Each record has the same five functions:
 *
 * copy          Copies field by field, texts as strncpy(3) does, and always terminates them; a source text that fills
 *               its array without a NUL loses its last character. Of a list, elements beyond the count stay untouched.
 *               Result: 0, or the first status other than 0 of a nested copy, which ends the copy.
 *               Log: "Copy <record> failed(%d)" for a failed nested record, "Copy <record> failed(%u)" for a failed
 *               element of a list.
 * clean         Releases what the record owns, which is nothing; hands on to the clean of nested records. `record` may
 *               be null.
 * serialize_lg  Result: the exact number of bytes that serialize writes for this content.
 * serialize     Writes the record's items at `*cursor` and moves the cursor behind them. The caller provides
 *               serialize_lg zeroed bytes: padding is not written. Texts must be terminated.
 *               Result: 0, or 4 with the cursor at the item that failed.
 *               Log: "lgChainIn(%d) lgMaxChainOut(%d)", then "pBody(%p): Type(%d) -> Error Before" once for each later
 *               number of the record, and in ipv6_prefix for each later text too.
 * unserialize   Reads the record's items at `*cursor` and moves the cursor behind them. It is given no length: the
 *               items must be complete. Bytes behind a text's NUL stay as they were.
 *               Result: 0, or 4 with the cursor at the item that failed and the fields from there on as they were.
 *               Log: "pBody(%p): Tl(%u-%u) expectded(%u)" for a wrong tag, "lgChainIn(%d) lgMaxChainOut(%d)" for a text
 *               that does not fit, then "pBody(%p): Type(%d) -> Error Before" once for each later number and text of
 *               the record; nested records and the elements of lists are not announced.
 */

/* State and a text that goes with it. Encodes to 24 bytes at least and 68 at most. */
struct state_info {
    uint8_t state;
    char info[46];
};

GORVANET_API uint32_t gorvaNet_state_info_copy(struct state_info *destination, const struct state_info *source);
GORVANET_API void gorvaNet_state_info_clean(struct state_info *record);
GORVANET_API uint32_t gorvaNet_state_info_serialize_lg(const struct state_info *record);
GORVANET_API uint32_t gorvaNet_state_info_serialize(const struct state_info *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_state_info_unserialize(struct state_info *record, const uint8_t **cursor);

/* Outcome of a SetIPv4Address request. Encodes to 12 bytes. */
struct ipv4_address_return {
    uint32_t result;
};

GORVANET_API uint32_t gorvaNet_ipv4_address_return_copy(struct ipv4_address_return *destination,
                                                        const struct ipv4_address_return *source);
GORVANET_API void gorvaNet_ipv4_address_return_clean(struct ipv4_address_return *record);
GORVANET_API uint32_t gorvaNet_ipv4_address_return_serialize_lg(const struct ipv4_address_return *record);
GORVANET_API uint32_t gorvaNet_ipv4_address_return_serialize(const struct ipv4_address_return *record,
                                                             uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv4_address_return_unserialize(struct ipv4_address_return *record,
                                                               const uint8_t **cursor);

/* Interface configuration: three numbers and two texts. Encodes to 60 bytes at least and 572 at most. */
struct intfConf {
    uint32_t field3;
    uint32_t field4;
    uint32_t field5;
    char field6[256];
    char field7[256];
};

GORVANET_API uint32_t gorvaNet_intfConf_copy(struct intfConf *destination, const struct intfConf *source);
GORVANET_API void gorvaNet_intfConf_clean(struct intfConf *record);
GORVANET_API uint32_t gorvaNet_intfConf_serialize_lg(const struct intfConf *record);
GORVANET_API uint32_t gorvaNet_intfConf_serialize(const struct intfConf *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_intfConf_unserialize(struct intfConf *record, const uint8_t **cursor);

/* One IPv6 prefix. Encodes to 120 bytes at least and 312 at most. */
struct ipv6_prefix {
    char field3[46]; /* prefix */
    uint32_t field4;
    uint32_t field5;
    uint32_t field6;
    uint32_t field7;
    uint32_t field8;
    uint32_t field9;
    uint32_t field10;
    char field11[150];
    uint8_t field12;
};

GORVANET_API uint32_t gorvaNet_ipv6_prefix_copy(struct ipv6_prefix *destination, const struct ipv6_prefix *source);
GORVANET_API void gorvaNet_ipv6_prefix_clean(struct ipv6_prefix *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_serialize_lg(const struct ipv6_prefix *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_serialize(const struct ipv6_prefix *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_unserialize(struct ipv6_prefix *record, const uint8_t **cursor);

/* An IPv6 prefix with two texts of configuration. Encodes to 144 bytes at least and 496 at most. */
struct ipv6_prefix_config {
    char field3[80];
    char field4[80];
    struct ipv6_prefix prefix;
};

GORVANET_API uint32_t gorvaNet_ipv6_prefix_config_copy(struct ipv6_prefix_config *destination,
                                                       const struct ipv6_prefix_config *source);
GORVANET_API void gorvaNet_ipv6_prefix_config_clean(struct ipv6_prefix_config *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_config_serialize_lg(const struct ipv6_prefix_config *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_config_serialize(const struct ipv6_prefix_config *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_config_unserialize(struct ipv6_prefix_config *record,
                                                              const uint8_t **cursor);

/* A list of IPv6 prefixes. Encodes to 12 bytes at least and 3132 at most. */
struct ipv6_prefixes {
    uint32_t field3; /* number of valid prefixes; not bounded, but 10 at most are used */
    struct ipv6_prefix prefixes[10];
};

GORVANET_API uint32_t gorvaNet_ipv6_prefixes_copy(struct ipv6_prefixes *destination,
                                                  const struct ipv6_prefixes *source);
GORVANET_API void gorvaNet_ipv6_prefixes_clean(struct ipv6_prefixes *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefixes_serialize_lg(const struct ipv6_prefixes *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefixes_serialize(const struct ipv6_prefixes *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_prefixes_unserialize(struct ipv6_prefixes *record, const uint8_t **cursor);

/* One IPv6 address. Encodes to 60 bytes at least and 104 at most. There is no tag 4. */
struct ipv6_address {
    char field3[46]; /* address */
    uint32_t field5;
    uint32_t field6;
    uint32_t field7;
    uint32_t field8;
};

GORVANET_API uint32_t gorvaNet_ipv6_address_copy(struct ipv6_address *destination, const struct ipv6_address *source);
GORVANET_API void gorvaNet_ipv6_address_clean(struct ipv6_address *record);
GORVANET_API uint32_t gorvaNet_ipv6_address_serialize_lg(const struct ipv6_address *record);
GORVANET_API uint32_t gorvaNet_ipv6_address_serialize(const struct ipv6_address *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_address_unserialize(struct ipv6_address *record, const uint8_t **cursor);

/* A configured IPv6 prefix with an address. Encodes to 204 bytes at least and 600 at most. */
struct ipv6_prefix_addr_conf {
    struct ipv6_prefix_config config;
    struct ipv6_address address;
};

GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_copy(struct ipv6_prefix_addr_conf *destination,
                                                          const struct ipv6_prefix_addr_conf *source);
GORVANET_API void gorvaNet_ipv6_prefix_addr_conf_clean(struct ipv6_prefix_addr_conf *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_serialize_lg(const struct ipv6_prefix_addr_conf *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_serialize(const struct ipv6_prefix_addr_conf *record,
                                                               uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_unserialize(struct ipv6_prefix_addr_conf *record,
                                                                 const uint8_t **cursor);

/* A list of them. Encodes to 12 bytes at least and 3012 at most. */
struct ipv6_prefix_addr_conf_list {
    uint32_t field3; /* number of valid confs; not bounded, but 5 at most are used */
    struct ipv6_prefix_addr_conf confs[5];
};

GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_list_copy(struct ipv6_prefix_addr_conf_list *destination,
                                                               const struct ipv6_prefix_addr_conf_list *source);
GORVANET_API void gorvaNet_ipv6_prefix_addr_conf_list_clean(struct ipv6_prefix_addr_conf_list *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_list_serialize_lg(const struct ipv6_prefix_addr_conf_list *record);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_list_serialize(const struct ipv6_prefix_addr_conf_list *record,
                                                                    uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_prefix_addr_conf_list_unserialize(struct ipv6_prefix_addr_conf_list *record,
                                                                      const uint8_t **cursor);

/* The IPv6 state of an interface. Encodes to 156 bytes at least and 5176 at most. Counts are not bounded, but of each
 * array no more than its elements are used. */
struct ipv6_properties {
    int8_t field3;
    int8_t field4;
    int8_t field5;
    int8_t field6;
    char field7[50];
    char field8[50];
    char field9[50];
    uint32_t field10; /* number of valid addresses in field11 */
    struct ipv6_address field11[2];
    uint32_t field12; /* number of valid addresses in field13 */
    struct ipv6_address field13[2];
    uint32_t field14; /* number of valid addresses in field15 */
    struct ipv6_address field15[10];
    char field16[46];
    uint32_t field17; /* number of valid prefixes in field18 */
    struct ipv6_prefix field18[10];
    char field19[256];
};

GORVANET_API uint32_t gorvaNet_ipv6_properties_copy(struct ipv6_properties *destination,
                                                    const struct ipv6_properties *source);
GORVANET_API void gorvaNet_ipv6_properties_clean(struct ipv6_properties *record);
GORVANET_API uint32_t gorvaNet_ipv6_properties_serialize_lg(const struct ipv6_properties *record);
GORVANET_API uint32_t gorvaNet_ipv6_properties_serialize(const struct ipv6_properties *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv6_properties_unserialize(struct ipv6_properties *record, const uint8_t **cursor);

/* Two texts of an IPv4 state. Encodes to 24 bytes at least and 188 at most. */
struct ipv4_info {
    char field3[16]; /* sized for a dotted-decimal address */
    char field4[150];
};

GORVANET_API uint32_t gorvaNet_ipv4_info_copy(struct ipv4_info *destination, const struct ipv4_info *source);
GORVANET_API void gorvaNet_ipv4_info_clean(struct ipv4_info *record);
GORVANET_API uint32_t gorvaNet_ipv4_info_serialize_lg(const struct ipv4_info *record);
GORVANET_API uint32_t gorvaNet_ipv4_info_serialize(const struct ipv4_info *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv4_info_unserialize(struct ipv4_info *record, const uint8_t **cursor);

/* The IPv4 state of an interface. Encodes to 120 bytes at least and 4312 at most. */
struct ipv4_properties {
    int8_t field3;
    char field4[50];
    char field5[50];
    uint32_t field6;
    char field7[16]; /* sized for a dotted-decimal address, as the next two */
    char field8[16];
    char field9[16];
    char field10[33];
    char field11[256];
    uint32_t infoCount; /* number of valid infos; not bounded, but 20 at most are used */
    struct ipv4_info infos[20];
};

GORVANET_API uint32_t gorvaNet_ipv4_properties_copy(struct ipv4_properties *destination,
                                                    const struct ipv4_properties *source);
GORVANET_API void gorvaNet_ipv4_properties_clean(struct ipv4_properties *record);
GORVANET_API uint32_t gorvaNet_ipv4_properties_serialize_lg(const struct ipv4_properties *record);
GORVANET_API uint32_t gorvaNet_ipv4_properties_serialize(const struct ipv4_properties *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv4_properties_unserialize(struct ipv4_properties *record, const uint8_t **cursor);

/* An IPv4 address with what goes with it. Encodes to 96 bytes at least and 208 at most. */
struct ipv4_address {
    uint32_t field3;
    uint32_t field4;
    uint8_t field5;
    char field6[33];
    char field7[16]; /* sized for a dotted-decimal address, as the next two */
    char field8[16];
    char field9[16];
    char field10[33];
};

GORVANET_API uint32_t gorvaNet_ipv4_address_copy(struct ipv4_address *destination, const struct ipv4_address *source);
GORVANET_API void gorvaNet_ipv4_address_clean(struct ipv4_address *record);
GORVANET_API uint32_t gorvaNet_ipv4_address_serialize_lg(const struct ipv4_address *record);
GORVANET_API uint32_t gorvaNet_ipv4_address_serialize(const struct ipv4_address *record, uint8_t **cursor);
GORVANET_API uint32_t gorvaNet_ipv4_address_unserialize(struct ipv4_address *record, const uint8_t **cursor);

/* ---- Commands ----------------------------------------------------------------------------------------------------
 *
 * Each method has the same functions.
 *
 * sendReq (client)
 *   Sends the request to the bus user named `server`. `callback` may be null: then no answer is awaited. `pass1` and
 *   `pass2` are handed to the middleware unchanged. Arguments are copied into the body.
 *   Result: the middleware's; 0 when nothing was sent, which the middleware may return too.
 *   Log: "user(%p): UserName Null"; "Allocating Memory Ctx[%s]".
 *
 * <method>_response (client)
 *   The callback for the answer. `context` is the middleware's request context, `user_data` the user data in it. A
 *   context without a callback is answered with status 20 instead.
 *   Its receiver logs, under "gorvaNet_recvRes_<method>": "Ctx[NULL] text[%s]"; at priority 0
 *   "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]" before abort(3).
 *
 * modSrv_recvMsg (server)
 *   Makes the user serve the method: `handler` and `data` are handed to the middleware, which gives them back to
 *   recvReq; `value3` is handed on unchanged.
 *   Result: 0 or the middleware's error code.
 *   Log: "user(%p): ModCliNtfyUser failed(%d)".
 *
 * <method>_handler (server)
 *   Called for each request with the message and the data given at modSrv_recvMsg. It answers through sendRes with that
 *   message, at once or later.
 *
 * recvReq (called by the middleware)
 *   Calls the handler, or without one answers at once with status 20.
 *   Log: "Ctx[NULL] text[%s]"; at priority 0 "Check Magic[%s-%X] Ctx[ptr(%p) magic(%X)] text[%s]" before abort(3).
 *
 * sendRes (server)
 *   Answers the message; answering once is the caller's duty. Does nothing when the middleware says that the message
 *   wants no answer.
 *   Log: "Allocating Memory Ctx[%s]".
 *
 * Body callbacks (called by the middleware). `type` is GORVANET_BODY_REQUEST or GORVANET_BODY_RESPONSE; any other is
 * refused with "Type(%d) unknown", which in freeBody has no line feed. Lines about a request are logged under the
 * callback's name with "msgCmdReq", lines about a response with "msgCmdRes".
 *
 * freeBody         Releases a body whose flag is 0, and leaves one with another flag alone. Of a request it looks for
 *                  null, at the magic, then at the flag; of a response at the flag, then at the magic, and it must not
 *                  be null (kept for compatibility).
 *                  Log: the two lines of recvReq.
 * serializeBody    Encodes the body into a new buffer, which becomes the caller's, to be released with free(3).
 *                  Result: 0; 1 unknown type; 4 null body, or the status of an encoder that failed; 5 no memory. On a
 *                  failure `*buffer` and `*size` stay untouched.
 *                  Log: the two lines of recvReq; "Allocating Memory N Ctx[%s]"; the lines of the records;
 *                  "lgChainIn(%d) lgMaxChainOut(%d)" for a text of the body itself;
 *                  "pBody(%p): Type(%d) -> Error Before" for a number of the body itself behind a failure; then
 *                  "BodyReq(%p): On serialize failed(%d)" for a request, "pBodyReq(%p): On serialize failed(%d)" for a
 *                  response, and the buffer is not released (kept for compatibility).
 * unserializeBody  Decodes a buffer into a new body, which becomes the caller's, to be released with freeBody. It is
 *                  given no length: the items must be complete. `*size` becomes the body's size in memory. The magic
 *                  on the wire is taken over unchecked.
 *                  Result: 0; 1 unknown type; 2 bad prologue, or (without a log line) a version other than the
 *                  method's; 4 bad field; 5 no memory. On a failure `*body` and `*size` stay untouched.
 *                  Log: "Allocating Memory Ctx[%s]"; the lines of the records; for the prologue and the fields of the
 *                  body itself the same lines as for those of a record, but that a failure in the prologue announces no
 *                  field behind it.
 * logBody          Stores a new empty text, to be released with free(3), or null when there is no memory for it.
 *                  Arguments but `text` are ignored.
 *                  Log: "Invalid parameter" for a null `text`; "Allocating Memory N Ctx[%s]".
 *
 * One-way methods (AskStateRenotification, Configure, ConfigureAllIPv6Intf) have no response: no callback and no
 * sendRes. Their sendReq has one value for the middleware, `pass`, where that of the others has `pass2`. Their body
 * callbacks refuse the response type with "No free body response process", "No Serialize response process" and
 * "No Unserialize response process", the last two with result 1.
 */

/* SetOsIfc, command 0: names a network interface to the service; the service answers with a result.
 * An interface name longer than 49 characters is cut without a message. */
#define GORVANET_MAGIC_MSGCMD_SETOSIFC 0x39132011u

typedef void gorvaNet_setOsIfc_response(void *context, void *user_data, uint32_t result);
typedef void gorvaNet_setOsIfc_handler(void *message, void *data, const char *ifName);

GORVANET_API uint32_t gorvaNet_sendReq_setOsIfc(void *user, gorvaNet_setOsIfc_response *callback, void *pass1,
                                                void *pass2, const char *server, const char *ifName);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_setOsIfc(void *user, gorvaNet_setOsIfc_handler *handler, void *data,
                                                      void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_setOsIfc;
GORVANET_API void gorvaNet_sendRes_setOsIfc(void *message, uint32_t result);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setOsIfc;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setOsIfc;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setOsIfc;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setOsIfc;

/* SetDhcp, command 1: sets the DHCP setting of a network interface; the service answers without a value.
 * An interface name longer than 49 characters is cut without a message. */
#define GORVANET_MAGIC_MSGCMD_SETDHCP 0x39132011u

typedef void gorvaNet_setDhcp_response(void *context, void *user_data);
typedef void gorvaNet_setDhcp_handler(void *message, void *data, const char *ifName, uint32_t dhcp);

GORVANET_API uint32_t gorvaNet_sendReq_setDhcp(void *user, gorvaNet_setDhcp_response *callback, void *pass1,
                                               void *pass2, const char *server, const char *ifName, uint32_t dhcp);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_setDhcp(void *user, gorvaNet_setDhcp_handler *handler, void *data,
                                                     void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_setDhcp;
GORVANET_API void gorvaNet_sendRes_setDhcp(void *message);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setDhcp;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setDhcp;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setDhcp;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setDhcp;

/* SetRdisc6, command 2: asks for IPv6 router discovery on a network interface; the service answers without a
 * value. An interface name longer than 49 characters is cut without a message. */
#define GORVANET_MAGIC_MSGCMD_SETRDISC6 0x34132011u

typedef void gorvaNet_setRdisc6_response(void *context, void *user_data);
typedef void gorvaNet_setRdisc6_handler(void *message, void *data, const char *ifName);

GORVANET_API uint32_t gorvaNet_sendReq_setRdisc6(void *user, gorvaNet_setRdisc6_response *callback, void *pass1,
                                                 void *pass2, const char *server, const char *ifName);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_setRdisc6(void *user, gorvaNet_setRdisc6_handler *handler, void *data,
                                                       void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_setRdisc6;
GORVANET_API void gorvaNet_sendRes_setRdisc6(void *message);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setRdisc6;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setRdisc6;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setRdisc6;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setRdisc6;

/* GetIPv4Props, command 3: asks for the IPv4 properties; the service answers with them and a result. `properties` is
 * borrowed in the callback and copied in sendRes.
 * Log of sendRes: "Copy ipv4_properties failed"; the answer is sent all the same. */
#define GORVANET_MAGIC_MSGCMD_GETIPV4PROPS 0x23331110u

typedef void gorvaNet_getIPv4Props_response(void *context, void *user_data, const struct ipv4_properties *properties,
                                            uint32_t result);
typedef void gorvaNet_getIPv4Props_handler(void *message, void *data);

GORVANET_API uint32_t gorvaNet_sendReq_getIPv4Props(void *user, gorvaNet_getIPv4Props_response *callback, void *pass1,
                                                    void *pass2, const char *server);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_getIPv4Props(void *user, gorvaNet_getIPv4Props_handler *handler,
                                                          void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_getIPv4Props;
GORVANET_API void gorvaNet_sendRes_getIPv4Props(void *message, const struct ipv4_properties *properties,
                                                uint32_t result);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_getIPv4Props;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv4Props;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv4Props;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_getIPv4Props;

/* GetIPv6Props, command 4: asks for the IPv6 properties; the service answers with them and a result. `properties` is
 * borrowed in the callback and copied in sendRes.
 * Log of sendRes: "Copy ipv6_properties failed"; the answer is sent all the same. */
#define GORVANET_MAGIC_MSGCMD_GETIPV6PROPS 0x24331110u

typedef void gorvaNet_getIPv6Props_response(void *context, void *user_data, const struct ipv6_properties *properties,
                                            uint32_t result);
typedef void gorvaNet_getIPv6Props_handler(void *message, void *data);

GORVANET_API uint32_t gorvaNet_sendReq_getIPv6Props(void *user, gorvaNet_getIPv6Props_response *callback, void *pass1,
                                                    void *pass2, const char *server);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_getIPv6Props(void *user, gorvaNet_getIPv6Props_handler *handler,
                                                          void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_getIPv6Props;
GORVANET_API void gorvaNet_sendRes_getIPv6Props(void *message, const struct ipv6_properties *properties,
                                                uint32_t result);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_getIPv6Props;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_getIPv6Props;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_getIPv6Props;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_getIPv6Props;

/* SetIPv4Address, command 5: sets an IPv4 address; the service answers with an outcome record. Records are copied in
 * sendReq and sendRes, and borrowed in the handler and the callback.
 * Log of sendReq: "Copy ipv4_address failed"; the request is sent all the same.
 * Log of sendRes: "Copy ipv4_address_return failed"; the answer is sent all the same. */
#define GORVANET_MAGIC_MSGCMD_SETIPV4ADDRESS 0x23331320u

typedef void gorvaNet_setIPv4Address_response(void *context, void *user_data,
                                              const struct ipv4_address_return *outcome);
typedef void gorvaNet_setIPv4Address_handler(void *message, void *data, const struct ipv4_address *address);

GORVANET_API uint32_t gorvaNet_sendReq_setIPv4Address(void *user, gorvaNet_setIPv4Address_response *callback,
                                                      void *pass1, void *pass2, const char *server,
                                                      const struct ipv4_address *address);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_setIPv4Address(void *user, gorvaNet_setIPv4Address_handler *handler,
                                                            void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_setIPv4Address;
GORVANET_API void gorvaNet_sendRes_setIPv4Address(void *message, const struct ipv4_address_return *outcome);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv4Address;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv4Address;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv4Address;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setIPv4Address;

/* SetMtu, command 6: sets an MTU; the service answers with a result. */
#define GORVANET_MAGIC_MSGCMD_SETMTU 0x20190222u

typedef void gorvaNet_setMtu_response(void *context, void *user_data, uint32_t result);
typedef void gorvaNet_setMtu_handler(void *message, void *data, uint32_t mtu);

GORVANET_API uint32_t gorvaNet_sendReq_setMtu(void *user, gorvaNet_setMtu_response *callback, void *pass1, void *pass2,
                                              const char *server, uint32_t mtu);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_setMtu(void *user, gorvaNet_setMtu_handler *handler, void *data,
                                                    void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_setMtu;
GORVANET_API void gorvaNet_sendRes_setMtu(void *message, uint32_t result);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setMtu;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setMtu;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setMtu;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setMtu;

/* SetIPv6PrefixAndAddress, command 7: sets IPv6 prefixes with their addresses; the service answers with a result.
 * `list` is copied in sendReq and borrowed in the handler. Log of sendReq: "Copy ipv6_prefix_addr_conf_list failed";
 * the request is sent all the same. */
#define GORVANET_MAGIC_MSGCMD_SETIPV6PREFIXANDADDRESS 0x24331320u

typedef void gorvaNet_setIPv6PrefixAndAddress_response(void *context, void *user_data, uint32_t result);
typedef void gorvaNet_setIPv6PrefixAndAddress_handler(void *message, void *data,
                                                      const struct ipv6_prefix_addr_conf_list *list);

GORVANET_API uint32_t gorvaNet_sendReq_setIPv6PrefixAndAddress(void *user,
                                                               gorvaNet_setIPv6PrefixAndAddress_response *callback,
                                                               void *pass1, void *pass2, const char *server,
                                                               const struct ipv6_prefix_addr_conf_list *list);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_setIPv6PrefixAndAddress(void *user,
                                                                     gorvaNet_setIPv6PrefixAndAddress_handler *handler,
                                                                     void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_setIPv6PrefixAndAddress;
GORVANET_API void gorvaNet_sendRes_setIPv6PrefixAndAddress(void *message, uint32_t result);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_setIPv6PrefixAndAddress;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_setIPv6PrefixAndAddress;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_setIPv6PrefixAndAddress;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_setIPv6PrefixAndAddress;

/* AskStateRenotification, command 8: asks the service to report a state again. `info` is copied in sendReq and
 * borrowed in the handler.
 * Log of sendReq: "Copy state_info failed"; the request is sent all the same. */
#define GORVANET_MAGIC_MSGCMD_ASKSTATERENOTIFICATION 0x13235326u

typedef void gorvaNet_askStateRenotification_handler(void *message, void *data, const struct state_info *info);

GORVANET_API uint32_t gorvaNet_sendReq_askStateRenotification(void *user, void *pass, const char *server,
                                                              const struct state_info *info);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_askStateRenotification(void *user,
                                                                    gorvaNet_askStateRenotification_handler *handler,
                                                                    void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_askStateRenotification;
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_askStateRenotification;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_askStateRenotification;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_askStateRenotification;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_askStateRenotification;

/* RegisterPrefixStatus, command 9: hands three values to the service, which answers with a result. `pointer` is opaque:
 * it is carried and never dereferenced. unserializeBody has one result more: 12, with "Invalid pointer value(%llu)",
 * for a pointer value that does not fit 32 bits; and the line "pBody(%p): Tl(%llu-%llu) expectded(%u)" for its wide
 * item. */
#define GORVANET_MAGIC_MSGCMD_REGISTERPREFIXSTATUS 0x20150227u

typedef void gorvaNet_registerPrefixStatus_response(void *context, void *user_data, uint32_t result);
typedef void gorvaNet_registerPrefixStatus_handler(void *message, void *data, uint32_t first, void *pointer,
                                                   uint32_t last);

GORVANET_API uint32_t gorvaNet_sendReq_registerPrefixStatus(void *user,
                                                            gorvaNet_registerPrefixStatus_response *callback,
                                                            void *pass1, void *pass2, const char *server,
                                                            uint32_t first, void *pointer, uint32_t last);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_registerPrefixStatus(void *user,
                                                                  gorvaNet_registerPrefixStatus_handler *handler,
                                                                  void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_registerPrefixStatus;
GORVANET_API void gorvaNet_sendRes_registerPrefixStatus(void *message, uint32_t result);
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_registerPrefixStatus;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_registerPrefixStatus;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_registerPrefixStatus;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_registerPrefixStatus;

/* Configure, command 10: hands an interface configuration to the service. `configuration` is copied in sendReq and
 * borrowed in the handler.
 * Log of sendReq: "Copy intfConf failed"; the request is sent all the same. */
#define GORVANET_MAGIC_MSGCMD_CONFIGURE 0x13235326u

typedef void gorvaNet_configure_handler(void *message, void *data, const struct intfConf *configuration);

GORVANET_API uint32_t gorvaNet_sendReq_configure(void *user, void *pass, const char *server,
                                                 const struct intfConf *configuration);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_configure(void *user, gorvaNet_configure_handler *handler, void *data,
                                                       void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_configure;
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_configure;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configure;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configure;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_configure;

/* ConfigureAllIPv6Intf, command 11: hands a value for all IPv6 interfaces to the service. */
#define GORVANET_MAGIC_MSGCMD_CONFIGUREALLIPV6INTF 0x20161209u

typedef void gorvaNet_configureAllIPv6Intf_handler(void *message, void *data, uint32_t value);

GORVANET_API uint32_t gorvaNet_sendReq_configureAllIPv6Intf(void *user, void *pass, const char *server, uint32_t value);
GORVANET_API int32_t gorvaNet_modSrv_recvMsg_configureAllIPv6Intf(void *user,
                                                                  gorvaNet_configureAllIPv6Intf_handler *handler,
                                                                  void *data, void *value3);
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_configureAllIPv6Intf;
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgCmd_configureAllIPv6Intf;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgCmd_configureAllIPv6Intf;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgCmd_configureAllIPv6Intf;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgCmd_configureAllIPv6Intf;

/* ---- Notifications -----------------------------------------------------------------------------------------------
 *
 * A notification is a command request without a response and without a named receiver: it has the same body callbacks,
 * and goes to every user that accepted it.
 */

/* PrefixStatus, notification 0: the service tells the status of a set of IPv6 prefixes. */
#define GORVANET_MAGIC_MSGNTFY_PREFIXSTATUS 0x20150226u

/* `name` and `prefixes` are borrowed for the length of the call. */
typedef void gorvaNet_prefixStatus_handler(void *message, void *data, const char *name,
                                           const struct ipv6_prefixes *prefixes);

/* Sends the notification; the body gets copies of `name`, cut after 79 characters without a message, and `prefixes`.
 * `pass1` and `pass2` are handed to the middleware unchanged.
 *
 * Log: "Allocating Memory Ctx[%s]", and nothing is sent; "Copy ipv6_prefixes failed", and it is sent all the same. */
GORVANET_API void gorvaNet_sendReq_ntfyPrefixStatus(void *user, void *pass1, void *pass2, const char *name,
                                                    const struct ipv6_prefixes *prefixes);

/* Makes the user receive the notification from the user `user_name` on the bus `bus_name`: `handler` and `data` are
 * handed to the middleware, which gives them back to gorvaNet_recvReq_ntfyPrefixStatus; `value3` is handed on
 * unchanged.
 *
 * Result: 0 or the middleware's error code.
 * Log: "user(%p) bus name(%s) user name(%p): ModCliNtfyUser". */
GORVANET_API uint32_t gorvaNet_modCliNtfyUser_recvMsg_prefixStatus(void *user, gorvaNet_prefixStatus_handler *handler,
                                                                   void *data, void *value3, const char *bus_name,
                                                                   const char *user_name);

/* As recvReq and the body callbacks of the one-way commands, but that freeBody treats the body as that of a response:
 * it looks at the flag, then at the magic, and the body must not be null. Lines about the body are logged under the
 * callback's name with "msgNtfyReq". */
GORVANET_API gorvaNet_recvReq gorvaNet_recvReq_ntfyPrefixStatus;
GORVANET_API gorvaNet_freeBody gorvaNet_cbEvtMsgMngt_freeBody_msgNtfy_prefixStatus;
GORVANET_API gorvaNet_serializeBody gorvaNet_cbEvtMsgMngt_serializeBody_msgNtfy_prefixStatus;
GORVANET_API gorvaNet_unserializeBody gorvaNet_cbEvtMsgMngt_unserializeBody_msgNtfy_prefixStatus;
GORVANET_API gorvaNet_logBody gorvaNet_cbEvtMsgMngt_logBody_msgNtfy_prefixStatus;

#ifdef __cplusplus
}
#endif

#endif
