#include "extract/EssenceFormats.h"

#include "support/elementKey.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Descriptors = std::vector<boost::shared_ptr<const FileDescriptor>>;

/// The package of the essence stream, by its UMID.
std::optional<UMID> packageOf(const ContentStorage& storage, std::uint32_t bodySID) {
    for (const auto& data : storage.getEssenceContainerData()) {
        if (data->getBodySID() == bodySID) {
            return data->getLinkedPackageUID();
        }
    }
    return std::nullopt;
}

Descriptors descriptorsOf(const SourcePackage& package) {
    const auto descriptor =
        boost::dynamic_pointer_cast<const FileDescriptor>(package.getDescriptor());
    const auto multiple = boost::dynamic_pointer_cast<const MultipleDescriptor>(descriptor);
    if (multiple == nullptr) {
        return descriptor == nullptr ? Descriptors() : Descriptors{descriptor};
    }
    const auto descriptors = multiple->getSubDescriptors();
    return {descriptors.begin(), descriptors.end()};
}

bool describesTrack(const FileDescriptor& descriptor, const SourcePackage& package,
                    std::uint32_t trackNumber) {
    const std::uint32_t* const trackID = descriptor.findLinkedTrackID();
    const auto tracks = package.getTracks();
    return trackID != nullptr && std::any_of(tracks.begin(), tracks.end(), [&](const auto& track) {
               return track->getTrackID() == *trackID && track->hasTrackNumber() &&
                      track->getTrackNumber() == trackNumber;
           });
}

bool describesKind(const FileDescriptor& descriptor, std::string_view kind) {
    return kind == "sound"  ? dynamic_cast<const SoundDescriptor*>(&descriptor) != nullptr
           : kind == "data" ? dynamic_cast<const DataDescriptor*>(&descriptor) != nullptr
                            : dynamic_cast<const PictureDescriptor*>(&descriptor) != nullptr;
}

/// The descriptor that is linked to the track; without one, the only one of its kind.
boost::shared_ptr<const FileDescriptor> describe(const SourcePackage& package, const KLVKey& key) {
    boost::shared_ptr<const FileDescriptor> ofKind;
    int count = 0;
    for (const auto& descriptor : descriptorsOf(package)) {
        if (describesTrack(*descriptor, package, MXFGCElementKey::trackNumber(key))) {
            return descriptor;
        }
        if (describesKind(*descriptor, kindOf(key))) {
            ofKind = descriptor;
            ++count;
        }
    }
    return count == 1 ? ofKind : nullptr;
}

bool beginsWith(const std::string& text, std::string_view beginning) {
    return text.compare(0, beginning.size(), beginning) == 0;
}

/// By the name of a label, of the coding or of the container; null for one that says nothing.
const char* extensionBy(const KLVKey& label) {
    constexpr struct {
        const char* name;
        const char* extension;
    } streams[] = {
        {"D-10", ".m2v"}, {"MPEG-2", ".m2v"}, {"MPEG-4", ".m4v"}, {"AVC", ".h264"}, {"DV", ".dv"}};
    const std::string name = metadata::labelName(label);
    for (const auto& stream : streams) {
        if (beginsWith(name, stream.name)) {
            return stream.extension;
        }
    }
    return nullptr;
}

const char* extensionOf(const PictureDescriptor& picture) {
    const KLVKey& container = picture.getEssenceContainer();
    // It has the length of each NAL unit where the byte stream has a start code.
    const bool isNALUnitStream = beginsWith(metadata::labelName(container), "AVC NAL unit");
    const char* extension = isNALUnitStream ? ".bin" : nullptr;
    if (const KLVKey* const coding = picture.findPictureEssenceCoding();
        extension == nullptr && coding != nullptr) {
        extension = extensionBy(*coding);
    }
    if (extension == nullptr) {
        extension = extensionBy(container);
    }
    return extension == nullptr ? ".bin" : extension;
}

/// Labels of uncompressed sound share their first half; AIFF's, which is big-endian, is one of
/// them (SMPTE RP 224).
bool isPCM(const SoundDescriptor& sound) {
    if (const KLVKey* const label = sound.findSoundEssenceCompression()) {
        constexpr std::uint8_t aiff = 0x7E;
        return (*label)[8] == 0x04 && (*label)[9] == 0x02 && (*label)[10] == 0x02 &&
               (*label)[11] == 0x01 && (*label)[12] != aiff;
    }
    const std::string container = metadata::labelName(sound.getEssenceContainer());
    return dynamic_cast<const WaveAudioDescriptor*>(&sound) != nullptr ||
           beginsWith(container, "AES3") || beginsWith(container, "BWF") ||
           beginsWith(container, "D-10");
}

std::uint32_t rateOf(const SoundDescriptor& sound) {
    constexpr std::uint32_t usualRate = 48000;
    const MXFRational rate = sound.getAudioSamplingRate();
    if (rate.numerator <= 0 || rate.denominator <= 0 || rate.numerator < rate.denominator) {
        return usualRate;
    }
    return static_cast<std::uint32_t>(rate.numerator) /
           static_cast<std::uint32_t>(rate.denominator);
}

/// Nothing for sound that a Wave file can't hold.
std::optional<WaveFormat> waveFormatOf(const SoundDescriptor& sound, bool isAES3) {
    const std::uint32_t bits = sound.getQuantizationBits();
    const std::uint32_t channels = sound.getChannelCount();
    std::uint32_t bytes = (bits + 7) / 8;
    const auto* const wave = dynamic_cast<const WaveAudioDescriptor*>(&sound);
    if (wave != nullptr && channels > 0 && wave->getBlockAlign() % channels == 0) {
        bytes = std::max<std::uint32_t>(bytes, wave->getBlockAlign() / channels);
    }
    const std::uint32_t mostChannels = isAES3 ? 8 : 0xFFFF / 4;
    const std::uint32_t mostBytes = isAES3 ? 3 : 4;
    if (bits == 0 || channels == 0 || channels > mostChannels || bytes > mostBytes) {
        return std::nullopt;
    }
    return WaveFormat{rateOf(sound), static_cast<std::uint16_t>(channels),
                      static_cast<std::uint16_t>(bits), static_cast<std::uint16_t>(bytes)};
}

/// As SMPTE 386M has them in D-10.
bool isAES3Element(const KLVKey& key) {
    constexpr std::uint8_t contentPackageSound = 0x06;
    constexpr std::uint8_t aes3 = 0x10;
    return key[12] == contentPackageSound && MXFGCElementKey::elementType(key) == aes3;
}

} // namespace

EssenceFormat EssenceFormats::find(std::uint32_t bodySID, const KLVKey& key) const {
    EssenceFormat format;
    const auto descriptor = findDescriptor(bodySID, key);
    if (const auto* const picture = dynamic_cast<const PictureDescriptor*>(descriptor.get())) {
        format.extension = extensionOf(*picture);
    }
    const auto* const sound = dynamic_cast<const SoundDescriptor*>(descriptor.get());
    if (sound != nullptr && isPCM(*sound)) {
        format.isAES3 = isAES3Element(key);
        format.wave = waveFormatOf(*sound, format.isAES3);
        format.extension = format.wave ? ".wav" : ".bin";
    }
    return format;
}

boost::shared_ptr<const FileDescriptor> EssenceFormats::findDescriptor(std::uint32_t bodySID,
                                                                       const KLVKey& key) const {
    const auto storage = preface_ == nullptr ? nullptr : preface_->getContentStorage();
    if (storage == nullptr) {
        return nullptr;
    }
    const std::optional<UMID> uid = packageOf(*storage, bodySID);
    for (const auto& any : storage->getPackages()) {
        const auto package = boost::dynamic_pointer_cast<const SourcePackage>(any);
        if (package != nullptr && (!uid || package->getPackageUID() == *uid)) {
            if (const auto descriptor = describe(*package, key)) {
                return descriptor;
            }
        }
    }
    return nullptr;
}
