#pragma once

#include "klv/KLVMonitor.h"
#include "klv/KLVStreamFilter.h"
#include "klv/KLVStreamPadder.h"
#include "mxf/MXFStructureCoder.h"

inline namespace vexa_toolkit {

/// Joins structure, header metadata, index tables and essence to one KLV stream, with the structure
/// in charge of the stream and of the sizes of sections (SMPTE 377M): the opposite of MXFSplitter.
///
///     structure -------------------------------> monitor -> output
///     metadata -> padder -+-> essence filter ----^
///     index ----> padder -+   (drops brackets)
///     essence ------------+
class MXFMuxer {
public:
    MXFMuxer();
    MXFMuxer(const MXFMuxer&) = delete;
    MXFMuxer& operator=(const MXFMuxer&) = delete;
    virtual ~MXFMuxer();

    /// The output, which isn't owned.
    virtual void setHandler(KLVHandler* handler);
    /// The check is "handler is present".
    virtual KLVHandler& getHandler();

    // They live as long as this.
    virtual MXFStructureHandler& getStructureHandler();
    virtual KLVHandler& getMetadataHandler();
    virtual KLVHandler& getIndexHandler();
    virtual KLVHandler& getEssenceHandler();

private:
    KLVMonitor monitor_;
    KLVStreamFilter essenceFilter_;
    KLVStreamPadder metadataPadder_;
    KLVStreamPadder indexPadder_;
    MXFStructureCoder structureCoder_;
};

} // namespace vexa_toolkit
