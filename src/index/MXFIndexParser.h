#pragma once

#include "metadata/primed/MXFPrimedSetParser.h"

inline namespace vexa_toolkit {

class MXFIndexHandler;

/// Turns the KLV events of a partition's index region (SMPTE 377M, index table segment) into
/// segments. A segment is told whatever is wrong with it. Serves one region after another.
class MXFIndexParser : public MXFPrimedSetParser {
public:
    /// The handler is not owned.
    explicit MXFIndexParser(MXFIndexHandler& handler);
    ~MXFIndexParser() override;

    /// The fixed tags of index table segments.
    const metadata::TagToKey& getPrimer() const override;
    bool wantsPrimedSet(const KLVKey& key) override;
    void primedSet(const MXFPrimedSet& set) override;
    virtual bool isIndexTableSegment(const KLVKey& key);

    /// The check is "before start".
    void startStream(bool accurateLengths) override;
    void endStream(bool aborted) override;

private:
    MXFIndexHandler& handler_;
};

} // namespace vexa_toolkit
