#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of system items (SMPTE 326M, 385M).
namespace gcsystem::faults {

using klvutil::ErrorCode;
using klvutil::Fault;

constexpr Fault invalidElement{ErrorCode::InvalidSDTICPElement, "invalid SDTI-CP system element"};
constexpr Fault invalidPack{ErrorCode::InvalidSystemMetadata,
                            "invalid SDTI-CP system metadata value"};
constexpr Fault missingPack{ErrorCode::InvalidSystemMetadata, "missing SDTI-CP system metadata"};

// Metadata sets.
constexpr Fault extraPackage{ErrorCode::RepeatedSystemMetadataSet,
                             "unexpected extra SDTI-CP package metadata"};
constexpr Fault extraPicture{ErrorCode::RepeatedSystemMetadataSet,
                             "unexpected extra SDTI-CP picture metadata"};
constexpr Fault extraSound{ErrorCode::RepeatedSystemMetadataSet,
                           "unexpected extra SDTI-CP sound metadata"};
constexpr Fault extraData{ErrorCode::RepeatedSystemMetadataSet,
                          "unexpected extra SDTI-CP data metadata"};
constexpr Fault incorrectPackageCount{ErrorCode::IncorrectBlockCount,
                                      "incorrect SDTI-CP package metadata block count"};
constexpr Fault incorrectPictureCount{ErrorCode::IncorrectBlockCount,
                                      "incorrect SDTI-CP picture metadata block count"};
constexpr Fault incorrectSoundCount{ErrorCode::IncorrectBlockCount,
                                    "incorrect SDTI-CP sound metadata block count"};
constexpr Fault incorrectDataCount{ErrorCode::IncorrectBlockCount,
                                   "incorrect SDTI-CP data metadata block count"};

// Control data.
constexpr Fault missingControl{ErrorCode::InconsistentControlData, "missing SDTI-CP control data"};
constexpr Fault unexpectedControl{ErrorCode::InconsistentControlData,
                                  "unexpected SDTI-CP control data"};
constexpr Fault incorrectControlCount{ErrorCode::InconsistentControlData,
                                      "incorrect SDTI-CP control data block count"};

// Proxy system items.
constexpr Fault invalidProxyElement{ErrorCode::InvalidProxySystemElement,
                                    "invalid QZProxy system element"};
constexpr Fault repeatedFrameCount{ErrorCode::RepeatedProxySystemProperty,
                                   "unexpected repeated frameCount"};
constexpr Fault repeatedTimecodes{ErrorCode::RepeatedProxySystemProperty,
                                  "unexpected repeated timecodes"};
constexpr Fault unrecognizedProxyItem{ErrorCode::UnrecognizedProxySystemProperty,
                                      "unrecognized QZProxy metadata item"};
constexpr Fault inconsistentFrameCount{ErrorCode::InvalidProxySystemProperty,
                                       "inconsistent frameCount and timecodes"};

} // namespace gcsystem::faults

} // namespace vexa_toolkit
