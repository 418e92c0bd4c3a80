#pragma once

#include <vexa/Export.h>
#include <vexa/metadata/MXFMetadataModelHandler.h>

#include <cstddef>

inline namespace vexa_toolkit {

/// The header metadata of a partition as a model.
///
/// Events: `startMetadata xmlMetadata* model? xmlMetadata? endMetadata`. The last document follows
/// the model, earlier ones come as soon as the next begins.
class VEXA_EXPORT VEXAMetadataHandler : public MXFMetadataModelHandler {
public:
    ~VEXAMetadataHandler() override;

    /// The text of a sidecar document that stands in the header metadata, whole, however long it
    /// is, for the time of the call. An empty one has no `data`.
    virtual void xmlMetadata(const char* data, std::size_t size) = 0;
};

} // namespace vexa_toolkit
