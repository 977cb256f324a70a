// The interface as it should be: what start, stop and the middleware's withdrawals lead to, worked out separately from
// the library.

#ifndef GORVANET_TESTS_FRAME_MODEL_H
#define GORVANET_TESTS_FRAME_MODEL_H

#include "frame_test.h"

// What zebCore_getBase_msgMngt answers: a number, of which the low 16 bits count, and a block or none.
struct Grant {
    uint32_t number;
    bool block;
};

// What an event leads to. Events without a result have 0.
struct Outcome {
    uint32_t result = 0;
    Calls calls;
    LogLines lines;
};

struct Model {
    Frame frame;

    // gorvaNet_addBase, with what the middleware and the event loop answer.
    Outcome add(const Grant &cmd, const Grant &ntfy, uint32_t hook);

    // gorvanet_initialize, with the same answers.
    Outcome initialize(const Grant &cmd, const Grant &ntfy, uint32_t hook);

    // gorvaNet_delBase, with what the middleware answers to each release. With `withdrawn` it withdraws each interface
    // while it releases it.
    Outcome del(uint32_t cmd_status, uint32_t ntfy_status, bool withdrawn = false);

    // gorvaNet_cbEvtBase with event 0, with the same answers; and with any other event.
    Outcome event_0(uint32_t cmd_status, uint32_t ntfy_status);
    static Outcome other_event(int32_t event);

    // The middleware withdraws the interface that has this number.
    Outcome unreg_cmd(uint32_t number);
    Outcome unreg_ntfy(uint32_t number);
};

// Makes the middleware and the event loop answer like that.
void answer_start(const Grant &cmd, const Grant &ntfy, uint32_t hook);

// The descriptor at first, with what the model says that may change.
BaseWords expected_words(const BaseWords &at_first, const Frame &frame);

#endif
