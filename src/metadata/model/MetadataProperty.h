#pragma once

#include "metadata/model/codec.h"
#include "metadata/model/danglingReferences.h"
#include "metadata/model/propertyText.h"

#include <vexa/metadata/MXFPrimer.h>
#include <vexa/metadata/MetadataRoot.h>
#include <vexa/metadata/MetadataRootFactory.h>

#include <boost/make_shared.hpp>

#include <memory>
#include <string>
#include <vector>

inline namespace vexa_toolkit {

/// One row for each property. How its member is held says what it is:
///
///     Type                               a value, required
///     boost::optional<Type>              a value, optional
///     boost::optional<shared_ptr<Set>>   a weak reference, optional
///     StrongReference<Set>               a strong reference, required
///     OptionalStrongReference<Set>       a strong reference, optional
///     StrongReferenceVector<Set>         strong references
namespace metadata {

using Properties = MetadataRootFactory::Properties;
using References = MetadataRootFactory::References;
using Object = boost::shared_ptr<MetadataRoot>;

/// Reads and writes one member of one class. The object must be of that class.
class MemberCodec {
public:
    virtual ~MemberCodec() = default;

    virtual bool isRequired() const = 0;
    /// Sets the member, or leaves a reference to be resolved. Changes nothing where it fails.
    virtual void parse(const Bytes& value, const Object& object,
                       MXFDanglingReferences& references) const = 0;
    /// Adds nothing for an absent member. `name` is for the check that a target is present.
    virtual void code(const MetadataRoot& object, const KLVKey& key, const std::string& name,
                      Properties& properties, References& references) const = 0;
    /// Tells nothing for an absent member.
    virtual void visit(const MetadataRoot& object, const char* name,
                       PropertyVisitor& visitor) const = 0;
};

/// The name and " is present".
void requireTarget(const boost::shared_ptr<const MetadataRoot>& target, const std::string& name);

template <class Target>
boost::shared_ptr<Target> requireType(const boost::shared_ptr<MetadataRoot>& object) {
    auto target = boost::dynamic_pointer_cast<Target>(object);
    util::check(target != nullptr, "object is value type");
    return target;
}

template <class Set, class Member> class MemberOf : public MemberCodec {
public:
    explicit MemberOf(Member Set::*member) : member_(member) {}

protected:
    Member& in(MetadataRoot& object) const { return static_cast<Set&>(object).*member_; }
    const Member& in(const MetadataRoot& object) const {
        return static_cast<const Set&>(object).*member_;
    }

private:
    Member Set::*member_;
};

template <class Set, class Member> class MemberCodecFor : public MemberOf<Set, Member> {
public:
    using MemberOf<Set, Member>::MemberOf;

    bool isRequired() const override { return true; }
    void parse(const Bytes& value, const Object& object, MXFDanglingReferences&) const override {
        this->in(*object) = decodeValue<Member>(value);
    }
    void code(const MetadataRoot& object, const KLVKey& key, const std::string&,
              Properties& properties, References&) const override {
        properties[key] = encodeValue(this->in(object));
    }
    void visit(const MetadataRoot& object, const char* name,
               PropertyVisitor& visitor) const override {
        visitValue(visitor, name, this->in(object));
    }
};

template <class Set, class T>
class MemberCodecFor<Set, boost::optional<T>> : public MemberOf<Set, boost::optional<T>> {
public:
    using MemberOf<Set, boost::optional<T>>::MemberOf;

    bool isRequired() const override { return false; }
    void parse(const Bytes& value, const Object& object, MXFDanglingReferences&) const override {
        this->in(*object) = decodeValue<T>(value);
    }
    void code(const MetadataRoot& object, const KLVKey& key, const std::string&,
              Properties& properties, References&) const override {
        if (const auto& member = this->in(object)) {
            properties[key] = encodeValue(*member);
        }
    }
    void visit(const MetadataRoot& object, const char* name,
               PropertyVisitor& visitor) const override {
        if (const auto& member = this->in(object)) {
            visitValue(visitor, name, *member);
        }
    }
};

/// The ground of all that hold one reference.
template <class Set, class Member>
class ReferenceCodec : public MemberOf<Set, Member>, public ReferenceSlot {
public:
    using MemberOf<Set, Member>::MemberOf;

    void parse(const Bytes& value, const Object& object,
               MXFDanglingReferences& references) const override {
        references.emplace(decodeValue<MXFUID>(value),
                           boost::make_shared<dangling_ref_t>(object, *this));
    }

protected:
    template <class Target>
    void codeTarget(const boost::shared_ptr<Target>& target, const KLVKey& key,
                    const std::string& name, Properties& properties, References& references) const {
        requireTarget(target, name);
        properties[key] = encodeValue(target->getInstanceUID());
        if (isStrong()) {
            references.push_back(target);
        }
    }
    void visitTarget(const boost::shared_ptr<const MetadataRoot>& target, const char* name,
                     PropertyVisitor& visitor) const {
        if (target != nullptr) {
            isStrong() ? visitor.object(name, target) : visitor.reference(name, target);
        }
    }
};

template <class Set, class Target>
class MemberCodecFor<Set, boost::optional<boost::shared_ptr<Target>>>
    : public ReferenceCodec<Set, boost::optional<boost::shared_ptr<Target>>> {
public:
    using ReferenceCodec<Set, boost::optional<boost::shared_ptr<Target>>>::ReferenceCodec;

    bool isRequired() const override { return false; }
    bool isStrong() const override { return false; }
    void place(MetadataRoot& owner, const Object& target, std::size_t) const override {
        this->in(owner) = requireType<Target>(target);
    }
    void code(const MetadataRoot& object, const KLVKey& key, const std::string& name,
              Properties& properties, References& references) const override {
        if (const auto& member = this->in(object)) {
            this->codeTarget(*member, key, name, properties, references);
        }
    }
    void visit(const MetadataRoot& object, const char* name,
               PropertyVisitor& visitor) const override {
        this->visitTarget(this->in(object).value_or(nullptr), name, visitor);
    }
};

template <class Set, class Target>
class MemberCodecFor<Set, StrongReference<Target>>
    : public ReferenceCodec<Set, StrongReference<Target>> {
public:
    using ReferenceCodec<Set, StrongReference<Target>>::ReferenceCodec;

    bool isRequired() const override { return true; }
    bool isStrong() const override { return true; }
    void place(MetadataRoot& owner, const Object& target, std::size_t) const override {
        this->in(owner).set(owner, requireType<Target>(target));
    }
    void code(const MetadataRoot& object, const KLVKey& key, const std::string& name,
              Properties& properties, References& references) const override {
        this->codeTarget(this->in(object).get(), key, name, properties, references);
    }
    void visit(const MetadataRoot& object, const char* name,
               PropertyVisitor& visitor) const override {
        this->visitTarget(this->in(object).get(), name, visitor);
    }
};

template <class Set, class Target>
class MemberCodecFor<Set, OptionalStrongReference<Target>>
    : public ReferenceCodec<Set, OptionalStrongReference<Target>> {
public:
    using ReferenceCodec<Set, OptionalStrongReference<Target>>::ReferenceCodec;

    bool isRequired() const override { return false; }
    bool isStrong() const override { return true; }
    void place(MetadataRoot& owner, const Object& target, std::size_t) const override {
        this->in(owner).set(owner, requireType<Target>(target));
    }
    void code(const MetadataRoot& object, const KLVKey& key, const std::string& name,
              Properties& properties, References& references) const override {
        if (const auto& member = this->in(object).get()) {
            this->codeTarget(*member, key, name, properties, references);
        }
    }
    void visit(const MetadataRoot& object, const char* name,
               PropertyVisitor& visitor) const override {
        this->visitTarget(this->in(object).get().value_or(nullptr), name, visitor);
    }
};

template <class Set, class Target>
class VectorCodec : public MemberOf<Set, StrongReferenceVector<Target>>, public ReferenceSlot {
public:
    VectorCodec(StrongReferenceVector<Target> Set::*member, bool required)
        : MemberOf<Set, StrongReferenceVector<Target>>(member), required_(required) {}

    bool isRequired() const override { return required_; }
    bool isStrong() const override { return true; }
    void place(MetadataRoot& owner, const Object& target, std::size_t index) const override {
        this->in(owner).insert(owner, index, requireType<Target>(target));
    }
    void parse(const Bytes& value, const Object& object,
               MXFDanglingReferences& references) const override {
        addVectorReferences(decodeValue<std::vector<MXFUID>>(value), object, *this, references);
    }
    void code(const MetadataRoot& object, const KLVKey& key, const std::string& name,
              Properties& properties, References& references) const override {
        const auto& targets = this->in(object).targets();
        if (isAbsent(object)) {
            return;
        }
        std::vector<MXFUID> uids;
        uids.reserve(targets.size());
        for (const auto& target : targets) {
            requireTarget(target, name);
            uids.push_back(target->getInstanceUID());
            references.push_back(target);
        }
        properties[key] = encodeValue(uids);
    }
    void visit(const MetadataRoot& object, const char* name,
               PropertyVisitor& visitor) const override {
        const auto& targets = this->in(object).targets();
        if (!isAbsent(object)) {
            visitor.objects(name, {targets.begin(), targets.end()});
        }
    }

private:
    bool isAbsent(const MetadataRoot& object) const {
        return !required_ && this->in(object).targets().empty();
    }

    bool required_;
};

/// How a vector of references counts, and what one element is called.
struct RequiredVectorOf {
    const char* element;
};
struct OptionalVectorOf {
    const char* element;
};

class MetadataProperty {
public:
    /// A tag of 0 isn't fixed.
    template <class Set, class Member>
    MetadataProperty(Member Set::*member, const char* name, std::uint16_t tag, const KLVKey& key)
        : MetadataProperty({tag, key}, name, name,
                           std::make_shared<MemberCodecFor<Set, Member>>(member)) {}

    template <class Set, class Member>
    MetadataProperty(Member Set::*member, const char* name, const MXFPrimerEntry& entry)
        : MetadataProperty(member, name, entry.tag, entry.key) {}

    template <class Set, class Target>
    MetadataProperty(StrongReferenceVector<Target> Set::*member, const char* name,
                     std::uint16_t tag, const KLVKey& key, RequiredVectorOf vector)
        : MetadataProperty({tag, key}, name, vector.element,
                           std::make_shared<VectorCodec<Set, Target>>(member, true)) {}

    template <class Set, class Target>
    MetadataProperty(StrongReferenceVector<Target> Set::*member, const char* name,
                     std::uint16_t tag, const KLVKey& key, OptionalVectorOf vector)
        : MetadataProperty({tag, key}, name, vector.element,
                           std::make_shared<VectorCodec<Set, Target>>(member, false)) {}

    void setClassName(const std::string& className) {
        name_ = className + "." + ownName_;
        targetName_ = className + "." + targetName_;
    }

    /// With the class's, as in "Preface.version".
    const std::string& name() const { return name_; }
    std::uint16_t tag() const { return entry_.tag; }
    const KLVKey& key() const { return entry_.key; }
    bool isRequired() const { return codec_->isRequired(); }

    void parse(const Bytes& value, const Object& object, MXFDanglingReferences& references) const {
        codec_->parse(value, object, references);
    }
    void code(const MetadataRoot& object, Properties& properties, References& references) const {
        codec_->code(object, entry_.key, targetName_, properties, references);
    }
    void visit(const MetadataRoot& object, PropertyVisitor& visitor) const {
        codec_->visit(object, ownName_, visitor);
    }

private:
    MetadataProperty(const MXFPrimerEntry& entry, const char* name, const char* targetName,
                     std::shared_ptr<const MemberCodec> codec)
        : entry_(entry), ownName_(name), targetName_(targetName), codec_(std::move(codec)) {}

    MXFPrimerEntry entry_;
    const char* ownName_;
    std::string name_;
    std::string targetName_;
    std::shared_ptr<const MemberCodec> codec_;
};

} // namespace metadata

} // namespace vexa_toolkit
