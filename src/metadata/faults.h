#pragma once

#include "klv/Fault.h"

inline namespace vexa_toolkit {

/// The faults of primers, local sets and the metadata model (SMPTE 377M).
namespace metadata::faults {

using klvutil::ErrorCode;
using klvutil::Fault;

// How sets are coded.
constexpr Fault nonStandardBERLength{ErrorCode::NonStandardLengthForm,
                                     "non-standard BER length form"};
constexpr Fault nonStandardItemLength{ErrorCode::NonStandardLengthForm,
                                      "non-standard local item length type"};

// The primer.
constexpr Fault invalidPrimer{ErrorCode::InvalidPrimer, "invalid primer value"};
constexpr Fault nonStandardPrimerKey{ErrorCode::NonStandardPrimerKey, "non-standard primer key"};
constexpr Fault nonStandardPrimerTag{ErrorCode::NonStandardPrimerTag, "non-standard primer tag"};
constexpr Fault inconsistentPrimerKey{ErrorCode::InconsistentPrimerKey, "inconsistent primer key"};
constexpr Fault inconsistentPrimerTag{ErrorCode::InconsistentPrimerTag, "inconsistent primer tag"};

// The items of a set.
constexpr Fault repeatedProperty{ErrorCode::RepeatedProperty, "unexpected repeated property"};
constexpr Fault tagMissingInPrimer{ErrorCode::TagMissingInPrimer, "tag missing in primer"};

// The model.
constexpr Fault unrecognizedMetadata{ErrorCode::UnrecognizedMetadata,
                                     "unrecognized (dark) metadata"};
constexpr Fault duplicateInstanceUID{ErrorCode::DuplicateInstanceUID,
                                     "duplicate MetadataRoot.instanceUID"};
constexpr Fault alreadyOwned{ErrorCode::ObjectAlreadyOwned, "referenced object is already owned"};
constexpr Fault invalidReference{ErrorCode::InvalidReference, "invalid reference"};
constexpr Fault backwardReference{ErrorCode::BackwardReference, "backward strong reference"};
constexpr Fault unreferencedObjects{ErrorCode::UnreferencedObjects, "unreferenced objects"};
constexpr Fault danglingReferences{ErrorCode::DanglingReferences, "model has dangling references"};
constexpr Fault firstNotRoot{ErrorCode::FirstObjectNotRoot, "first object is not model root"};

} // namespace metadata::faults

} // namespace vexa_toolkit
