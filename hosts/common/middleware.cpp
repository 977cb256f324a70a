// The functions that the library takes from the process. Each checks its caller, then leaves the work to the registry,
// the messages and the loop. All of them stand here, so that whoever links one has all.

#include "middleware.h"

#include "failures.h"
#include "life.h"
#include "message.h"
#include "registry.h"
#include "results.h"
#include "transport.h"

#include <string>

using namespace host;

namespace {

// Each check reports what is wrong on behalf of its caller, the middleware function.

User *known_user(HandleKind kind, const void *handle, const char *caller = __builtin_FUNCTION())
{
    User *user = find_user(number_of(kind, handle));
    if (!user)
        report_misuse("%s: %s %p is unknown", caller, kind == HandleKind::user ? "user" : "core user", handle);
    return user;
}

bool is_attached(const User &user, const Interface &interface, const char *caller = __builtin_FUNCTION())
{
    if (user.is_attached(interface.number))
        return true;
    report_misuse("%s: user '%s' is not attached to interface %s", caller, user.name.c_str(), interface.name.c_str());
    return false;
}

bool is_present(const void *argument, const char *what, const char *caller = __builtin_FUNCTION())
{
    if (!argument)
        report_misuse("%s: no %s", caller, what);
    return argument;
}

// The two interfaces of a bus interface are called by its name with this behind it.
constexpr const char *command_suffix = "Cmd";
constexpr const char *notification_suffix = "Ntfy";

bool has_name(const char *found, const char *name, const char *suffix, const char *caller = __builtin_FUNCTION())
{
    if (found && name && found == std::string(name) + suffix)
        return true;
    report_misuse("%s: '%s' is not the interface of '%s%s'", caller, found ? found : "", name ? name : "", suffix);
    return false;
}

// The checks that both accept functions share. `block` is the one of the two that has the method.
struct Accept {
    void *user;
    const char *name;
    const gorvaNet_interface *cmd;
    const gorvaNet_interface *ntfy;
    const gorvaNet_interface *block;
    uint32_t method;
};

int32_t accept(const Accept &request, Accepted entry, const char *caller = __builtin_FUNCTION())
{
    if (refuse_in_observer(caller))
        return busy;
    User *user = known_user(HandleKind::user, request.user, caller);
    if (!user)
        return unknown_user;
    if (!is_present(request.cmd, "command interface block", caller) ||
        !is_present(request.ntfy, "notification interface block", caller))
        return bad_argument;
    if (!has_name(request.cmd->name, request.name, command_suffix, caller) ||
        !has_name(request.ntfy->name, request.name, notification_suffix, caller))
        return wrong_name;
    Interface *interface = registered_interface(request.block->num, caller);
    if (!interface)
        return unknown_number;
    if (!has_name(request.block->name, interface->name.c_str(), "", caller))
        return wrong_name;
    if (!is_attached(*user, *interface, caller))
        return not_attached;
    if (request.method >= request.block->count) {
        report_misuse("%s: interface %s has no method %u", caller, interface->name.c_str(), request.method);
        return unknown_method;
    }
    entry.number = interface->number;
    entry.method = request.method;
    entry.block = request.block;
    if (auto refused = ordered_failure(Failure::accept_method))
        return *refused;
    if (!entry.from.empty() && !transport::subscribe(*user, entry, caller))
        return bus_failed;
    user->accept(entry);
    return 0;
}

} // namespace

// ---- The event loop -------------------------------------------------------------------------------------------------

int32_t ruvo_addEvtBase(void (*callback)(void *context, int32_t event), void *context)
{
    if (!callback) {
        report_misuse("%s: no callback", __func__);
        return bad_argument;
    }
    if (auto refused = ordered_failure(Failure::hook_loop))
        return *refused;
    add_hook(callback, context);
    return 0;
}

// ---- Interfaces -----------------------------------------------------------------------------------------------------

uint16_t zebCore_getBase_msgMngt(const char *interface_name, MessageManagement **block, uint32_t count)
{
    if (refuse_in_observer())
        return GORVANET_NUM_NONE;
    if (!is_present(interface_name, "interface name") || !is_present(block, "address for the block"))
        return GORVANET_NUM_NONE;
    if (count > UINT16_MAX) {
        report_misuse("%s: interface %s has too many methods: %u", __func__, interface_name, count);
        return GORVANET_NUM_NONE;
    }
    if (ordered_failure(Failure::register_interface))
        return GORVANET_NUM_NONE;
    Interface *interface = register_interface(interface_name, count);
    if (!interface) {
        report_misuse("%s: no number is left for interface %s", __func__, interface_name);
        return GORVANET_NUM_NONE;
    }
    *block = interface->block.get();
    return interface->number;
}

int32_t zebCore_putBase_msgMngt(uint32_t number, uint32_t)
{
    if (refuse_in_observer())
        return busy;
    Interface *interface = registered_interface(number);
    if (!interface)
        return unknown_number;
    if (auto refused = ordered_failure(Failure::release_interface))
        return *refused;
    release_interface(*interface);
    return 0;
}

int32_t zebIntf_regUser_msgMngt(void *user, void *value, void *reference, uint32_t number, uint32_t, uint32_t)
{
    if (refuse_in_observer())
        return busy;
    User *known = known_user(HandleKind::user, user);
    if (!known)
        return unknown_user;
    Interface *interface = registered_interface(number);
    if (!interface)
        return unknown_number;
    if (auto refused = ordered_failure(Failure::attach_user))
        return *refused;
    known->attach({interface->number, value, reference});
    return 0;
}

int32_t zebIntf_unregUser_msgMngt(void *user, uint32_t number, uint32_t, uint32_t)
{
    if (refuse_in_observer())
        return busy;
    User *known = known_user(HandleKind::user, user);
    if (!known)
        return unknown_user;
    Interface *interface = registered_interface(number);
    if (!interface)
        return unknown_number;
    if (!is_attached(*known, *interface))
        return not_attached;
    if (auto refused = ordered_failure(Failure::detach_user))
        return *refused;
    known->detach(interface->number);
    return 0;
}

// ---- Accepting ------------------------------------------------------------------------------------------------------

int32_t zebIntf_modSrv_mthd(void *user, gorvaNet_function *value1, void *value2, void *value3, uint32_t,
                            const char *interface_name, gorvaNet_interface *cmd, gorvaNet_interface *ntfy,
                            uint32_t method, uint32_t, uint32_t)
{
    Accepted entry = {};
    entry.handler = value1;
    entry.data = value2;
    entry.value3 = value3;
    return accept({user, interface_name, cmd, ntfy, cmd, method}, entry);
}

int32_t zebIntf_modCliNtfyUser_mthd(void *user, gorvaNet_function *value1, void *value2, void *value3, uint32_t,
                                    const char *, const char *user_name, const char *interface_name,
                                    gorvaNet_interface *cmd, gorvaNet_interface *ntfy, uint32_t method)
{
    if (!user_name || !*user_name) {
        report_misuse("%s: no name of a notifying user", __func__);
        return bad_argument;
    }
    Accepted entry = {};
    entry.from = user_name;
    entry.handler = value1;
    entry.data = value2;
    entry.value3 = value3;
    return accept({user, interface_name, cmd, ntfy, ntfy, method}, entry);
}

uint32_t zebIntf_findSrvMthdNtfyUser(void *, void *, const char *interface_name, uint32_t number, void *)
{
    if (!is_present(interface_name, "interface name"))
        return 0;
    const Interface *interface = find_interface(std::string(interface_name) + notification_suffix);
    if (!interface || interface->withdrawn) {
        report_misuse("%s: no interface '%s%s' is registered", __func__, interface_name, notification_suffix);
        return 0;
    }
    uint32_t found = 0;
    for (const auto &[user_number, user] : users())
        found += user.accepts(interface->number, number);
    return found;
}

// ---- Messages -------------------------------------------------------------------------------------------------------

void *zebIntf_getCore_user(void *user)
{
    User *known = known_user(HandleKind::user, user);
    return known ? known->core_handle() : nullptr;
}

uint32_t zebCore_sendMsgReq_toNameUser(void *core_user, void *body, Receiver *receiver, gorvaNet_function *callback,
                                       void *, void *pass2, const char *server, uint32_t number, uint32_t method,
                                       uint32_t, uint32_t)
{
    const Interface *interface = known_interface(number);
    const MethodRecord *record = interface ? find_method(*interface, method, __func__) : nullptr;
    if (!record)
        return 0;
    Body owned(*record, GORVANET_BODY_REQUEST, body);
    if (refuse_in_observer() || !is_registered(*interface))
        return 0;
    const User *sender = known_user(HandleKind::core_user, core_user);
    if (!sender || !is_attached(*sender, *interface) || !is_present(server, "name of a serving user") ||
        !is_present(body, "body"))
        return 0;
    if (ordered_failure(Failure::send))
        return 0;
    return send_request(*sender, *interface, method, owned, {receiver, {callback, pass2}, server});
}

uint32_t zebIntf_sendReq_ntfy(void *user, void *body, uint32_t, uint32_t, uint32_t, void *, void *,
                              const char *interface_name, uint32_t number, uint32_t, uint32_t, uint32_t, uint32_t)
{
    constexpr uint32_t only_method = 0; // the call names none
    const Interface *interface = known_interface(number);
    const MethodRecord *record = interface ? find_method(*interface, only_method, __func__) : nullptr;
    if (!record)
        return 0;
    Body owned(*record, GORVANET_BODY_REQUEST, body);
    if (refuse_in_observer() || !is_registered(*interface))
        return 0;
    const User *sender = known_user(HandleKind::user, user);
    if (!sender || !is_attached(*sender, *interface) ||
        !has_name(interface->name.c_str(), interface_name, notification_suffix) || !is_present(body, "body"))
        return 0;
    if (ordered_failure(Failure::send))
        return 0;
    return send_notification(*sender, *interface, only_method, owned);
}

void zebCore_sendMsgRes(void *message, void *body, uint32_t status, uint32_t)
{
    answer(message, body, status);
}

int32_t zebCore_isMsg_needRes(void *message)
{
    return awaits_answer(message) ? 0 : 1;
}
