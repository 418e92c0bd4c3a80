#include "support/Failures.h"
#include "support/KLVBytes.h"

#include <vexa/metadata/sets/AllSets.h>

#include <gtest/gtest.h>

using Object = boost::shared_ptr<MetadataRoot>;

namespace {

const KLVKey keyA = smpteKey({1, 1, 1, 1, 0x0A});
const KLVKey keyB = smpteKey({1, 1, 1, 1, 0x0B});

/// Four kinds of objects, each of which can own one of the next: in a vector, as an optional
/// reference, as a dark property, as a required reference.
Object link(std::size_t kind) {
    switch (kind % 4) {
    case 0:
        return Sequence::create();
    case 1:
        return CommentMarker::create();
    case 2:
        return SourceClip::create();
    default:
        return StaticTrack::create();
    }
}

void hang(const Object& owner, const Object& child) {
    if (const auto sequence = boost::dynamic_pointer_cast<Sequence>(owner)) {
        sequence->addComponent(boost::dynamic_pointer_cast<Component>(child));
    } else if (const auto marker = boost::dynamic_pointer_cast<CommentMarker>(owner)) {
        marker->setAnnotation(boost::dynamic_pointer_cast<SourceReference>(child));
    } else if (const auto track = boost::dynamic_pointer_cast<Track>(owner)) {
        track->setSegment(boost::dynamic_pointer_cast<Segment>(child));
    } else {
        owner->setReferenceDarkProperty(keyA, child);
    }
}

} // namespace

TEST(MetadataRoot, OwnsAsATree) {
    const Object a = Filler::create();
    const Object b = Filler::create();
    const Object c = Filler::create();
    const Object d = Filler::create();
    a->takeOwnership(b);
    b->takeOwnership(c);
    const auto swap = [](const Object& owner, const Object& oldObject, const Object& newObject) {
        return failureOf([&] { owner->swapOwnership(oldObject, newObject); });
    };
    const char* const owned = "object is not owned";
    const char* const circle = "object does not own this";
    EXPECT_EQ(owned, swap(d, nullptr, b));
    EXPECT_EQ(owned, swap(a, b, b));
    EXPECT_EQ(owned, swap(a, nullptr, b));
    EXPECT_EQ("current owner is this", swap(b, b, d));
    EXPECT_EQ("current owner is this", swap(a, d, nullptr));
    EXPECT_EQ(circle, swap(a, nullptr, a));
    EXPECT_EQ(circle, swap(b, c, a));
    EXPECT_EQ(circle, swap(c, nullptr, a));
    EXPECT_TRUE(b->hasOwner() && c->hasOwner() && !a->hasOwner() && !d->hasOwner());
    EXPECT_EQ("", swap(a, b, d));
    EXPECT_EQ("", swap(d, nullptr, b)); // beside its own child
    EXPECT_EQ("", swap(d, b, nullptr));
    EXPECT_EQ("", swap(c, nullptr, nullptr));
    b->releaseOwnership(c);
    EXPECT_EQ("", swap(c, nullptr, b)); // the other way round
    EXPECT_TRUE(d->hasOwner() && b->hasOwner() && !c->hasOwner());
}

TEST(MetadataRoot, LetsGoOfAChildWhenItDies) {
    Object owner = Filler::create();
    const Object child = Filler::create();
    owner->takeOwnership(child);
    owner.reset();
    EXPECT_FALSE(child->hasOwner());
    for (const Object& other : {Object(Filler::create()), Object(Filler::create())}) {
        EXPECT_EQ("current owner is this", failureOf([&] { other->releaseOwnership(child); }));
        other->takeOwnership(child);
        other->releaseOwnership(child);
    }
}

TEST(MetadataRoot, LooksThroughAThousandOwners) {
    std::vector<Object> chain{Filler::create()};
    while (chain.size() < 1002) {
        chain.push_back(Filler::create());
        chain[chain.size() - 2]->takeOwnership(chain.back());
    }
    const Object parent = Filler::create();
    parent->takeOwnership(Filler::create());
    const Object single = Filler::create();
    EXPECT_EQ("ownership is not too deep", failureOf([&] { chain[1001]->takeOwnership(parent); }));
    EXPECT_EQ("object does not own this", failureOf([&] { chain[1000]->takeOwnership(chain[0]); }));
    chain[1000]->takeOwnership(parent);
    chain[1001]->takeOwnership(single);
    EXPECT_TRUE(parent->hasOwner() && single->hasOwner());
}

TEST(MetadataRoot, MayBeDeeperThanTheStack) {
    constexpr std::size_t depth = 100000;
    for (const bool fromTop : {true, false}) {
        Object top = link(fromTop ? 0 : depth);
        Object end = top;
        for (std::size_t i = 1; i <= depth; ++i) {
            const Object next = link(fromTop ? i : depth - i);
            hang(fromTop ? end : next, fromTop ? next : end);
            end = next;
        }
        const boost::weak_ptr<MetadataRoot> bottom = fromTop ? end : top;
        top = fromTop ? top : end;
        end.reset();
        EXPECT_FALSE(bottom.expired());
        top.reset();
        EXPECT_TRUE(bottom.expired());
    }
}

TEST(MetadataRoot, HoldsValues) {
    const auto preface = Preface::create();
    const auto audio = AES3AudioDescriptor::create();
    EXPECT_EQ(0x0102, preface->getVersion());
    EXPECT_EQ(255, PictureDescriptor::create()->getFrameLayout());
    EXPECT_EQ(MXFTimestamp(), preface->getLastModifiedDate());
    EXPECT_EQ(MXFUID(), preface->getInstanceUID());
    preface->setVersion(0);
    EXPECT_EQ(0, preface->getVersion());

    EXPECT_FALSE(audio->hasEmphasis());
    EXPECT_EQ("AES3AudioDescriptor.emphasis is present", failureOf([&] { audio->getEmphasis(); }));
    audio->setEmphasis(0);
    EXPECT_TRUE(audio->hasEmphasis());
    EXPECT_EQ(0, audio->getEmphasis());
    audio->removeEmphasis();
    EXPECT_FALSE(audio->hasEmphasis());

    const char* const absent = "Preface.primaryPackage is present";
    EXPECT_EQ(absent, failureOf([&] { preface->getPrimaryPackage(); }));
    preface->setPrimaryPackage(MaterialPackage::create()); // which lives on here alone
    EXPECT_TRUE(preface->hasPrimaryPackage());
    EXPECT_FALSE(preface->getPrimaryPackage()->hasOwner());
    preface->removePrimaryPackage();
    EXPECT_FALSE(preface->hasPrimaryPackage());

    EXPECT_EQ("streampos is present", failureOf([&] { preface->getStreampos(); }));
    preface->setStreampos(0);
    EXPECT_TRUE(preface->hasStreampos());
    EXPECT_EQ(0, preface->getStreampos());
    preface->removeStreampos();
    EXPECT_FALSE(preface->hasStreampos());
}

TEST(MetadataRoot, HoldsReferences) {
    const auto track = StaticTrack::create();
    const auto first = Sequence::create();
    const auto second = Sequence::create();
    EXPECT_EQ(nullptr, track->getSegment());
    track->setSegment(first);
    const auto otherTrack = StaticTrack::create();
    otherTrack->setSegment(second);
    for (const auto& refused : {first, second}) {
        EXPECT_EQ("object is not owned", failureOf([&] { track->setSegment(refused); }));
        EXPECT_TRUE(track->getSegment() == first && first->hasOwner() && second->hasOwner());
    }
    otherTrack->setSegment(nullptr);
    track->setSegment(second);
    EXPECT_TRUE(track->getSegment() == second && !first->hasOwner() && second->hasOwner());

    const auto marker = CommentMarker::create();
    const auto clip = SourceClip::create();
    EXPECT_EQ("CommentMarker.annotation is present", failureOf([&] { marker->getAnnotation(); }));
    marker->removeAnnotation();
    marker->setAnnotation(clip);
    EXPECT_EQ("object is not owned", failureOf([&] { marker->setAnnotation(clip); }));
    EXPECT_TRUE(marker->hasAnnotation() && clip->hasOwner());
    marker->removeAnnotation();
    EXPECT_TRUE(!marker->hasAnnotation() && !clip->hasOwner());

    const boost::shared_ptr<Component> a = Filler::create(), b = Filler::create(),
                                       c = Filler::create();
    first->addComponent(b);
    first->insertComponentAt(0, a);
    first->insertComponentAt(2, c);
    const boost::shared_ptr<const Sequence> constant = first;
    for (const auto& wrong : std::vector<std::function<void()>>{
             [&] { first->getComponentAt(3); }, [&] { constant->getComponentAt(3); },
             [&] { first->removeComponentAt(3); },
             [&] { first->insertComponentAt(4, Filler::create()); }}) {
        EXPECT_EQ("valid index", failureOf(wrong));
    }
    EXPECT_EQ("object is not owned", failureOf([&] { second->addComponent(b); }));
    EXPECT_EQ("object is not owned", failureOf([&] { first->insertComponentAt(0, b); }));
    EXPECT_EQ(0U, second->getComponentCount());
    EXPECT_EQ(b, constant->getComponentAt(1));
    first->removeComponentAt(1);
    EXPECT_TRUE(!b->hasOwner() && first->getComponentCount() == 2);
    EXPECT_TRUE(first->getComponentAt(0) == a && first->getComponentAt(1) == c);
}

TEST(MetadataRoot, HoldsDarkProperties) {
    using Bytes = std::vector<std::uint8_t>;
    const Object object = Filler::create();
    const Object child = Preface::create();
    const Object other = Filler::create();
    const auto typed = [&](const KLVKey& key) {
        return failureOf([&] { object->getReferenceDarkProperty<Filler>(key); });
    };
    for (const auto& absent : std::vector<std::function<void()>>{
             [&] { object->getDarkProperty(keyA); },
             [&] { object->getReferenceDarkProperty(keyA); },
             [&] { object->isReferenceDarkProperty(keyA); },
             [&] { object->getReferenceDarkProperty<Filler>(keyA); }}) {
        EXPECT_EQ("property is present", failureOf(absent));
    }
    object->setDarkProperty(keyA, {1, 2});
    object->setReferenceDarkProperty(keyB, child);
    EXPECT_EQ((Bytes{1, 2}), object->getDarkProperty(keyA));
    EXPECT_EQ("property is a non-reference value",
              failureOf([&] { object->getDarkProperty(keyB); }));
    EXPECT_EQ(nullptr, object->getReferenceDarkProperty(keyA));
    EXPECT_EQ(child, object->getReferenceDarkProperty(keyB));
    EXPECT_EQ(child, object->getReferenceDarkProperty<Preface>(keyB));
    EXPECT_EQ("property is a reference value", typed(keyA));
    EXPECT_EQ("property is a Filler reference value", typed(keyB));
    EXPECT_TRUE(!object->isReferenceDarkProperty(keyA) && object->isReferenceDarkProperty(keyB));
    EXPECT_EQ("object is not owned",
              failureOf([&] { object->setReferenceDarkProperty(keyB, child); }));
    EXPECT_EQ(child, object->getReferenceDarkProperty(keyB));

    object->setReferenceDarkProperty(keyB, other);
    EXPECT_TRUE(!child->hasOwner() && other->hasOwner());
    object->setDarkProperty(keyB, {3});
    EXPECT_TRUE(!other->hasOwner() && object->getDarkProperty(keyB) == Bytes{3});
    object->setReferenceDarkProperty(keyA, other);
    object->swapOwnership(keyA, child); // the property itself stays
    EXPECT_TRUE(child->hasOwner() && object->getReferenceDarkProperty(keyA) == other);
    object->swapOwnership(child, other);
    object->removeDarkProperty(keyA);
    EXPECT_TRUE(!other->hasOwner() && !object->hasDarkProperty(keyA));
    EXPECT_TRUE(object->hasDarkProperty(keyB));
}
