#include "metadata/model/SetClass.h"

#include <vexa/metadata/sets/structural/ContentStorage.h>

inline namespace vexa_toolkit {

VEXA_DEFINE_CONCRETE_CLASS(ContentStorage);

ContentStorageFactory::ContentStorageFactory(bool packagesLast) {
    add(ContentStorage::setClass());
    if (packagesLast) {
        codeLast("ContentStorage.packages");
    }
}

ContentStorageFactory::~ContentStorageFactory() = default;

ContentStorage::ContentStorage() = default;

const metadata::SetClass& ContentStorage::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        metadata::concreteSet<ContentStorage, MetadataObject>(
            "060E2B34.02530101.0D010101.01011800"_key),
        {
            {VEXA_MEMBER(packages), 0x1901, "060E2B34.01010102.06010104.05010000"_key,
             metadata::RequiredVectorOf{"package"}},
            {VEXA_MEMBER(essenceContainerData), 0x1902, "060E2B34.01010102.06010104.05020000"_key,
             metadata::OptionalVectorOf{"essenceContainerDataItem"}},
        });
    return definition;
}

} // namespace vexa_toolkit
