// Names of users, and of what is theirs, on the bus.

#ifndef GORVANET_HOSTS_DBUS_NAMES_H
#define GORVANET_HOSTS_DBUS_NAMES_H

#include <string>

namespace dbus {

constexpr const char *ask_path = "/gorvanet/ask";
constexpr const char *tell_path = "/gorvanet/tell";
constexpr const char *unhandled_error = "gorvanet.Error.Unhandled";
constexpr const char *refused_error = "gorvanet.Error.Refused";

constexpr size_t longest_bus_name = 255;

// The bus name of a user. Longer than any bus may be, if the user's name is.
std::string bus_name_of(const std::string &user);

// The object that a user's notifications come from.
std::string path_of(const std::string &user);

// An interface of the library, "GorvaNetCmd" say, on the bus and back. Back: its end, empty when it is none.
std::string bus_interface(const std::string &interface);
const char *interface_of(const char *bus_interface);

} // namespace dbus

#endif
