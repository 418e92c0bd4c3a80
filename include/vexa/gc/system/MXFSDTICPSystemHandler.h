#pragma once

#include <vexa/Export.h>
#include <vexa/gc/MXFGCSystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemMetadata.h>
#include <vexa/util/Bytes.h>

#include <cstdint>

inline namespace vexa_toolkit {

/// The system items of SDTI-CP compatible streams (SMPTE 326M, 385M), one for each edit unit.
///
/// Events:
///
///     item = systemMetadataPack packageMetadata? pictureMetadata? soundMetadata? dataMetadata?
///            controlData?
///
/// A reader tells the parts in the order of the file, whatever it is, and reports where that order
/// is wrong: parts may be missing or come more than once.
class VEXA_EXPORT MXFSDTICPSystemHandler {
public:
    /// The items of a metadata set as tag and value, in order. A tag takes one byte, and a value up
    /// to 65,535 bytes: what doesn't fit fails in the writer, behind the key.
    using Items = MXFGCSystemHandler::LocalItems;

    virtual ~MXFSDTICPSystemHandler();

    virtual void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) = 0;
    virtual void packageMetadata(const Items& items) = 0;
    virtual void pictureMetadata(const Items& items) = 0;
    virtual void soundMetadata(const Items& items) = 0;
    virtual void dataMetadata(const Items& items) = 0;
    /// `tag` takes one byte.
    virtual void controlData(std::uint32_t tag, const util::Bytes& value) = 0;
};

} // namespace vexa_toolkit
