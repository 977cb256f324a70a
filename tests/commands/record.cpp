#include "commands/record.h"

#include "gorvanet.h"

RecordProbe::RecordProbe(const std::string &record)
    : copy_name("gorvaNet_" + record + "_copy"), clean_name("gorvaNet_" + record + "_clean"),
      serialize_lg_name("gorvaNet_" + record + "_serialize_lg"), serialize_name("gorvaNet_" + record + "_serialize"),
      unserialize_name("gorvaNet_" + record + "_unserialize"), copy(copy_name.c_str()), clean(clean_name.c_str()),
      serialize_lg(serialize_lg_name.c_str()), serialize(serialize_name.c_str()), unserialize(unserialize_name.c_str())
{
}

void RecordProbe::reset()
{
    copy.instead = nullptr;
    clean.instead = nullptr;
    serialize_lg.instead = nullptr;
    serialize.instead = nullptr;
    unserialize.instead = nullptr;
    copy.calls = clean.calls = serialize_lg.calls = serialize.calls = unserialize.calls = 0;
}
