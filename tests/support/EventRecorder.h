#pragma once

#include "support/Recorder.h"

#include <string>
#include <vector>

/// Writes every event of what a file holds as a line. The first letter is the handler's: m header
/// metadata, i index tables, g edit units, e essence, s and p system items of the two formats. Keys
/// are their last 4 bytes; a value stands as valueText() has it.
class EventRecorder : public VEXAMetadataHandler,
                      public MXFIndexHandler,
                      public MXFGCStructureHandler,
                      public MXFGCSystemHandler,
                      public MXFGCEssenceHandler,
                      public MXFGCChunkedEssenceHandler,
                      public MXFSDTICPSystemHandler,
                      public MXFQZProxySystemHandler {
    using Data = const std::uint8_t*;
    using U64 = std::uint64_t;

public:
    using Items = MXFSDTICPSystemHandler::Items;

    explicit EventRecorder(Recording& recording) : recording_(recording) {}

    /// What is wanted of elements.
    bool wanted = true;
    bool chunked = false;
    /// Elements up to this length go into a buffer of this recorder's.
    U64 largestBuffer = 0;

    std::vector<boost::shared_ptr<MetadataRoot>> roots;
    std::vector<MXFIndexTableSegment> segments;

    void startMetadata() override { add("m startMetadata"); }
    void endMetadata() override { add("m endMetadata"); }
    void model(const std::vector<boost::shared_ptr<MetadataRoot>>& model) override;
    void xmlMetadata(const char* data, std::size_t size) override;
    void startIndexTable() override { add("i startIndexTable"); }
    void endIndexTable() override { add("i endIndexTable"); }
    void indexTableSegment(const MXFIndexTableSegment& segment) override;
    void startStream(U64 kagSize) override { add("g startStream " + std::to_string(kagSize)); }
    void endStream() override { add("g endStream"); }
    void startEditUnit() override { add("g startEditUnit"); }
    void endEditUnit() override { add("g endEditUnit"); }
    void startSlice() override { add("g startSlice"); }
    void endSlice() override { add("g endSlice"); }
    void startFixedElement(U64 n) override { add("g startFixedElement " + std::to_string(n)); }
    void endFixedElement() override { add("g endFixedElement"); }
    void startAlignedElement(U64 n) override { add("g startAlignedElement " + std::to_string(n)); }
    void endAlignedElement() override { add("g endAlignedElement"); }

    bool wantsSystem(const KLVKey&) override { return wanted; }
    void systemLocalSet(const KLVKey&, const LocalItems& items) override;
    void systemFixedLengthPack(const KLVKey&, const Bytes& value) override;
    void systemVariableLengthPack(const KLVKey&, const PackItems& items) override;

    bool wantsEssence(const KLVKey& key, U64 length, std::uint8_t** buffer) override;
    void pictureElement(const KLVKey& k, Data d, U64 n) override { element("picture", k, d, n); }
    void soundElement(const KLVKey& k, Data d, U64 n) override { element("sound", k, d, n); }
    void dataElement(const KLVKey& k, Data d, U64 n) override { element("data", k, d, n); }
    void compoundElement(const KLVKey& k, Data d, U64 n) override { element("compound", k, d, n); }
    void essenceLengthForm(std::uint8_t form) override { add("e form " + std::to_string(form)); }
    bool wantsChunkedEssence(const KLVKey&, U64 length) override;
    void endChunkedEssence(const KLVKey&) override { add("e chunked"); }

    void systemMetadataPack(const MXFSDTICPSystemMetadata& pack) override;
    void packageMetadata(const Items& items) override { set("s package", items); }
    void pictureMetadata(const Items& items) override { set("s picture", items); }
    void soundMetadata(const Items& items) override { set("s sound", items); }
    void dataMetadata(const Items& items) override { set("s data", items); }
    void controlData(std::uint32_t tag, const Bytes& v) override { set("s control", {{tag, v}}); }
    void proxySystemItem(std::uint32_t count, const std::vector<MXFTimecode>& all) override;

private:
    void add(const std::string& line) { recording_.add(line); }
    void set(std::string line, const Items& items);
    void element(const std::string& kind, const KLVKey& key, Data data, U64 size);

    Recording& recording_;
    Bytes buffer_;
};

/// Sets all handlers of a reader but the error handler.
void setRecorders(VEXAReader& reader, const boost::shared_ptr<EventRecorder>& recorder,
                  Recording& recording);

/// Up to 4 bytes in hexadecimal digits, and more as the size and a digest.
std::string valueText(const void* data, std::uint64_t size);
