#pragma once

#include <vexa/Export.h>

#include <iosfwd>
#include <memory>

inline namespace vexa_toolkit {

class KLVHandler;
class MXFStructureHandler;

/// Writes a file from its structure and from its sections as KLV streams (SMPTE 377M).
///
/// The order of calls is that of MXFStructureHandler, with the sections that a pack announces
/// between startPartition and endPartition: header metadata, index tables, essence, each one stream
/// of KLV events. A fill item brings a section to the size that the pack announces; one that leaves
/// a gap smaller than a fill item, or is too long, fails "achievable padded length".
///
/// A wrong caller, and a stream that can't be written, is util::assertion_failure. Handlers are
/// used on one thread at a time.
class VEXA_EXPORT MXFWriter {
public:
    /// The stream isn't owned.
    explicit MXFWriter(std::ostream& stream);
    MXFWriter(const MXFWriter&) = delete;
    MXFWriter& operator=(const MXFWriter&) = delete;
    virtual ~MXFWriter();

    // They live as long as this.
    virtual MXFStructureHandler& getStructureHandler();
    virtual KLVHandler& getMetadataHandler();
    virtual KLVHandler& getIndexHandler();
    virtual KLVHandler& getEssenceHandler();

    /// Sends the file's KLV events to another handler, which isn't owned: a filter in front of what
    /// getHandler() gave, or something that compares.
    virtual void setHandler(KLVHandler* handler);
    /// Sends them to the stream again.
    virtual void resetHandler();
    /// Where they go. The check is "handler is present".
    virtual KLVHandler& getHandler();

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace vexa_toolkit
