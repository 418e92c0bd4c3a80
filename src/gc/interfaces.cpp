#include <vexa/gc/DullMXFGCChunkedEssenceHandler.h>
#include <vexa/gc/DullMXFGCEssenceHandler.h>
#include <vexa/gc/DullMXFGCStructureHandler.h>
#include <vexa/gc/DullMXFGCSystemHandler.h>
#include <vexa/gc/MXFGCChunkedEssenceHandler.h>
#include <vexa/gc/MXFGCEssenceHandler.h>
#include <vexa/gc/MXFGCStructureHandler.h>
#include <vexa/gc/MXFGCSystemHandler.h>

inline namespace vexa_toolkit {

MXFGCStructureHandler::~MXFGCStructureHandler() = default;
MXFGCSystemHandler::~MXFGCSystemHandler() = default;
MXFGCEssenceHandler::~MXFGCEssenceHandler() = default;
MXFGCChunkedEssenceHandler::~MXFGCChunkedEssenceHandler() = default;
DullMXFGCStructureHandler::~DullMXFGCStructureHandler() = default;

void DullMXFGCStructureHandler::startStream(std::uint64_t) {}
void DullMXFGCStructureHandler::endStream() {}
void DullMXFGCStructureHandler::startEditUnit() {}
void DullMXFGCStructureHandler::endEditUnit() {}
void DullMXFGCStructureHandler::startSlice() {}
void DullMXFGCStructureHandler::endSlice() {}
void DullMXFGCStructureHandler::startFixedElement(std::uint64_t) {}
void DullMXFGCStructureHandler::endFixedElement() {}
void DullMXFGCStructureHandler::startAlignedElement(std::uint64_t) {}
void DullMXFGCStructureHandler::endAlignedElement() {}

DullMXFGCEssenceHandler::~DullMXFGCEssenceHandler() = default;

bool DullMXFGCEssenceHandler::wantsEssence(const KLVKey&, std::uint64_t, std::uint8_t**) {
    return false;
}
void DullMXFGCEssenceHandler::pictureElement(const KLVKey&, const std::uint8_t*, std::uint64_t) {}
void DullMXFGCEssenceHandler::soundElement(const KLVKey&, const std::uint8_t*, std::uint64_t) {}
void DullMXFGCEssenceHandler::dataElement(const KLVKey&, const std::uint8_t*, std::uint64_t) {}
void DullMXFGCEssenceHandler::compoundElement(const KLVKey&, const std::uint8_t*, std::uint64_t) {}
void DullMXFGCEssenceHandler::essenceLengthForm(std::uint8_t) {}

DullMXFGCChunkedEssenceHandler::~DullMXFGCChunkedEssenceHandler() = default;

bool DullMXFGCChunkedEssenceHandler::wantsChunkedEssence(const KLVKey&, std::uint64_t) {
    return true;
}
void DullMXFGCChunkedEssenceHandler::endChunkedEssence(const KLVKey&) {}

DullMXFGCSystemHandler::~DullMXFGCSystemHandler() = default;

bool DullMXFGCSystemHandler::wantsSystem(const KLVKey&) {
    return false;
}
void DullMXFGCSystemHandler::systemLocalSet(const KLVKey&, const LocalItems&) {}
void DullMXFGCSystemHandler::systemFixedLengthPack(const KLVKey&, const Bytes&) {}
void DullMXFGCSystemHandler::systemVariableLengthPack(const KLVKey&, const PackItems&) {}

} // namespace vexa_toolkit
