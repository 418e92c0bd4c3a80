#pragma once

#include <vexa/klv/KLVHandler.h>

inline namespace vexa_toolkit {

/// A handler with another behind it, to which it passes events on. It doesn't own it.
class KLVFilter : public KLVHandler {
public:
    ~KLVFilter() override;

    virtual void setHandler(KLVHandler* handler) = 0;
    /// The check is "handler is present".
    virtual KLVHandler& getHandler() = 0;
};

} // namespace vexa_toolkit
