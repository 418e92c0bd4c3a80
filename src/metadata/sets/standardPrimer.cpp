#include "metadata/sets/standardPrimer.h"

#include "metadata/model/SetClass.h"
#include "metadata/primed/indexProperties.h"

#include <vexa/metadata/sets/AllSets.h>

#include <algorithm>

inline namespace vexa_toolkit {

namespace metadata {

namespace {

// The table has these two of PictureDescriptor the other way round.
constexpr std::uint16_t codingEquations = 0x321A;
constexpr std::uint16_t colourPrimaries = 0x3219;

MXFPrimer::iterator find(MXFPrimer& rows, std::uint16_t tag) {
    return std::find_if(rows.begin(), rows.end(),
                        [tag](const MXFPrimerEntry& row) { return row.tag == tag; });
}

/// The properties of these classes, in the order of the standard's table.
MXFPrimer makeRows() {
    MXFPrimer rows;
    for (const SetClass* const setClass : {&MetadataRoot::setClass(),
                                           &MetadataObject::setClass(),
                                           &Preface::setClass(),
                                           &Identification::setClass(),
                                           &Component::setClass(),
                                           &Sequence::setClass(),
                                           &SourceReference::setClass(),
                                           &SourceClip::setClass(),
                                           &TimecodeComponent::setClass(),
                                           &Event::setClass(),
                                           &DMSegment::setClass(),
                                           &DMSourceClip::setClass(),
                                           &ContentStorage::setClass(),
                                           &EssenceContainerData::setClass(),
                                           &GenericDescriptor::setClass(),
                                           &FileDescriptor::setClass(),
                                           &PictureDescriptor::setClass(),
                                           &CDCIPictureDescriptor::setClass(),
                                           &RGBAPictureDescriptor::setClass(),
                                           &SoundDescriptor::setClass(),
                                           &DataDescriptor::setClass(),
                                           &MultipleDescriptor::setClass(),
                                           &Track::setClass(),
                                           &TimelineTrack::setClass(),
                                           &EventTrack::setClass(),
                                           &GenericPackage::setClass(),
                                           &SourcePackage::setClass(),
                                           &NetworkLocator::setClass(),
                                           &TextLocator::setClass()}) {
        for (const MetadataProperty& property : setClass->properties()) {
            if (property.tag() != 0) {
                rows.push_back({property.tag(), property.key()});
            }
        }
    }
    std::iter_swap(find(rows, codingEquations), find(rows, colourPrimaries));
    const TagToKey ofSets(rows);
    for (const MXFPrimerEntry& row : indexProperties::primerRows) {
        if (ofSets.find(row.tag) == nullptr) {
            rows.push_back(row);
        }
    }
    rows.push_back(indexProperties::posTableCount);
    return rows;
}

} // namespace

const PrimerTable& standardPrimer() {
    static const PrimerTable table(makeRows());
    return table;
}

} // namespace metadata

} // namespace vexa_toolkit
