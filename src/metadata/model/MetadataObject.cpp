#include "metadata/model/SetClass.h"

#include <vexa/metadata/MetadataObject.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_ABSTRACT_SET(MetadataObject);

MetadataObject::MetadataObject() = default;

const metadata::SetClass& MetadataObject::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::abstractSet<MetadataObject, MetadataRoot>(
            "060E2B34.02530101.0D010101.01010100"_key),
        {{VEXA_MEMBER(generationUID), 0x0102, "060E2B34.01010102.05200701.08000000"_key}});
    return definition;
}

} // namespace vexa_toolkit
