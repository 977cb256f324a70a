#include "bus.h"

#include "../../src/frame/middleware.h"
#include "trace.h"

#include <cstring>
#include <dlfcn.h>
#include <elf.h>
#include <link.h>

namespace trace {

namespace {

// The bus's own functions.
decltype(zebCore_sendMsgReq_toNameUser) *send_request;
decltype(zebCore_sendMsgRes) *send_response;

uint32_t on_send_request(void *core_user, void *body, Receiver *receiver, gorvaNet_function *callback, void *pass1,
                         void *pass2, const char *server, uint32_t number, uint32_t method, uint32_t any,
                         uint32_t options)
{
    request_leaves(static_cast<uint16_t>(method), body, server, receiver);
    return send_request(core_user, body, receiver, callback, pass1, pass2, server, number, method, any, options);
}

void on_send_response(void *message, void *body, uint32_t status, uint32_t options)
{
    if (status == answer_normal)
        response_leaves(message, body);
    else if (status == answer_unhandled_message)
        nobody_handles(message);
    send_response(message, body, status, options);
}

// Where the dynamic linker keeps what it knows about a library.
struct Tables {
    const Elf32_Rel *calls;
    uint32_t count;
    const Elf32_Sym *symbols;
    const char *names;
    bool is_sealed; // the addresses of its calls cannot be written
};

Tables tables_of(const link_map &library)
{
    Tables tables = {};
    for (const Elf32_Dyn *entry = library.l_ld; entry->d_tag != DT_NULL; entry++) {
        const auto *address = reinterpret_cast<const void *>(entry->d_un.d_ptr);
        if (entry->d_tag == DT_JMPREL)
            tables.calls = static_cast<const Elf32_Rel *>(address);
        else if (entry->d_tag == DT_PLTRELSZ)
            tables.count = entry->d_un.d_val / sizeof(Elf32_Rel);
        else if (entry->d_tag == DT_SYMTAB)
            tables.symbols = static_cast<const Elf32_Sym *>(address);
        else if (entry->d_tag == DT_STRTAB)
            tables.names = static_cast<const char *>(address);
        else if (entry->d_tag == DT_BIND_NOW || (entry->d_tag == DT_FLAGS && entry->d_un.d_val & DF_BIND_NOW))
            tables.is_sealed = true;
    }
    return tables;
}

// Where the library takes the address of this function from when it calls it; null: it does not call it.
void **find_call(const link_map &library, const Tables &tables, const char *name)
{
    for (uint32_t i = 0; i < tables.count; i++) {
        const Elf32_Rel &call = tables.calls[i];
        if (strcmp(tables.names + tables.symbols[ELF32_R_SYM(call.r_info)].st_name, name) == 0)
            return reinterpret_cast<void **>(library.l_addr + call.r_offset);
    }
    return nullptr;
}

// The bus is found where the dynamic linker looks first: in the executable, then in the libraries it was started with.
template <typename Function>
void listen(const link_map &library, const Tables &tables, const char *name, Function *listener, Function *&original)
{
    void **call = find_call(library, tables, name);
    if (!call || *call == reinterpret_cast<void *>(listener))
        return;
    void *found = dlsym(RTLD_DEFAULT, name);
    if (!found)
        return;
    original = reinterpret_cast<Function *>(found);
    *call = reinterpret_cast<void *>(listener);
}

} // namespace

void listen_to_bus(const link_map &library)
{
    Tables tables = tables_of(library);
    if (tables.is_sealed || !tables.calls || !tables.symbols || !tables.names)
        return;
    listen(library, tables, "zebCore_sendMsgReq_toNameUser", on_send_request, send_request);
    listen(library, tables, "zebCore_sendMsgRes", on_send_response, send_response);
}

} // namespace trace
