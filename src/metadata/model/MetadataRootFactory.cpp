#include "klv/smpte.h"
#include "metadata/faults.h"
#include "metadata/model/SetClass.h"
#include "metadata/primed/privateKeys.h"
#include "util/check.h"

#include <vexa/metadata/MetadataRootFactory.h>

#include <algorithm>

inline namespace vexa_toolkit {

using metadata::MetadataProperty;
using metadata::SetClass;

namespace {

constexpr std::size_t formByte = 5;
constexpr std::uint8_t setWithTwoOctetLengths = 0x53;
constexpr std::uint8_t setWithBERLengths = 0x13;

KLVKey withBERLengths(KLVKey key) {
    if (key[formByte] == setWithTwoOctetLengths) {
        key[formByte] = setWithBERLengths;
    }
    return key;
}

void requireObject(const SetClass& setClass, const MetadataRoot* object) {
    if (!setClass.traits().isBaseOf(object)) {
        throw util::assertion_failure("object is a " + std::string(setClass.traits().className));
    }
}

} // namespace

MetadataRootFactory::MetadataRootFactory() {
    add(MetadataRoot::setClass());
}

MetadataRootFactory::~MetadataRootFactory() = default;

void MetadataRootFactory::add(const SetClass& setClass) {
    const SetClass* const base = setClasses_.empty() ? nullptr : setClasses_.back();
    util::check(setClass.traits().base == base, "factories derive as their classes do");
    setClasses_.push_back(&setClass);
    for (const MetadataProperty& property : setClass.properties()) {
        codingOrder_.push_back(&property);
        setPrimer_.emplace(property.key(), property.tag());
    }
}

void MetadataRootFactory::codeLast(const char* property) {
    const auto found = std::find_if(
        codingOrder_.begin(), codingOrder_.end(),
        [&](const MetadataProperty* candidate) { return candidate->name() == property; });
    util::check(found != codingOrder_.end(), "property is present");
    std::rotate(found, found + 1, codingOrder_.end());
}

void MetadataRootFactory::setErrorHandler(boost::shared_ptr<ErrorHandler> errorHandler) {
    errorHandler_ = std::move(errorHandler);
}

bool MetadataRootFactory::canParse(const KLVKey& setKey) {
    return setKey == getSetKey() || (allowBERLengths() && setKey == withBERLengths(getSetKey()));
}

MXFParsedSet MetadataRootFactory::parse(const MXFPrimedSet& set) {
    util::check(canParse(set.key), "expected set key");
    MXFParsedSet parsed;
    parsed.object = create();
    parseProperties(set.properties, parsed.object, parsed.references);
    if (set.position != std::streampos(std::streamoff(-1))) {
        parsed.object->setStreampos(set.position);
    }
    return parsed;
}

const std::type_info& MetadataRootFactory::getType(const KLVKey& setKey) {
    util::check(canParse(setKey), "expected set key");
    return getType();
}

bool MetadataRootFactory::canCode(const std::type_info& type) {
    return type == getType();
}

MXFPrimedSet MetadataRootFactory::code(boost::shared_ptr<const MetadataRoot> object) {
    const MetadataRoot* const coded = object.get();
    util::check(coded != nullptr && canCode(typeid(*coded)), "expected type");
    MXFPrimedSet set;
    codeProperties(object, set.properties, set.references);
    const bool needsBER =
        allowBERLengths() &&
        std::any_of(set.properties.begin(), set.properties.end(), [](const auto& property) {
            return property.second.size() > klvutil::longestTwoOctetLength &&
                   !metadata::isPrivateKey(property.first);
        });
    set.key = needsBER ? withBERLengths(getSetKey()) : getSetKey();
    return set;
}

const std::map<KLVKey, std::uint16_t>&
MetadataRootFactory::getSetPrimer(const std::type_info& type) {
    util::check(canCode(type), "expected type");
    return getSetPrimer();
}

const KLVKey& MetadataRootFactory::getSetKey(const std::type_info& type) {
    util::check(canCode(type), "expected type");
    return getSetKey();
}

boost::shared_ptr<MetadataRoot> MetadataRootFactory::create() {
    util::check(setClass().traits().create != nullptr, "class is concrete");
    return setClass().traits().create();
}

const std::type_info& MetadataRootFactory::getType() const {
    return *setClass().traits().type;
}

const KLVKey& MetadataRootFactory::getSetKey() const {
    return setClass().traits().key;
}

bool MetadataRootFactory::allowBERLengths() const {
    return setClass().traits().allowsBERLengths;
}

void MetadataRootFactory::parseProperties(const Properties& properties,
                                          const boost::shared_ptr<MetadataRoot>& object,
                                          MXFDanglingReferences& references) {
    requireObject(setClass(), object.get());
    std::size_t known = 0;
    for (auto level = setClasses_.rbegin(); level != setClasses_.rend(); ++level) {
        for (const MetadataProperty& property : (*level)->properties()) {
            if (parseProperty(property, properties, object, references)) {
                ++known;
            }
        }
    }
    if (known == properties.size()) {
        return;
    }
    for (const auto& [key, value] : properties) {
        if (setPrimer_.count(key) == 0 && !metadata::isPrivateKey(key)) {
            object->setDarkProperty(key, value);
        }
    }
}

bool MetadataRootFactory::parseProperty(const MetadataProperty& property,
                                        const Properties& properties,
                                        const boost::shared_ptr<MetadataRoot>& object,
                                        MXFDanglingReferences& references) const {
    const auto present = properties.find(property.key());
    if (present == properties.end()) {
        if (property.isRequired()) {
            firePropertyRequiredError(property.name());
        }
        return false;
    }
    try {
        property.parse(present->second, object, references);
    } catch (const util::assertion_failure& failure) {
        firePropertyInternalizeError(property.name(), failure);
    }
    return true;
}

void MetadataRootFactory::codeProperties(const boost::shared_ptr<const MetadataRoot>& object,
                                         Properties& properties, References& references) {
    requireObject(setClass(), object.get());
    for (const auto& [key, property] : object->getDarkProperties()) {
        if (const auto* const bytes = std::get_if<std::vector<std::uint8_t>>(&property)) {
            properties[key] = *bytes;
        } else {
            const auto& target = std::get<boost::shared_ptr<MetadataRoot>>(property);
            metadata::requireTarget(target, "MetadataRoot.referenceDarkProperty");
            properties[key] = metadata::encodeValue(target->getInstanceUID());
            references.push_back(target);
        }
    }
    for (const MetadataProperty* property : codingOrder_) {
        property->code(*object, properties, references);
    }
    if (setClass().traits().keepsRowOrder) {
        std::vector<KLVKey> order;
        for (const MetadataProperty* property : codingOrder_) {
            order.push_back(property->key());
        }
        properties[metadata::propertyOrderHintKey] = metadata::encodeValue(order);
    }
}

void MetadataRootFactory::firePropertyInternalizeError(const std::string& name,
                                                       const std::exception& failure) const {
    klvutil::reportOf(errorHandler_.get(), metadata::faults::invalidProperty, name, failure.what());
}

void MetadataRootFactory::firePropertyRequiredError(const std::string& name) const {
    klvutil::reportOf(errorHandler_.get(), metadata::faults::missingProperty, name);
}

} // namespace vexa_toolkit
