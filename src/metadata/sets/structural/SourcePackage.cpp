#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/SourcePackage.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_CLASS(SourcePackage);

SourcePackageFactory::SourcePackageFactory(bool tracksLast) {
    add(SourcePackage::setClass());
    if (tracksLast) {
        codeLast("GenericPackage.tracks");
    }
}

SourcePackageFactory::~SourcePackageFactory() = default;

SourcePackage::SourcePackage() = default;

const metadata::SetClass& SourcePackage::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<SourcePackage, GenericPackage>(
            "060E2B34.02530101.0D010101.01013700"_key),
        {
            {VEXA_MEMBER(descriptor), 0x4701, "060E2B34.01010102.06010104.02030000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
