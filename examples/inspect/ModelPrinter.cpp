#include "ModelPrinter.h"

#include "../support/counted.h"
#include "values.h"

#include <algorithm>
#include <iostream>
#include <utility>
#include <variant>

namespace {

using Object = boost::shared_ptr<const MetadataRoot>;

/// What there is to print of an object, and what it owns.
class Entry {
public:
    template <class T> void add(const char* name, const T& value, const char* unit = "") {
        addText(name, print(value) + unit);
    }
    /// An optional property; null if it isn't there.
    template <class T> void add(const char* name, const T* value, const char* unit = "") {
        if (value != nullptr) {
            add(name, *value, unit);
        }
    }
    /// With a unit that has a plural.
    template <class Number> void addCount(const char* name, Number number, const char* unit) {
        addText(name, counted(number, unit));
    }
    template <class Number>
    void addCount(const char* name, const Number* number, const char* unit) {
        if (number != nullptr) {
            addCount(name, *number, unit);
        }
    }
    void addText(const char* name, const std::string& text) {
        text_ += std::string(" ") + name + ' ' + text;
    }
    void add(const char* name, const std::vector<KLVKey>& labels) {
        for (const KLVKey& label : labels) {
            add(name, label);
        }
    }
    void addChild(const Object& child) {
        if (child != nullptr) {
            children_.push_back(child);
        }
    }

    void setClassName(const char* className) { className_ = className; }
    std::string line() const { return className_ + text_; }
    const std::vector<Object>& children() const { return children_; }

private:
    template <class T> static std::string print(const T& value) {
        if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) {
            return std::to_string(value);
        } else {
            return values::text(value);
        }
    }

    std::string className_;
    std::string text_;
    std::vector<Object> children_;
};

// What to print of each class, its bases excepted.

void describe(const Preface& set, Entry& entry) {
    entry.addText("version", std::to_string(set.getVersion() >> 8) + '.' +
                                 std::to_string(set.getVersion() & 0xFF));
    entry.add("modified", set.getLastModifiedDate());
    entry.add("pattern", set.getOperationalPattern());
    entry.add("container", set.getEssenceContainers());
    entry.add("scheme", set.getDMSchemes());
    for (std::size_t i = 0; i < set.getIdentificationCount(); ++i) {
        entry.addChild(set.getIdentificationAt(i));
    }
    entry.addChild(set.getContentStorage());
}

void describe(const Identification& set, Entry& entry) {
    entry.add("company", set.getCompanyName());
    entry.add("product", set.getProductName());
    entry.add("version", set.getVersionString());
    entry.add("product-version", set.hasProductVersion() ? &set.getProductVersion() : nullptr);
    entry.add("toolkit-version", set.hasToolkitVersion() ? &set.getToolkitVersion() : nullptr);
    entry.add("platform", set.hasPlatform() ? &set.getPlatform() : nullptr);
    entry.add("modified", set.getModificationDate());
}

void describe(const ContentStorage& set, Entry& entry) {
    for (std::size_t i = 0; i < set.getPackageCount(); ++i) {
        entry.addChild(set.getPackageAt(i));
    }
    for (std::size_t i = 0; i < set.getEssenceContainerDataCount(); ++i) {
        entry.addChild(set.getEssenceContainerDataAt(i));
    }
}

void describe(const EssenceContainerData& set, Entry& entry) {
    entry.add("indexSID", set.hasIndexSID() ? &set.getIndexSID() : nullptr);
    entry.add("bodySID", set.getBodySID());
    entry.add("package", set.getLinkedPackageUID());
}

void describe(const GenericPackage& set, Entry& entry) {
    entry.add("name", set.hasName() ? &set.getName() : nullptr);
    entry.add("created", set.getPackageCreationDate());
    entry.add("modified", set.getPackageModifiedDate());
    entry.add("UMID", set.getPackageUID());
    for (std::size_t i = 0; i < set.getTrackCount(); ++i) {
        entry.addChild(set.getTrackAt(i));
    }
}

void describe(const SourcePackage& set, Entry& entry) {
    entry.addChild(set.getDescriptor());
}

void describe(const Track& set, Entry& entry) {
    entry.add("ID", set.getTrackID());
    if (set.hasTrackNumber()) {
        entry.addText("number", values::hexadecimal(set.getTrackNumber()));
    }
    entry.add("name", set.hasTrackName() ? &set.getTrackName() : nullptr);
    entry.addChild(set.getSegment());
}

void describe(const TimelineTrack& set, Entry& entry) {
    entry.add("rate", set.getEditRate(), " Hz");
    entry.addCount("origin", set.getOrigin(), "edit unit");
}

void describe(const EventTrack& set, Entry& entry) {
    entry.add("rate", set.getEditRate(), " Hz");
    entry.addCount("origin", set.hasOrigin() ? &set.getOrigin() : nullptr, "edit unit");
}

void describe(const Component& set, Entry& entry) {
    entry.add("of", set.getDataDefinition());
    entry.addCount("duration", set.hasDuration() ? &set.getDuration() : nullptr, "edit unit");
}

void describe(const Sequence& set, Entry& entry) {
    for (std::size_t i = 0; i < set.getComponentCount(); ++i) {
        entry.addChild(set.getComponentAt(i));
    }
}

void describe(const SourceReference& set, Entry& entry) {
    entry.add("source-track", set.getSourceTrackID());
    entry.add("source-package", set.getSourcePackageID());
}

void describe(const SourceClip& set, Entry& entry) {
    entry.addCount("start", set.getStartPosition(), "edit unit");
}

void describe(const TimecodeComponent& set, Entry& entry) {
    entry.addText("start", values::timecode(set.getStartTimecode(), set.getRoundedTimecodeBase(),
                                            set.getDropFrame()));
    entry.add("base", set.getRoundedTimecodeBase(), " frames/s");
    entry.add("drop-frame", set.getDropFrame());
}

void describe(const DMSourceClip& set, Entry& entry) {
    entry.add("target-tracks", set.hasTargetTrackIDs() ? &set.getTargetTrackIDs() : nullptr);
}

void describe(const Event& set, Entry& entry) {
    entry.addCount("position", set.hasPosition() ? &set.getPosition() : nullptr, "edit unit");
    entry.add("comment", set.hasComment() ? &set.getComment() : nullptr);
}

void describe(const CommentMarker& set, Entry& entry) {
    if (set.hasAnnotation()) {
        entry.addChild(set.getAnnotation());
    }
}

void describe(const DMSegment& set, Entry& entry) {
    entry.add("target-tracks", set.hasTargetTrackIDs() ? &set.getTargetTrackIDs() : nullptr);
    if (set.hasDMFramework()) {
        entry.addChild(set.getDMFramework());
    }
}

void describe(const NetworkLocator& set, Entry& entry) {
    entry.add("URL", set.getURLString());
}

void describe(const TextLocator& set, Entry& entry) {
    entry.add("name", set.getLocatorName());
}

void describe(const GenericDescriptor& set, Entry& entry) {
    for (std::size_t i = 0; i < set.getLocatorCount(); ++i) {
        entry.addChild(set.getLocatorAt(i));
    }
    for (std::size_t i = 0; i < set.getGenericSubDescriptorCount(); ++i) {
        entry.addChild(set.getGenericSubDescriptorAt(i));
    }
}

void describe(const FileDescriptor& set, Entry& entry) {
    entry.add("linked-track", set.hasLinkedTrackID() ? &set.getLinkedTrackID() : nullptr);
    entry.add("rate", set.getSampleRate(), " Hz");
    entry.addCount("duration", set.hasContainerDuration() ? &set.getContainerDuration() : nullptr,
                   "edit unit");
    entry.add("container", set.getEssenceContainer());
}

void describe(const MultipleDescriptor& set, Entry& entry) {
    for (std::size_t i = 0; i < set.getSubDescriptorCount(); ++i) {
        entry.addChild(set.getSubDescriptorAt(i));
    }
}

void describe(const PictureDescriptor& set, Entry& entry) {
    const auto size = [](std::uint32_t width, std::uint32_t height) {
        return std::to_string(width) + "x" + std::to_string(height) + " pixels";
    };
    entry.add("layout", set.getFrameLayout());
    entry.addText("stored", size(set.getStoredWidth(), set.getStoredHeight()));
    if (set.hasDisplayWidth() && set.hasDisplayHeight()) {
        entry.addText("display", size(set.getDisplayWidth(), set.getDisplayHeight()));
    }
    entry.add("aspect", set.getAspectRatio());
    for (const std::int32_t line : set.getVideoLineMap()) {
        entry.add("line", line);
    }
    entry.add("coding", set.hasPictureEssenceCoding() ? &set.getPictureEssenceCoding() : nullptr);
}

void describe(const CDCIPictureDescriptor& set, Entry& entry) {
    entry.addCount("depth", set.getComponentDepth(), "bit");
    entry.add("horizontal-subsampling", set.getHorizontalSubsampling());
    entry.add("vertical-subsampling",
              set.hasVerticalSubsampling() ? &set.getVerticalSubsampling() : nullptr);
}

void describe(const RGBAPictureDescriptor& set, Entry& entry) {
    for (const RGBALayout::Component& component : set.getPixelLayout().components) {
        if (component.code != 0) {
            entry.addText("component", values::component(component));
        }
    }
}

void describe(const SoundDescriptor& set, Entry& entry) {
    entry.add("sampling", set.getAudioSamplingRate(), " Hz");
    entry.add("locked", set.getLocked());
    entry.add("channels", set.getChannelCount());
    entry.addCount("depth", set.getQuantizationBits(), "bit");
    entry.add("compression",
              set.hasSoundEssenceCompression() ? &set.getSoundEssenceCompression() : nullptr);
}

void describe(const WaveAudioDescriptor& set, Entry& entry) {
    entry.addCount("block", set.getBlockAlign(), "byte");
    entry.add("speed", set.getAverageBytesPerSecond(), " bytes/s");
}

void describe(const DataDescriptor& set, Entry& entry) {
    entry.add("coding", set.hasDataEssenceCoding() ? &set.getDataEssenceCoding() : nullptr);
}

void describe(const MPEGVideoDescriptor& set, Entry& entry) {
    entry.add("profile-and-level", set.hasProfileAndLevel() ? &set.getProfileAndLevel() : nullptr);
    entry.add("bit-rate", set.hasBitRate() ? &set.getBitRate() : nullptr, " bits/s");
    entry.addCount("max-GOP", set.hasMaxGOP() ? &set.getMaxGOP() : nullptr, "picture");
}

void describe(const AVCVideoSubDescriptor& set, Entry& entry) {
    entry.add("profile", set.hasProfile() ? &set.getProfile() : nullptr);
    entry.add("level", set.hasLevel() ? &set.getLevel() : nullptr);
    entry.addCount("decoding-delay", set.getDecodingDelay(), "picture");
    entry.add("bit-rate", set.hasMaximumBitRate() ? &set.getMaximumBitRate() : nullptr, " bits/s");
}

void describe(const MPEG4VideoSubDescriptor& set, Entry& entry) {
    entry.add("profile-and-level", set.hasProfileAndLevel() ? &set.getProfileAndLevel() : nullptr);
    entry.add("bit-rate", set.hasBitRate() ? &set.getBitRate() : nullptr, " bits/s");
}

void describe(const MPEGAudioDescriptor& set, Entry& entry) {
    entry.add("bit-rate", set.hasBitRate() ? &set.getBitRate() : nullptr, " bits/s");
}

/// Classes whose bases say what is worth a line.
template <class Set> void describe(const Set&, Entry&) {}

template <class Set> void describeAs(const MetadataRoot& object, Entry& entry) {
    if (const auto* const set = dynamic_cast<const Set*>(&object)) {
        entry.setClassName(Set::className);
        describe(*set, entry);
    }
}

/// Bases first: the last class that an object is of names it.
template <class... Sets> Entry describeAsAny(const MetadataRoot& object) {
    Entry entry;
    (describeAs<Sets>(object, entry), ...);
    return entry;
}

Entry describeObject(const MetadataRoot& object) {
    return describeAsAny<
        MetadataRoot, Preface, Identification, ContentStorage, EssenceContainerData, GenericPackage,
        MaterialPackage, SourcePackage, Track, TimelineTrack, EventTrack, StaticTrack, Component,
        Sequence, SourceReference, SourceClip, DMSourceClip, TimecodeComponent, Filler, Event,
        CommentMarker, DMSegment, NetworkLocator, TextLocator, DescriptiveMetadataFramework,
        DescriptiveMetadataObject, GenericDescriptor, FileDescriptor, MultipleDescriptor,
        PictureDescriptor, CDCIPictureDescriptor, RGBAPictureDescriptor, MPEGVideoDescriptor,
        SoundDescriptor, WaveAudioDescriptor, AES3AudioDescriptor, MPEGAudioDescriptor,
        DataDescriptor, VBIDataDescriptor, ANCDataDescriptor, ContainerConstraintsSubDescriptor,
        MPEG4VideoSubDescriptor, AVCVideoSubDescriptor>(object);
}

/// Far down it is a number.
std::string indentation(std::size_t depth) {
    constexpr std::size_t deepest = 20;
    const std::string spaces(2 * std::min(depth, deepest), ' ');
    return depth > deepest ? spaces + std::to_string(depth) + ' ' : spaces;
}

/// What reports cite: the instance UID, and the position of the byte behind the set.
std::string whereabouts(const MetadataRoot& object) {
    std::string text = " UID " + values::text(object.getInstanceUID());
    if (object.hasStreampos()) {
        text += " at " + std::to_string(std::streamoff(object.getStreampos()));
    }
    return text;
}

void printDarkProperties(const MetadataRoot& object, std::size_t depth) {
    for (const auto& [key, property] : object.getDarkProperties()) {
        std::cout << indentation(depth) << "dark " << key << ' ';
        if (const auto* const bytes = std::get_if<std::vector<std::uint8_t>>(&property)) {
            std::cout << counted(bytes->size(), "byte") << '\n';
        } else {
            std::cout << "reference\n";
        }
    }
}

/// A model may be deeper than the stack.
void printTree(const Object& root, const char* heading) {
    std::vector<std::pair<Object, std::size_t>> work{{root, 1}};
    while (!work.empty()) {
        const auto [object, depth] = work.back();
        work.pop_back();
        const Entry entry = describeObject(*object);
        std::cout << indentation(depth) << (depth == 1 ? heading : "") << entry.line()
                  << whereabouts(*object) << '\n';
        printDarkProperties(*object, depth + 1);
        for (auto child = entry.children().rbegin(); child != entry.children().rend(); ++child) {
            work.emplace_back(*child, depth + 1);
        }
    }
}

} // namespace

void ModelPrinter::startMetadata() {
    std::cout << "metadata\n";
}

void ModelPrinter::endMetadata() {}

void ModelPrinter::model(const std::vector<boost::shared_ptr<MetadataRoot>>& roots) {
    for (const auto& root : roots) {
        printTree(root, root == roots.front() ? "" : "unreferenced ");
    }
}

void ModelPrinter::xmlMetadata(const char* data, std::size_t size) {
    const std::string document = data == nullptr ? std::string() : std::string(data, size);
    std::cout << "  XML " << counted(size, "byte") << ": "
              << values::quoted(document.substr(0, document.find_first_of("\r\n"))) << '\n';
}
