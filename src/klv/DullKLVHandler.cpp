#include <vexa/klv/DullKLVHandler.h>

inline namespace vexa_toolkit {

DullKLVHandler::~DullKLVHandler() = default;

void DullKLVHandler::setLocator(const Locator*) {}
void DullKLVHandler::startStream(bool) {}
void DullKLVHandler::endStream(bool) {}
void DullKLVHandler::berLengthForm(std::uint8_t) {}

bool DullKLVHandler::startIndividualItem(const KLVKey&, std::uint64_t, std::uint8_t**) {
    return false;
}

void DullKLVHandler::endIndividualItem(const KLVKey&) {}

bool DullKLVHandler::startLabel(const KLVKey&) {
    return false;
}

void DullKLVHandler::endLabel(const KLVKey&) {}

bool DullKLVHandler::startUniversalSet(const KLVKey&, std::uint64_t) {
    return false;
}

void DullKLVHandler::endUniversalSet(const KLVKey&) {}

bool DullKLVHandler::startLocalSet(const KLVKey&, std::uint64_t, TagType, LengthType) {
    return false;
}

void DullKLVHandler::endLocalSet(const KLVKey&) {}

bool DullKLVHandler::startLocalItem(std::uint32_t, std::uint64_t, std::uint8_t**) {
    return false;
}

void DullKLVHandler::endLocalItem(std::uint32_t) {}

bool DullKLVHandler::startFixedLengthPack(const KLVKey&, std::uint64_t, std::uint8_t**) {
    return false;
}

void DullKLVHandler::endFixedLengthPack(const KLVKey&) {}

bool DullKLVHandler::startVariableLengthPack(const KLVKey&, std::uint64_t, LengthType) {
    return false;
}

void DullKLVHandler::endVariableLengthPack(const KLVKey&) {}

bool DullKLVHandler::startVariableLengthItem(std::uint64_t, std::uint8_t**) {
    return false;
}

void DullKLVHandler::endVariableLengthItem() {}

bool DullKLVHandler::startWrapper(const KLVKey&, std::uint64_t, bool, std::uint8_t**) {
    return false;
}

void DullKLVHandler::endWrapper(const KLVKey&) {}
void DullKLVHandler::value(const std::uint8_t*, std::uint64_t) {}

} // namespace vexa_toolkit
