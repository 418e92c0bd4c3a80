#include "support/Testing.h"

namespace {

using Object = boost::shared_ptr<MetadataRoot>;

} // namespace

TEST(MetadataRoot, OwnsAsATree) {
    Object a = Filler::create();
    const Object b = Filler::create(), c = Filler::create(), d = Filler::create();
    a->takeOwnership(b);
    b->takeOwnership(c);
    expectFailures({
        {"object is not owned", [&] { d->takeOwnership(b); }},
        {"object is not owned", [&] { a->swapOwnership(b, b); }},
        {"current owner is this", [&] { b->swapOwnership(b, d); }},
        {"current owner is this", [&] { a->releaseOwnership(d); }},
        {"object does not own this", [&] { a->takeOwnership(a); }},
        {"object does not own this", [&] { b->swapOwnership(c, a); }},
        {"object does not own this", [&] { c->takeOwnership(a); }},
    });
    EXPECT_TRUE(b->hasOwner() && c->hasOwner() && !a->hasOwner() && !d->hasOwner());
    a->swapOwnership(b, d);
    d->takeOwnership(b); // has a child of its own
    d->releaseOwnership(b);
    b->releaseOwnership(c);
    c->takeOwnership(b); // the other way round
    EXPECT_TRUE(d->hasOwner() && b->hasOwner() && !c->hasOwner());
    a.reset();
    EXPECT_FALSE(d->hasOwner());
    expectFailures({{"current owner is this", [&] { c->releaseOwnership(d); }}});
    c->takeOwnership(d);
}

TEST(MetadataRoot, LooksThroughAThousandOwners) {
    std::vector<Object> chain{Filler::create()};
    while (chain.size() < 1002) {
        chain.push_back(Filler::create());
        chain[chain.size() - 2]->takeOwnership(chain.back());
    }
    const Object parent = Filler::create();
    const Object child = Filler::create();
    parent->takeOwnership(child);
    expectFailures({{"ownership is not too deep", [&] { chain[1001]->takeOwnership(parent); }},
                    {"object does not own this", [&] { chain[1000]->takeOwnership(chain[0]); }}});
    chain[1000]->takeOwnership(parent);
    chain[1001]->takeOwnership(Filler::create());
    chain[1000]->releaseOwnership(parent);
    parent->releaseOwnership(child);
    chain[1001]->takeOwnership(parent); // has no children now
}

TEST(MetadataRoot, MayBeDeeperThanTheStack) {
    for (const int fromTop : {1, 0}) {
        auto top = Sequence::create(), end = top;
        for (int i = 0; i < 100000; ++i) {
            const auto next = Sequence::create();
            const auto owner = fromTop ? end : next;
            const auto child = fromTop ? next : end;
            if (i < 50000) {
                owner->addComponent(child);
            } else {
                owner->setReferenceDarkProperty(keyA, child);
            }
            end = next;
        }
        const boost::weak_ptr<Sequence> bottom = fromTop ? end : top;
        (fromTop ? end : top).reset();
        EXPECT_FALSE(bottom.expired());
        (fromTop ? top : end).reset();
        EXPECT_TRUE(bottom.expired());
    }
}

TEST(MetadataRoot, HoldsProperties) {
    const auto preface = Preface::create();
    const auto audio = AES3AudioDescriptor::create();
    const auto track = StaticTrack::create(), otherTrack = StaticTrack::create();
    const auto first = Sequence::create(), second = Sequence::create();
    const auto marker = CommentMarker::create();
    const auto clip = SourceClip::create();
    EXPECT_EQ(0x0102, preface->getVersion());
    EXPECT_EQ(255, PictureDescriptor::create()->getFrameLayout());
    EXPECT_TRUE(MXFTimestamp() == preface->getLastModifiedDate() && !track->getSegment());
    const auto expectAbsent = [&] {
        EXPECT_FALSE(audio->hasEmphasis() || preface->hasPrimaryPackage() ||
                     marker->hasAnnotation() || preface->hasStreampos());
        EXPECT_FALSE(audio->findEmphasis() || preface->findPrimaryPackage() ||
                     marker->findAnnotation());
        expectFailures(
            {{"AES3AudioDescriptor.emphasis is present", [&] { audio->getEmphasis(); }},
             {"Preface.primaryPackage is present", [&] { preface->getPrimaryPackage(); }},
             {"CommentMarker.annotation is present", [&] { marker->getAnnotation(); }},
             {"streampos is present", [&] { preface->getStreampos(); }}});
    };
    expectAbsent();
    audio->setEmphasis(0);
    preface->setPrimaryPackage(MaterialPackage::create()); // held by this alone, but not owned
    marker->setAnnotation(clip);
    preface->setStreampos(0);
    EXPECT_TRUE(audio->hasEmphasis() && preface->hasPrimaryPackage() && preface->hasStreampos());
    EXPECT_TRUE(!preface->getPrimaryPackage()->hasOwner() && clip->hasOwner());
    EXPECT_TRUE(audio->findEmphasis() == &audio->getEmphasis() &&
                preface->findPrimaryPackage() == preface->getPrimaryPackage() &&
                marker->findAnnotation() == clip);
    audio->removeEmphasis();
    preface->removePrimaryPackage();
    marker->removeAnnotation();
    preface->removeStreampos();
    expectAbsent();
    EXPECT_FALSE(clip->hasOwner());

    track->setSegment(first);
    otherTrack->setSegment(second);
    expectFailures({{"object is not owned", [&] { track->setSegment(first); }},
                    {"object is not owned", [&] { track->setSegment(second); }}});
    EXPECT_TRUE(track->getSegment() == first && first->hasOwner());
    otherTrack->setSegment(nullptr);
    track->setSegment(second);
    EXPECT_TRUE(track->getSegment() == second && !first->hasOwner() && second->hasOwner());

    first->addComponent(clip);
    first->insertComponentAt(0, marker);
    first->insertComponentAt(2, Filler::create());
    const Sequence& constant = *first;
    expectFailures({{"valid index", [&] { first->getComponentAt(3); }},
                    {"valid index", [&] { constant.getComponentAt(3); }},
                    {"valid index", [&] { first->removeComponentAt(3); }},
                    {"valid index", [&] { first->insertComponentAt(4, Filler::create()); }},
                    {"object is not owned", [&] { second->addComponent(clip); }}});
    EXPECT_TRUE(constant.getComponentAt(1) == clip && second->getComponentCount() == 0);
    std::size_t place = 0;
    for (const auto& component : constant.getComponents()) {
        EXPECT_EQ(component, first->getComponents().at(place++));
    }
    EXPECT_TRUE(place == 3 && constant.getComponents().size() == 3);
    first->removeComponentAt(1);
    EXPECT_TRUE(first->getComponentAt(0) == marker && first->getComponentCount() == 2);
    EXPECT_TRUE(!clip->hasOwner() && marker->hasOwner());
}

TEST(MetadataRoot, HoldsDarkProperties) {
    const Object object = Filler::create(), child = Preface::create(), other = Filler::create();
    expectFailures({
        {"property is present", [&] { object->getDarkProperty(keyA); }},
        {"property is present", [&] { object->getReferenceDarkProperty(keyA); }},
        {"property is present", [&] { object->isReferenceDarkProperty(keyA); }},
        {"property is present", [&] { object->getReferenceDarkProperty<Filler>(keyA); }},
    });
    object->setDarkProperty(keyA, {1, 2});
    object->setReferenceDarkProperty(keyB, child);
    expectFailures({
        {"property is a non-reference value", [&] { object->getDarkProperty(keyB); }},
        {"property is a reference value", [&] { object->getReferenceDarkProperty<Filler>(keyA); }},
        {"property is a Filler reference value",
         [&] { object->getReferenceDarkProperty<Filler>(keyB); }},
        {"object is not owned", [&] { object->setReferenceDarkProperty(keyB, child); }},
    });
    EXPECT_EQ((Bytes{1, 2}), object->getDarkProperty(keyA));
    EXPECT_EQ(nullptr, object->getReferenceDarkProperty(keyA));
    EXPECT_EQ(child, object->getReferenceDarkProperty<Preface>(keyB));
    EXPECT_TRUE(!object->isReferenceDarkProperty(keyA) && object->isReferenceDarkProperty(keyB));
    object->setReferenceDarkProperty(keyB, other);
    EXPECT_TRUE(!child->hasOwner() && other->hasOwner());
    object->setDarkProperty(keyB, {3});
    EXPECT_TRUE(!other->hasOwner() && object->getDarkProperty(keyB) == Bytes{3});
    object->setReferenceDarkProperty(keyA, other);
    object->swapOwnership(keyA, child); // the property itself stays
    EXPECT_TRUE(child->hasOwner() && object->getReferenceDarkProperty(keyA) == other);
    object->swapOwnership(child, other);
    object->removeDarkProperty(keyA);
    EXPECT_TRUE(!other->hasOwner() && !object->hasDarkProperty(keyA) &&
                object->hasDarkProperty(keyB));
}
