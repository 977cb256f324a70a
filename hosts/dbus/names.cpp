#include "names.h"

#include <cstdlib>
#include <new>
#include <string_view>
#include <systemd/sd-bus.h>

namespace dbus {

namespace {

// sd-bus escapes the last element of an object path in just the characters that a bus name may have too.
constexpr const char *users_path = "/gorvanet/user";
constexpr std::string_view users_prefix = "gorvanet.user.";
constexpr std::string_view interfaces_prefix = "gorvanet.";

std::string taken(char *text)
{
    std::string copy = text;
    free(text);
    return copy;
}

} // namespace

std::string path_of(const std::string &user)
{
    char *path = nullptr;
    if (sd_bus_path_encode(users_path, user.c_str(), &path) < 0)
        throw std::bad_alloc();
    return taken(path);
}

std::string bus_name_of(const std::string &user)
{
    return std::string(users_prefix) + path_of(user).substr(std::string_view(users_path).size() + 1);
}

bool user_of(const std::string &bus_name, std::string &user)
{
    if (!bus_name.starts_with(users_prefix))
        return false;
    std::string path = std::string(users_path) + "/" + bus_name.substr(users_prefix.size());
    char *name = nullptr;
    if (sd_bus_path_decode(path.c_str(), users_path, &name) <= 0)
        return false;
    user = taken(name);
    return true;
}

std::string bus_interface(const std::string &interface)
{
    return std::string(interfaces_prefix) + interface;
}

const char *interface_of(const char *bus_interface)
{
    bool known = std::string_view(bus_interface).starts_with(interfaces_prefix);
    return known ? bus_interface + interfaces_prefix.size() : "";
}

} // namespace dbus
