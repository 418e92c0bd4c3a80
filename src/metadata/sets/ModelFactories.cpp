#include <vexa/metadata/sets/ModelFactories.h>
#include <vexa/metadata/sets/descriptors/AES3AudioDescriptor.h>
#include <vexa/metadata/sets/descriptors/ANCDataDescriptor.h>
#include <vexa/metadata/sets/descriptors/AVCVideoSubDescriptor.h>
#include <vexa/metadata/sets/descriptors/CDCIPictureDescriptor.h>
#include <vexa/metadata/sets/descriptors/ContainerConstraintsSubDescriptor.h>
#include <vexa/metadata/sets/descriptors/DataDescriptor.h>
#include <vexa/metadata/sets/descriptors/MPEG4VideoSubDescriptor.h>
#include <vexa/metadata/sets/descriptors/MPEGAudioDescriptor.h>
#include <vexa/metadata/sets/descriptors/MPEGVideoDescriptor.h>
#include <vexa/metadata/sets/descriptors/MultipleDescriptor.h>
#include <vexa/metadata/sets/descriptors/PictureDescriptor.h>
#include <vexa/metadata/sets/descriptors/RGBAPictureDescriptor.h>
#include <vexa/metadata/sets/descriptors/SoundDescriptor.h>
#include <vexa/metadata/sets/descriptors/VBIDataDescriptor.h>
#include <vexa/metadata/sets/descriptors/WaveAudioDescriptor.h>
#include <vexa/metadata/sets/structural/CommentMarker.h>
#include <vexa/metadata/sets/structural/ContentStorage.h>
#include <vexa/metadata/sets/structural/DMSegment.h>
#include <vexa/metadata/sets/structural/DMSourceClip.h>
#include <vexa/metadata/sets/structural/EssenceContainerData.h>
#include <vexa/metadata/sets/structural/EventTrack.h>
#include <vexa/metadata/sets/structural/Filler.h>
#include <vexa/metadata/sets/structural/Identification.h>
#include <vexa/metadata/sets/structural/MaterialPackage.h>
#include <vexa/metadata/sets/structural/NetworkLocator.h>
#include <vexa/metadata/sets/structural/Preface.h>
#include <vexa/metadata/sets/structural/Sequence.h>
#include <vexa/metadata/sets/structural/SourceClip.h>
#include <vexa/metadata/sets/structural/SourcePackage.h>
#include <vexa/metadata/sets/structural/StaticTrack.h>
#include <vexa/metadata/sets/structural/TextLocator.h>
#include <vexa/metadata/sets/structural/TimecodeComponent.h>
#include <vexa/metadata/sets/structural/TimelineTrack.h>

#include <boost/make_shared.hpp>

inline namespace vexa_toolkit {

using boost::make_shared;

MXFMetadataModelFactoryList::MXFMetadataModelFactoryList(
    std::initializer_list<boost::shared_ptr<MXFMetadataFactory>> factories)
    : factories_(factories) {}

MXFMetadataModelFactoryList::~MXFMetadataModelFactoryList() = default;

std::vector<boost::shared_ptr<MXFMetadataFactory>>& MXFMetadataModelFactoryList::getFactories() {
    return factories_;
}

MXFFormatMetadataModelFactory::MXFFormatMetadataModelFactory()
    : MXFMetadataModelFactoryList({
          make_shared<PrefaceFactory>(),
          make_shared<IdentificationFactory>(),
          make_shared<ContentStorageFactory>(false),
          make_shared<EssenceContainerDataFactory>(),
          make_shared<NetworkLocatorFactory>(),
          make_shared<TextLocatorFactory>(),
          make_shared<SequenceFactory>(),
          make_shared<SourceClipFactory>(),
          make_shared<FillerFactory>(),
          make_shared<TimelineTrackFactory>(),
          make_shared<EventTrackFactory>(),
          make_shared<StaticTrackFactory>(),
          make_shared<TimecodeComponentFactory>(),
          make_shared<CommentMarkerFactory>(),
          make_shared<DMSegmentFactory>(),
          make_shared<DMSourceClipFactory>(),
          make_shared<MaterialPackageFactory>(),
          make_shared<SourcePackageFactory>(false),
          make_shared<MultipleDescriptorFactory>(),
          make_shared<PictureDescriptorFactory>(),
          make_shared<CDCIPictureDescriptorFactory>(),
          make_shared<RGBAPictureDescriptorFactory>(),
          make_shared<SoundDescriptorFactory>(),
          make_shared<DataDescriptorFactory>(),
          make_shared<ContainerConstraintsSubDescriptorFactory>(),
      }) {}

MXFFormatMetadataModelFactory::~MXFFormatMetadataModelFactory() = default;

MXFAES3MetadataModelFactory::MXFAES3MetadataModelFactory()
    : MXFMetadataModelFactoryList({
          make_shared<WaveAudioDescriptorFactory>(),
          make_shared<AES3AudioDescriptorFactory>(),
      }) {}

MXFAES3MetadataModelFactory::~MXFAES3MetadataModelFactory() = default;

MXFMPEGMetadataModelFactory::MXFMPEGMetadataModelFactory()
    : MXFMetadataModelFactoryList({
          make_shared<MPEGVideoDescriptorFactory>(),
          make_shared<MPEG4VideoSubDescriptorFactory>(),
          make_shared<MPEGAudioDescriptorFactory>(),
          make_shared<AVCVideoSubDescriptorFactory>(),
      }) {}

MXFMPEGMetadataModelFactory::~MXFMPEGMetadataModelFactory() = default;

MXFVBIANCMetadataModelFactory::MXFVBIANCMetadataModelFactory()
    : MXFMetadataModelFactoryList({
          make_shared<VBIDataDescriptorFactory>(),
          make_shared<ANCDataDescriptorFactory>(),
      }) {}

MXFVBIANCMetadataModelFactory::~MXFVBIANCMetadataModelFactory() = default;

} // namespace vexa_toolkit
