#include "support/EventRecorder.h"

#include "support/KLVBytes.h"

#include <boost/make_shared.hpp>

#include <sstream>

std::string valueText(const void* data, std::uint64_t size) {
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    if (size <= 4) {
        return hex(bytes, size);
    }
    if (bytes == nullptr) {
        return std::to_string(size) + " null";
    }
    std::uint64_t digest = 14695981039346656037U; // FNV-1a
    for (std::uint64_t i = 0; i < size; ++i) {
        digest = (digest ^ bytes[i]) * 1099511628211U;
    }
    std::ostringstream text;
    text << size << ' ' << std::hex << digest;
    return text.str();
}

void EventRecorder::model(const std::vector<boost::shared_ptr<MetadataRoot>>& model) {
    roots = model;
    add("m model of " + std::to_string(model.size()));
}

void EventRecorder::xmlMetadata(const char* data, std::size_t size) {
    add("m xml " + (data == nullptr ? "null " + std::to_string(size) : valueText(data, size)));
}

void EventRecorder::indexTableSegment(const MXFIndexTableSegment& segment) {
    segments.push_back(segment);
    add("i segment " + std::to_string(segment.indexStartPosition) + ' ' +
        std::to_string(segment.indexDuration));
}

void EventRecorder::systemLocalSet(const KLVKey&, const LocalItems& items) {
    std::string line = "s set";
    for (const auto& [tag, bytes] : items) {
        line += ' ' + std::to_string(tag) + '=' + valueText(bytes.data(), bytes.size());
    }
    add(line);
}

void EventRecorder::systemFixedLengthPack(const KLVKey&, const Bytes& value) {
    add("s fixed " + valueText(value.data(), value.size()));
}

void EventRecorder::systemVariableLengthPack(const KLVKey&, const PackItems& items) {
    std::string line = "s items";
    for (const auto& bytes : items) {
        line += ':' + valueText(bytes.data(), bytes.size());
    }
    add(line);
}

bool EventRecorder::wantsEssence(const KLVKey& key, U64 length, std::uint8_t** buffer) {
    add("e wants " + hex(&key.bytes[12], 4) + ' ' + std::to_string(length));
    if (largestBuffer != 0 && length <= largestBuffer) {
        buffer_.resize(length + 1);
        *buffer = buffer_.data();
    }
    return wanted;
}

bool EventRecorder::wantsChunkedEssence(const KLVKey&, U64 length) {
    if (chunked) {
        add("e chunks " + std::to_string(length));
    }
    return chunked;
}

void EventRecorder::systemMetadataPack(const MXFSDTICPSystemMetadata& pack) {
    add("s pack " + std::to_string(pack.continuityCount) + ' ' +
        valueText(pack.userStamp.data(), pack.userStamp.size()));
}

void EventRecorder::proxySystemItem(std::uint32_t count, const std::vector<MXFTimecode>& all) {
    add("p proxy " + std::to_string(count) + ':' + std::to_string(all.size()));
}

void EventRecorder::set(std::string line, const Items& items) {
    for (const auto& [tag, value] : items) {
        line += ' ' + std::to_string(tag) + ':' + std::to_string(value.size());
    }
    add(line);
}

/// A * shows that the bytes lie in this recorder's buffer.
void EventRecorder::element(const std::string& kind, const KLVKey& key, Data data, U64 size) {
    const bool isOurs = largestBuffer != 0 && data == buffer_.data();
    add("e " + kind + ' ' + hex(&key.bytes[12], 4) + ' ' + valueText(data, size) +
        (isOurs ? "*" : ""));
}

void setRecorders(VEXAReader& reader, const boost::shared_ptr<EventRecorder>& recorder,
                  Recording& recording) {
    reader.setStructureHandler(boost::make_shared<StructureRecorder>(recording));
    reader.setMetadataHandler(recorder);
    reader.setIndexHandler(recorder);
    reader.setGCStructureHandler(recorder);
    reader.setSDTICPSystemHandler(recorder);
    reader.setQZProxySystemHandler(recorder);
    reader.setEssenceHandler(recorder);
}
