#include "inspect/JSONPrinter.h"

#include "inspect/values.h"
#include "support/elementKey.h"

#include <cerrno>
#include <iostream>
#include <system_error>
#include <unistd.h>

namespace {

using JSON = nlohmann::ordered_json;
using metadata::ValueKind;

JSON labelOf(const KLVKey& label) {
    JSON json = {{"label", values::digits(label)}};
    if (const std::string name = metadata::labelName(label); !name.empty()) {
        json["name"] = name;
    }
    return json;
}

/// From the digits and the name behind them.
JSON labelOf(const std::string& text) {
    constexpr std::size_t digits = 16 * 3 - 1;
    JSON json = {{"label", text.substr(0, digits)}};
    if (text.size() > digits) {
        json["name"] = text.substr(digits + 1);
    }
    return json;
}

JSON valueOf(ValueKind kind, const std::string& text) {
    switch (kind) {
    case ValueKind::Number:
        return text[0] == '-' ? JSON(std::stoll(text)) : JSON(std::stoull(text));
    case ValueKind::Boolean:
        return text == "true";
    case ValueKind::Label:
        return labelOf(text);
    default:
        return text;
    }
}

JSON valueOf(const ModelObject::Property& property) {
    if (!property.isList) {
        return valueOf(property.kind, property.values.front());
    }
    JSON list = JSON::array();
    for (const std::string& value : property.values) {
        list.push_back(valueOf(property.kind, value));
    }
    return list;
}

JSON objectOf(const ModelObject& described) {
    const MetadataRoot& object = *described.object;
    JSON json = {{"class", object.getClassName()},
                 {"instanceUID", values::digits(object.getInstanceUID())}};
    if (object.hasStreampos()) {
        json["position"] = std::streamoff(object.getStreampos());
    }
    if (described.owner) {
        json["owner"] = *described.owner;
        json["ownerProperty"] = described.ownerProperty;
    }
    if (const auto* const timecode = dynamic_cast<const TimecodeComponent*>(&object)) {
        if (const std::string start = values::startOf(*timecode); !start.empty()) {
            json["timecode"] = start;
        }
    }
    JSON& properties = json["properties"] = JSON::object();
    for (const auto& property : described.properties) {
        properties[property.name] = valueOf(property);
    }
    for (const auto& [key, bytes] : described.darkProperties) {
        json["dark"].push_back({{"key", values::digits(key)}, {"bytes", bytes.size()}});
    }
    return json;
}

JSON trackOf(const KLVKey& key, const EssenceStream::Track& track) {
    JSON forms = JSON::array();
    for (const std::uint8_t form : track.lengthForms) {
        forms.push_back(values::hexadecimal(form, 2));
    }
    return {{"key", values::digits(key)},
            {"kind", kindOf(key)},
            {"number", MXFGCElementKey::trackNumber(key)},
            {"elements", track.elements},
            {"bytes", track.bytes},
            {"lengthForms", forms}};
}

void addSystemItems(const EssenceStream& stream, JSON& json) {
    json["systemItems"] = stream.systemItems;
    if (values::isTimecode(stream.firstUserStamp)) {
        json["firstUserStamp"] = values::text(stream.firstUserStamp);
    }
    if (values::isTimecode(stream.lastUserStamp)) {
        json["lastUserStamp"] = values::text(stream.lastUserStamp);
    }
    json["continuityBreaks"] = stream.continuityBreaks;
}

JSON streamOf(std::uint32_t bodySID, const EssenceStream& stream) {
    JSON json = {{"bodySID", bodySID}, {"editUnits", stream.editUnits}};
    if (stream.editUnits > 0) {
        json["smallestEditUnit"] = stream.smallestEditUnit;
        json["largestEditUnit"] = stream.largestEditUnit;
    }
    JSON& tracks = json["tracks"] = JSON::array();
    for (const auto& [key, track] : stream.tracks) {
        tracks.push_back(trackOf(key, track));
    }
    if (stream.systemItems > 0) {
        addSystemItems(stream, json);
    }
    if (stream.brokenEditUnit) {
        json["brokenEditUnit"] = *stream.brokenEditUnit;
    }
    if (stream.cutElement) {
        json["cutElement"] = {{"key", values::digits(stream.cutElement->key)},
                              {"bytes", stream.cutElement->length},
                              {"certain", stream.isCutCertain}};
    }
    return json;
}

JSON reportOf(const Report& report) {
    const auto code = static_cast<std::uint32_t>(klvutil::toErrorCode(report.code));
    JSON json = {{"severity", klvutil::severityName(report.severity)},
                 {"code", values::hexadecimal(code)},
                 {"name", klvutil::codeName(report.code)},
                 {"text", report.text}};
    if (report.position >= 0) {
        json["position"] = report.position;
    }
    return json;
}

/// With one call if the system takes it, so that lines of several processes don't mix.
void writeLine(const std::string& line) {
    std::cout.flush();
    for (std::size_t written = 0; written < line.size();) {
        const ssize_t count = ::write(STDOUT_FILENO, line.data() + written, line.size() - written);
        if (count >= 0) {
            written += static_cast<std::size_t>(count);
        } else if (errno != EINTR) {
            throw std::system_error(errno, std::generic_category(),
                                    "can't write to standard output");
        }
    }
}

} // namespace

JSONPrinter::JSONPrinter(const std::string& file)
    : document_{{"file", file},
                {"status", NotDone},
                {"partitions", JSON::array()},
                {"essence", JSON::array()},
                {"reports", JSON::array()}} {}

void JSONPrinter::runIn(std::uint64_t length) {
    document_["runIn"] = length;
}

void JSONPrinter::partition(const KLVKey& key, const MXFPartitionPack& pack) {
    JSON containers = JSON::array();
    for (const KLVKey& container : pack.essenceContainers) {
        containers.push_back(labelOf(container));
    }
    document_["partitions"].push_back(
        {{"kind", kindOfPartition(key)},
         {"closed", MXFPartitionKey::isClosed(key)},
         {"complete", MXFPartitionKey::isComplete(key)},
         {"thisPartition", pack.thisPartition},
         {"previousPartition", pack.previousPartition},
         {"footerPartition", pack.footerPartition},
         {"kagSize", pack.kagSize},
         {"headerByteCount", pack.headerByteCount},
         {"indexByteCount", pack.indexByteCount},
         {"indexSID", pack.indexSID},
         {"bodySID", pack.bodySID},
         {"bodyOffset", pack.bodyOffset},
         {"version", values::version(pack.majorVersion, pack.minorVersion)},
         {"operationalPattern", labelOf(pack.operationalPattern)},
         {"essenceContainers", containers}});
}

void JSONPrinter::metadata(const HeaderMetadata& metadata) {
    JSON& json = document_["partitions"].back()["metadata"];
    if (metadata.sameAs) {
        json["sameAs"] = *metadata.sameAs;
        return;
    }
    json["objects"] = JSON::array();
    for (const ModelObject& object : metadata.objects) {
        json["objects"].push_back(objectOf(object));
    }
    for (const Document& document : metadata.documents) {
        json["documents"].push_back({{"bytes", document.size}, {"firstLine", document.firstLine}});
    }
}

void JSONPrinter::indexSegment(const MXFIndexTableSegment& segment) {
    document_["partitions"].back()["indexSegments"].push_back(
        {{"indexSID", segment.indexSID},
         {"bodySID", segment.bodySID},
         {"indexEditRate", metadata::toString(segment.indexEditRate)},
         {"indexStartPosition", segment.indexStartPosition},
         {"indexDuration", segment.indexDuration},
         {"editUnitByteCount", segment.editUnitByteCount},
         {"deltas", segment.deltaEntryArray.size()},
         {"slices", 1 + segment.sliceCount},
         {"entries", segment.indexEntryArray.size()}});
}

void JSONPrinter::editUnit(const EditUnit& unit) {
    document_["editUnits"].push_back({{"number", unit.number},
                                      {"bodySID", unit.bodySID},
                                      {"elements", unit.elements},
                                      {"bytes", unit.bytes}});
}

void JSONPrinter::randomIndex(const MXFRandomIndex& table) {
    JSON& json = document_["randomIndex"] = JSON::array();
    for (const MXFRandomIndexEntry& entry : table) {
        json.push_back({{"bodySID", entry.bodySID}, {"byteOffset", entry.byteOffset}});
    }
}

void JSONPrinter::report(const Report& report) {
    document_["reports"].push_back(reportOf(report));
}

void JSONPrinter::essence(const EssenceStreams& streams) {
    for (const auto& [bodySID, stream] : streams) {
        document_["essence"].push_back(streamOf(bodySID, stream));
    }
}

void JSONPrinter::keptBack(const Report& report, std::uint64_t count) {
    JSON json = reportOf(report);
    json["count"] = count;
    document_["moreReports"].push_back(json);
}

void JSONPrinter::end(Status status, const std::string& error) {
    document_["status"] = status;
    if (!error.empty()) {
        document_["error"] = error;
    }
    constexpr int compact = -1;
    writeLine(document_.dump(compact, ' ', false, JSON::error_handler_t::replace) + '\n');
}
