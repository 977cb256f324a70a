#include "bus.h"

#include <list>
#include <map>
#include <ostream>
#include <utility>

namespace {

struct Bus {
    Calls calls;
    std::map<std::string, std::function<uintptr_t(const Words &)>> answers;
    std::vector<Words> blocks;
};

Bus &bus()
{
    static Bus the_bus;
    return the_bus;
}

uintptr_t called(const char *function, const Words &words, uintptr_t (*usual)(const Words &) = nullptr)
{
    bus().calls.push_back({function, words});
    auto answer = bus().answers.find(function);
    if (answer != bus().answers.end())
        return answer->second(words);
    return usual ? usual(words) : 0;
}

// A 16-bit result. The upper half of its word is the caller's to ignore on i386, and never zero by luck; elsewhere the
// callee has to clear it.
uintptr_t number(uintptr_t result)
{
#ifdef __i386__
    return result | 0xabcd0000;
#else
    return result & 0xffff;
#endif
}

uintptr_t core_user(const Words &words)
{
    return words[0] + 0x1000;
}

} // namespace

using W = uintptr_t;

extern "C" {

// Declared here with plain words, not with the library's own declarations: what arrives is what was passed.
W ruvo_addEvtBase(W a, W b);
W zebCore_getBase_msgMngt(W a, W b, W c);
W zebCore_putBase_msgMngt(W a, W b);
W zebCore_sendMsgReq_toNameUser(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k);
W zebCore_sendMsgRes(W a, W b, W c, W d);
W zebCore_isMsg_needRes(W a);
W zebIntf_regUser_msgMngt(W a, W b, W c, W d, W e, W f);
W zebIntf_unregUser_msgMngt(W a, W b, W c, W d);
W zebIntf_findSrvMthdNtfyUser(W a, W b, W c, W d, W e);
W zebIntf_getCore_user(W a);
W zebIntf_modSrv_mthd(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k);
W zebIntf_modCliNtfyUser_mthd(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k);
W zebIntf_sendReq_ntfy(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k, W l, W m);

W ruvo_addEvtBase(W a, W b)
{
    return called(__func__, {a, b});
}

W zebCore_getBase_msgMngt(W a, W b, W c)
{
    return number(called(__func__, {a, b, c}, hand_out_block));
}

W zebCore_putBase_msgMngt(W a, W b)
{
    return called(__func__, {a, b});
}

W zebCore_sendMsgReq_toNameUser(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k)
{
    return called(__func__, {a, b, c, d, e, f, g, h, i, j, k});
}

W zebCore_sendMsgRes(W a, W b, W c, W d)
{
    return called(__func__, {a, b, c, d});
}

W zebCore_isMsg_needRes(W a)
{
    return called(__func__, {a});
}

W zebIntf_regUser_msgMngt(W a, W b, W c, W d, W e, W f)
{
    return called(__func__, {a, b, c, d, e, f});
}

W zebIntf_unregUser_msgMngt(W a, W b, W c, W d)
{
    return called(__func__, {a, b, c, d});
}

W zebIntf_findSrvMthdNtfyUser(W a, W b, W c, W d, W e)
{
    return called(__func__, {a, b, c, d, e});
}

W zebIntf_getCore_user(W a)
{
    return called(__func__, {a}, core_user);
}

W zebIntf_modSrv_mthd(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k)
{
    return called(__func__, {a, b, c, d, e, f, g, h, i, j, k});
}

W zebIntf_modCliNtfyUser_mthd(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k)
{
    return called(__func__, {a, b, c, d, e, f, g, h, i, j, k});
}

W zebIntf_sendReq_ntfy(W a, W b, W c, W d, W e, W f, W g, W h, W i, W j, W k, W l, W m)
{
    return called(__func__, {a, b, c, d, e, f, g, h, i, j, k, l, m});
}
}

bool operator==(const Call &left, const Call &right)
{
    return left.function == right.function && left.words == right.words;
}

std::ostream &operator<<(std::ostream &out, const Call &call)
{
    out << call.function << "(" << std::hex;
    for (size_t i = 0; i < call.words.size(); i++)
        out << (i ? ", 0x" : "0x") << call.words[i];
    return out << ")" << std::dec;
}

Calls take_calls()
{
    return std::exchange(bus().calls, {});
}

void answer(const std::string &function, uintptr_t result)
{
    answer(function, [result](const Words &) { return result; });
}

void answer(const std::string &function, std::function<uintptr_t(const Words &)> action)
{
    bus().answers[function] = std::move(action);
}

std::vector<Words> &blocks()
{
    return bus().blocks;
}

uintptr_t hand_out_block(const Words &words)
{
    // Addresses of blocks handed out earlier must stay as they are.
    bus().blocks.reserve(64);
    bus().blocks.emplace_back(3 + 6 * words[2] + guard_words, untouched);
    *reinterpret_cast<uintptr_t **>(words[1]) = bus().blocks.back().data();
    return first_number + bus().blocks.size() - 1;
}

void reset_bus()
{
    bus() = {};
}
