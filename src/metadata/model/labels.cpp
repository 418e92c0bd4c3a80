#include "metadata/model/labels.h"

#include "klv/Fault.h"

#include <vexa/metadata/labelName.h>

#include <algorithm>

inline namespace vexa_toolkit {

namespace metadata {

using klvutil::operator""_key;

namespace {

/// The first `bytes` of a label, byte 7 aside, mean this.
struct Family {
    KLVKey label;
    std::size_t bytes;
    const char* name;
};

constexpr Family families[] = {
    {labels::timecode, 16, "timecode"},
    {labels::descriptiveMetadata, 16, "descriptive metadata"},
    {labels::picture, 13, "picture"},
    {labels::sound, 13, "sound"},
    {labels::data, 13, "data"},

    {labels::multipleWrappings, 14, "multiple wrappings"},
    {labels::aes3Sound, 15, "AES3 sound, frame wrapped"},
    {labels::bwfSound, 15, "BWF sound, frame wrapped"},
    {"060E2B34.04010101.0D010301.02060200"_key, 15, "BWF sound, clip wrapped"},
    {"060E2B34.04010101.0D010301.02060400"_key, 15, "AES3 sound, clip wrapped"},
    {labels::alawSound, 14, "A-law sound"},
    {labels::ancillaryData, 14, "ancillary data"},
    {"060E2B34.04010109.0D010301.020D0000"_key, 14, "VBI data"},
    {"060E2B34.04010101.0D010301.02010000"_key, 14, "D-10"},
    {"060E2B34.04010101.0D010301.02020000"_key, 14, "DV"},
    {labels::mpeg2FrameWrapped, 16, "MPEG-2 picture, frame wrapped"},
    {"060E2B34.04010102.0D010301.02046107"_key, 16, "MPEG-4 proxy picture"},
    {"060E2B34.04010101.0D010301.02040000"_key, 14, "MPEG"},
    {"060E2B34.04010101.0D010301.02050000"_key, 14, "uncompressed picture"},
    {"060E2B34.0401010A.0D010301.020F0000"_key, 14, "AVC NAL unit stream"},
    {"060E2B34.0401010A.0D010301.02100000"_key, 14, "AVC byte stream"},
    {"060E2B34.0401010A.0D010301.02110100"_key, 15, "VC-3 picture, frame wrapped"},
    {"060E2B34.0401010A.0D010301.02110200"_key, 15, "VC-3 picture, clip wrapped"},

    {"060E2B34.04010101.04010202.01020100"_key, 15, "D-10 coding"},
    {"060E2B34.04010101.04010202.01010000"_key, 14, "MPEG-2 MP@ML coding"},
    {"060E2B34.04010101.04010202.01020000"_key, 14, "MPEG-2 422P@ML coding"},
    {"060E2B34.04010101.04010202.01030000"_key, 14, "MPEG-2 MP@HL coding"},
    {"060E2B34.04010101.04010202.01040000"_key, 14, "MPEG-2 422P@HL coding"},
    {"060E2B34.04010101.04010202.01050000"_key, 14, "MPEG-2 MP@H14 coding"},
    {"060E2B34.04010101.04010202.01200000"_key, 14, "MPEG-4 Visual coding"},
    {"060E2B34.04010101.04010202.01310000"_key, 14, "AVC coding"},
    {"060E2B34.04010101.04010202.01320000"_key, 14, "AVC intra coding"},
    {"060E2B34.04010101.04010202.02000000"_key, 13, "DV coding"},
    {"060E2B34.04010101.04010202.71000000"_key, 13, "VC-3 coding"},
    {"060E2B34.04010101.04010201.01000000"_key, 13, "uncompressed picture coding"},
    {labels::linearPCM, 14, "linear PCM"},
    {labels::alawCompression, 14, "A-law"},

    {labels::textBasedScheme, 15, "text-based metadata"},
};

bool belongsTo(const KLVKey& label, const Family& family) {
    for (std::size_t i = 0; i < family.bytes; ++i) {
        if (i != KLVKey::versionByte && label[i] != family.label[i]) {
            return false;
        }
    }
    return true;
}

/// The generalized patterns 1a to 3c: items in byte 12, packages in byte 13.
std::string patternName(const KLVKey& label) {
    constexpr Family pattern{labels::op1a, 12, "OP"};
    constexpr std::uint8_t atom = 0x10;
    if (!belongsTo(label, pattern)) {
        return {};
    }
    if (label[12] == atom) {
        return "OP-Atom";
    }
    const bool known = label[12] >= 1 && label[12] <= 3 && label[13] >= 1 && label[13] <= 3;
    return known ? pattern.name + std::to_string(label[12]) + static_cast<char>('a' + label[13] - 1)
                 : std::string();
}

} // namespace

std::string labelName(const KLVKey& label) {
    const auto* const family =
        std::find_if(std::begin(families), std::end(families),
                     [&](const Family& candidate) { return belongsTo(label, candidate); });
    return family == std::end(families) ? patternName(label) : family->name;
}

std::string labelText(const KLVKey& label) {
    const std::string name = labelName(label);
    return klvutil::describe(label) + (name.empty() ? "" : ' ' + name);
}

} // namespace metadata

} // namespace vexa_toolkit
