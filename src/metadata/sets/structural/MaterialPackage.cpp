#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/MaterialPackage.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(MaterialPackage);

MaterialPackage::MaterialPackage() = default;

const metadata::SetClass& MaterialPackage::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<MaterialPackage, GenericPackage>(
            "060E2B34.02530101.0D010101.01013600"_key));
    return definition;
}

} // namespace vexa_toolkit
