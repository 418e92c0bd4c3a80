#include <vexa/klv/ErrorCode.h>

inline namespace vexa_toolkit {

namespace klvutil {

namespace {

// The compiler misses a case that isn't there.
#define VEXA_CODE(name)                                                                            \
    case ErrorCode::name:                                                                          \
        return #name

const char* nameOf(ErrorCode code) {
    switch (code) {
        VEXA_CODE(StreamFailure);
        VEXA_CODE(InvalidKey);
        VEXA_CODE(InvalidBERLength);
        VEXA_CODE(IncorrectLength);
        VEXA_CODE(UnexpectedFillItemKeyVersion);
        VEXA_CODE(UnexpectedElement);
        VEXA_CODE(InvalidRunIn);
        VEXA_CODE(InvalidStructure);
        VEXA_CODE(UnalignedHeaderByteCount);
        VEXA_CODE(UnalignedIndexByteCount);
        VEXA_CODE(InvalidRandomIndex);
        VEXA_CODE(NonStandardLengthForm);
        VEXA_CODE(InconsistentIndexSegment);
        VEXA_CODE(AdjacentFillItems);
        VEXA_CODE(IncorrectByteCount);
        VEXA_CODE(InvalidPartitionPack);
        VEXA_CODE(InvalidPartitionOrder);
        VEXA_CODE(IncorrectThisPartition);
        VEXA_CODE(IncorrectPreviousPartition);
        VEXA_CODE(IncorrectFooterPartition);
        VEXA_CODE(InconsistentIndexSID);
        VEXA_CODE(InconsistentBodySID);
        VEXA_CODE(IncompatibleVersion);
        VEXA_CODE(UnimplementedVersion);
        VEXA_CODE(InvalidPrimer);
        VEXA_CODE(NonStandardPrimerKey);
        VEXA_CODE(NonStandardPrimerTag);
        VEXA_CODE(InconsistentPrimerKey);
        VEXA_CODE(InconsistentPrimerTag);
        VEXA_CODE(RepeatedProperty);
        VEXA_CODE(TagMissingInPrimer);
        VEXA_CODE(MissingIndexProperty);
        VEXA_CODE(InvalidIndexProperty);
        VEXA_CODE(InvalidGCElement);
        VEXA_CODE(NonStandardBERLengthForm);
        VEXA_CODE(UnexpectedGCElement);
        VEXA_CODE(UnsupportedGCElementLength);
        VEXA_CODE(InvalidSDTICPElement);
        VEXA_CODE(InvalidSystemMetadata);
        VEXA_CODE(RepeatedSystemMetadataSet);
        VEXA_CODE(InconsistentControlData);
        VEXA_CODE(IncorrectBlockCount);
        VEXA_CODE(UnrecognizedMetadata);
        VEXA_CODE(MissingProperty);
        VEXA_CODE(InvalidProperty);
        VEXA_CODE(DuplicateInstanceUID);
        VEXA_CODE(ObjectAlreadyOwned);
        VEXA_CODE(InvalidReference);
        VEXA_CODE(BackwardReference);
        VEXA_CODE(UnreferencedObjects);
        VEXA_CODE(DanglingReferences);
        VEXA_CODE(FirstObjectNotRoot);
        VEXA_CODE(InvalidProxySystemElement);
        VEXA_CODE(RepeatedProxySystemProperty);
        VEXA_CODE(UnrecognizedProxySystemProperty);
        VEXA_CODE(MissingProxySystemProperty);
        VEXA_CODE(InvalidProxySystemProperty);
    }
    return "";
}

#undef VEXA_CODE

} // namespace

std::string codeName(const MXFUID& code) {
    const ErrorCode known = toErrorCode(code);
    return toUID(known) == code ? nameOf(known) : "";
}

std::string severityName(Severity severity) {
    switch (severity) {
    case Severity::Warning:
        return "warning";
    case Severity::Error:
        return "error";
    case Severity::FatalError:
        return "fatal error";
    }
    return "";
}

} // namespace klvutil

} // namespace vexa_toolkit
