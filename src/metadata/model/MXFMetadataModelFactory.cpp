#include "metadata/faults.h"
#include "metadata/model/codec.h"
#include "metadata/model/danglingReferences.h"
#include "util/check.h"

#include <vexa/metadata/MXFMetadataModelFactory.h>
#include <vexa/metadata/MetadataRoot.h>

#include <boost/make_shared.hpp>

#include <utility>

inline namespace vexa_toolkit {

MXFMetadataModelFactory::MXFMetadataModelFactory() = default;
MXFMetadataModelFactory::~MXFMetadataModelFactory() = default;

void MXFMetadataModelFactory::setErrorHandler(boost::shared_ptr<ErrorHandler> errorHandler) {
    errorHandler_ = std::move(errorHandler);
    for (const auto& factory : getFactories()) {
        util::check(factory != nullptr, "factory is present");
        factory->setErrorHandler(errorHandler_);
    }
}

bool MXFMetadataModelFactory::canParse(const KLVKey& setKey) {
    if (bySetKey_.count(setKey) != 0) {
        return true;
    }
    for (const auto& factory : getFactories()) {
        util::check(factory != nullptr, "factory is present");
        if (factory->canParse(setKey)) {
            bySetKey_.emplace(setKey, factory);
            byType_.emplace(factory->getType(setKey), factory);
            return true;
        }
    }
    return false;
}

bool MXFMetadataModelFactory::canCode(const std::type_info& type) {
    if (byType_.count(type) != 0) {
        return true;
    }
    for (const auto& factory : getFactories()) {
        util::check(factory != nullptr, "factory is present");
        if (factory->canCode(type)) {
            byType_.emplace(type, factory);
            bySetKey_.emplace(factory->getSetKey(type), factory);
            return true;
        }
    }
    return false;
}

MXFMetadataFactory& MXFMetadataModelFactory::factoryFor(const KLVKey& setKey) const {
    const auto found = bySetKey_.find(setKey);
    util::check(found != bySetKey_.end(), "can handle set key");
    return *found->second;
}

MXFMetadataFactory& MXFMetadataModelFactory::factoryFor(const std::type_info& type) const {
    const auto found = byType_.find(type);
    util::check(found != byType_.end(), "can handle type");
    return *found->second;
}

MXFParsedSet MXFMetadataModelFactory::parse(const MXFPrimedSet& set) {
    MXFParsedSet parsed = factoryFor(set.key).parse(set);
    util::check(parsed.object != nullptr, "factory has created object");
    takeReferenceDarkProperties(set.key, parsed);
    return parsed;
}

const std::type_info& MXFMetadataModelFactory::getType(const KLVKey& setKey) {
    return factoryFor(setKey).getType(setKey);
}

MXFPrimedSet MXFMetadataModelFactory::code(boost::shared_ptr<const MetadataRoot> object) {
    util::check(object != nullptr, "can handle type");
    const MetadataRoot& coded = *object;
    return factoryFor(typeid(coded)).code(object);
}

const std::map<KLVKey, std::uint16_t>&
MXFMetadataModelFactory::getSetPrimer(const std::type_info& type) {
    return factoryFor(type).getSetPrimer(type);
}

const KLVKey& MXFMetadataModelFactory::getSetKey(const std::type_info& type) {
    return factoryFor(type).getSetKey(type);
}

bool MXFMetadataModelFactory::isReferenceDarkProperty(const KLVKey&, const KLVKey&) {
    return false;
}

void MXFMetadataModelFactory::takeReferenceDarkProperties(const KLVKey& setKey,
                                                          MXFParsedSet& parsed) {
    for (const auto& [key, property] : parsed.object->getDarkProperties()) {
        const auto* const value = std::get_if<std::vector<std::uint8_t>>(&property);
        if (value == nullptr || !isReferenceDarkProperty(setKey, key)) {
            continue;
        }
        try {
            parsed.references.emplace(
                metadata::decodeValue<MXFUID>(*value),
                boost::make_shared<metadata::dangling_dark_ref_t>(parsed.object, key));
        } catch (const util::assertion_failure& failure) {
            fireReferenceDarkPropertyInternalizeError(key, failure);
        }
    }
}

void MXFMetadataModelFactory::fireReferenceDarkPropertyInternalizeError(
    const KLVKey& key, const std::exception& failure) const {
    klvutil::reportOf(errorHandler_.get(), metadata::faults::invalidProperty,
                      "reference dark property (" + klvutil::describe(key) + ")", failure.what());
}

} // namespace vexa_toolkit
