#include "inspect/TextPrinter.h"

#include "inspect/ModelText.h"
#include "inspect/values.h"
#include "support/counted.h"
#include "support/elementKey.h"

#include <iostream>

namespace {

void printLabel(const char* name, const KLVKey& label) {
    std::cout << "  " << name << ' ' << metadata::labelText(label) << '\n';
}

void printTrack(const KLVKey& key, const EssenceStream::Track& track) {
    std::cout << "  track " << key << ' ' << kindOf(key) << ", "
              << counted(track.elements, "element") << ", " << counted(track.bytes, "byte")
              << ", length forms";
    for (const std::uint8_t form : track.lengthForms) {
        std::cout << ' ' << values::hexadecimal(form, 2);
    }
    std::cout << '\n';
}

void printEditUnits(const EssenceStream& stream) {
    std::cout << counted(stream.editUnits, "edit unit");
    if (stream.editUnits > 0) {
        std::cout << " of ";
        if (stream.smallestEditUnit != stream.largestEditUnit) {
            std::cout << stream.smallestEditUnit << " to ";
        }
        std::cout << counted(stream.largestEditUnit, "byte") << " of essence";
    }
    std::cout << '\n';
}

void printSystemItems(const EssenceStream& stream) {
    std::cout << "  system items " << stream.systemItems;
    if (values::isTimecode(stream.firstUserStamp) || values::isTimecode(stream.lastUserStamp)) {
        std::cout << ", user stamps " << values::text(stream.firstUserStamp) << " to "
                  << values::text(stream.lastUserStamp);
    }
    std::cout << ", continuity "
              << (stream.continuityBreaks == 0
                      ? "unbroken"
                      : "broken " + counted(stream.continuityBreaks, "time"))
              << '\n';
}

void printBreak(const EssenceStream& stream) {
    if (stream.brokenEditUnit) {
        std::cout << "  broke off in edit unit " << *stream.brokenEditUnit << '\n';
    }
    if (stream.cutElement) {
        std::cout << "  " << (stream.isCutCertain ? "" : "perhaps ") << "cut short: element "
                  << stream.cutElement->key << ", announced "
                  << counted(stream.cutElement->length, "byte") << '\n';
    }
}

} // namespace

void TextPrinter::runIn(std::uint64_t length) {
    std::cout << "run-in " << length << '\n';
}

void TextPrinter::partition(const KLVKey& key, const MXFPartitionPack& pack) {
    std::cout << "partition " << partitions_++ << ' ' << kindOfPartition(key) << ' '
              << (MXFPartitionKey::isClosed(key) ? "closed-" : "open-")
              << (MXFPartitionKey::isComplete(key) ? "complete" : "incomplete") << " offset "
              << pack.thisPartition << " previous " << pack.previousPartition << " footer "
              << pack.footerPartition << " kag " << pack.kagSize << " header "
              << pack.headerByteCount << " index " << pack.indexByteCount << " indexSID "
              << pack.indexSID << " bodySID " << pack.bodySID << " bodyOffset " << pack.bodyOffset
              << " version " << values::version(pack.majorVersion, pack.minorVersion) << '\n';
    printLabel("pattern", pack.operationalPattern);
    for (const KLVKey& container : pack.essenceContainers) {
        printLabel("container", container);
    }
}

void TextPrinter::metadata(const HeaderMetadata& metadata) {
    if (metadata.sameAs) {
        std::cout << "metadata as in partition " << *metadata.sameAs << '\n';
        return;
    }
    std::cout << "metadata\n";
    for (const ModelObject& object : metadata.objects) {
        std::cout << modeltext::linesOf(object, &object == &metadata.objects.front());
    }
    for (const Document& document : metadata.documents) {
        std::cout << "  XML " << counted(document.size, "byte") << ": "
                  << modeltext::quoted(document.firstLine) << '\n';
    }
}

void TextPrinter::indexSegment(const MXFIndexTableSegment& segment) {
    std::cout << "index-segment indexSID " << segment.indexSID << " bodySID " << segment.bodySID
              << " start " << counted(segment.indexStartPosition, "edit unit") << ", duration ";
    if (segment.indexDuration == 0 && segment.editUnitByteCount != 0) {
        std::cout << "whole";
    } else {
        std::cout << counted(segment.indexDuration, "edit unit");
    }
    std::cout << ", rate " << metadata::toString(segment.indexEditRate) << " Hz";
    if (segment.editUnitByteCount != 0) {
        std::cout << ", " << counted(segment.editUnitByteCount, "byte") << " for each edit unit";
    }
    std::cout << ", " << counted(segment.deltaEntryArray.size(), "delta") << ", "
              << counted(1 + segment.sliceCount, "slice") << ", "
              << counted(segment.indexEntryArray.size(), "entry", "entries") << '\n';
}

void TextPrinter::editUnit(const EditUnit& unit) {
    std::cout << "edit-unit " << unit.number << " bodySID " << unit.bodySID << ": "
              << counted(unit.elements, "essence element") << ", " << counted(unit.bytes, "byte")
              << '\n';
}

void TextPrinter::randomIndex(const MXFRandomIndex& table) {
    std::cout << "random-index";
    for (const MXFRandomIndexEntry& entry : table) {
        std::cout << ' ' << entry.bodySID << ':' << entry.byteOffset;
    }
    std::cout << '\n';
}

void TextPrinter::report(const Report& report) {
    std::cout << lineOf(report) << '\n';
}

void TextPrinter::essence(const EssenceStreams& streams) {
    for (const auto& [bodySID, sums] : streams) {
        std::cout << "essence bodySID " << bodySID << ": ";
        printEditUnits(sums);
        for (const auto& [key, track] : sums.tracks) {
            printTrack(key, track);
        }
        if (sums.systemItems > 0) {
            printSystemItems(sums);
        }
        printBreak(sums);
    }
}

void TextPrinter::keptBack(const Report& report, std::uint64_t count) {
    std::cout << lineOf(report) << " ... " << count << " more\n";
}

void TextPrinter::end(Status, const std::string& error) {
    if (!error.empty()) {
        std::cout.flush();
        std::cerr << "vexa inspect: " << file_ << ": " << error << '\n';
    }
}
