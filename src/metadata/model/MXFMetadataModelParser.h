#pragma once

#include <vexa/metadata/MXFMetadataFactory.h>
#include <vexa/metadata/MXFMetadataHandler.h>
#include <vexa/metadata/MXFMetadataModelHandler.h>

#include <map>
#include <vector>

inline namespace vexa_toolkit {

/// Makes the sets of a partition's header metadata one model: an object for each set, with its
/// references resolved, whichever of reference and target comes first. What is wrong is reported,
/// and the model is delivered as far as it could be built.
class MXFMetadataModelParser : public MXFMetadataHandler {
public:
    /// Neither is owned.
    MXFMetadataModelParser(MXFMetadataModelHandler& handler, MXFMetadataFactory& factory);
    ~MXFMetadataModelParser() override;

    void startMetadata() override;
    void endMetadata() override;
    void primer(const MXFPrimer& primer) override;
    bool wantsPrimedSet(const KLVKey& key) override;
    /// The check is "factory has created object".
    void primedSet(const MXFPrimedSet& set) override;

    /// May be null. It isn't given to the factory.
    virtual void setErrorHandler(ErrorHandler* errorHandler);

private:
    void clear();
    void addObject(const boost::shared_ptr<MetadataRoot>& object);
    void addReference(const MXFUID& uid, const boost::shared_ptr<dangling_ref_base>& reference);
    bool tryToResolve(dangling_ref_base& reference, const boost::shared_ptr<MetadataRoot>& target,
                      bool backward) const;
    void judgeModel();

    MXFMetadataModelHandler& handler_;
    MXFMetadataFactory& factory_;
    ErrorHandler* errorHandler_ = nullptr;
    /// Objects that had no owner when they came, in file order.
    std::vector<boost::shared_ptr<MetadataRoot>> roots_;
    /// By the UID of the target.
    MXFDanglingReferences dangling_;
    std::map<MXFUID, boost::shared_ptr<MetadataRoot>> objects_;
};

} // namespace vexa_toolkit
