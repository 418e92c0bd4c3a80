// A set class that the library doesn't have: what one costs, and what its traits do.

#include "metadata/model/SetClass.h"
#include "metadata/model/codec.h"
#include "metadata/primed/privateKeys.h"

#include <vexa/metadata/MetadataObject.h>

#include <gtest/gtest.h>

namespace {

class Note : public MetadataObject {
    VEXA_CONCRETE_SET(Note);
    VEXA_REQUIRED(std::string, Text, text);
    VEXA_OPTIONAL(std::uint8_t, Kind, kind);
};
VEXA_SET_FACTORY(Note, MetadataObject);

VEXA_DEFINE_CONCRETE_SET(Note);
Note::Note() = default;

const metadata::SetClass& Note::setClass() {
    using metadata::operator""_key;
    static const metadata::SetClass definition(
        [] {
            auto traits = metadata::concreteSet<Note, MetadataObject>(
                "060E2B34.02530101.0D7F0101.01010100"_key);
            traits.allowsBERLengths = true;
            traits.keepsRowOrder = true;
            return traits;
        }(),
        {
            {VEXA_MEMBER(text), 0, "060E2B34.01010102.7F000000.02000000"_key},
            {VEXA_MEMBER(kind), 0x9001, "060E2B34.01010102.7F000000.01000000"_key},
        });
    return definition;
}

TEST(SetClass, NeedsRowsOnly) {
    NoteFactory factory;
    const auto note = Note::create();
    note->setKind(7);
    for (const std::size_t size : {65535U, 65536U}) {
        note->setText(std::string(size, 'x'));
        const MXFPrimedSet set = factory.code(note);
        EXPECT_EQ(set.key[5], size > 65535 ? 0x13 : 0x53);
        ASSERT_TRUE(factory.canParse(set.key));
        const auto again = boost::dynamic_pointer_cast<Note>(factory.parse(set).object);
        EXPECT_TRUE(again->getText() == note->getText() && again->getKind() == 7);
        EXPECT_TRUE(again->getDarkProperties().empty());
        const auto order = metadata::decodeValue<std::vector<KLVKey>>(
            set.properties.at(metadata::propertyOrderHintKey));
        ASSERT_EQ(order.size(), 4U);
        EXPECT_TRUE(order[2][12] == 0x02 && order[3][12] == 0x01);
    }
    KLVKey otherForm = factory.getSetKey();
    otherForm[5] = 0x63;
    EXPECT_FALSE(factory.canParse(otherForm));
}

} // namespace
