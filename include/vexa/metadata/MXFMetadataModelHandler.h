#pragma once

#include <vexa/Export.h>

#include <boost/shared_ptr.hpp>

#include <vector>

inline namespace vexa_toolkit {

class MetadataRoot;

/// The header metadata of a partition (SMPTE 377M) as a model of objects.
///
/// Events: `startMetadata model? endMetadata`.
class VEXA_EXPORT MXFMetadataModelHandler {
public:
    virtual ~MXFMetadataModelHandler();

    virtual void startMetadata() = 0;
    /// Comes when the parse failed, too, unless it was this handler that failed.
    virtual void endMetadata() = 0;

    /// The objects that no other owns, in file order, at least one; in a sound file that is the
    /// Preface alone. They own all others that could be placed.
    virtual void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) = 0;
};

} // namespace vexa_toolkit
