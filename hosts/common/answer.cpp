// Answers: from the handler's response, or from status 20, back to the client.

#include "message.h"
#include "transport.h"

#include <utility>

namespace host {

namespace {

const Message *answering; // the message whose response and context a receiver borrows at present

bool is_borrowed_context(const void *handle)
{
    return answering && handle == &answering->context;
}

// Of a body that came with a refused answer: status 0 makes it the host's, unless it is the one that was on loan.
void release_refused(const Message &message, void *body, uint32_t status)
{
    if (status == answer_normal && body != message.body)
        Body owned(message.method, GORVANET_BODY_RESPONSE, body);
}

// A client that does not take its response says so. The response is freed where it was decoded, in any case.
void answer_context(void *body, uint32_t status)
{
    if (status == answer_unhandled_message && (!body || body == answering->body)) {
        report_status(*answering, status, "nobody takes the response");
        return;
    }
    report_misuse("zebCore_sendMsgRes: a request context takes status %u with its own body only",
                  answer_unhandled_message);
    release_refused(*answering, body, status);
}

// The message is done with; from inside its handler, its end is left to whoever handed it over.
void finish(Message &message, Stage before)
{
    if (before == Stage::waiting)
        end_message(message.number);
    else
        message.stage = Stage::ended;
}

void answer_unhandled(Message &message, const void *body)
{
    if (body && body != message.body)
        report_misuse("zebCore_sendMsgRes: message %u: status %u comes with a body that is not the message's own",
                      message.number, answer_unhandled_message);
    report_status(message, answer_unhandled_message, "nobody handles the message");
    if (message.received_call)
        transport::respond_nothing(message, answer_unhandled_message, "");
    finish(message, message.stage);
}

void answer_normally(Message &message, void *pointer)
{
    if (!pointer) {
        report_misuse("zebCore_sendMsgRes: message %u: no body", message.number);
        return;
    }
    if (pointer == message.body) {
        report_misuse("zebCore_sendMsgRes: message %u: the request body is no response", message.number);
        return;
    }
    Body body(message.method, GORVANET_BODY_RESPONSE, pointer);
    if (!message.awaits_answer) {
        report_misuse("zebCore_sendMsgRes: message %u wants no answer", message.number);
        return;
    }
    Bytes bytes;
    uint32_t status = body.encode(bytes);
    if (status) {
        report_refused(Kind::unencodable, GORVANET_BODY_RESPONSE, message, bytes, status);
        if (message.received_call)
            transport::respond_nothing(message, 0, "the encoder refuses the response");
        return finish(message, message.stage);
    }
    Stage before = message.stage;
    message.bytes = std::move(bytes);
    message.stage = Stage::answered;
    if (!transport::respond(message))
        finish(message, before);
}

bool is_answerable(const Message &message)
{
    return message.stage == Stage::handed_over || message.stage == Stage::waiting;
}

// What speaks against an answer to this message now; null: nothing.
const char *objection_to_answer(const Message &message)
{
    if (in_observer())
        return "cannot be answered from inside the observer";
    if (message.stage == Stage::sent)
        return "was not delivered yet";
    return is_answerable(message) ? nullptr : "was answered already";
}

} // namespace

void deliver_response(Message &entry)
{
    // The request ends here: what is asked about it from the callback on finds no open message.
    Message message = std::move(entry);
    end_message(message.number);
    const Bytes &bytes = message.bytes;
    User *client = find_user(message.sender);
    if (!client || !client->is_attached(message.interface_number)) {
        report_message(Kind::undeliverable, GORVANET_BODY_RESPONSE, message, bytes, 0,
                       "the client was removed or detached before the answer");
        return;
    }
    Body body(message.method, GORVANET_BODY_RESPONSE, nullptr);
    uint32_t status = body.decode(bytes);
    if (status) {
        report_refused(Kind::undecodable, GORVANET_BODY_RESPONSE, message, bytes, status);
        return;
    }
    report_message(Kind::delivered, GORVANET_BODY_RESPONSE, message, bytes);
    message.body = body.get();
    answering = &message;
    message.receiver(nullptr, &message.context, body.get());
    answering = nullptr;
}

void answer(void *handle, void *body, uint32_t status)
{
    if (is_borrowed_context(handle))
        return answer_context(body, status);
    uint32_t number = number_of(HandleKind::message, handle);
    Message *message = find_message(number);
    if (!message) {
        if (was_a_message(number))
            report_misuse("zebCore_sendMsgRes: message %u has ended already", number);
        else
            report_misuse("zebCore_sendMsgRes: message %p is unknown", handle);
        return;
    }
    if (const char *objection = objection_to_answer(*message)) {
        report_misuse("zebCore_sendMsgRes: message %u %s", number, objection);
        release_refused(*message, body, status);
        return;
    }
    if (status == answer_unhandled_message)
        return answer_unhandled(*message, body);
    if (status == answer_normal)
        return answer_normally(*message, body);
    report_misuse("zebCore_sendMsgRes: message %u: status %u is unknown", number, status);
}

bool awaits_answer(void *handle)
{
    uint32_t number = number_of(HandleKind::message, handle);
    if (const Message *message = find_message(number))
        return message->awaits_answer && is_answerable(*message);
    if (!was_a_message(number))
        report_misuse("zebCore_isMsg_needRes: message %p is unknown", handle);
    return false;
}

} // namespace host
