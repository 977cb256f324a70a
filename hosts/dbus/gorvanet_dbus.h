/* The D-Bus host: a message bus between processes and an event loop, for libGorvanet.
 *
 * The library takes its middleware (zebCore_*, zebIntf_*) and its event loop (ruvo_*) from the process. Link this host
 * to have them over D-Bus: a service and its clients then run as processes of their own, over any dbus-daemon.
 *
 *     void *user = gorvanet_dbus_add_user("service");
 *     gorvanet_initialize();
 *     gorvaNet_regUser_msgMngt(user, NULL, NULL, GORVANET_SELECT_BOTH);
 *     gorvaNet_modSrv_recvMsg_setOsIfc(user, handler, data, NULL);
 *     gorvanet_dbus_run();
 *     gorvanet_dbus_tear_down();
 *
 * How the bus interface looks on D-Bus:
 *
 * - Each user has a connection of its own and the bus name "gorvanet.user.NAME". In NAME, each byte that is no ASCII
 *   letter or digit, and a digit at its beginning, stands as an underscore and two lowercase hexadecimal digits: the
 *   user "ip-service" is gorvanet.user.ip_2dservice. It can be read back, so no two users share a name.
 * - A request is a method call to that name: object /gorvanet/ask when its sender awaits an answer and /gorvanet/tell
 *   when not, interface "gorvanet.GorvaNetCmd", the method by its name, one argument of type ay, the encoded body. The
 *   reply carries the response's body in the same way; at /gorvanet/tell it is empty and comes when the handler
 *   has returned. A method without a response is refused at /gorvanet/ask.
 * - A notification is a signal of the object /gorvanet/user/NAME, interface "gorvanet.GorvaNetNtfy". It is taken only
 *   from the owner of the name it was accepted from, and only as a broadcast.
 * - Status 20 is the error gorvanet.Error.Unhandled; gorvanet.Error.Refused says in its text why a request ends
 *   otherwise.
 *
 * What the library passes through means what it means on the loopback host, but:
 *
 * - gorvaNet_findSrvMthdNtfyUser counts the users of this process only.
 * - A request that gets no response ends with a report; its callback is not called. That is so when nobody has the
 *   name, nobody handles the request, the sender may not send it, a body is refused, the service ends, the bus ends, or
 *   the time is up.
 * - A notification has no receivers that the sender knows of: GORVANET_DBUS_NOTIFIED is not reported.
 *
 * Nothing that comes off the bus is trusted: senders are checked by their credentials, bodies by hosts/guard, before
 * anything is decoded. A user whose connection ends, with the bus for one, takes it up again by itself, with its name
 * and all that it accepted; what was on its way is lost and reported.
 *
 * The loop is the thread's default event loop of sd-event(3): sd_event_default(3) gives it to whoever wants to add
 * sources of their own. One thread: everything is called on the thread that runs the loop. Out of memory ends the
 * process, and so does a handler or callback that throws. Calls to the bus itself (adding a user, taking up a lost
 * connection, accepting a notification, the first request of an unknown sender) wait for its answer, each time for five
 * seconds at most. A user that leaves while the bus takes nothing waits a second; what it still had to send is lost.
 */
#ifndef GORVANET_DBUS_H
#define GORVANET_DBUS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Results ----------------------------------------------------------------------------------------------------- */

/* Results of this host's functions and of the middleware functions that it provides; 0 is success. */
#define GORVANET_DBUS_BAD_ARGUMENT   101 /* a null or empty argument where something is needed */
#define GORVANET_DBUS_UNKNOWN_USER   102 /* not a user, or one that was removed, or a core user for a user */
#define GORVANET_DBUS_UNKNOWN_NUMBER 103 /* no interface is registered under this message-management number */
#define GORVANET_DBUS_NOT_ATTACHED   104 /* the user is not attached to the interface */
#define GORVANET_DBUS_UNKNOWN_METHOD 105 /* the interface has no method of this index */
#define GORVANET_DBUS_WRONG_NAME     106 /* not the name of the interface that the blocks or the number belong to */
#define GORVANET_DBUS_BUSY           107 /* called from inside a turn or the observer, where it cannot be */
#define GORVANET_DBUS_BUS_FAILED     108 /* the bus refused, or is not there; the report says why */

/* ---- The bus ----------------------------------------------------------------------------------------------------- */

/* The longest encoded body that is sent or taken. The library's own are shorter by far. */
#define GORVANET_DBUS_LARGEST_BODY 65536

/* Names the bus that users are added to from now on, by a D-Bus address. Null: the system bus, which is the default.
 * The text is copied. */
void gorvanet_dbus_set_address(const char *address);

/* How long requests that are sent from now on wait for their answer, in milliseconds. 0: 25 seconds, which is the
 * default. */
void gorvanet_dbus_set_timeout(uint32_t milliseconds);

/* Who asks. */
struct gorvanet_dbus_sender {
    uint32_t uid;          /* effective user of the sending process, as the bus tells it */
    const char *bus_name;  /* its unique name */
    const char *user;      /* name of the user that it calls */
    const char *interface; /* for example "GorvaNetCmd" */
    const char *method;    /* for example "SetMtu" */
};

/* Decides whether a request is taken; not 0: it is. Valid during the call only. It must not call this host. */
typedef int32_t gorvanet_dbus_check(void *data, const struct gorvanet_dbus_sender *sender);

/* Sets who may send requests to the users of this process. Null: processes of this process's own user and of root,
 * which is the default. The others get the error org.freedesktop.DBus.Error.AccessDenied. `data` is handed to the
 * check. The bus's own policy stands before this one: see packaging/dbus. */
void gorvanet_dbus_check_senders(gorvanet_dbus_check *check, void *data);

/* ---- Users ------------------------------------------------------------------------------------------------------- */

/* Adds a bus user: connects to the bus and takes the user's name there.
 *
 * name: copied; not empty, no other user's, and short enough: a bus name has at most 255 characters, 14 of them the
 * prefix.
 * Result: the user to give to the library, valid until it is removed; null after a report. It is a handle, not an
 * address: never read through it. */
void *gorvanet_dbus_add_user(const char *name);

/* Removes a user with all that it accepted. Requests that it sent or received and that still wait for their answer end
 * here, each with a report. May be called by the user's own handlers.
 *
 * Result: 0; GORVANET_DBUS_UNKNOWN_USER; GORVANET_DBUS_BUSY when called from the observer. */
int32_t gorvanet_dbus_remove_user(void *user);

/* ---- The event loop ---------------------------------------------------------------------------------------------- */

#define GORVANET_DBUS_IDLE    0 /* nothing happened in the time given */
#define GORVANET_DBUS_STOPPED 1 /* gorvanet_dbus_stop was called, the event loop was ended, or a turn was taken */

/* Runs the loop until it is stopped.
 *
 * Result: GORVANET_DBUS_STOPPED; GORVANET_DBUS_BUSY when called from inside a turn. */
int32_t gorvanet_dbus_run(void);

/* Waits until something happens, at most so many milliseconds, and takes that one turn.
 *
 * Result: GORVANET_DBUS_IDLE, GORVANET_DBUS_STOPPED; GORVANET_DBUS_BUSY when called from inside a turn. */
int32_t gorvanet_dbus_turn(uint32_t milliseconds);

/* Ends the run that is going on, after the present turn. Without a run, nothing. */
void gorvanet_dbus_stop(void);

/* Ends everything: calls each event-loop hook with event 0, reports and releases the messages that are still
 * unanswered, leaves the bus with all users, and withdraws the interfaces that are still registered. The observer, the
 * address, the time-out, the check of senders and the ordered failures stay.
 *
 * Result: 0; GORVANET_DBUS_BUSY when called from inside a turn: stop the run first. */
int32_t gorvanet_dbus_tear_down(void);

/* ---- Interfaces and messages ------------------------------------------------------------------------------------- */

/* Withdraws an interface as a bus may do by itself, and tells the library through the interface's unreg callback. Its
 * users are detached; what is still sent with its number is refused, until it is registered again.
 *
 * Result: 0; GORVANET_DBUS_UNKNOWN_NUMBER; GORVANET_DBUS_BUSY when called from the observer. */
int32_t gorvanet_dbus_withdraw(uint16_t number);

/* Result: the number of messages that were sent and await a reply, are being handed over, or wait for an answer of this
 * process. */
uint32_t gorvanet_dbus_open_messages(void);

/* ---- Failures ---------------------------------------------------------------------------------------------------- */

/* What a test may order to fail in this process, to see what is made of it. */
enum gorvanet_dbus_failure {
    /* A call of the bus by the library is refused, with the result that was ordered where it has one. */
    GORVANET_DBUS_FAIL_REGISTER, /* of an interface, the command interface first; without a number */
    GORVANET_DBUS_FAIL_RELEASE,  /* of an interface */
    GORVANET_DBUS_FAIL_HOOK,     /* into the event loop */
    GORVANET_DBUS_FAIL_ATTACH,   /* of a user to one interface */
    GORVANET_DBUS_FAIL_DETACH,   /* of a user from one interface */
    GORVANET_DBUS_FAIL_ACCEPT,   /* of a method, be it a command or a notification */
    GORVANET_DBUS_FAIL_SEND,     /* of a request or notification; it is released, and the result is 0 */

    /* A message that this process sends does not come through. A notification counts as a request. */
    GORVANET_DBUS_LOSE_REQUEST,    /* not sent; reported as undeliverable */
    GORVANET_DBUS_LOSE_RESPONSE,   /* not sent; reported as undeliverable, on the client's side too */
    GORVANET_DBUS_DAMAGE_REQUEST,  /* its first byte is changed, so that the receiving host refuses it */
    GORVANET_DBUS_DAMAGE_RESPONSE, /* its first byte is changed, so that the receiving host refuses it */
    GORVANET_DBUS_LEAVE_UNHANDLED  /* a request is not sent but answered with status 20; not for a notification */
};

/* Orders a failure. It happens once: at the next occasion after `after` others. Of several that are due at the same
 * occasion the one ordered first happens, the others stay due.
 *
 * result: what a refused call gives; not used by the other failures. */
void gorvanet_dbus_fail(enum gorvanet_dbus_failure failure, uint32_t after, int32_t result);

/* Takes back the failures that have not happened; a tear-down does not. Result: how many there were. */
uint32_t gorvanet_dbus_drop_failures(void);

/* ---- The observer ------------------------------------------------------------------------------------------------ */

/* What happened. `direction`, `bytes` and `status` are used as told here. */
enum gorvanet_dbus_kind {
    GORVANET_DBUS_SENT,          /* a request or notification was encoded and goes to the bus */
    GORVANET_DBUS_DELIVERED,     /* a request, notification or response is about to be handed over */
    GORVANET_DBUS_ANSWERED,      /* a response was encoded and goes to the bus */
    GORVANET_DBUS_NOTIFIED,      /* not used */
    GORVANET_DBUS_STATUS,        /* answered with `status` instead of a response; 20: nobody handles it */
    GORVANET_DBUS_UNDELIVERABLE, /* the message ends here, `text` says why */
    GORVANET_DBUS_UNENCODABLE,   /* the library's encoder refused the body with `status` */
    GORVANET_DBUS_UNDECODABLE,   /* the library's decoder refused the bytes with `status` */
    GORVANET_DBUS_MISUSE,        /* a call was refused, `text` says which and why */
    GORVANET_DBUS_LOST,          /* user `sender` has lost the bus, or cannot use it, `text` says why */
    GORVANET_DBUS_BACK           /* user `sender` has the bus back */
};

/* One event. Texts are never null but may be empty. Everything is valid during the observer's call only. */
struct gorvanet_dbus_event {
    enum gorvanet_dbus_kind kind;
    uint32_t message;     /* running number within this process, the same for a request and its response; 0: none */
    const char *method;   /* name of the method */
    const char *sender;   /* name of the user that sends, or the unique bus name of one in another process */
    const char *receiver; /* name of the user that it goes to; empty for a notification as a whole */
    uint32_t direction;   /* GORVANET_BODY_REQUEST (also of a notification) or GORVANET_BODY_RESPONSE */
    const void *bytes;    /* the encoded body where there is one, else null */
    uint32_t size;        /* of the encoded body */
    uint32_t status;      /* see the kinds; else 0 */
    const char *text;     /* says more about a failure */
};

/* Sees everything that happens to this process on the bus, from the middle of it. It may stop the loop, ask, and hand
 * over to another observer. What would change the bus is refused, and said on stderr: it is not called from inside
 * itself. */
typedef void gorvanet_dbus_observer(void *data, const struct gorvanet_dbus_event *event);

/* Sets the observer, in place of the earlier one. Null: none; then failures, from GORVANET_DBUS_STATUS on, are written
 * to stderr, in lines that begin "dbus: ". `data` is handed to the observer. */
void gorvanet_dbus_observe(gorvanet_dbus_observer *observer, void *data);

#ifdef __cplusplus
}
#endif

#endif
