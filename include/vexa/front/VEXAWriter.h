#pragma once

#include <vexa/Export.h>
#include <vexa/front/VEXAMetadataHandler.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCStructureHandler.h>
#include <vexa/gc/system/MXFQZProxySystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemHandler.h>
#include <vexa/index/MXFIndexHandler.h>
#include <vexa/metadata/MXFMetadataModelFactory.h>
#include <vexa/metadata/MXFPrimer.h>
#include <vexa/mxf/MXFStructureHandler.h>
#include <vexa/mxf/MXFWriter.h>

#include <boost/shared_ptr.hpp>

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <vector>

inline namespace vexa_toolkit {

class Locator;

/// Writes a file call by call, strictly forward: it gives out handlers, and the caller calls them
/// in file order, with the events that a VEXAReader would tell of that file.
///
///     file      = startStructure partition* randomIndex? endStructure
///     partition = startPartition metadata? index? body? endPartition
///
/// Each is a whole stream of its handler. What a partition holds is what its pack announces:
/// header metadata and index tables get the byte counts in the pack exactly, by a fill item. So the
/// caller must know beforehand how long they can get (getMetadataByteCount, getIndexByteCount,
/// getVEXASectionByteCount); a section that leaves a gap of 1 to 19 bytes, or is too
/// long, fails "achievable padded length". The positions in packs and random index are the
/// writer's own.
///
/// A body's system items and essence elements come between startEditUnit and endEditUnit, each
/// inside a fixed or an aligned element where it is to be padded.
///
/// The handlers belong to the writer, live as long as it does, and are used on one thread at a
/// time. A wrong caller, and a stream that can't be written, is util::assertion_failure
/// ("successful write()"); what was written stays.
class VEXA_EXPORT VEXAWriter {
public:
    virtual ~VEXAWriter();

    /// Codes the objects of the header metadata from now on; null is a new default factory.
    virtual void setMetadataFactory(boost::shared_ptr<MXFMetadataModelFactory> factory) = 0;
    /// What index table segments are aligned to within their region, in bytes: 512 at first, 0 for
    /// none.
    virtual void setIndexAlignment(std::uint32_t alignment) = 0;
    /// The tags that header metadata keeps from now on, such as those of the file that it is from.
    virtual void setPrimerOverride(const std::vector<MXFPrimerEntry>& primer) = 0;

    /// Takes the partitions; see MXFWriter for what becomes of a pack. The first partition decides
    /// the registry version of the file's fill item keys: 2 from version 1.3 on, and for MPEG-2
    /// essence in a header partition (SMPTE 377M, KLV fill item).
    virtual MXFStructureHandler* getStructureHandler() = 0;
    /// Takes header metadata. The sets behind the primer are aligned to the grid of their
    /// partition, in files of version 1.3 on.
    virtual VEXAMetadataHandler* getMetadataHandler() = 0;
    /// Takes index table segments.
    virtual MXFIndexHandler* getIndexHandler() = 0;
    /// Tells the bytes of essence so far, of all bodies, system items and fill included. The
    /// argument has no effect.
    virtual const Locator* getEssenceMonitor(std::uint32_t bodySID) = 0;
    /// Takes the shape of edit units.
    virtual MXFGCStructureHandler* getGCStructureHandler() = 0;
    /// Takes SDTI-CP system items.
    virtual MXFSDTICPSystemHandler* getSDTICPSystemHandler() = 0;
    /// Takes the system items of proxy streams.
    virtual MXFQZProxySystemHandler* getQZProxySystemHandler() = 0;
    /// Takes essence elements. It is an MXFGCChunkedEssenceHandler, too.
    virtual MXFGCEssenceHandler* getEssenceHandler() = 0;
    /// What stands below all of these.
    virtual MXFWriter* getMXFWriter() = 0;

    /// The bytes that header metadata will take in a partition of that KAG size, or index tables,
    /// as this writer codes them now, without the fill behind them. `tell` tells them to a handler,
    /// as they will be told to getMetadataHandler() or getIndexHandler(); nothing is written.
    virtual std::uint64_t
    getMetadataByteCount(std::uint32_t kagSize,
                         const std::function<void(VEXAMetadataHandler&)>& tell) = 0;
    virtual std::uint64_t getIndexByteCount(const std::function<void(MXFIndexHandler&)>& tell) = 0;
};

/// Makes a writer to a stream, which need not be seekable, from position 0 on; the writer shares
/// it. Throws util::assertion_failure for a null stream.
VEXA_EXPORT boost::shared_ptr<VEXAWriter> createVEXAWriter(boost::shared_ptr<std::ostream> stream);

/// The least byte count on the grid that a pack can announce for a section of so many bytes: one
/// that leaves no gap behind it, or room for a fill item. 0 for an empty section; a `kagSize` of 0
/// is no grid.
VEXA_EXPORT std::uint64_t getVEXASectionByteCount(std::uint64_t bytes, std::uint32_t kagSize);

} // namespace vexa_toolkit
