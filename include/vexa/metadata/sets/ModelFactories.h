#pragma once

#include <vexa/metadata/MXFMetadataModelFactory.h>

#include <initializer_list>
#include <vector>

inline namespace vexa_toolkit {

/// A model factory with a list of its own.
class VEXA_EXPORT MXFMetadataModelFactoryList : public MXFMetadataModelFactory {
public:
    ~MXFMetadataModelFactoryList() override;

    std::vector<boost::shared_ptr<MXFMetadataFactory>>& getFactories() override;

protected:
    explicit MXFMetadataModelFactoryList(
        std::initializer_list<boost::shared_ptr<MXFMetadataFactory>> factories);

private:
    std::vector<boost::shared_ptr<MXFMetadataFactory>> factories_;
};

/// The structural sets and the descriptors of SMPTE 377M.
class VEXA_EXPORT MXFFormatMetadataModelFactory : public MXFMetadataModelFactoryList {
public:
    MXFFormatMetadataModelFactory();
    ~MXFFormatMetadataModelFactory() override;
};

/// The descriptors of Broadcast Wave and AES3 sound (SMPTE 382M).
class VEXA_EXPORT MXFAES3MetadataModelFactory : public MXFMetadataModelFactoryList {
public:
    MXFAES3MetadataModelFactory();
    ~MXFAES3MetadataModelFactory() override;
};

/// The descriptors of MPEG and AVC essence (SMPTE 381M, 381-3).
class VEXA_EXPORT MXFMPEGMetadataModelFactory : public MXFMetadataModelFactoryList {
public:
    MXFMPEGMetadataModelFactory();
    ~MXFMPEGMetadataModelFactory() override;
};

/// The descriptors of vertical blanking and ancillary data (SMPTE 436M).
class VEXA_EXPORT MXFVBIANCMetadataModelFactory : public MXFMetadataModelFactoryList {
public:
    MXFVBIANCMetadataModelFactory();
    ~MXFVBIANCMetadataModelFactory() override;
};

} // namespace vexa_toolkit
