#pragma once

#include <vexa/gc/MXFGCStructureHandler.h>

inline namespace vexa_toolkit {

/// Does nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullMXFGCStructureHandler : public MXFGCStructureHandler {
public:
    ~DullMXFGCStructureHandler() override;

    void startStream(std::uint64_t kagSize) override;
    void endStream() override;
    void startEditUnit() override;
    void endEditUnit() override;
    void startSlice() override;
    void endSlice() override;
    void startFixedElement(std::uint64_t length) override;
    void endFixedElement() override;
    void startAlignedElement(std::uint64_t alignment) override;
    void endAlignedElement() override;
};

} // namespace vexa_toolkit
