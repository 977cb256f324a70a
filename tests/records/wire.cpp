#include "wire.h"

#include <cctype>
#include <stdexcept>

namespace {

class Parser {
public:
    Parser(const std::string &source, uint8_t padding_byte) : text(source), padding(padding_byte)
    {
    }

    Bytes parse()
    {
        while (skip_blanks())
            append(repeated(piece()));
        return result;
    }

private:
    bool skip_blanks()
    {
        while (at < text.size() && text[at] == ' ')
            at++;
        return at < text.size();
    }

    Bytes piece()
    {
        if (text[at] == '\'')
            return quoted();
        Bytes found;
        while (at + 1 < text.size() && (text[at] == '.' || std::isxdigit(static_cast<unsigned char>(text[at]))))
            found.push_back(pair());
        if (found.empty())
            throw std::invalid_argument("not a byte in: " + text);
        return found;
    }

    Bytes quoted()
    {
        size_t end = text.find('\'', at + 1);
        if (end == std::string::npos)
            throw std::invalid_argument("no closing quote in: " + text);
        Bytes found(text.begin() + static_cast<long>(at) + 1, text.begin() + static_cast<long>(end));
        at = end + 1;
        return found;
    }

    uint8_t pair()
    {
        std::string digits = text.substr(at, 2);
        at += 2;
        if (digits == "..")
            return padding;
        size_t used = 0;
        auto value = static_cast<uint8_t>(std::stoul(digits, &used, 16));
        if (used != 2)
            throw std::invalid_argument("half a byte in: " + text);
        return value;
    }

    Bytes repeated(const Bytes &once)
    {
        if (at >= text.size() || text[at] != '*')
            return once;
        size_t digits = 0;
        unsigned long times = std::stoul(text.substr(at + 1), &digits);
        at += 1 + digits;
        Bytes all;
        for (unsigned long i = 0; i < times; i++)
            all.insert(all.end(), once.begin(), once.end());
        return all;
    }

    void append(const Bytes &more)
    {
        result.insert(result.end(), more.begin(), more.end());
    }

    const std::string &text;
    uint8_t padding;
    size_t at = 0;
    Bytes result;
};

Bytes joined(const Items &items, size_t begin, size_t end, uint8_t padding)
{
    Bytes result;
    for (size_t i = begin; i < end; i++)
        result = result + bytes(items[i], padding);
    return result;
}

} // namespace

Bytes bytes(const std::string &text, uint8_t padding)
{
    return Parser(text, padding).parse();
}

Bytes bytes(const Items &items, uint8_t padding)
{
    return joined(items, 0, items.size(), padding);
}

Bytes bytes_before(const Items &items, size_t item, uint8_t padding)
{
    return joined(items, 0, item, padding);
}

Bytes bytes_behind(const Items &items, size_t item)
{
    return joined(items, item + 1, items.size(), 0);
}

Bytes big_endian(uint32_t value)
{
    return {static_cast<uint8_t>(value >> 24), static_cast<uint8_t>(value >> 16), static_cast<uint8_t>(value >> 8),
            static_cast<uint8_t>(value)};
}

Bytes operator+(Bytes left, const Bytes &right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}
