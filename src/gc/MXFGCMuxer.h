#pragma once

#include "gc/MXFGCEssenceCoder.h"
#include "gc/MXFGCStructurePadder.h"
#include "gc/MXFGCSystemCoder.h"
#include "klv/KLVMonitor.h"

inline namespace vexa_toolkit {

/// Turns the structure, the system elements and the essence elements of a Generic Container (SMPTE
/// 379M) into KLV events, with fill where the structure asks for it: the opposite of MXFGCSplitter.
///
/// The structure's stream brackets the KLV stream. Positions go on from one stream to the next.
class MXFGCMuxer {
public:
    MXFGCMuxer();
    /// The handler is not owned.
    explicit MXFGCMuxer(KLVHandler& next);
    MXFGCMuxer(const MXFGCMuxer&) = delete;
    MXFGCMuxer& operator=(const MXFGCMuxer&) = delete;
    virtual ~MXFGCMuxer();

    /// Between streams.
    virtual void setKLVHandler(KLVHandler* handler);
    /// The check is "handler is present".
    virtual KLVHandler& getKLVHandler();

    virtual MXFGCStructureHandler& getStructureHandler();
    virtual MXFGCSystemHandler& getSystemHandler();
    /// For elements whole and in pieces.
    virtual MXFGCEssenceCoder& getEssenceHandler();

    /// Tells where the KLV stream stands.
    virtual KLVMonitor::MonitoredLocator& getLocator();

private:
    /// Begins each stream afresh, whatever became of the one before.
    class StreamStarter : public MXFGCStructurePadder {
    public:
        StreamStarter(KLVMonitor& monitor, MXFGCEssenceCoder& essenceCoder);
        void startStream(std::uint64_t kagSize) override;

    private:
        MXFGCEssenceCoder& essenceCoder_;
    };

    KLVMonitor monitor_;
    StreamStarter structurePadder_;
    MXFGCSystemCoder systemCoder_;
    MXFGCEssenceCoder essenceCoder_;
};

} // namespace vexa_toolkit
