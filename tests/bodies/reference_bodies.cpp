#include "bodies/reference_bodies.h"

#include "guard/model.h"

#include <cctype>

namespace reference {

namespace {

// "gorvaNet_cbEvtMsgMngt_<family>_msgCmdReq_setMtu" for "SetMtuRequest".
std::string log_name(const model::Body &body, const std::string &family)
{
    const bool is_request = body.direction == GORVANET_BODY_REQUEST;
    const std::string direction = is_request ? "Request" : "Response";
    std::string suffix = body.name.substr(0, body.name.size() - direction.size());
    suffix[0] = static_cast<char>(tolower(suffix[0]));
    return "gorvaNet_cbEvtMsgMngt_" + family + "_" + (body.is_notification ? "msgNtfy" : "msgCmd") +
           direction.substr(0, 3) + "_" + suffix;
}

std::vector<Field> with_prologue(const model::Body &body)
{
    std::vector<Field> fields = {{Kind::u32, 0, 0}, {Kind::version, 1, 0, body.version}};
    for (Field field : body.layout.fields) {
        if (field.tag == body.wide_tag)
            field.kind = Kind::wide;
        fields.push_back(field);
    }
    return fields;
}

// A body announces its own items, and not its record.
Tags own_items(const std::vector<Field> &fields)
{
    Tags tags;
    for (const Field &field : fields)
        if (!field.element)
            tags.push_back(field.tag);
    return tags;
}

Body with_names(const model::Body &body)
{
    std::vector<Field> fields = with_prologue(body);
    const Tags announced = own_items(fields);
    return {.type = body.direction,
            .magic = body.magic,
            .row = body.row(),
            .layout = {.name = body.name,
                       .size = body.layout.size,
                       .fields = fields,
                       .encoder_announces = announced,
                       .decoder_announces = announced,
                       .passes_on_alone = false,
                       .encoder = log_name(body, "serializeBody"),
                       .decoder = log_name(body, "unserializeBody")}};
}

} // namespace

const std::vector<Body> &bodies()
{
    static const std::vector<Body> all = [] {
        std::vector<Body> made;
        for (const model::Body &body : model::bodies())
            made.push_back(with_names(body));
        return made;
    }();
    return all;
}

} // namespace reference
