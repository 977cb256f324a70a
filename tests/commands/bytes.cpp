#include "commands/bytes.h"

#include <algorithm>
#include <stdexcept>

namespace {

unsigned digit(char character)
{
    auto value = std::string_view("0123456789abcdef").find(character);
    if (value == std::string_view::npos)
        throw std::invalid_argument("not a hexadecimal digit");
    return static_cast<unsigned>(value);
}

auto at(Bytes &bytes, size_t offset)
{
    return bytes.begin() + static_cast<Bytes::difference_type>(offset);
}

} // namespace

Bytes hex(std::string_view digits)
{
    Bytes bytes;
    bool high = true;
    for (char character : digits) {
        if (character == ' ')
            continue;
        if (high)
            bytes.push_back(static_cast<uint8_t>(digit(character) << 4));
        else
            bytes.back() = static_cast<uint8_t>(bytes.back() | digit(character));
        high = !high;
    }
    return bytes;
}

Bytes operator+(Bytes left, const Bytes &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

Bytes contents(const void *block, size_t size)
{
    const auto *first = static_cast<const uint8_t *>(block);
    return {first, first + size};
}

Bytes with_number(Bytes bytes, size_t offset, uint32_t value)
{
    for (size_t i = 0; i < 4; i++)
        bytes.at(offset + i) = static_cast<uint8_t>(value >> (24 - 8 * i));
    return bytes;
}

Bytes with_more(Bytes bytes, size_t offset, const Bytes &more)
{
    bytes.insert(at(bytes, offset), more.begin(), more.end());
    return bytes;
}

Bytes without(Bytes bytes, size_t offset, size_t size)
{
    bytes.erase(at(bytes, offset), at(bytes, offset + size));
    return bytes;
}

Image::Image(size_t size) : bytes(size, 0)
{
}

Image &Image::number(size_t offset, uint32_t value)
{
    return record(offset, &value, sizeof value);
}

Image &Image::text(size_t offset, std::string_view characters)
{
    return record(offset, characters.data(), characters.size());
}

Image &Image::record(size_t offset, const void *record, size_t size)
{
    const auto *first = static_cast<const uint8_t *>(record);
    std::copy(first, first + size, at(bytes, offset));
    return *this;
}

Image::operator Bytes() const
{
    return bytes;
}
