#pragma once

#include <vexa/metadata/MXFMetadataFactory.h>

#include <exception>
#include <typeindex>
#include <vector>

inline namespace vexa_toolkit {

/// A factory that asks others, in their order. Each call but canParse and canCode is for a key or
/// class that one of these has agreed to: the checks are "can handle set key" and "can handle
/// type". It remembers which factory agreed, for as long as it lives.
class VEXA_EXPORT MXFMetadataModelFactory : public MXFMetadataFactory {
public:
    ~MXFMetadataModelFactory() override;

    /// Gives it to all the factories.
    void setErrorHandler(boost::shared_ptr<ErrorHandler> errorHandler) override;
    bool canParse(const KLVKey& setKey) override;
    MXFParsedSet parse(const MXFPrimedSet& set) override;
    const std::type_info& getType(const KLVKey& setKey) override;
    bool canCode(const std::type_info& type) override;
    MXFPrimedSet code(boost::shared_ptr<const MetadataRoot> object) override;
    const std::map<KLVKey, std::uint16_t>& getSetPrimer(const std::type_info& type) override;
    const KLVKey& getSetKey(const std::type_info& type) override;

    virtual std::vector<boost::shared_ptr<MXFMetadataFactory>>& getFactories() = 0;

    /// Whether a property that the class doesn't know is a strong reference. Here it never is.
    virtual bool isReferenceDarkProperty(const KLVKey& setKey, const KLVKey& propertyKey);

protected:
    MXFMetadataModelFactory();

    void fireReferenceDarkPropertyInternalizeError(const KLVKey& key,
                                                   const std::exception& failure) const;

private:
    void takeReferenceDarkProperties(const KLVKey& setKey, MXFParsedSet& parsed);
    MXFMetadataFactory& factoryFor(const KLVKey& setKey) const;
    MXFMetadataFactory& factoryFor(const std::type_info& type) const;

    std::map<KLVKey, boost::shared_ptr<MXFMetadataFactory>> bySetKey_;
    std::map<std::type_index, boost::shared_ptr<MXFMetadataFactory>> byType_;
    boost::shared_ptr<ErrorHandler> errorHandler_;
};

} // namespace vexa_toolkit
