// Who is on the bus: the registered interfaces, the users, and what each user accepts. Nothing here knows how messages
// travel.

#ifndef GORVANET_HOSTS_REGISTRY_H
#define GORVANET_HOSTS_REGISTRY_H

#include "handle.h"
#include "middleware.h"

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace host {

// ---- Interfaces -----------------------------------------------------------------------------------------------------

struct Free {
    void operator()(void *memory) const
    {
        free(memory);
    }
};

struct Interface {
    uint16_t number;
    std::string name;
    uint32_t count; // of method records behind the head
    std::unique_ptr<MessageManagement, Free> block;
    // Without users, and closed to them. It stays until its name is registered again or everything ends: the library
    // goes on sending with the number, and the block knows how to release the bodies.
    bool withdrawn;
};

// Result: the registered interface, with an empty block; null when all numbers are in use.
Interface *register_interface(const char *name, uint32_t count);
Interface *find_interface(uint32_t number); // also one that was withdrawn, as by its name
Interface *find_interface(const std::string &name);

// Each of these reports what is wrong on behalf of its caller. The first finds withdrawn ones too.
Interface *known_interface(uint32_t number, const char *caller = __builtin_FUNCTION());
bool is_registered(const Interface &interface, const char *caller = __builtin_FUNCTION());
Interface *registered_interface(uint32_t number, const char *caller = __builtin_FUNCTION());

// The users lose their attachments and what they accepted of this interface.
void withdraw_interface(Interface &interface);
void release_interface(Interface &interface);

// The numbers of the interfaces that are not withdrawn.
std::vector<uint16_t> registered_numbers();

// The words of a method that its bodies need, or null after a misuse report on behalf of `caller`.
const MethodRecord *find_method(const Interface &interface, uint32_t method, const char *caller);

// The rows of an interface block follow it in memory.
inline const gorvaNet_method *method_rows(const gorvaNet_interface &block)
{
    return reinterpret_cast<const gorvaNet_method *>(&block + 1);
}

// ---- Users ----------------------------------------------------------------------------------------------------------

// A method that a user accepts: value 1 is the handler, value 2 its data, value 3 is kept.
struct Accepted {
    uint16_t number; // of the interface
    uint32_t method;
    std::string from; // the notifying user; empty for a command
    const gorvaNet_interface *block;
    gorvaNet_function *handler;
    void *data;
    void *value3;
};

struct Attachment {
    uint16_t number; // of the interface
    void *value;
    void *reference;
};

struct User {
    uint32_t number;
    std::string name;
    std::vector<Attachment> attachments;
    std::vector<Accepted> accepted;

    void *handle() const
    {
        return to_handle(HandleKind::user, number);
    }
    void *core_handle() const
    {
        return to_handle(HandleKind::core_user, number);
    }
    bool is_attached(uint32_t interface_number) const;
    bool accepts(uint16_t interface_number, uint32_t method) const; // from whomever
    const Accepted *find_accepted(uint16_t interface_number, uint32_t method, const std::string &from) const;
    void attach(const Attachment &attachment);
    void detach(uint16_t interface_number);
    void accept(const Accepted &accepted);
};

User *add_user(const std::string &name);
void remove_user(User &user);
User *find_user(uint32_t number);
User *find_user(const std::string &name);
const std::map<uint32_t, User> &users();

// Forgets all users and all interfaces.
void clear_registry();

} // namespace host

#endif
