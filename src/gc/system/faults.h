#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of system items (SMPTE 326M, 385M).
namespace gcsystem::faults {

using klvutil::error;
using klvutil::ErrorCode;
using klvutil::Fault;
using klvutil::warning;

constexpr Fault invalidElement =
    error(ErrorCode::InvalidSDTICPElement, "invalid SDTI-CP system element");
constexpr Fault invalidPack =
    error(ErrorCode::InvalidSystemMetadata, "invalid SDTI-CP system metadata value");
constexpr Fault missingPack =
    error(ErrorCode::InvalidSystemMetadata, "missing SDTI-CP system metadata");

// Metadata sets.
constexpr Fault extraPackage =
    error(ErrorCode::RepeatedSystemMetadataSet, "unexpected extra SDTI-CP package metadata");
constexpr Fault extraPicture =
    error(ErrorCode::RepeatedSystemMetadataSet, "unexpected extra SDTI-CP picture metadata");
constexpr Fault extraSound =
    error(ErrorCode::RepeatedSystemMetadataSet, "unexpected extra SDTI-CP sound metadata");
constexpr Fault extraData =
    error(ErrorCode::RepeatedSystemMetadataSet, "unexpected extra SDTI-CP data metadata");
constexpr Fault incorrectPackageCount =
    warning(ErrorCode::IncorrectBlockCount, "incorrect SDTI-CP package metadata block count");
constexpr Fault incorrectPictureCount =
    warning(ErrorCode::IncorrectBlockCount, "incorrect SDTI-CP picture metadata block count");
constexpr Fault incorrectSoundCount =
    warning(ErrorCode::IncorrectBlockCount, "incorrect SDTI-CP sound metadata block count");
constexpr Fault incorrectDataCount =
    warning(ErrorCode::IncorrectBlockCount, "incorrect SDTI-CP data metadata block count");

// Control data.
constexpr Fault missingControl =
    error(ErrorCode::InconsistentControlData, "missing SDTI-CP control data");
constexpr Fault unexpectedControl =
    error(ErrorCode::InconsistentControlData, "unexpected SDTI-CP control data");
constexpr Fault incorrectControlCount =
    error(ErrorCode::InconsistentControlData, "incorrect SDTI-CP control data block count");

// Proxy system items.
constexpr Fault invalidProxyElement =
    error(ErrorCode::InvalidProxySystemElement, "invalid QZProxy system element");
constexpr Fault missingProxyProperty = error(ErrorCode::MissingProxySystemProperty, "missing *");
constexpr Fault invalidProxyProperty =
    error(ErrorCode::InvalidProxySystemProperty, "invalid * value");
constexpr Fault repeatedFrameCount =
    error(ErrorCode::RepeatedProxySystemProperty, "unexpected repeated frameCount");
constexpr Fault repeatedTimecodes =
    error(ErrorCode::RepeatedProxySystemProperty, "unexpected repeated timecodes");
constexpr Fault unrecognizedProxyItem =
    warning(ErrorCode::UnrecognizedProxySystemProperty, "unrecognized QZProxy metadata item");
constexpr Fault inconsistentFrameCount =
    warning(ErrorCode::InvalidProxySystemProperty, "inconsistent frameCount and timecodes");

} // namespace gcsystem::faults

} // namespace vexa_toolkit
