// intfConf: request of Configure.
//
//   tag 3  field3
//   tag 4  field4
//   tag 5  field5
//   tag 6  field6, at most 255 characters
//   tag 7  field7, at most 255 characters

#include "gorvanet.h"
#include "tlv.h"

static_assert(sizeof(intfConf) == 524);

uint32_t gorvaNet_intfConf_copy(struct intfConf *destination, const struct intfConf *source)
{
    destination->field3 = source->field3;
    destination->field4 = source->field4;
    destination->field5 = source->field5;
    copy_text(destination->field6, source->field6);
    copy_text(destination->field7, source->field7);
    return 0;
}

void gorvaNet_intfConf_clean(struct intfConf *)
{
}

uint32_t gorvaNet_intfConf_serialize_lg(const struct intfConf *record)
{
    return 3 * number_item + text_item(record->field6) + text_item(record->field7);
}

uint32_t gorvaNet_intfConf_serialize(const struct intfConf *record, uint8_t **cursor)
{
    Writer out = open_writer(cursor);
    put_u32(out, 3, record->field3);
    put_u32(out, 4, record->field4);
    put_u32(out, 5, record->field5);
    put_text(out, 6, record->field6);
    put_text(out, 7, record->field7);
    return close_writer(out);
}

uint32_t gorvaNet_intfConf_unserialize(struct intfConf *record, const uint8_t **cursor)
{
    Reader in = open_reader(cursor);
    get_u32(in, 3, record->field3);
    get_u32(in, 4, record->field4);
    get_u32(in, 5, record->field5);
    get_text(in, 6, record->field6);
    get_text(in, 7, record->field7);
    return close_reader(in);
}
