#pragma once

#include <vexa/Export.h>
#include <vexa/klv/KLVKey.h>
#include <vexa/klv/MXFUID.h>
#include <vexa/metadata/properties.h>
#include <vexa/util/assertion_failure.h>

#include <boost/optional/optional.hpp>
#include <boost/smart_ptr/enable_shared_from_this.hpp>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <boost/smart_ptr/weak_ptr.hpp>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <map>
#include <string>
#include <variant>
#include <vector>

inline namespace vexa_toolkit {

namespace metadata {
class SetClass;
}

/// A set of header metadata (SMPTE 377M) as an object: the base of all set classes.
///
/// Objects are made with their class's `create()` and shared. A strong reference contains its
/// target: an object has at most one owner, and owners never form a circle, so that a model is a
/// tree. A weak reference keeps its target alive, too, but doesn't own it: it must not lead from an
/// object to one that owns it. A setter that would
/// break this throws util::assertion_failure and changes nothing. A model belongs to one thread at
/// a time.
///
/// A property that an object's class doesn't know is dark: its bytes, or the object that it refers
/// to, are kept under the property's key, and coded again.
class VEXA_EXPORT MetadataRoot : public boost::enable_shared_from_this<MetadataRoot> {
public:
    /// The value of a dark property: bytes, or a strong reference.
    using DarkProperty = std::variant<std::vector<std::uint8_t>, boost::shared_ptr<MetadataRoot>>;

    static constexpr const char* className = "MetadataRoot";
    static const metadata::SetClass& setClass();
    virtual const metadata::SetClass& getSetClass() const { return setClass(); }
    /// Of the object's own class, as in "Preface".
    const char* getClassName() const;

    MetadataRoot(const MetadataRoot&) = delete;
    MetadataRoot& operator=(const MetadataRoot&) = delete;
    virtual ~MetadataRoot();

    /// The identity of the set, by which others refer to it. All zero until it is set.
    VEXA_REQUIRED(MXFUID, InstanceUID, instanceUID);

public:
    // Setters of strong references call these first and store the reference afterwards. Called by
    // hand they change nothing but the ownership: who releases an object that a property still
    // refers to must set that property anew, or the model can't be coded.

    /// The same as swapOwnership with no old object, or with no new one.
    void takeOwnership(const boost::shared_ptr<MetadataRoot>& object);
    void releaseOwnership(const boost::shared_ptr<MetadataRoot>& object);

    /// The old object ends to be this object's, the new one becomes it; either may be null. The
    /// checks are "current owner is this", "object is not owned" and "object does not own this",
    /// and for a new object with children below more than 1,000 owners "ownership is not too deep".
    void swapOwnership(const boost::shared_ptr<MetadataRoot>& oldObject,
                       const boost::shared_ptr<MetadataRoot>& newObject);
    /// The old object is the one that a dark property refers to. The property itself stays.
    void swapOwnership(const KLVKey& key, const boost::shared_ptr<MetadataRoot>& newObject);

    /// True while the owner lives.
    bool hasOwner() const { return !owner_.expired(); }
    bool owns(const MetadataRoot& object) const { return object.liveOwner() == this; }

    void setDarkProperty(const KLVKey& key, const std::vector<std::uint8_t>& value);
    /// The object becomes this object's own.
    void setReferenceDarkProperty(const KLVKey& key, const boost::shared_ptr<MetadataRoot>& object);
    /// The checks are "property is present" and "property is a non-reference value".
    const std::vector<std::uint8_t>& getDarkProperty(const KLVKey& key) const;
    /// Null if the property holds bytes. The check is "property is present".
    boost::shared_ptr<MetadataRoot> getReferenceDarkProperty(const KLVKey& key) const;
    /// The checks are "property is present", "property is a reference value" and, with the name of
    /// the class, "property is a Preface reference value".
    template <class Set> boost::shared_ptr<Set> getReferenceDarkProperty(const KLVKey& key) const;
    void removeDarkProperty(const KLVKey& key);
    bool hasDarkProperty(const KLVKey& key) const;
    /// The check is "property is present".
    bool isReferenceDarkProperty(const KLVKey& key) const;
    const std::map<KLVKey, DarkProperty>& getDarkProperties() const { return darkProperties_; }

    /// Where a parser found the set: the byte behind it.
    void setStreampos(const std::streampos& position) { streampos_ = position; }
    /// The check is "streampos is present".
    const std::streampos& getStreampos() const;
    void removeStreampos() { streampos_ = boost::none; }
    bool hasStreampos() const { return streampos_.has_value(); }

protected:
    MetadataRoot();

private:
    const DarkProperty& darkProperty(const KLVKey& key) const;
    const boost::shared_ptr<MetadataRoot>& requireReferenceDarkProperty(const KLVKey& key) const;
    const MetadataRoot* liveOwner() const { return hasOwner() ? ownerAddress_ : nullptr; }
    bool isOwnedBy(const MetadataRoot& object) const;

    boost::weak_ptr<MetadataRoot> owner_;
    /// Of the owner, as long as that lives.
    const MetadataRoot* ownerAddress_ = nullptr;
    std::size_t ownedCount_ = 0;
    std::map<KLVKey, DarkProperty> darkProperties_;
    boost::optional<std::streampos> streampos_;
};

template <class Set>
boost::shared_ptr<Set> MetadataRoot::getReferenceDarkProperty(const KLVKey& key) const {
    const auto target = boost::dynamic_pointer_cast<Set>(requireReferenceDarkProperty(key));
    if (target == nullptr) {
        throw util::assertion_failure("property is a " + std::string(Set::className) +
                                      " reference value");
    }
    return target;
}

} // namespace vexa_toolkit
