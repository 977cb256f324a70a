-- Made by scripts/generate from interface/gorvanet.json. Do not edit.
-- Messages of the interface GorvaNet in Wireshark and tshark, from captures as docs/capture.md describes them.
--
--     wireshark -X lua_script:gorvanet.lua capture.pcap
--
-- What it decodes, and what it says of damage, is what gorvanet-decode says. See tools/README.md.

local gorvanet = Proto("gorvanet", "GorvaNet")

-- ---- The interface --------------------------------------------------------------------------------------------------

local prologue = {
    {kind = "u32", name = "magic", tag = 0},
    {kind = "u16", name = "version", tag = 1},
}

local records = {
    state_info = {
        {kind = "u8", name = "state", tag = 3, filter = "gorvanet.state_info.state"},
        {kind = "text", name = "info", tag = 4, capacity = 46, filter = "gorvanet.state_info.info"},
    },
    ipv4_address_return = {
        {kind = "u32", name = "result", tag = 3, filter = "gorvanet.ipv4_address_return.result"},
    },
    intfConf = {
        {kind = "u32", name = "field3", tag = 3, filter = "gorvanet.intfconf.field3"},
        {kind = "u32", name = "field4", tag = 4, filter = "gorvanet.intfconf.field4"},
        {kind = "u32", name = "field5", tag = 5, filter = "gorvanet.intfconf.field5"},
        {kind = "text", name = "field6", tag = 6, capacity = 256, filter = "gorvanet.intfconf.field6"},
        {kind = "text", name = "field7", tag = 7, capacity = 256, filter = "gorvanet.intfconf.field7"},
    },
    ipv6_prefix = {
        {kind = "text", name = "field3", tag = 3, capacity = 46, filter = "gorvanet.ipv6_prefix.field3"},
        {kind = "u32", name = "field4", tag = 4, filter = "gorvanet.ipv6_prefix.field4"},
        {kind = "u32", name = "field5", tag = 5, filter = "gorvanet.ipv6_prefix.field5"},
        {kind = "u32", name = "field6", tag = 6, filter = "gorvanet.ipv6_prefix.field6"},
        {kind = "u32", name = "field7", tag = 7, filter = "gorvanet.ipv6_prefix.field7"},
        {kind = "u32", name = "field8", tag = 8, filter = "gorvanet.ipv6_prefix.field8"},
        {kind = "u32", name = "field9", tag = 9, filter = "gorvanet.ipv6_prefix.field9"},
        {kind = "u32", name = "field10", tag = 10, filter = "gorvanet.ipv6_prefix.field10"},
        {kind = "text", name = "field11", tag = 11, capacity = 150, filter = "gorvanet.ipv6_prefix.field11"},
        {kind = "u8", name = "field12", tag = 12, filter = "gorvanet.ipv6_prefix.field12"},
    },
    ipv6_prefix_config = {
        {kind = "text", name = "field3", tag = 3, capacity = 80, filter = "gorvanet.ipv6_prefix_config.field3"},
        {kind = "text", name = "field4", tag = 4, capacity = 80, filter = "gorvanet.ipv6_prefix_config.field4"},
        {kind = "record", name = "prefix", record = "ipv6_prefix"},
    },
    ipv6_prefixes = {
        {kind = "list", name = "prefixes", count = "field3", tag = 3, capacity = 10, record = "ipv6_prefix", filter = "gorvanet.ipv6_prefixes.field3"},
    },
    ipv6_address = {
        {kind = "text", name = "field3", tag = 3, capacity = 46, filter = "gorvanet.ipv6_address.field3"},
        {kind = "u32", name = "field5", tag = 5, filter = "gorvanet.ipv6_address.field5"},
        {kind = "u32", name = "field6", tag = 6, filter = "gorvanet.ipv6_address.field6"},
        {kind = "u32", name = "field7", tag = 7, filter = "gorvanet.ipv6_address.field7"},
        {kind = "u32", name = "field8", tag = 8, filter = "gorvanet.ipv6_address.field8"},
    },
    ipv6_prefix_addr_conf = {
        {kind = "record", name = "config", record = "ipv6_prefix_config"},
        {kind = "record", name = "address", record = "ipv6_address"},
    },
    ipv6_prefix_addr_conf_list = {
        {kind = "list", name = "confs", count = "field3", tag = 3, capacity = 5, record = "ipv6_prefix_addr_conf", filter = "gorvanet.ipv6_prefix_addr_conf_list.field3"},
    },
    ipv6_properties = {
        {kind = "s8", name = "field3", tag = 3, filter = "gorvanet.ipv6_properties.field3"},
        {kind = "s8", name = "field4", tag = 4, filter = "gorvanet.ipv6_properties.field4"},
        {kind = "s8", name = "field5", tag = 5, filter = "gorvanet.ipv6_properties.field5"},
        {kind = "s8", name = "field6", tag = 6, filter = "gorvanet.ipv6_properties.field6"},
        {kind = "text", name = "field7", tag = 7, capacity = 50, filter = "gorvanet.ipv6_properties.field7"},
        {kind = "text", name = "field8", tag = 8, capacity = 50, filter = "gorvanet.ipv6_properties.field8"},
        {kind = "text", name = "field9", tag = 9, capacity = 50, filter = "gorvanet.ipv6_properties.field9"},
        {kind = "list", name = "field11", count = "field10", tag = 10, capacity = 2, record = "ipv6_address", filter = "gorvanet.ipv6_properties.field10"},
        {kind = "list", name = "field13", count = "field12", tag = 12, capacity = 2, record = "ipv6_address", filter = "gorvanet.ipv6_properties.field12"},
        {kind = "list", name = "field15", count = "field14", tag = 14, capacity = 10, record = "ipv6_address", filter = "gorvanet.ipv6_properties.field14"},
        {kind = "text", name = "field16", tag = 16, capacity = 46, filter = "gorvanet.ipv6_properties.field16"},
        {kind = "list", name = "field18", count = "field17", tag = 17, capacity = 10, record = "ipv6_prefix", filter = "gorvanet.ipv6_properties.field17"},
        {kind = "text", name = "field19", tag = 19, capacity = 256, filter = "gorvanet.ipv6_properties.field19"},
    },
    ipv4_info = {
        {kind = "text", name = "field3", tag = 3, capacity = 16, filter = "gorvanet.ipv4_info.field3"},
        {kind = "text", name = "field4", tag = 4, capacity = 150, filter = "gorvanet.ipv4_info.field4"},
    },
    ipv4_properties = {
        {kind = "s8", name = "field3", tag = 3, filter = "gorvanet.ipv4_properties.field3"},
        {kind = "text", name = "field4", tag = 4, capacity = 50, filter = "gorvanet.ipv4_properties.field4"},
        {kind = "text", name = "field5", tag = 5, capacity = 50, filter = "gorvanet.ipv4_properties.field5"},
        {kind = "u32", name = "field6", tag = 6, filter = "gorvanet.ipv4_properties.field6"},
        {kind = "text", name = "field7", tag = 7, capacity = 16, filter = "gorvanet.ipv4_properties.field7"},
        {kind = "text", name = "field8", tag = 8, capacity = 16, filter = "gorvanet.ipv4_properties.field8"},
        {kind = "text", name = "field9", tag = 9, capacity = 16, filter = "gorvanet.ipv4_properties.field9"},
        {kind = "text", name = "field10", tag = 10, capacity = 33, filter = "gorvanet.ipv4_properties.field10"},
        {kind = "text", name = "field11", tag = 11, capacity = 256, filter = "gorvanet.ipv4_properties.field11"},
        {kind = "list", name = "infos", count = "infoCount", tag = 12, capacity = 20, record = "ipv4_info", filter = "gorvanet.ipv4_properties.infocount"},
    },
    ipv4_address = {
        {kind = "u32", name = "field3", tag = 3, filter = "gorvanet.ipv4_address.field3"},
        {kind = "u32", name = "field4", tag = 4, filter = "gorvanet.ipv4_address.field4"},
        {kind = "u8", name = "field5", tag = 5, filter = "gorvanet.ipv4_address.field5"},
        {kind = "text", name = "field6", tag = 6, capacity = 33, filter = "gorvanet.ipv4_address.field6"},
        {kind = "text", name = "field7", tag = 7, capacity = 16, filter = "gorvanet.ipv4_address.field7"},
        {kind = "text", name = "field8", tag = 8, capacity = 16, filter = "gorvanet.ipv4_address.field8"},
        {kind = "text", name = "field9", tag = 9, capacity = 16, filter = "gorvanet.ipv4_address.field9"},
        {kind = "text", name = "field10", tag = 10, capacity = 33, filter = "gorvanet.ipv4_address.field10"},
    },
}

-- By direction and index.
local bodies = {
    [0] = {
        [0] = {name = "SetOsIfc", magic = 0x39132011, version = 0, fields = {
            {kind = "text", name = "ifName", tag = 3, capacity = 50, filter = "gorvanet.setosifc.ifname"},
        }},
        [1] = {name = "SetDhcp", magic = 0x39132011, version = 0, fields = {
            {kind = "text", name = "ifName", tag = 3, capacity = 50, filter = "gorvanet.setdhcp.ifname"},
            {kind = "u32", name = "dhcp", tag = 4, filter = "gorvanet.setdhcp.dhcp"},
        }},
        [2] = {name = "SetRdisc6", magic = 0x34132011, version = 0, fields = {
            {kind = "text", name = "ifName", tag = 3, capacity = 50, filter = "gorvanet.setrdisc6.ifname"},
        }},
        [3] = {name = "GetIPv4Props", magic = 0x23331110, version = 1, fields = {}},
        [4] = {name = "GetIPv6Props", magic = 0x24331110, version = 1, fields = {}},
        [5] = {name = "SetIPv4Address", magic = 0x23331320, version = 0, fields = {
            {kind = "record", name = "address", record = "ipv4_address"},
        }},
        [6] = {name = "SetMtu", magic = 0x20190222, version = 0, fields = {
            {kind = "u32", name = "mtu", tag = 3, filter = "gorvanet.setmtu.mtu"},
        }},
        [7] = {name = "SetIPv6PrefixAndAddress", magic = 0x24331320, version = 0, fields = {
            {kind = "record", name = "list", record = "ipv6_prefix_addr_conf_list"},
        }},
        [8] = {name = "AskStateRenotification", magic = 0x13235326, version = 0, fields = {
            {kind = "record", name = "info", record = "state_info"},
        }},
        [9] = {name = "RegisterPrefixStatus", magic = 0x20150227, version = 0, fields = {
            {kind = "u32", name = "first", tag = 3, filter = "gorvanet.registerprefixstatus.first"},
            {kind = "pointer", name = "pointer", tag = 4, filter = "gorvanet.registerprefixstatus.pointer"},
            {kind = "u32", name = "last", tag = 5, filter = "gorvanet.registerprefixstatus.last"},
        }},
        [10] = {name = "Configure", magic = 0x13235326, version = 1, fields = {
            {kind = "record", name = "configuration", record = "intfConf"},
        }},
        [11] = {name = "ConfigureAllIPv6Intf", magic = 0x20161209, version = 0, fields = {
            {kind = "u32", name = "value", tag = 3, filter = "gorvanet.configureallipv6intf.value"},
        }},
    },
    [1] = {
        [0] = {name = "SetOsIfc", magic = 0x39132011, version = 0, fields = {
            {kind = "u32", name = "result", tag = 3, filter = "gorvanet.setosifc.result"},
        }},
        [1] = {name = "SetDhcp", magic = 0x39132011, version = 0, fields = {}},
        [2] = {name = "SetRdisc6", magic = 0x34132011, version = 0, fields = {}},
        [3] = {name = "GetIPv4Props", magic = 0x23331110, version = 1, fields = {
            {kind = "record", name = "properties", record = "ipv4_properties"},
            {kind = "u32", name = "result", tag = 4, filter = "gorvanet.getipv4props.result"},
        }},
        [4] = {name = "GetIPv6Props", magic = 0x24331110, version = 1, fields = {
            {kind = "record", name = "properties", record = "ipv6_properties"},
            {kind = "u32", name = "result", tag = 4, filter = "gorvanet.getipv6props.result"},
        }},
        [5] = {name = "SetIPv4Address", magic = 0x23331320, version = 0, fields = {
            {kind = "record", name = "outcome", record = "ipv4_address_return"},
        }},
        [6] = {name = "SetMtu", magic = 0x20190222, version = 0, fields = {
            {kind = "u32", name = "result", tag = 3, filter = "gorvanet.setmtu.result"},
        }},
        [7] = {name = "SetIPv6PrefixAndAddress", magic = 0x24331320, version = 0, fields = {
            {kind = "u32", name = "result", tag = 3, filter = "gorvanet.setipv6prefixandaddress.result"},
        }},
        [9] = {name = "RegisterPrefixStatus", magic = 0x20150227, version = 0, fields = {
            {kind = "u32", name = "result", tag = 3, filter = "gorvanet.registerprefixstatus.result"},
        }},
    },
    [2] = {
        [0] = {name = "PrefixStatus", magic = 0x20150226, version = 0, fields = {
            {kind = "text", name = "name", tag = 3, capacity = 80, filter = "gorvanet.prefixstatus.name"},
            {kind = "record", name = "prefixes", record = "ipv6_prefixes"},
        }},
    },
}

-- ---- Fields ---------------------------------------------------------------------------------------------------------

local DIRECTIONS = {[0] = "request", [1] = "response", [2] = "notification"}
local SIDES = {[0] = "sent", [1] = "received"}

local head = {
    mark = ProtoField.string("gorvanet.mark", "Mark"),
    direction = ProtoField.uint8("gorvanet.direction", "Direction", base.DEC, DIRECTIONS),
    side = ProtoField.uint8("gorvanet.side", "Side", base.DEC, SIDES),
    method = ProtoField.uint16("gorvanet.method", "Method"),
    name = ProtoField.string("gorvanet.name", "Method name"),
    number = ProtoField.uint32("gorvanet.number", "Request number"),
    user = ProtoField.string("gorvanet.user", "User"),
    interface = ProtoField.string("gorvanet.interface", "Interface"),
    length = ProtoField.uint32("gorvanet.length", "Body length"),
    body = ProtoField.bytes("gorvanet.body", "Body"),
    magic = ProtoField.uint32("gorvanet.magic", "magic", base.HEX),
    version = ProtoField.uint32("gorvanet.version", "version"),
    response_in = ProtoField.framenum("gorvanet.response_in", "Response in", base.NONE, frametype.RESPONSE),
    response_to = ProtoField.framenum("gorvanet.response_to", "Response to", base.NONE, frametype.REQUEST),
}

local damaged = ProtoExpert.new("gorvanet.damaged", "Damaged", expert.group.MALFORMED, expert.severity.ERROR)
local odd = ProtoExpert.new("gorvanet.odd", "Not as the encoder writes it", expert.group.PROTOCOL, expert.severity.NOTE)
gorvanet.experts = {damaged, odd}

local MAKERS = {
    u8 = ProtoField.uint32,
    u32 = ProtoField.uint32,
    s8 = ProtoField.int32,
    text = ProtoField.string,
    pointer = function(filter, name) return ProtoField.uint32(filter, name, base.HEX) end,
}

-- By their filter names. What bodies share, as the result of a method's response, is one field.
local by_filter = {}

local function make_field(kind, filter, name)
    by_filter[filter] = by_filter[filter] or MAKERS[kind](filter, name)
end

local function make_fields(fields)
    for _, field in ipairs(fields) do
        if field.kind == "list" then
            make_field("u32", field.filter, field.count)
        elseif field.kind ~= "record" then
            make_field(field.kind, field.filter, field.name)
        end
    end
end

for _, fields in pairs(records) do
    make_fields(fields)
end
for _, of_direction in pairs(bodies) do
    for _, body in pairs(of_direction) do
        make_fields(body.fields)
    end
end

for _, field in pairs(head) do
    table.insert(gorvanet.fields, field)
end
for _, field in pairs(by_filter) do
    table.insert(gorvanet.fields, field)
end

-- ---- Items ----------------------------------------------------------------------------------------------------------

-- A walk over the items of a body. After the first refusal nothing more is read.
local Walk = {}
Walk.__index = Walk

function Walk.new(bytes)
    return setmetatable({bytes = bytes, at = 0, refused = false, path = {}}, Walk)
end

function Walk:left()
    return self.bytes:len() - self.at
end

function Walk:refuse(tree, at, text)
    self.refused = true
    local path = table.concat(self.path, ".")
    if path == "" then
        path = "the end"
    end
    tree:add_proto_expert_info(damaged, string.format("at 0x%x, %s: %s", at, path, text))
end

-- The next item, which shall have this tag and hold what its kind needs: its place, and the length of its value.
function Walk:item(tree, tag, header, needed)
    local at = self.at
    if self:left() < header then
        self:refuse(tree, at, string.format("an item begins with %d bytes, %d are left", header, self:left()))
        return
    end
    local wide = header == 16
    local found = wide and self.bytes(at, 8):uint64() or UInt64(self.bytes(at, 4):uint())
    local length = self.bytes(at + header - 4, 4):uint() -- of that of a wide item the low half counts
    local left = self:left() - header
    if found ~= UInt64(tag) then
        self:refuse(tree, at, string.format("tag %s (length %d), expected %d", tostring(found), length, tag))
    elseif length > left then
        self:refuse(tree, at, string.format("%d bytes announced, %d are left", length, left))
    elseif length < needed then
        self:refuse(tree, at, string.format("%d bytes, at least %d needed", length, needed))
    else
        self.at = at + header + length
        return at, length
    end
end

local function check_length(item, found, expected)
    if found ~= UInt64(expected) then
        local text = string.format("length %s, where the encoder writes %d", tostring(found), expected)
        item:add_proto_expert_info(odd, text)
    end
end

-- What the library keeps of a number: the low bits.
local function narrow(number, kind)
    if kind == "u8" or kind == "s8" then
        number = number % 0x100
    elseif kind == "u16" then
        number = number % 0x10000
    end
    return (kind == "s8" and number >= 0x80) and number - 0x100 or number
end

function Walk:number(tree, proto_field, tag, kind)
    local at, length = self:item(tree, tag, 8, 4)
    if not at then
        return
    end
    local found = self.bytes(at + 8, 4):uint()
    local number = narrow(found, kind)
    local item = tree:add(proto_field, self.bytes(at, 8 + length), number)
    check_length(item, UInt64(length), 4)
    if found ~= number % 0x100000000 then
        item:add_proto_expert_info(odd, string.format("0x%08x on the wire, of which the low bits count", found))
    end
    return number, item, at
end

function Walk:text(tree, field)
    local at, length = self:item(tree, field.tag, 8, 1)
    if not at then
        return
    end
    local size = 0
    while size < length and self.bytes(at + 8 + size, 1):uint() ~= 0 do
        size = size + 1
    end
    if size == length then
        self:refuse(tree, at, string.format("no NUL in %d bytes", length))
    elseif size >= field.capacity then
        self:refuse(tree, at, string.format("%d bytes with the NUL, %d fit", size + 1, field.capacity))
    else
        local text = size > 0 and self.bytes(at + 8, size):string(ENC_UTF_8) or ""
        local item = tree:add(by_filter[field.filter], self.bytes(at, 8 + length), text)
        check_length(item, UInt64(length), size + 1 - (size + 1) % 4 + 4)
        self:check_padding(item, at + 8 + size, at + 8 + length)
    end
end

function Walk:check_padding(item, from, to)
    for at = from, to - 1 do
        if self.bytes(at, 1):uint() ~= 0 then
            item:add_proto_expert_info(odd, "bytes other than 0 behind the NUL")
            return
        end
    end
end

function Walk:pointer(tree, field)
    local at, length = self:item(tree, field.tag, 16, 8)
    if not at then
        return
    end
    if self.bytes(at + 16, 4):uint() ~= 0 then
        local value = self.bytes(at + 16, 8):uint64()
        self:refuse(tree, at, string.format("0x%s does not fit 32 bits", value:tohex():gsub("^0+", "")))
        return
    end
    local item = tree:add(by_filter[field.filter], self.bytes(at, 16 + length), self.bytes(at + 20, 4):uint())
    check_length(item, self.bytes(at + 8, 8):uint64(), 8)
end

function Walk:record(tree, name, record)
    local at = self.at
    local subtree = tree:add(gorvanet, self.bytes(at, 0), string.format("%s: %s", name, record))
    self:fields(subtree, records[record], name)
    subtree:set_len(self.at - at)
end

function Walk:list(tree, field)
    local count, item = self:number(tree, by_filter[field.filter], field.tag, "u32")
    if not count then
        return
    end
    if count > field.capacity then
        local text = string.format("more than the %d that there is room for, and that follow", field.capacity)
        item:add_proto_expert_info(odd, text)
    end
    table.remove(self.path)
    for i = 0, math.min(count, field.capacity) - 1 do
        if not self.refused then
            self:record(tree, string.format("%s[%d]", field.name, i), field.record)
        end
    end
    table.insert(self.path, field.count)
end

local READERS = {
    text = Walk.text,
    pointer = Walk.pointer,
    list = Walk.list,
    record = function(self, tree, field) self:record(tree, field.name, field.record) end,
}

-- The path stays at the field that was refused.
function Walk:fields(tree, fields, name)
    table.insert(self.path, name)
    for _, field in ipairs(fields) do
        if field.kind ~= "record" then
            table.insert(self.path, field.count or field.name)
        end
        local read = READERS[field.kind]
        if read then
            read(self, tree, field)
        else
            self:number(tree, by_filter[field.filter], field.tag, field.kind)
        end
        if self.refused then
            return
        end
        if field.kind ~= "record" then
            table.remove(self.path)
        end
    end
    if name then
        table.remove(self.path)
    end
end

-- The prologue holds the numbers of the method, and nothing else will do.
function Walk:prologue(tree, body)
    for _, each in ipairs(prologue) do
        if not self.refused then
            self.path = {each.name}
            local found, _, at = self:number(tree, head[each.name], each.tag, each.kind)
            if found and found ~= body[each.name] then
                local shown = each.name == "magic" and "0x%08x, expected 0x%08x" or "%d, expected %d"
                self:refuse(tree, at, string.format(shown, found, body[each.name]))
            end
        end
    end
end

local function dissect_body(bytes, tree, body)
    local walk = Walk.new(bytes)
    walk:prologue(tree, body)
    if walk.refused then
        return false
    end
    walk.path = {}
    walk:fields(tree, body.fields)
    if not walk.refused and walk:left() > 0 then
        walk:refuse(tree, walk.at, string.format("%d bytes left over behind the last item", walk:left()))
    end
    return not walk.refused
end

-- ---- Packets --------------------------------------------------------------------------------------------------------

-- Requests that have no response yet, and the other half of each frame.
local open = {}
local partner = {}

function gorvanet.init()
    open = {}
    partner = {}
end

-- A process that talks to itself records a request twice, as sent and as received, and its response too.
local function pair_up(frame, direction, side, number)
    if number == 0 or direction > 1 then
        return
    end
    local key = number * 2 + (direction == 0 and side or 1 - side)
    if direction == 0 then
        open[key] = frame
    elseif open[key] then
        partner[frame] = open[key]
        partner[open[key]] = frame
        open[key] = nil
    end
end

-- A field behind its length, and where it ends; nothing where the packet ends before.
local function counted(packet, at, width)
    if not at or packet:len() < at + width then
        return
    end
    local length = packet(at, width):uint()
    local first = at + width
    if packet:len() < first + length then
        return
    end
    return packet(first, length), first + length
end

local function show_name(tree, proto_field, name)
    if name then
        tree:add(proto_field, name, name:len() > 0 and name:string(ENC_UTF_8) or "")
    end
end

local function describe(pinfo, direction, side, body)
    pinfo.cols.protocol = "GorvaNet"
    local method = body and body.name or "unknown method"
    pinfo.cols.info = string.format("%s %s, %s", method, DIRECTIONS[direction] or direction, SIDES[side] or side)
end

local function show_body(bytes, tree, pinfo, direction, body)
    if bytes:len() == 0 and direction == 1 then
        return -- what a failed delivery leaves
    end
    local subtree = tree:add(head.body, bytes)
    local whole = bytes:len() > 0 and bytes:tvb() or ByteArray.new():tvb("Body")
    if not body then
        subtree:add_proto_expert_info(damaged, "there is no such body")
    elseif dissect_body(whole, subtree, body) then
        return
    end
    pinfo.cols.info:append(" (damaged)")
end

function gorvanet.dissector(packet, pinfo, root)
    local tree = root:add(gorvanet, packet())
    if packet:len() < 14 or packet(0, 4):string() ~= "GVN1" then
        tree:add_proto_expert_info(damaged, "no mark GVN1, or cut off behind it")
        return packet:len()
    end
    local direction, side = packet(4, 1):uint(), packet(5, 1):uint()
    local method, number = packet(6, 2):uint(), packet(8, 4):uint()
    local body = bodies[direction] and bodies[direction][method]
    describe(pinfo, direction, side, body)

    tree:add(head.mark, packet(0, 4))
    tree:add(head.direction, packet(4, 1))
    tree:add(head.side, packet(5, 1))
    tree:add(head.method, packet(6, 2))
    if body then
        tree:add(head.name, packet(6, 2), body.name):set_generated()
    end
    tree:add(head.number, packet(8, 4))
    if not pinfo.visited then
        pair_up(pinfo.number, direction, side, number)
    end
    if partner[pinfo.number] then
        tree:add(direction == 0 and head.response_in or head.response_to, partner[pinfo.number]):set_generated()
    end

    local user, interface, bytes, at
    user, at = counted(packet, 12, 2)
    show_name(tree, head.user, user)
    interface, at = counted(packet, at, 2)
    show_name(tree, head.interface, interface)
    local length_at = at
    bytes, at = counted(packet, at, 4)
    if not bytes then
        tree:add_proto_expert_info(damaged, string.format("cut off after %d bytes", packet:len()))
        pinfo.cols.info:append(" (damaged)")
        return packet:len()
    end
    tree:add(head.length, packet(length_at, 4))
    show_body(bytes, tree, pinfo, direction, body)
    if at < packet:len() then
        local text = string.format("%d bytes left over behind the body", packet:len() - at)
        tree:add_proto_expert_info(damaged, text)
    end
    return packet:len()
end

-- The link type of captures is 147, the first for private use.
DissectorTable.get("wtap_encap"):add(wtap.USER0, gorvanet)
