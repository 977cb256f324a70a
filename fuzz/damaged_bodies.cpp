// A well-formed body, then damage to its items: the input chooses the damage, then the content.

#include "check.h"
#include "input.h"

#include <algorithm>
#include <vector>

namespace {

struct Damage {
    uint32_t kind;
    uint32_t place; // an item, counted around
    uint32_t value;
};

std::vector<Damage> choose_damages(Input &input)
{
    std::vector<Damage> damages(input.byte() % 5);
    for (Damage &each : damages)
        each = {.kind = input.byte(), .place = input.below(0x1000), .value = input.number()};
    return damages;
}

auto at(Bytes &bytes, size_t offset)
{
    return bytes.begin() + static_cast<ptrdiff_t>(std::min(offset, bytes.size()));
}

void set_word(Bytes &bytes, size_t offset, uint32_t value)
{
    for (uint32_t i = 0; i < 4 && offset + i < bytes.size(); i++)
        bytes[offset + i] = static_cast<uint8_t>(value >> (24 - 8 * i));
}

// Lengthens or shortens the value and says so in the item: still well formed, as long as enough is left of it.
void resize_value(Bytes &bytes, const model::Item &item, uint32_t length)
{
    size_t value = item.offset + item.header;
    if (length > item.length)
        bytes.insert(at(bytes, value + item.length), length - item.length, 0xff);
    else
        bytes.erase(at(bytes, value + length), at(bytes, value + item.length));
    set_word(bytes, value - 4, length);
}

// Items are where they were in the sound body, as long as no damage before has moved them: after that, anywhere.
void apply(const Damage &damage, const model::Item &item, Bytes &bytes)
{
    size_t value = item.offset + item.header;
    switch (damage.kind % 9) {
    case 0:
        return set_word(bytes, item.offset + item.header / 2 - 4, damage.value); // tag
    case 1:
        return set_word(bytes, value - 4, damage.value); // length
    case 2:
        return set_word(bytes, value - 4, item.needed + damage.value % 8 - 4);
    case 3:
        return set_word(bytes, value, damage.value); // value
    case 4:
        return resize_value(bytes, item, damage.value % 300);
    case 5:
        return bytes.resize(std::min<size_t>(bytes.size(), item.offset + damage.value % 32));
    case 6:
        bytes.insert(at(bytes, item.offset), damage.value % 40, static_cast<uint8_t>(damage.value >> 8));
        return;
    case 7:
        bytes.erase(at(bytes, item.offset), at(bytes, item.offset + damage.value % 40));
        return;
    default: // the text has no end of its own
        std::fill(at(bytes, value), at(bytes, value + damage.value % 300), 'x');
    }
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Input input({data, size});
    const model::Body &body = input.body();
    std::vector<Damage> damages = choose_damages(input);
    Bytes bytes = model::encode(body, input.image(body));
    std::vector<model::Item> items = model::decode(body, bytes).items;
    for (const Damage &each : damages)
        apply(each, items[each.place % items.size()], bytes);
    check_guarded(body, bytes);
    check_direct(body, bytes);
    return 0;
}
