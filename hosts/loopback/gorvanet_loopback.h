/* The loopback host: a message bus and an event loop inside one process, for libGorvanet.
 *
 * The library takes its middleware (zebCore_*, zebIntf_*) and its event loop (ruvo_*) from the process. Link this host
 * to have them without a bus: services and clients in one process then talk to each other through real messages.
 * Every body is encoded to bytes, queued, decoded and handed over on a later turn of the loop, by the library's own
 * callbacks, as on a bus between processes.
 *
 *     void *service = gorvanet_loopback_add_user("service");
 *     void *client = gorvanet_loopback_add_user("client");
 *     gorvanet_initialize();
 *     gorvaNet_regUser_msgMngt(service, NULL, NULL, GORVANET_SELECT_BOTH);
 *     gorvaNet_regUser_msgMngt(client, NULL, NULL, GORVANET_SELECT_BOTH);
 *     gorvaNet_modSrv_recvMsg_setOsIfc(service, handler, data, NULL);
 *     gorvaNet_sendReq_setOsIfc(client, callback, NULL, user_data, "service", "eth0");
 *     gorvanet_loopback_run();
 *     gorvanet_loopback_tear_down();
 *
 * What the library passes through means here:
 *
 * - Accepting a method (gorvaNet_modSrv_*, gorvaNet_modCliNtfyUser_*): value 1 is the handler, value 2 its data; value
 *   3 is kept and not used. Accepting again replaces the earlier handler and data.
 * - Sending a request: the callback and pass-through 2, its user data, become the request context that the callback
 *   gets; it is valid during the callback only. Pass-through 1 is not used. The result is the message's running number,
 *   0 when nothing was sent.
 * - A method that the serving user has not accepted, or accepted without a handler, is answered with status 20: the
 *   client's callback is not called, the status is reported.
 * - A handler may answer later, through the message it was given, from any later turn.
 * - A notification goes to the users that accepted it from its sender, by name, each with a body of its own. There is
 *   one bus here, so the bus name is not looked at.
 * - gorvaNet_findSrvMthdNtfyUser answers the number of users that accept the notification method `number`, whoever
 *   sends it; its other arguments are not looked at.
 * - An interface name that is registered again replaces its earlier registration and keeps its number.
 *
 * The host checks its callers. A misuse is reported and refused, with one of the results below where a result can say
 * it; bodies that came with it are released. One cannot be: a body with a number or a message that the host does not
 * know, such as a request that is sent before the start, since only the method knows how to release it.
 *
 * One thread: everything is called on the thread that runs the loop. Out of memory ends the process, and so does a
 * handler, callback or posted function that throws.
 */
#ifndef GORVANET_LOOPBACK_H
#define GORVANET_LOOPBACK_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Results ----------------------------------------------------------------------------------------------------- */

/* Results of this host's functions and of the middleware functions that it provides; 0 is success. */
#define GORVANET_LOOPBACK_BAD_ARGUMENT   101 /* a null or empty argument where something is needed */
#define GORVANET_LOOPBACK_UNKNOWN_USER   102 /* not a user, or one that was removed, or a core user for a user */
#define GORVANET_LOOPBACK_UNKNOWN_NUMBER 103 /* no interface is registered under this message-management number */
#define GORVANET_LOOPBACK_NOT_ATTACHED   104 /* the user is not attached to the interface */
#define GORVANET_LOOPBACK_UNKNOWN_METHOD 105 /* the interface has no method of this index */
#define GORVANET_LOOPBACK_WRONG_NAME     106 /* not the name of the interface that the blocks or the number belong to */
#define GORVANET_LOOPBACK_BUSY           107 /* called from inside a turn or the observer, where it cannot be */

/* ---- Users ------------------------------------------------------------------------------------------------------- */

/* Adds a bus user.
 *
 * name: copied; not empty, and no other user's.
 * Result: the user to give to the library, valid until it is removed; null after a misuse report. It is a handle, not
 * an address: never read through it. */
void *gorvanet_loopback_add_user(const char *name);

/* Removes a user with all that it accepted. Requests that it sent or received and that still wait for their answer end
 * here, each with a report; messages on their way to it are reported as undeliverable on their turn. May be called by
 * the user's own handlers.
 *
 * Result: 0; GORVANET_LOOPBACK_UNKNOWN_USER; GORVANET_LOOPBACK_BUSY when called from the observer. */
int32_t gorvanet_loopback_remove_user(void *user);

/* ---- The event loop ---------------------------------------------------------------------------------------------- */

#define GORVANET_LOOPBACK_IDLE    0 /* nothing is queued any more */
#define GORVANET_LOOPBACK_STOPPED 1 /* gorvanet_loopback_stop was called */

/* Takes turns until nothing is queued or it is stopped. One turn hands over one message or calls one posted function.
 *
 * Result: GORVANET_LOOPBACK_IDLE, GORVANET_LOOPBACK_STOPPED; GORVANET_LOOPBACK_BUSY when called from inside a turn. */
int32_t gorvanet_loopback_run(void);

/* Takes one turn, if anything is queued. Result: as gorvanet_loopback_run; GORVANET_LOOPBACK_STOPPED after a turn. */
int32_t gorvanet_loopback_turn(void);

/* Ends the run that is going on, after the present turn; what is queued stays queued. Without a run, nothing. */
void gorvanet_loopback_stop(void);

/* Queues a call of `function` with `data`, behind everything that is queued already.
 *
 * data: handed on; the caller keeps it alive until the call. It is never called when the host is torn down before.
 * Result: 0; GORVANET_LOOPBACK_BAD_ARGUMENT for a null function. */
int32_t gorvanet_loopback_post(void (*function)(void *data), void *data);

/* Ends everything: calls each event-loop hook with event 0, reports and releases the messages that are still queued or
 * unanswered, drops the posted functions, removes the users, and withdraws the interfaces that are still registered.
 * The observer stays. Afterwards the host is as at the start of the process, but numbers of old messages and users stay
 * invalid.
 *
 * Result: 0; GORVANET_LOOPBACK_BUSY when called from inside a turn: stop the run first. */
int32_t gorvanet_loopback_tear_down(void);

/* ---- Interfaces and messages ------------------------------------------------------------------------------------- */

/* Withdraws an interface as a bus may do by itself, and tells the library through the interface's unreg callback. Its
 * users are detached; what is still sent with its number is refused, until it is registered again.
 *
 * Result: 0; GORVANET_LOOPBACK_UNKNOWN_NUMBER; GORVANET_LOOPBACK_BUSY when called from the observer. */
int32_t gorvanet_loopback_withdraw(uint16_t number);

/* Result: the number of messages that are queued, being handed over, or waiting for an answer. */
uint32_t gorvanet_loopback_open_messages(void);

/* ---- Failures ---------------------------------------------------------------------------------------------------- */

/* What a test may order to fail, to see what is made of it. */
enum gorvanet_loopback_failure {
    /* A call of the bus by the library is refused, with the result that was ordered where it has one. */
    GORVANET_LOOPBACK_FAIL_REGISTER, /* of an interface, the command interface first; without a number */
    GORVANET_LOOPBACK_FAIL_RELEASE,  /* of an interface */
    GORVANET_LOOPBACK_FAIL_HOOK,     /* into the event loop */
    GORVANET_LOOPBACK_FAIL_ATTACH,   /* of a user to one interface */
    GORVANET_LOOPBACK_FAIL_DETACH,   /* of a user from one interface */
    GORVANET_LOOPBACK_FAIL_ACCEPT,   /* of a method, be it a command or a notification */
    GORVANET_LOOPBACK_FAIL_SEND,     /* of a request or notification; it is released, and the result is 0 */

    /* A message does not come through, on its turn. A notification counts as a request, once for all its receivers. */
    GORVANET_LOOPBACK_LOSE_REQUEST,    /* reported as undeliverable */
    GORVANET_LOOPBACK_LOSE_RESPONSE,   /* reported as undeliverable */
    GORVANET_LOOPBACK_DAMAGE_REQUEST,  /* its first byte is changed, so that the decoder refuses it */
    GORVANET_LOOPBACK_DAMAGE_RESPONSE, /* its first byte is changed, so that the decoder refuses it */
    GORVANET_LOOPBACK_LEAVE_UNHANDLED  /* a request is answered with status 20; not for a notification */
};

/* Orders a failure. It happens once: at the next occasion after `after` others. Of several that are due at the same
 * occasion the one ordered first happens, the others stay due.
 *
 * result: what a refused call gives; not used by the other failures. */
void gorvanet_loopback_fail(enum gorvanet_loopback_failure failure, uint32_t after, int32_t result);

/* Takes back the failures that have not happened; a tear-down does not. Result: how many there were. */
uint32_t gorvanet_loopback_drop_failures(void);

/* ---- The observer ------------------------------------------------------------------------------------------------ */

/* What happened. `direction`, `bytes` and `status` are used as told here. */
enum gorvanet_loopback_kind {
    GORVANET_LOOPBACK_SENT,          /* a request or notification was encoded and queued */
    GORVANET_LOOPBACK_DELIVERED,     /* a request, notification or response is about to be handed over */
    GORVANET_LOOPBACK_ANSWERED,      /* a response was encoded and queued */
    GORVANET_LOOPBACK_NOTIFIED,      /* a notification goes to `status` users: 0 when nobody accepted it */
    GORVANET_LOOPBACK_STATUS,        /* answered with `status` instead of a response; 20: nobody handles it */
    GORVANET_LOOPBACK_UNDELIVERABLE, /* the message ends here, `text` says why */
    GORVANET_LOOPBACK_UNENCODABLE,   /* the library's encoder refused the body with `status` */
    GORVANET_LOOPBACK_UNDECODABLE,   /* the library's decoder refused the bytes with `status` */
    GORVANET_LOOPBACK_MISUSE         /* a call was refused, `text` says which and why */
};

/* One event. Texts are never null but may be empty. Everything is valid during the observer's call only. */
struct gorvanet_loopback_event {
    enum gorvanet_loopback_kind kind;
    uint32_t message;     /* running number, the same for a request and its response; 0: none */
    const char *method;   /* name of the method */
    const char *sender;   /* name of the user that sends, of a response the answering one */
    const char *receiver; /* name of the user that it goes to; empty for a notification as a whole */
    uint32_t direction;   /* GORVANET_BODY_REQUEST (also of a notification) or GORVANET_BODY_RESPONSE */
    const void *bytes;    /* the encoded body where there is one, else null */
    uint32_t size;        /* of the encoded body */
    uint32_t status;      /* see the kinds; else 0 */
    const char *text;     /* says more about a failure */
};

/* Sees everything that happens on the bus, from the middle of it. It may stop the loop, post functions, ask, and hand
 * over to another observer. What would change the bus is refused, and said on stderr: it is not called from inside
 * itself. */
typedef void gorvanet_loopback_observer(void *data, const struct gorvanet_loopback_event *event);

/* Sets the observer, in place of the earlier one. Null: none; then failures, from GORVANET_LOOPBACK_STATUS on, are
 * written to stderr, in lines that begin "loopback: ". `data` is handed to the observer. */
void gorvanet_loopback_observe(gorvanet_loopback_observer *observer, void *data);

#ifdef __cplusplus
}
#endif

#endif
