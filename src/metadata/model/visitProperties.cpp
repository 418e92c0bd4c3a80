#include "metadata/model/SetClass.h"
#include "metadata/primed/privateKeys.h"

#include <vexa/metadata/visitProperties.h>

inline namespace vexa_toolkit {

namespace metadata {

PropertyVisitor::~PropertyVisitor() = default;

void PropertyVisitor::value(const char*, ValueKind, const std::string&) {}
void PropertyVisitor::values(const char*, ValueKind, const std::vector<std::string>&) {}
void PropertyVisitor::object(const char*, const boost::shared_ptr<const MetadataRoot>&) {}
void PropertyVisitor::objects(const char*,
                              const std::vector<boost::shared_ptr<const MetadataRoot>>&) {}
void PropertyVisitor::reference(const char*, const boost::shared_ptr<const MetadataRoot>&) {}
void PropertyVisitor::darkValue(const KLVKey&, const std::vector<std::uint8_t>&) {}
void PropertyVisitor::darkObject(const KLVKey&, const boost::shared_ptr<const MetadataRoot>&) {}

void visitProperties(const MetadataRoot& object, PropertyVisitor& visitor) {
    std::vector<const SetClass*> levels;
    for (const SetClass* level = &object.getSetClass(); level != nullptr;
         level = level->traits().base) {
        levels.push_back(level);
    }
    for (auto level = levels.rbegin(); level != levels.rend(); ++level) {
        for (const MetadataProperty& property : (*level)->properties()) {
            property.visit(object, visitor);
        }
    }
    for (const auto& [key, property] : object.getDarkProperties()) {
        if (const auto* const bytes = std::get_if<std::vector<std::uint8_t>>(&property)) {
            if (!isPrivateKey(key)) {
                visitor.darkValue(key, *bytes);
            }
        } else if (const auto& target = std::get<boost::shared_ptr<MetadataRoot>>(property)) {
            visitor.darkObject(key, target);
        }
    }
}

} // namespace metadata

} // namespace vexa_toolkit
