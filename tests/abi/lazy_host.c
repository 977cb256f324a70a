/* lazy_host LIBRARY FUNCTION: a process that lacks one function of the middleware or the event loop, of which it was
 * linked to export all but FUNCTION. It loads the library and uses all of it that does without FUNCTION; what needs it
 * ends the process. */

#include "gorvanet.h"

#include <dlfcn.h>
#include <stdio.h>
#include <string.h>
#include <sys/wait.h>
#include <unistd.h>

/* ---- The bus, which does as little as it can ------------------------------------------------------------------------ */

#define FUNCTIONS 13

static const char *const names[FUNCTIONS] = {
    "ruvo_addEvtBase",
    "zebCore_getBase_msgMngt",
    "zebCore_putBase_msgMngt",
    "zebCore_sendMsgReq_toNameUser",
    "zebCore_sendMsgRes",
    "zebCore_isMsg_needRes",
    "zebIntf_regUser_msgMngt",
    "zebIntf_unregUser_msgMngt",
    "zebIntf_findSrvMthdNtfyUser",
    "zebIntf_getCore_user",
    "zebIntf_modSrv_mthd",
    "zebIntf_modCliNtfyUser_mthd",
    "zebIntf_sendReq_ntfy",
};

static unsigned calls[FUNCTIONS];

static int place_of(const char *name)
{
    int place = 0;
    while (place < FUNCTIONS && strcmp(names[place], name) != 0)
        place++;
    return place;
}

static uintptr_t count(const char *name)
{
    calls[place_of(name)]++;
    return 0;
}

uintptr_t ruvo_addEvtBase(void);
uintptr_t zebCore_getBase_msgMngt(const char *name, void **place, uintptr_t methods);
uintptr_t zebCore_putBase_msgMngt(void);
uintptr_t zebCore_sendMsgReq_toNameUser(void);
uintptr_t zebCore_sendMsgRes(void);
uintptr_t zebCore_isMsg_needRes(void);
uintptr_t zebIntf_regUser_msgMngt(void);
uintptr_t zebIntf_unregUser_msgMngt(void);
uintptr_t zebIntf_findSrvMthdNtfyUser(void);
uintptr_t zebIntf_getCore_user(void);
uintptr_t zebIntf_modSrv_mthd(void);
uintptr_t zebIntf_modCliNtfyUser_mthd(void);
uintptr_t zebIntf_sendReq_ntfy(void);

uintptr_t ruvo_addEvtBase(void)
{
    return count(__func__);
}

uintptr_t zebCore_getBase_msgMngt(const char *name, void **place, uintptr_t methods)
{
    static void *block[3 + 6 * GORVANET_COUNT_CMD];
    (void)name;
    *place = block;
    return count(__func__) + methods;
}

uintptr_t zebCore_putBase_msgMngt(void)
{
    return count(__func__);
}

uintptr_t zebCore_sendMsgReq_toNameUser(void)
{
    return count(__func__);
}

uintptr_t zebCore_sendMsgRes(void)
{
    return count(__func__);
}

uintptr_t zebCore_isMsg_needRes(void)
{
    return count(__func__);
}

uintptr_t zebIntf_regUser_msgMngt(void)
{
    return count(__func__);
}

uintptr_t zebIntf_unregUser_msgMngt(void)
{
    return count(__func__);
}

uintptr_t zebIntf_findSrvMthdNtfyUser(void)
{
    return count(__func__);
}

uintptr_t zebIntf_getCore_user(void)
{
    return count(__func__);
}

uintptr_t zebIntf_modSrv_mthd(void)
{
    return count(__func__);
}

uintptr_t zebIntf_modCliNtfyUser_mthd(void)
{
    return count(__func__);
}

uintptr_t zebIntf_sendReq_ntfy(void)
{
    return count(__func__);
}

/* ---- The library, and what each use of it needs ---------------------------------------------------------------------- */

static void *library;

/* ISO C has no conversion from an object pointer to a function pointer. */
static void find(const char *name, void *function)
{
    void *address = dlsym(library, name);
    if (!address) {
        printf("%s\n", dlerror());
        _exit(1);
    }
    memcpy(function, &address, sizeof address);
}

static struct gorvaNet_descriptor *descriptor(void)
{
    struct gorvaNet_descriptor *base;
    find("gorvaNet_base", &base);
    return base;
}

static int start(void)
{
    uint32_t (*initialize)(void);
    find("gorvanet_initialize", &initialize);
    return initialize() == 0;
}

/* Stands as after a start, whether there has been one or not. */
static int stop(void)
{
    uint32_t (*del)(void);
    find("gorvaNet_delBase", &del);
    descriptor()->state = GORVANET_STATE_BASE_INIT;
    descriptor()->flags = GORVANET_FLAGS_BASE_REG_CMD | GORVANET_FLAGS_BASE_REG_NTFY;
    return del() == 0;
}

static int attach(void)
{
    uint32_t (*attach_user)(void *user, void *value, void *reference, uint32_t selector);
    find("gorvaNet_regUser_msgMngt", &attach_user);
    descriptor()->cmd.num = 1;
    return attach_user(NULL, NULL, NULL, GORVANET_SELECT_CMD) == 0;
}

static int detach(void)
{
    int32_t (*detach_user)(void *user, uint32_t selector);
    find("gorvaNet_unregUser_msgMngt", &detach_user);
    descriptor()->cmd.num = 1;
    return detach_user(NULL, GORVANET_SELECT_CMD) == 0;
}

static int look(void)
{
    uint32_t (*find_users)(void *first, void *second, uint32_t number, void *fourth);
    find("gorvaNet_findSrvMthdNtfyUser", &find_users);
    return find_users(NULL, NULL, 0, NULL) == 0;
}

static int send_request(void)
{
    uint32_t (*ask)(void *user, gorvaNet_setMtu_response *callback, void *pass1, void *pass2, const char *server,
                    uint32_t mtu);
    find("gorvaNet_sendReq_setMtu", &ask);
    return ask(NULL, NULL, NULL, NULL, "service", 1400) == 0;
}

static int receive_unhandled(void)
{
    uint32_t body[3] = {GORVANET_MAGIC_MSGCMD_SETMTU, 0, 1400};
    gorvaNet_recvReq *receive;
    find("gorvaNet_recvReq_setMtu", &receive);
    receive(NULL, body, NULL, NULL);
    return 1;
}

static int respond(void)
{
    void (*answer)(void *message, uint32_t result);
    find("gorvaNet_sendRes_setMtu", &answer);
    answer(NULL, 0);
    return 1;
}

static int serve(void)
{
    int32_t (*accept)(void *user, gorvaNet_setMtu_handler *handler, void *data, void *value3);
    find("gorvaNet_modSrv_recvMsg_setMtu", &accept);
    return accept(NULL, NULL, NULL, NULL) == 0;
}

static int listen_to_notifications(void)
{
    uint32_t (*accept)(void *user, gorvaNet_prefixStatus_handler *handler, void *data, void *value3,
                       const char *bus_name, const char *user_name);
    find("gorvaNet_modCliNtfyUser_recvMsg_prefixStatus", &accept);
    return accept(NULL, NULL, NULL, NULL, "bus", "service") == 0;
}

static int notify(void)
{
    static const struct ipv6_prefixes prefixes;
    void (*send)(void *user, void *pass1, void *pass2, const char *name, const struct ipv6_prefixes *status);
    find("gorvaNet_sendReq_ntfyPrefixStatus", &send);
    send(NULL, NULL, NULL, "lan0", &prefixes);
    return 1;
}

static const struct use {
    int (*run)(void); /* does it work? */
    const char *needs[2];
} uses[] = {
    {start, {"zebCore_getBase_msgMngt", "ruvo_addEvtBase"}},
    {stop, {"zebCore_putBase_msgMngt", NULL}},
    {attach, {"zebIntf_regUser_msgMngt", NULL}},
    {detach, {"zebIntf_unregUser_msgMngt", NULL}},
    {look, {"zebIntf_findSrvMthdNtfyUser", NULL}},
    {send_request, {"zebIntf_getCore_user", "zebCore_sendMsgReq_toNameUser"}},
    {receive_unhandled, {"zebCore_sendMsgRes", NULL}},
    {respond, {"zebCore_isMsg_needRes", "zebCore_sendMsgRes"}},
    {serve, {"zebIntf_modSrv_mthd", NULL}},
    {listen_to_notifications, {"zebIntf_modCliNtfyUser_mthd", NULL}},
    {notify, {"zebIntf_sendReq_ntfy", NULL}},
};

static int needs(const struct use *use, const char *name)
{
    return (use->needs[0] && strcmp(use->needs[0], name) == 0) || (use->needs[1] && strcmp(use->needs[1], name) == 0);
}

/* ---- What is expected ------------------------------------------------------------------------------------------------ */

static int failures;

static void fail(const char *what, const char *name)
{
    printf("%s: %s\n", what, name);
    failures++;
}

/* The process does lack the function: a library that wants all its symbols at once cannot be loaded here. */
static void check_missing(const char *path, const char *missing)
{
    if (dlopen(path, RTLD_NOW))
        fail("nothing is missing in this process", missing);
    else if (!strstr(dlerror(), missing))
        fail("something else is missing than", missing);
}

/* Runs a use in a child: it ends where the function is called. */
static void check_fatal(const struct use *use, const char *missing)
{
    char said[1024] = "";
    size_t length = 0;
    ssize_t got;
    int status;
    int ends[2];
    fflush(stdout);
    if (pipe(ends) != 0)
        fail("pipe", missing);
    pid_t child = fork();
    if (child == 0) {
        dup2(ends[1], STDERR_FILENO);
        use->run();
        _exit(0);
    }
    close(ends[1]);
    while (length < sizeof said - 1 && (got = read(ends[0], said + length, sizeof said - 1 - length)) > 0)
        length += (size_t)got;
    close(ends[0]);
    waitpid(child, &status, 0);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 127)
        fail("a process that calls what it lacks goes on", missing);
    if (!strstr(said, "undefined symbol") || !strstr(said, missing))
        fail("the dynamic linker does not name it", missing);
}

int main(int argc, char **argv)
{
    if (argc != 3 || place_of(argv[2]) == FUNCTIONS)
        return 2;
    const char *missing = argv[2];
    check_missing(argv[1], missing);

    library = dlopen(argv[1], RTLD_LAZY);
    if (!library) {
        printf("%s\n", dlerror());
        return 1;
    }
    int fatal = 0;
    for (size_t i = 0; i < sizeof uses / sizeof *uses; i++) {
        if (needs(&uses[i], missing)) {
            check_fatal(&uses[i], missing);
            fatal++;
        } else if (!uses[i].run()) {
            fail("a use that does without it fails", uses[i].needs[0]);
        }
    }
    if (!fatal)
        fail("no use needs it", missing);

    /* All others were called, but those that only stand beside it. */
    for (int i = 0; i < FUNCTIONS; i++) {
        int expected = 0;
        for (size_t use = 0; use < sizeof uses / sizeof *uses; use++)
            expected += needs(&uses[use], names[i]) && !needs(&uses[use], missing);
        if (expected && !calls[i])
            fail("never called", names[i]);
    }
    return failures != 0;
}
