// state_info: request of AskStateRenotification.
//
//   tag 3  state, zero-extended
//   tag 4  info, at most 45 characters

#include "gorvanet.h"
#include "tlv.h"

static_assert(sizeof(state_info) == 47);

uint32_t gorvaNet_state_info_copy(struct state_info *destination, const struct state_info *source)
{
    destination->state = source->state;
    copy_text(destination->info, source->info);
    return 0;
}

void gorvaNet_state_info_clean(struct state_info *)
{
}

uint32_t gorvaNet_state_info_serialize_lg(const struct state_info *record)
{
    return number_item + text_item(record->info);
}

uint32_t gorvaNet_state_info_serialize(const struct state_info *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_u8(out, 3, record->state);
    put_text(out, 4, record->info);
    return close_writer(out);
}

uint32_t gorvaNet_state_info_unserialize(struct state_info *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_u8(in, 3, record->state);
    get_text(in, 4, record->info);
    return close_reader(in);
}
