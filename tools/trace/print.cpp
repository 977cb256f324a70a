#include "print.h"

#include <cstring>
#include <unistd.h>

namespace trace {

namespace {

constexpr uint32_t seconds_in_a_day = 86400;
constexpr uint32_t microsecond = 1000;
constexpr uint32_t bytes_in_a_line = 32;

const char *side_name(const Message &message)
{
    return message.side == Side::sent ? "sent" : "received";
}

const char *direction_name(const Message &message)
{
    constexpr const char *names[] = {"request", "response", "notification"};
    return names[static_cast<uint32_t>(message.direction)];
}

const Layout *layout_of(const Message &message)
{
    uint32_t type = message.direction == Direction::response ? layouts::response : layouts::request;
    return layouts::find_layout(message.method.interface, message.method.index, type);
}

void put_time_of_day(Output &out, const timespec &time)
{
    auto second = static_cast<uint32_t>(time.tv_sec % seconds_in_a_day);
    put_unsigned(out, second / 3600, 2);
    put_character(out, ':');
    put_unsigned(out, second / 60 % 60, 2);
    put_character(out, ':');
    put_unsigned(out, second % 60, 2);
    put_character(out, '.');
    put_unsigned(out, static_cast<uint64_t>(time.tv_nsec) / microsecond, 6);
    put_character(out, 'Z');
}

// Days since 1970-01-01 as a date. Counted in years that begin in March, a leap day is the last day of its year.
void put_date(Output &out, uint32_t day)
{
    constexpr uint32_t day_of_march_0000 = 719468;
    constexpr uint32_t days_in_400_years = 146097;
    day += day_of_march_0000;
    uint32_t era = day / days_in_400_years;
    uint32_t of_era = day % days_in_400_years;
    uint32_t year = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
    uint32_t of_year = of_era - (365 * year + year / 4 - year / 100);
    uint32_t month = (5 * of_year + 2) / 153; // 0 is March
    put_unsigned(out, era * 400 + year + (month > 9), 4);
    put_character(out, '-');
    put_unsigned(out, month < 10 ? month + 3 : month - 9, 2);
    put_character(out, '-');
    put_unsigned(out, of_year - (153 * month + 2) / 5 + 1, 2);
}

// Characters that a terminal or a JSON parser takes badly are written as \u00XX: a text has no encoding of its own.
void put_quoted(Output &out, const char *text)
{
    put_character(out, '"');
    for (; *text; text++) {
        auto character = static_cast<uint8_t>(*text);
        if (character < ' ' || character > '~') {
            put_text(out, "\\u00");
            put_hex(out, &character, 1);
            continue;
        }
        if (character == '"' || character == '\\')
            put_character(out, '\\');
        put_character(out, *text);
    }
    put_character(out, '"');
}

// Numbers and texts look alike in both forms.
void put_value(Output &out, const Field &field, const uint8_t *value)
{
    if (field.kind == Kind::text)
        put_quoted(out, reinterpret_cast<const char *>(value));
    else if (field.kind == Kind::wide)
        put_unsigned(out, wide_number_in(value));
    else if (field.kind == Kind::signed_number)
        put_signed(out, static_cast<int32_t>(number_in(value)));
    else
        put_unsigned(out, number_in(value));
}

constexpr Field prologue[] = {layouts::number(0, "magic"), layouts::number(1, "version")};

// A reader behind the prologue.
Items items_of(const Message &message)
{
    Items items = {message.body, 0, false};
    for (const Field &field : prologue)
        next_value(items, field);
    return items;
}

// ---- In words -------------------------------------------------------------------------------------------------------

struct Text {
    Output &out;
    Items items;
    bool is_coloured;
    uint32_t width;   // of the widest name
    bool is_measured; // false: find the width, print nothing
};

enum class Style { plain, dim, sent, received, bad, field };

void set_style(Output &out, bool is_coloured, Style style)
{
    constexpr const char *codes[] = {"\x1b[0m", "\x1b[2m", "\x1b[36m", "\x1b[32m", "\x1b[1;31m", "\x1b[33m"};
    if (is_coloured)
        put_text(out, codes[static_cast<uint32_t>(style)]);
}

void put_styled(Output &out, bool is_coloured, Style style, const char *text, uint32_t width = 0)
{
    set_style(out, is_coloured, style);
    put_padded(out, text, width);
    set_style(out, is_coloured, Style::plain);
}

// Where a value is: the fields around it, outermost first.
struct Place {
    const Place *outer;
    const char *name;
    int32_t element; // of a list; -1: no list
};

uint32_t digits_of(int32_t number)
{
    return number < 10 ? 1 : 2; // no list has more than 99 elements
}

uint32_t width_of(const Place *place)
{
    if (!place)
        return 0;
    auto width = static_cast<uint32_t>(strlen(place->name));
    if (place->element >= 0)
        width += 2 + digits_of(place->element);
    return width_of(place->outer) + (place->outer ? 1 : 0) + width;
}

void put_place(Output &out, const Place *place)
{
    if (place->outer) {
        put_place(out, place->outer);
        put_character(out, '.');
    }
    put_text(out, place->name);
    if (place->element < 0)
        return;
    put_character(out, '[');
    put_unsigned(out, static_cast<uint32_t>(place->element));
    put_character(out, ']');
}

void begin_line(Text &text, const Place &place)
{
    put_text(text.out, "    ");
    set_style(text.out, text.is_coloured, Style::field);
    put_place(text.out, &place);
    set_style(text.out, text.is_coloured, Style::plain);
    for (uint32_t width = width_of(&place); width < text.width + 2; width++)
        put_character(text.out, ' ');
}

// Null where the body is not what the layout says.
Value value_line(Text &text, const Field &field, const Place &place)
{
    Value value = next_value(text.items, field);
    if (!value.data)
        return value;
    if (!text.is_measured) {
        uint32_t width = width_of(&place);
        text.width = width > text.width ? width : text.width;
        return value;
    }
    begin_line(text, place);
    put_value(text.out, field, value.data);
    if (field.kind == Kind::list)
        put_text(text.out, " in the list");
    put_character(text.out, '\n');
    return value;
}

void put_fields(Text &text, std::span<const Field> fields, const Place *outer)
{
    for (const Field &field : fields) {
        if (text.items.stopped)
            return;
        Place place = {outer, field.name, -1};
        if (field.kind == Kind::record) {
            put_fields(text, field.members, &place);
            continue;
        }
        Value value = value_line(text, field, place);
        if (!value.data || field.kind != Kind::list)
            continue;
        uint32_t count = elements_in(field, number_in(value.data));
        for (place.element = 0; static_cast<uint32_t>(place.element) < count; place.element++)
            put_fields(text, field.members, &place);
    }
}

// What cannot be read by the layout.
void put_rest(Text &text, const Message &message)
{
    uint32_t left = message.body.size - text.items.position;
    if (!left)
        return;
    put_text(text.out, "    ");
    set_style(text.out, text.is_coloured, Style::bad);
    put_text(text.out, "not as the layout says, from byte ");
    put_unsigned(text.out, text.items.position);
    put_text(text.out, " on:");
    set_style(text.out, text.is_coloured, Style::plain);
    for (uint32_t i = 0; i < left; i++) {
        if (i % bytes_in_a_line == 0)
            put_text(text.out, "\n       ");
        if (i % 4 == 0)
            put_character(text.out, ' ');
        put_hex(text.out, message.body.data + text.items.position + i, 1);
    }
    put_character(text.out, '\n');
}

void put_body(Output &out, const Message &message, bool is_coloured)
{
    Text text = {out, items_of(message), is_coloured, 0, false};
    put_fields(text, layout_of(message)->fields, nullptr);
    text.items = items_of(message);
    text.is_measured = true;
    if (!text.items.stopped)
        put_fields(text, layout_of(message)->fields, nullptr);
    put_rest(text, message);
}

void put_outcome(Output &out, const Message &message, bool is_coloured)
{
    if (!message.is_handled)
        return put_styled(out, is_coloured, Style::bad, ", status 20: nobody handles it");
    if (message.status) {
        set_style(out, is_coloured, Style::bad);
        put_text(out, message.side == Side::sent ? ", not sent: status " : ", refused: status ");
        put_unsigned(out, message.status);
        set_style(out, is_coloured, Style::plain);
    }
    if (message.body.size) {
        put_text(out, ", ");
        put_unsigned(out, message.body.size);
        put_text(out, " bytes");
    }
}

} // namespace

void print_text(Output &out, const Message &message, bool is_coloured)
{
    set_style(out, is_coloured, Style::dim);
    put_time_of_day(out, message.time);
    put_text(out, "  ");
    put_unsigned(out, static_cast<uint32_t>(getpid()));
    set_style(out, is_coloured, Style::plain);
    put_text(out, "  ");
    Style side = message.side == Side::sent ? Style::sent : Style::received;
    put_styled(out, is_coloured, side, side_name(message), strlen("received  "));
    put_text(out, message.name);
    put_character(out, ' ');
    put_text(out, direction_name(message));
    if (message.number) {
        put_text(out, " #");
        put_unsigned(out, message.number % numbers_of_a_process);
    }
    if (*message.user) {
        put_text(out, message.side == Side::sent ? " to " : " from ");
        put_quoted(out, message.user);
    }
    put_outcome(out, message, is_coloured);
    put_character(out, '\n');
    if (message.body.size)
        put_body(out, message, is_coloured);
}

// ---- JSON -----------------------------------------------------------------------------------------------------------

namespace {

void put_member(Output &out, const char *name)
{
    put_character(out, ',');
    put_quoted(out, name);
    put_character(out, ':');
}

void put_text_member(Output &out, const char *name, const char *value)
{
    put_member(out, name);
    put_quoted(out, value);
}

void put_number_member(Output &out, const char *name, uint32_t value)
{
    put_member(out, name);
    put_unsigned(out, value);
}

void put_object(Output &out, Items &items, std::span<const Field> fields);

void put_list(Output &out, Items &items, const Field &field, uint32_t count)
{
    put_character(out, '[');
    for (uint32_t i = 0; i < elements_in(field, count) && !items.stopped; i++) {
        if (i)
            put_character(out, ',');
        put_object(out, items, field.members);
    }
    put_character(out, ']');
}

// The fields up to the first that is not as the layout says.
void put_object(Output &out, Items &items, std::span<const Field> fields)
{
    put_character(out, '{');
    const char *separator = "";
    for (const Field &field : fields) {
        Value value = {};
        if (field.kind != Kind::record)
            value = next_value(items, field);
        if (items.stopped)
            break;
        put_text(out, separator);
        put_quoted(out, field.name);
        put_character(out, ':');
        if (field.kind == Kind::record)
            put_object(out, items, field.members);
        else if (field.kind == Kind::list)
            put_list(out, items, field, number_in(value.data));
        else
            put_value(out, field, value.data);
        separator = ",";
    }
    put_character(out, '}');
}

} // namespace

void print_json(Output &out, const Message &message)
{
    put_text(out, "{\"time\":\"");
    put_date(out, static_cast<uint32_t>(message.time.tv_sec / seconds_in_a_day));
    put_character(out, 'T');
    put_time_of_day(out, message.time);
    put_character(out, '"');
    put_number_member(out, "process", static_cast<uint32_t>(getpid()));
    put_text_member(out, "side", side_name(message));
    put_text_member(out, "direction", direction_name(message));
    put_text_member(out, "method", message.name);
    put_number_member(out, "index", message.method.index);
    put_number_member(out, "number", message.number);
    put_text_member(out, "user", message.user);
    put_number_member(out, "status", message.is_handled ? message.status : 20);
    put_number_member(out, "size", message.body.size);
    put_member(out, "hex");
    put_character(out, '"');
    put_hex(out, message.body.data, message.body.size);
    put_character(out, '"');
    Items items = items_of(message);
    if (!items.stopped) {
        put_member(out, "fields");
        put_object(out, items, layout_of(message)->fields);
    }
    put_text(out, "}\n");
}

} // namespace trace
