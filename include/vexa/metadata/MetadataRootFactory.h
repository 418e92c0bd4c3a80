#pragma once

#include <vexa/metadata/MXFMetadataFactory.h>

#include <exception>
#include <string>
#include <vector>

inline namespace vexa_toolkit {

namespace metadata {
class MetadataProperty;
class SetClass;
} // namespace metadata

/// The factory of one set class; the factories form the same tree as the classes. Each class adds
/// its properties to those of its base, and all work is done here, by their rows.
class VEXA_EXPORT MetadataRootFactory : public MXFMetadataFactory {
public:
    using Properties = std::map<KLVKey, std::vector<std::uint8_t>>;
    using References = std::list<boost::shared_ptr<const MetadataRoot>>;

    ~MetadataRootFactory() override;

    void setErrorHandler(boost::shared_ptr<ErrorHandler> errorHandler) override;
    /// The class's key, byte 7 aside; where BER lengths are allowed, also with byte 5 = 13
    /// hexadecimal.
    bool canParse(const KLVKey& setKey) override;
    /// The check is "expected set key".
    MXFParsedSet parse(const MXFPrimedSet& set) override;
    /// The check is "expected set key".
    const std::type_info& getType(const KLVKey& setKey) override;
    bool canCode(const std::type_info& type) override;
    /// The check is "expected type".
    MXFPrimedSet code(boost::shared_ptr<const MetadataRoot> object) override;
    /// The check is "expected type".
    const std::map<KLVKey, std::uint16_t>& getSetPrimer(const std::type_info& type) override;
    /// The check is "expected type".
    const KLVKey& getSetKey(const std::type_info& type) override;

    /// A new object of the class, which must not be abstract: the check is "class is concrete".
    virtual boost::shared_ptr<MetadataRoot> create();
    virtual const std::type_info& getType() const;
    virtual const KLVKey& getSetKey() const;

    /// Sets an object's properties, and gathers its references. What is missing or invalid is
    /// reported and keeps its default. The check is "object is a Preface", with the class's name.
    virtual void parseProperties(const Properties& properties,
                                 const boost::shared_ptr<MetadataRoot>& object,
                                 MXFDanglingReferences& references);
    /// The other way, with the same check.
    virtual void codeProperties(const boost::shared_ptr<const MetadataRoot>& object,
                                Properties& properties, References& references);

    /// Sets of the class may have items above 65,535 bytes: they are then coded with BER lengths.
    virtual bool allowBERLengths() const;

    /// May be null.
    ErrorHandler* getErrorHandler() const { return errorHandler_.get(); }
    const std::map<KLVKey, std::uint16_t>& getSetPrimer() const { return setPrimer_; }

    /// Reports "invalid " and the name, and the failure's text.
    void firePropertyInternalizeError(const std::string& name, const std::exception& failure) const;
    /// Reports "missing " and the name.
    void firePropertyRequiredError(const std::string& name) const;

protected:
    MetadataRootFactory();

    /// Each class's constructor adds its own class behind its base's.
    void add(const metadata::SetClass& setClass);
    /// Codes a property last, so that its targets follow those of all others.
    void codeLast(const char* property);

private:
    const metadata::SetClass& setClass() const { return *setClasses_.back(); }
    /// False if the set doesn't have it.
    bool parseProperty(const metadata::MetadataProperty& property, const Properties& properties,
                       const boost::shared_ptr<MetadataRoot>& object,
                       MXFDanglingReferences& references) const;

    /// From MetadataRoot to the factory's own.
    std::vector<const metadata::SetClass*> setClasses_;
    std::vector<const metadata::MetadataProperty*> codingOrder_;
    std::map<KLVKey, std::uint16_t> setPrimer_;
    boost::shared_ptr<ErrorHandler> errorHandler_;
};

} // namespace vexa_toolkit
