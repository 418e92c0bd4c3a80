#pragma once

#include <vexa/Export.h>
#include <vexa/front/VEXAGCEssenceKeyClassifier.h>
#include <vexa/front/VEXAMetadataHandler.h>
#include <vexa/front/VEXAValidationMode.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCStructureHandler.h>
#include <vexa/gc/system/MXFQZProxySystemHandler.h>
#include <vexa/gc/system/MXFSDTICPSystemHandler.h>
#include <vexa/index/MXFIndexHandler.h>
#include <vexa/klv/ErrorHandler.h>
#include <vexa/metadata/MXFMetadataModelFactory.h>
#include <vexa/mxf/MXFStructureHandler.h>

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <iosfwd>
#include <string>

inline namespace vexa_toolkit {

/// Reads a file from end to end as events.
///
/// What no handler is set for isn't parsed: its bytes are skipped, by seeking where the stream can.
/// Handlers are called in file order, on the thread that calls `read`. A reader belongs to one
/// thread at a time, but for `stop`.
///
/// Of the handlers' events, in a sound file:
///
///     file      = runIn? startStructure partition* randomIndex? endStructure
///     partition = startPartition metadata? index? body? endPartition
///
/// with those of an MXFStructureHandler in `file` and `partition`, and in between the whole streams
/// of a VEXAMetadataHandler, an MXFIndexHandler and the handlers of the Generic Container, each as
/// its class has them. What stands in a partition's pack, such as its bodySID, comes before what
/// the partition holds. Whatever ends a run, what was begun is ended, if not always for a handler
/// that failed itself.
///
/// The setters share what they are given and don't touch the stream; null clears. What is set
/// during a run counts from the next one on.
class VEXA_EXPORT VEXAReader {
public:
    virtual ~VEXAReader();

    /// Makes the objects of the header metadata; without one each run makes a default factory. One
    /// that is set here gets no error handler from the reader.
    virtual void setMetadataFactory(boost::shared_ptr<MXFMetadataModelFactory> factory) = 0;
    /// Declares essence elements under keys of the caller's.
    virtual void
    setEssenceKeyClassifier(boost::shared_ptr<VEXAGCEssenceKeyClassifier> classifier) = 0;
    /// Gets the partitions.
    virtual void setStructureHandler(boost::shared_ptr<MXFStructureHandler> handler) = 0;
    /// Gets the header metadata of each partition that has some.
    virtual void setMetadataHandler(boost::shared_ptr<VEXAMetadataHandler> handler) = 0;
    /// Gets index table segments.
    virtual void setIndexHandler(boost::shared_ptr<MXFIndexHandler> handler) = 0;
    /// Gets the edit units of each body.
    virtual void setGCStructureHandler(boost::shared_ptr<MXFGCStructureHandler> handler) = 0;
    /// Gets SDTI-CP system items.
    virtual void setSDTICPSystemHandler(boost::shared_ptr<MXFSDTICPSystemHandler> handler) = 0;
    /// Gets the system items of proxy streams.
    virtual void setQZProxySystemHandler(boost::shared_ptr<MXFQZProxySystemHandler> handler) = 0;
    /// Gets essence elements. One that is an MXFGCChunkedEssenceHandler, too, may take large
    /// elements in pieces.
    virtual void setEssenceHandler(boost::shared_ptr<MXFGCEssenceHandler> handler) = 0;
    /// Gets all reports. Without one, nothing is reported.
    virtual void setErrorHandler(boost::shared_ptr<ErrorHandler> handler) = 0;

    /// One run from the stream's present position, which must be the file's first byte (and
    /// position 0 of a stream that tells positions), to its end.
    ///
    /// The file's structure is checked in every run, and what is wrong is told to the error
    /// handler. A handler that has seen enough calls `stop`.
    ///
    /// Throws klvutil::parse_error when the file can't be read any further (the error handler knows
    /// by then), util::assertion_failure when a contract is broken, also where header metadata has
    /// sets before a primer, and what a handler throws. Handlers and reader can be used again
    /// afterwards; before another run the stream must be cleared and put at its beginning.
    virtual void read() = 0;

    /// Ends the run that is under way, or else the next one as it begins. The run ends as at a
    /// failure, with endStructure(true) and all other ends, but `read` returns, and nothing more is
    /// reported. Of header metadata that it is in, the model so far is told.
    ///
    /// A handler may call this, and so may any other thread, as long as the reader lives: it only
    /// sets an atomic flag, which `read` clears when it leaves. The run ends behind the present
    /// element, or inside it, behind the present 65,536 bytes of its value (1 MiB if it is
    /// skipped); should the file fail before, `read` throws after all. A stream isn't interrupted:
    /// what goes into a handler's buffer is read first, and a stream that waits for data waits on.
    virtual void stop() = 0;
};

/// Makes a reader of a stream, which need not be seekable; the reader shares it. `mode` says what
/// files are checked against. Throws util::assertion_failure for a null stream.
VEXA_EXPORT boost::shared_ptr<VEXAReader>
createVEXAReader(boost::shared_ptr<std::istream> stream,
                 VEXAValidationMode::Enum mode = VEXAValidationMode::Off);

/// Makes a reader of the file at `path`, in the system's narrow encoding. Throws
/// std::ios_base::failure "bad open", with the system's reason as its code.
VEXA_EXPORT boost::shared_ptr<VEXAReader>
createVEXAReader(const std::string& path, VEXAValidationMode::Enum mode = VEXAValidationMode::Off);

/// A literal null is a stream, not a path.
inline boost::shared_ptr<VEXAReader>
createVEXAReader(std::nullptr_t, VEXAValidationMode::Enum mode = VEXAValidationMode::Off) {
    return createVEXAReader(boost::shared_ptr<std::istream>(), mode);
}

} // namespace vexa_toolkit
