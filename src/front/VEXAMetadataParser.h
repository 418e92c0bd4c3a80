#pragma once

#include "klv/KLVForwarder.h"
#include "metadata/model/MXFMetadataModelParser.h"
#include "metadata/primed/MXFMetadataParser.h"

#include <vexa/front/VEXAMetadataHandler.h>
#include <vexa/util/Bytes.h>

#include <cstdint>
#include <vector>

inline namespace vexa_toolkit {

/// Turns the KLV events of header metadata into models and sidecar documents. A document is told
/// when the next one begins, and the last one behind the model, when the metadata ends; one that
/// its stream breaks off in isn't told.
class VEXAMetadataParser : public KLVForwarder {
public:
    /// Neither is owned.
    VEXAMetadataParser(VEXAMetadataHandler& handler, MXFMetadataFactory& factory);
    VEXAMetadataParser(const VEXAMetadataParser&) = delete;
    VEXAMetadataParser& operator=(const VEXAMetadataParser&) = delete;
    ~VEXAMetadataParser() override;

    void startStream(bool accurateLengths) override;
    bool startIndividualItem(const KLVKey& key, std::uint64_t length,
                             std::uint8_t** buffer) override;
    void endIndividualItem(const KLVKey& key) override;
    void value(const std::uint8_t* data, std::uint64_t size) override;

    /// May be null. The factory doesn't get it.
    virtual void setErrorHandler(ErrorHandler* errorHandler);

protected:
    KLVHandler& getForwardee() override;

private:
    /// A document whose bytes are whole, until it is told.
    struct Document {
        util::Bytes text;
        bool isPending = false;

        void deliver(VEXAMetadataHandler& handler);
    };

    /// Stands before the caller's handler, for the last document to come before endMetadata.
    class XMLMetadataHandler : public VEXAMetadataHandler {
    public:
        XMLMetadataHandler(VEXAMetadataHandler& handler, Document& document);
        ~XMLMetadataHandler() override;

        void startMetadata() override;
        void endMetadata() override;
        void model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) override;
        void xmlMetadata(const char* data, std::size_t size) override;

    private:
        VEXAMetadataHandler& handler_;
        Document& document_;
    };

    Document document_;
    bool inXML_ = false;
    XMLMetadataHandler xmlHandler_;
    MXFMetadataModelParser modelParser_;
    MXFMetadataParser parser_;
};

} // namespace vexa_toolkit
