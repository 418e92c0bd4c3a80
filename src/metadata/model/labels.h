#pragma once

#include "klv/keyLiteral.h"

inline namespace vexa_toolkit {

/// Labels that stand as values in metadata (SMPTE RP 224).
namespace metadata::labels {

using klvutil::operator""_key;

// Data definitions.
constexpr KLVKey timecode = "060E2B34.04010101.01030201.01000000"_key;
constexpr KLVKey descriptiveMetadata = "060E2B34.04010101.01030201.10000000"_key;
constexpr KLVKey picture = "060E2B34.04010101.01030202.01000000"_key;
constexpr KLVKey sound = "060E2B34.04010101.01030202.02000000"_key;
constexpr KLVKey data = "060E2B34.04010101.01030202.03000000"_key;

// Operational patterns.
constexpr KLVKey op1a = "060E2B34.04010101.0D010201.01010900"_key;

// Essence containers.
constexpr KLVKey multipleWrappings = "060E2B34.04010103.0D010301.027F0100"_key;
constexpr KLVKey aes3Sound = "060E2B34.04010101.0D010301.02060300"_key;
constexpr KLVKey bwfSound = "060E2B34.04010101.0D010301.02060100"_key;
constexpr KLVKey alawSound = "060E2B34.04010103.0D010301.020A0300"_key;
constexpr KLVKey ancillaryData = "060E2B34.04010109.0D010301.020E0000"_key;
constexpr KLVKey mpeg2FrameWrapped = "060E2B34.04010102.0D010301.02046001"_key;

// Sound compressions.
constexpr KLVKey linearPCM = "060E2B34.0401010A.04020201.01000000"_key;
constexpr KLVKey alawCompression = "060E2B34.04010103.04020202.03010100"_key;

// Descriptive schemes.
constexpr KLVKey textBasedScheme = "060E2B34.0401010C.0D010401.04010100"_key;

} // namespace metadata::labels

} // namespace vexa_toolkit
