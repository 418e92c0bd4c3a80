// Calls each function of the public headers that is no class's, so that the linker misses what the
// library doesn't export. The classes are in a file that the build makes out of the headers.

#include <vexa/front/VEXADefaultMetadataFactory.h>
#include <vexa/front/VEXAReader.h>
#include <vexa/front/VEXAToolkit.h>
#include <vexa/gc/MXFGCElementKey.h>
#include <vexa/gc/TimecodeCalculator.h>
#include <vexa/gc/TimecodeNumbers.h>
#include <vexa/gc/system/MXFTimecode.h>
#include <vexa/gc/system/userStamp.h>
#include <vexa/klv/ErrorCode.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/labelName.h>
#include <vexa/metadata/properties.h>
#include <vexa/metadata/references.h>
#include <vexa/metadata/sets/structural/Preface.h>
#include <vexa/metadata/toString.h>
#include <vexa/metadata/visitProperties.h>
#include <vexa/mxf/MXFPartitionKey.h>

// These have nothing to link.
#include <vexa/Export.h>
#include <vexa/front/VEXAValidationMode.h>
#include <vexa/gc/system/MXFSDTICPSystemMetadata.h>
#include <vexa/index/MXFIndexTableSegment.h>
#include <vexa/metadata/AES3ChannelStatusData.h>
#include <vexa/metadata/MXFPrimedSet.h>
#include <vexa/metadata/MXFPrimer.h>
#include <vexa/metadata/MXFProductVersion.h>
#include <vexa/metadata/MXFRational.h>
#include <vexa/metadata/MXFTimestamp.h>
#include <vexa/metadata/RGBALayout.h>
#include <vexa/metadata/UMID.h>
#include <vexa/metadata/sets/AllSets.h>
#include <vexa/mxf/MXFPartitionPack.h>
#include <vexa/mxf/MXFRandomIndex.h>
#include <vexa/util/Bytes.h>
#include <vexa/vexa.h>

#include <functional>
#include <iostream>

int main() {
    using namespace gcsystem;
    const KLVKey key = MXFPartitionKey::closedCompleteHeader;
    MXFTimecode timecode;
    const auto calculator = createTimecodeCalculator(25, 1);
    metadata::PropertyVisitor visitor;
    std::cout << key << MXFUID() << klvutil::codeName(MXFUID())
              << klvutil::severityName(klvutil::Severity::Error) << metadata::labelName(key)
              << metadata::labelText(key) << metadata::toString(MXFRational())
              << metadata::toString(MXFTimestamp()) << metadata::toString(MXFProductVersion())
              << metadata::toString(UMID()) << metadata::toUtf8(getVEXAPlatform())
              << MXFPartitionKey::isPartitionKey(key) << MXFGCElementKey::isEssence(key)
              << createVEXADefaultMetadataFactory().get() << toString(numbersAt(*calculator, 0))
              << numbersAtFrame(0, 25, false).has_value()
              << toString(numbersOf(timecodeAt(*calculator, 0, 25)))
              << numbersOf(*timecodeOf(stampOf(timecode)), 25).hours << '\n';
    setNumbers(timecode, {}, 25);
    createTimecodeCalculator(std::uint8_t{30}, true, true);
    createTimecodeCalculator(std::uint8_t{30}, true, std::uint8_t{2});
    const auto preface = Preface::create();
    metadata::visitProperties(*preface, visitor);
    metadata::drop(ContentStorage::create());
    metadata::swapOwnership(*preface, nullptr, nullptr);

    const std::function<void()> failures[] = {
        [] { createVEXAReader(nullptr); },
        [] { createVEXAReader("no such file"); },
        [] { metadata::failAbsent("", ""); },
        [] { metadata::failInvalidIndex(); },
    };
    for (const auto& fails : failures) {
        try {
            fails();
            return 1;
        } catch (const std::exception& failure) { // of a class of the library's, or the system's
            std::cout << failure.what() << '\n';
        }
    }
    return 0;
}
