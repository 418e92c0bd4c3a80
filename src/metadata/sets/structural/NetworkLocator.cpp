#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/NetworkLocator.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_SET(NetworkLocator);

NetworkLocator::NetworkLocator() = default;

const metadata::SetClass& NetworkLocator::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<NetworkLocator, GenericLocator>(
            "060E2B34.02530101.0D010101.01013200"_key),
        {
            {VEXA_MEMBER(urlString), 0x4001, "060E2B34.01010101.01020101.01000000"_key},
        });
    return definition;
}

} // namespace vexa_toolkit
