#pragma once

#include <vexa/index/MXFIndexHandler.h>

inline namespace vexa_toolkit {

/// Does nothing: a base for handlers that care about a few events.
class VEXA_EXPORT DullMXFIndexHandler : public MXFIndexHandler {
public:
    ~DullMXFIndexHandler() override;

    void startIndexTable() override;
    void endIndexTable() override;
    void indexTableSegment(const MXFIndexTableSegment& segment) override;
};

} // namespace vexa_toolkit
