#include "registry.h"

#include "report.h"

#include <algorithm>
#include <new>

namespace host {

namespace {

// The tables are made on first use and never end: static objects may use the host before main and after it.

std::map<uint16_t, Interface> &all_interfaces()
{
    static auto &table = *new std::map<uint16_t, Interface>;
    return table;
}

std::map<uint32_t, User> &all_users()
{
    static auto &table = *new std::map<uint32_t, User>;
    return table;
}

uint16_t last_interface_number;
uint32_t last_user_number;

// Numbers of released interfaces come back as late as possible. 0 and GORVANET_NUM_NONE are no numbers.
uint16_t next_interface_number()
{
    constexpr uint32_t most_numbers = GORVANET_NUM_NONE - 1;
    if (all_interfaces().size() >= most_numbers)
        return 0;
    do
        last_interface_number = static_cast<uint16_t>(last_interface_number % most_numbers + 1);
    while (all_interfaces().contains(last_interface_number));
    return last_interface_number;
}

uint32_t next_user_number()
{
    do
        last_user_number = last_user_number % last_handle_number + 1;
    while (all_users().contains(last_user_number));
    return last_user_number;
}

MessageManagement *new_block(uint32_t count)
{
    void *memory = calloc(1, sizeof(MessageManagement) + count * sizeof(MethodRecord));
    if (!memory)
        throw std::bad_alloc();
    return static_cast<MessageManagement *>(memory);
}

} // namespace

// ---- Interfaces -----------------------------------------------------------------------------------------------------

Interface *register_interface(const char *name, uint32_t count)
{
    Interface *interface = find_interface(std::string(name));
    if (!interface) {
        uint16_t number = next_interface_number();
        if (!number)
            return nullptr;
        interface = &all_interfaces()[number];
        interface->number = number;
        interface->name = name;
    }
    interface->withdrawn = false;
    interface->count = count;
    interface->block.reset(new_block(count));
    return interface;
}

Interface *find_interface(uint32_t number)
{
    if (number >= GORVANET_NUM_NONE)
        return nullptr;
    auto found = all_interfaces().find(static_cast<uint16_t>(number));
    return found == all_interfaces().end() ? nullptr : &found->second;
}

Interface *find_interface(const std::string &name)
{
    for (auto &[number, interface] : all_interfaces())
        if (interface.name == name)
            return &interface;
    return nullptr;
}

Interface *known_interface(uint32_t number, const char *caller)
{
    Interface *interface = find_interface(number);
    if (!interface)
        report_misuse("%s: message management number %u is unknown", caller, number);
    return interface;
}

bool is_registered(const Interface &interface, const char *caller)
{
    if (interface.withdrawn)
        report_misuse("%s: interface %s was withdrawn", caller, interface.name.c_str());
    return !interface.withdrawn;
}

Interface *registered_interface(uint32_t number, const char *caller)
{
    Interface *interface = known_interface(number, caller);
    return interface && is_registered(*interface, caller) ? interface : nullptr;
}

void withdraw_interface(Interface &interface)
{
    for (auto &[number, user] : all_users())
        user.detach(interface.number);
    interface.withdrawn = true;
}

void release_interface(Interface &interface)
{
    withdraw_interface(interface);
    all_interfaces().erase(interface.number);
}

std::vector<uint16_t> registered_numbers()
{
    std::vector<uint16_t> found;
    for (const auto &[number, interface] : all_interfaces())
        if (!interface.withdrawn)
            found.push_back(number);
    return found;
}

const MethodRecord *find_method(const Interface &interface, uint32_t method, const char *caller)
{
    if (method >= interface.count) {
        report_misuse("%s: interface %s has no method %u", caller, interface.name.c_str(), method);
        return nullptr;
    }
    const MethodRecord &record = method_records(interface.block.get())[method];
    if (record.name && record.freeBody && record.serializeBody && record.unserializeBody)
        return &record;
    report_misuse("%s: method %u of interface %s has no name or lacks a body callback", caller, method,
                  interface.name.c_str());
    return nullptr;
}

// ---- Users ----------------------------------------------------------------------------------------------------------

bool User::is_attached(uint32_t interface_number) const
{
    return std::any_of(attachments.begin(), attachments.end(),
                       [&](const Attachment &attachment) { return attachment.number == interface_number; });
}

bool User::accepts(uint16_t interface_number, uint32_t method) const
{
    return std::any_of(accepted.begin(), accepted.end(), [&](const Accepted &entry) {
        return entry.number == interface_number && entry.method == method;
    });
}

const Accepted *User::find_accepted(uint16_t interface_number, uint32_t method, const std::string &from) const
{
    auto found = std::find_if(accepted.begin(), accepted.end(), [&](const Accepted &entry) {
        return entry.number == interface_number && entry.method == method && entry.from == from;
    });
    return found == accepted.end() ? nullptr : &*found;
}

void User::attach(const Attachment &attachment)
{
    std::erase_if(attachments, [&](const Attachment &entry) { return entry.number == attachment.number; });
    attachments.push_back(attachment);
}

void User::detach(uint16_t interface_number)
{
    std::erase_if(attachments, [&](const Attachment &entry) { return entry.number == interface_number; });
    std::erase_if(accepted, [&](const Accepted &entry) { return entry.number == interface_number; });
}

void User::accept(const Accepted &entry)
{
    std::erase_if(accepted, [&](const Accepted &earlier) {
        return earlier.number == entry.number && earlier.method == entry.method && earlier.from == entry.from;
    });
    accepted.push_back(entry);
}

User *add_user(const std::string &name)
{
    uint32_t number = next_user_number();
    User &user = all_users()[number];
    user.number = number;
    user.name = name;
    return &user;
}

void remove_user(User &user)
{
    all_users().erase(user.number);
}

User *find_user(uint32_t number)
{
    auto found = all_users().find(number);
    return found == all_users().end() ? nullptr : &found->second;
}

User *find_user(const std::string &name)
{
    for (auto &[number, user] : all_users())
        if (user.name == name)
            return &user;
    return nullptr;
}

const std::map<uint32_t, User> &users()
{
    return all_users();
}

void clear_registry()
{
    all_users().clear();
    all_interfaces().clear();
}

} // namespace host
