#pragma once

#include "util/check.h"

inline namespace vexa_toolkit {

class KLVHandler;

/// The handler behind a source of events, which doesn't own it.
class NextHandler {
public:
    NextHandler() = default;
    explicit NextHandler(KLVHandler& handler) : handler_(&handler) {}

    void set(KLVHandler* handler) { handler_ = handler; }

    /// The check is "handler is present".
    KLVHandler& get() const {
        util::check(handler_ != nullptr, "handler is present");
        return *handler_;
    }

private:
    KLVHandler* handler_ = nullptr;
};

} // namespace vexa_toolkit
