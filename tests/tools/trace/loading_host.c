/* A process that is not linked with the library: it loads it, for itself alone, and is its bus.
 *
 *     trace_loading_host LIBRARY
 *
 * Twice in a row it loads the library, starts it, lets a SetMtu request travel to itself and back, gives the decoder
 * damaged bytes, and unloads the library. It prints what it finds, and fails where the library, or errno, is not as it
 * should be. */

#include "gorvanet.h"

#include <dlfcn.h>
#include <errno.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

struct record {
    uint32_t reserved;
    const char *name;
    gorvaNet_freeBody *freeBody;
    gorvaNet_serializeBody *serializeBody;
    gorvaNet_unserializeBody *unserializeBody;
    gorvaNet_logBody *logBody;
};

struct block {
    const char *name;
    gorvaNet_unreg *unreg;
    void *own;
    struct record records[GORVANET_COUNT_CMD];
};

typedef void receiver(void *ignored, void *context, void *body);

static struct block blocks[2];
static struct gorvaNet_descriptor *descriptor;
static receiver *waiting;
static void *context[2];
static uint32_t answer;

static void check(int holds, const char *what)
{
    if (holds)
        return;
    printf("not so: %s\n", what);
    exit(1);
}

/* ---- The bus: what is sent is encoded, decoded, and handed over at once ------------------------------------------- */

uint16_t zebCore_getBase_msgMngt(const char *interface_name, struct block **block, uint32_t count);
int32_t zebCore_putBase_msgMngt(uint32_t number, uint32_t zero);
int32_t ruvo_addEvtBase(void (*callback)(void *, int32_t), void *hook_context);
void *zebIntf_getCore_user(void *user);
uint32_t zebCore_sendMsgReq_toNameUser(void *core_user, void *body, receiver *receive, gorvaNet_function *callback,
                                       void *pass1, void *pass2, const char *server, uint32_t number, uint32_t method,
                                       uint32_t any, uint32_t options);
int32_t zebCore_isMsg_needRes(void *message);
void zebCore_sendMsgRes(void *message, void *body, uint32_t status, uint32_t options);

uint16_t zebCore_getBase_msgMngt(const char *interface_name, struct block **block, uint32_t count)
{
    (void)count;
    *block = &blocks[strcmp(interface_name, "GorvaNetCmd") != 0];
    return 1;
}

int32_t zebCore_putBase_msgMngt(uint32_t number, uint32_t zero)
{
    (void)number, (void)zero;
    return 0;
}

int32_t ruvo_addEvtBase(void (*callback)(void *, int32_t), void *hook_context)
{
    (void)callback, (void)hook_context;
    return 0;
}

void *zebIntf_getCore_user(void *user)
{
    return user;
}

/* Encodes, releases, decodes. */
static void *carry(const struct record *record, uint32_t type, void *body)
{
    void *bytes = NULL;
    uint32_t size = 0;
    check(record->serializeBody(type, body, &bytes, &size) == 0, "it encodes");
    record->freeBody(type, body);
    void *arrived = NULL;
    errno = 4711;
    check(record->unserializeBody(type, bytes, &arrived, &size) == 0, "it decodes");
    check(errno == 4711, "errno stays");
    free(bytes);
    return arrived;
}

static void serve(void *message, void *data, uint32_t mtu)
{
    (void)data;
    void (*respond)(void *, uint32_t) = NULL;
    void *library = dlopen("libGorvanet.so.1", RTLD_LAZY | RTLD_NOLOAD);
    *(void **)&respond = dlsym(library, "gorvaNet_sendRes_setMtu");
    dlclose(library);
    respond(message, mtu + 1);
}

uint32_t zebCore_sendMsgReq_toNameUser(void *core_user, void *body, receiver *receive, gorvaNet_function *callback,
                                       void *pass1, void *pass2, const char *server, uint32_t number, uint32_t method,
                                       uint32_t any, uint32_t options)
{
    (void)core_user, (void)pass1, (void)server, (void)number, (void)any, (void)options;
    const struct record *record = &blocks[0].records[method];
    waiting = receive;
    *(gorvaNet_function **)&context[0] = callback;
    context[1] = pass2;
    void *arrived = carry(record, GORVANET_BODY_REQUEST, body);
    static int message;
    descriptor->cmdMethods[method].recvReq(&message, arrived, (gorvaNet_function *)serve, NULL);
    record->freeBody(GORVANET_BODY_REQUEST, arrived);
    return 1;
}

int32_t zebCore_isMsg_needRes(void *message)
{
    (void)message;
    return 0;
}

void zebCore_sendMsgRes(void *message, void *body, uint32_t status, uint32_t options)
{
    (void)message, (void)status, (void)options;
    const struct record *record = &blocks[0].records[6];
    void *arrived = carry(record, GORVANET_BODY_RESPONSE, body);
    waiting(NULL, context, arrived);
    record->freeBody(GORVANET_BODY_RESPONSE, arrived);
}

/* ---- The process -------------------------------------------------------------------------------------------------- */

static void on_mtu_set(void *request_context, void *user_data, uint32_t result)
{
    (void)request_context, (void)user_data;
    answer = result;
}

/* A SetMtu response whose tag 3 is a 5, at the very end of its memory but for the value. */
static void decode_damaged(void)
{
    static const unsigned char bytes[] = {0, 0, 0, 0, 0, 0, 0, 4, 0x20, 0x19, 0x02, 0x22, 0, 0, 0, 1,
                                          0, 0, 0, 4, 0, 0, 0, 0, 0,    0,    0,    5,    0, 0, 0, 4};
    void *body = NULL;
    uint32_t size = 0;
    check(blocks[0].records[6].unserializeBody(GORVANET_BODY_RESPONSE, bytes, &body, &size) == 4, "it is refused");
    check(!body && !size, "nothing is given");
}

/* A SetOsIfc request with a name of 60 characters, at the very end of its memory behind the NUL. */
static void decode_long_name(void)
{
    static const unsigned char start[] = {0, 0, 0, 0, 0, 0, 0, 4, 0x39, 0x13, 0x20, 0x11, 0, 0, 0, 1,
                                          0, 0, 0, 4, 0, 0, 0, 0, 0,    0,    0,    3,    0, 0, 0, 64};
    unsigned char *bytes = malloc(sizeof start + 61);
    check(bytes != NULL, "there is memory");
    memcpy(bytes, start, sizeof start);
    memset(bytes + sizeof start, 'a', 60);
    bytes[sizeof start + 60] = 0;
    void *body = NULL;
    uint32_t size = 0;
    check(blocks[0].records[0].unserializeBody(GORVANET_BODY_REQUEST, bytes, &body, &size) == 4, "it is refused too");
    free(bytes);
}

static void use(const char *path)
{
    void *library = dlopen(path, RTLD_LAZY | RTLD_LOCAL);
    check(library != NULL, "the library can be loaded");
    descriptor = dlsym(library, "gorvaNet_base");
    check(descriptor->state == GORVANET_STATE_BASE_WAIT_INIT, "the library is as new");
    uint32_t (*start)(void) = NULL;
    *(void **)&start = dlsym(library, "gorvanet_initialize");
    check(start() == 0, "the library starts");
    uint32_t (*send)(void *, gorvaNet_setMtu_response *, void *, void *, const char *, uint32_t) = NULL;
    *(void **)&send = dlsym(library, "gorvaNet_sendReq_setMtu");
    answer = 0;
    check(send(&blocks, on_mtu_set, NULL, NULL, "far away", 1400) == 1, "the bus's result comes back");
    printf("answer %u\n", (unsigned)answer);
    decode_damaged();
    decode_long_name();
    dlclose(library);
    check(!dlopen("libGorvanet.so.1", RTLD_LAZY | RTLD_NOLOAD), "the library is unloaded");
}

int main(int count, char **arguments)
{
    if (count != 2)
        return 2;
    use(arguments[1]);
    use(arguments[1]);
    return 0;
}
