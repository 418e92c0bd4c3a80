#include "klv/GenericKLVWriter.h"
#include "mxf/MXFMuxer.h"

#include <vexa/mxf/MXFWriter.h>

inline namespace vexa_toolkit {

class MXFWriter::Impl {
public:
    explicit Impl(std::ostream& stream) : writer(stream) { muxer.setHandler(&writer); }

    MXFMuxer muxer;
    GenericKLVWriter writer;
};

MXFWriter::MXFWriter(std::ostream& stream) : impl_(std::make_unique<Impl>(stream)) {}

MXFWriter::~MXFWriter() = default;

MXFStructureHandler& MXFWriter::getStructureHandler() {
    return impl_->muxer.getStructureHandler();
}

KLVHandler& MXFWriter::getMetadataHandler() {
    return impl_->muxer.getMetadataHandler();
}

KLVHandler& MXFWriter::getIndexHandler() {
    return impl_->muxer.getIndexHandler();
}

KLVHandler& MXFWriter::getEssenceHandler() {
    return impl_->muxer.getEssenceHandler();
}

void MXFWriter::setHandler(KLVHandler* handler) {
    impl_->muxer.setHandler(handler);
}

void MXFWriter::resetHandler() {
    impl_->muxer.setHandler(&impl_->writer);
}

KLVHandler& MXFWriter::getHandler() {
    return impl_->muxer.getHandler();
}

} // namespace vexa_toolkit
