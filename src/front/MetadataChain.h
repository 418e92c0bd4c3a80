#pragma once

#include "front/VEXAMetadataParser.h"

#include <vexa/metadata/MXFMetadataModelFactory.h>

#include <boost/shared_ptr.hpp>

inline namespace vexa_toolkit {

/// Reads header metadata for one handler.
class MetadataChain {
public:
    /// The handler is not owned. `errors` may be null. Without a factory of the caller's there is
    /// one for all set classes of this library; the caller's keeps the error handler that it has.
    MetadataChain(VEXAMetadataHandler& handler,
                  const boost::shared_ptr<MXFMetadataModelFactory>& factory,
                  const boost::shared_ptr<ErrorHandler>& errors);

    /// Takes the KLV events of header metadata.
    KLVHandler& klvHandler() { return parser_; }

private:
    boost::shared_ptr<MXFMetadataModelFactory> factory_;
    VEXAMetadataParser parser_;
};

} // namespace vexa_toolkit
