#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/descriptors/FileDescriptor.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(FileDescriptor);

FileDescriptor::FileDescriptor() = default;

const metadata::SetClass& FileDescriptor::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<FileDescriptor, GenericDescriptor>(
            "060E2B34.02530101.0D010101.01012500"_key),
        {
            {VEXA_MEMBER(linkedTrackID), 0x3006, "060E2B34.01010105.06010103.05000000"_key},
            {VEXA_MEMBER(sampleRate), 0x3001, "060E2B34.01010101.04060101.00000000"_key},
            {VEXA_MEMBER(containerDuration), 0x3002, "060E2B34.01010101.04060102.00000000"_key},
            {VEXA_MEMBER(essenceContainer), 0x3004, "060E2B34.01010102.06010104.01020000"_key},
            {VEXA_MEMBER(codec), 0x3005, "060E2B34.01010102.06010104.01030000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
