#include "index/indexSegment.h"

#include "index/faults.h"
#include "klv/batch.h"
#include "klv/randomUID.h"
#include "metadata/model/codec.h"
#include "metadata/primed/indexProperties.h"
#include "util/check.h"

#include <cstddef>
#include <map>
#include <type_traits>

inline namespace vexa_toolkit {

namespace mxfindex {

using klvutil::Bytes;
using metadata::decode;
using metadata::encode;
using util::byte_reader;

namespace {

enum class Presence {
    /// A segment must have it.
    Required,
    /// Written even if it is 0 or empty, where all properties are wanted.
    Usual,
    /// Written only if it says something.
    Optional,
};

struct Property {
    const char* name;
    MXFPrimerEntry entry;
    Presence presence;
};

/// Visits the properties in the order of the wire. The counts come before the entries, whose layout
/// depends on them.
template <class Segment, class Visit> void visitProperties(Segment& segment, Visit visit) {
    namespace all = metadata::indexProperties;
    using P = Presence;
    visit(Property{"instanceUID", all::instanceUID, P::Required}, segment.instanceUID);
    visit(Property{"indexEditRate", all::indexEditRate, P::Required}, segment.indexEditRate);
    visit(Property{"indexStartPosition", all::indexStartPosition, P::Required},
          segment.indexStartPosition);
    visit(Property{"indexDuration", all::indexDuration, P::Required}, segment.indexDuration);
    visit(Property{"editUnitByteCount", all::editUnitByteCount, P::Usual},
          segment.editUnitByteCount);
    visit(Property{"indexSID", all::indexSID, P::Usual}, segment.indexSID);
    visit(Property{"bodySID", all::bodySID, P::Required}, segment.bodySID);
    visit(Property{"sliceCount", all::sliceCount, P::Usual}, segment.sliceCount);
    visit(Property{"posTableCount", all::posTableCount, P::Optional}, segment.posTableCount);
    visit(Property{"deltaEntryArray", all::deltaEntryArray, P::Optional}, segment.deltaEntryArray);
    visit(Property{"indexEntryArray", all::indexEntryArray, P::Usual}, segment.indexEntryArray);
    visit(Property{"singleIndexLocation", all::singleIndexLocation, P::Optional},
          segment.singleIndexLocation);
    visit(Property{"singleEssenceLocation", all::singleEssenceLocation, P::Optional},
          segment.singleEssenceLocation);
    visit(Property{"forwardIndexDirection", all::forwardIndexDirection, P::Optional},
          segment.forwardIndexDirection);
}

constexpr std::uint32_t deltaEntrySize = 6;

std::uint32_t indexEntrySize(std::size_t slices, std::size_t rationals) {
    return static_cast<std::uint32_t>(11 + 4 * slices + 8 * rationals);
}

MXFDeltaEntry decodeDeltaEntry(byte_reader& in) {
    MXFDeltaEntry entry;
    decode(in, entry.posTableIndex);
    decode(in, entry.slice);
    decode(in, entry.elementDelta);
    return entry;
}

void encodeDeltaEntry(Bytes& out, const MXFDeltaEntry& entry) {
    encode(out, entry.posTableIndex);
    encode(out, entry.slice);
    encode(out, entry.elementDelta);
}

MXFIndexEntry decodeIndexEntry(byte_reader& in, std::size_t slices, std::size_t rationals) {
    MXFIndexEntry entry;
    decode(in, entry.temporalOffset);
    decode(in, entry.keyFrameOffset);
    decode(in, entry.flags);
    decode(in, entry.streamOffset);
    entry.sliceOffsets.resize(slices);
    for (std::uint32_t& offset : entry.sliceOffsets) {
        decode(in, offset);
    }
    entry.posTable.resize(rationals);
    for (MXFRational& rational : entry.posTable) {
        decode(in, rational);
    }
    return entry;
}

void encodeIndexEntry(Bytes& out, const MXFIndexEntry& entry) {
    encode(out, entry.temporalOffset);
    encode(out, entry.keyFrameOffset);
    encode(out, entry.flags);
    encode(out, entry.streamOffset);
    for (const std::uint32_t offset : entry.sliceOffsets) {
        encode(out, offset);
    }
    for (const MXFRational& rational : entry.posTable) {
        encode(out, rational);
    }
}

class Decoder {
public:
    Decoder(const MXFPrimedSet& set, const MXFIndexTableSegment& segment,
            ErrorHandler* errorHandler)
        : properties_(set.properties), segment_(segment), errorHandler_(errorHandler) {}

    template <class Field> void operator()(const Property& property, Field& field) const {
        const auto found = properties_.find(property.entry.key);
        if (found == properties_.end()) {
            if (property.presence == Presence::Required) {
                klvutil::reportOf(errorHandler_, faults::missingProperty, property.name);
            }
            return;
        }
        try {
            read(found->second, field);
        } catch (const util::assertion_failure& failure) {
            klvutil::reportOf(errorHandler_, faults::invalidProperty, property.name,
                              failure.what());
        }
    }

private:
    /// What is too long counts as far as it should go.
    template <class Field> static void read(const Bytes& value, Field& field) {
        if (value.size() >= metadata::wireSize<Field>) {
            byte_reader in(value);
            decode(in, field);
        }
        util::check(value.size() == metadata::wireSize<Field>, "valid external length");
    }

    static void read(const Bytes& value, boost::optional<bool>& field) {
        if (!value.empty()) {
            field = value[0] != 0;
        }
        util::check(value.size() == metadata::wireSize<bool>, "valid external length");
    }

    static void read(const Bytes& value, std::vector<MXFDeltaEntry>& field) {
        byte_reader in(value);
        klvutil::readBatch(in, deltaEntrySize, field, decodeDeltaEntry);
        klvutil::requireEnd(in);
    }

    void read(const Bytes& value, std::vector<MXFIndexEntry>& field) const {
        byte_reader in(value);
        const std::size_t slices = segment_.sliceCount;
        const std::size_t rationals = segment_.posTableCount;
        klvutil::readBatch(in, indexEntrySize(slices, rationals), field, [&](byte_reader& entry) {
            return decodeIndexEntry(entry, slices, rationals);
        });
    }

    const std::map<KLVKey, Bytes>& properties_;
    /// The one that is being filled.
    const MXFIndexTableSegment& segment_;
    ErrorHandler* errorHandler_;
};

template <class Field> Bytes valueOf(const Field& field) {
    return metadata::encodeValue(field);
}

Bytes valueOf(const MXFUID& uid) {
    return metadata::encodeValue(uid == MXFUID() ? klvutil::createRandomUID() : uid);
}

Bytes valueOf(const boost::optional<bool>& field) {
    return metadata::encodeValue(*field);
}

Bytes valueOf(const std::vector<MXFDeltaEntry>& entries) {
    Bytes value;
    klvutil::appendBatch(value, entries, deltaEntrySize, encodeDeltaEntry);
    return value;
}

Bytes valueOf(const std::vector<MXFIndexEntry>& entries) {
    Bytes value;
    const std::uint32_t size = entries.empty() ? 0
                                               : indexEntrySize(entries[0].sliceOffsets.size(),
                                                                entries[0].posTable.size());
    klvutil::appendBatch(value, entries, size, encodeIndexEntry);
    return value;
}

} // namespace

MXFPrimer segmentPrimer() {
    MXFPrimer primer;
    const MXFIndexTableSegment segment;
    visitProperties(
        segment, [&](const Property& property, const auto&) { primer.push_back(property.entry); });
    return primer;
}

MXFIndexTableSegment decodeSegment(const MXFPrimedSet& set, ErrorHandler* errorHandler) {
    MXFIndexTableSegment segment;
    visitProperties(segment, Decoder(set, segment, errorHandler));
    return segment;
}

std::vector<klvutil::LocalItem> encodeSegment(const MXFIndexTableSegment& segment,
                                              bool allProperties) {
    std::vector<klvutil::LocalItem> items;
    visitProperties(segment, [&](const Property& property, const auto& field) {
        const bool always = property.presence == Presence::Required ||
                            (property.presence == Presence::Usual && allProperties);
        if (always || !(field == std::decay_t<decltype(field)>())) {
            items.emplace_back(property.entry.tag, valueOf(field));
        }
    });
    checkEntries(segment);
    return items;
}

void checkEntries(const MXFIndexTableSegment& segment) {
    for (const MXFIndexEntry& entry : segment.indexEntryArray) {
        util::check(entry.sliceOffsets.size() == segment.sliceCount, "valid sliceOffsets");
        util::check(entry.posTable.size() == segment.posTableCount, "valid posTables");
    }
}

} // namespace mxfindex

} // namespace vexa_toolkit
