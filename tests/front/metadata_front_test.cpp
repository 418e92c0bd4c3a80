// Header metadata with its sidecar documents, through the fronts' parser and coder, and where
// reports lie.

#include "front/VEXAMetadataCoder.h"
#include "front/VEXAMetadataFactory.h"
#include "front/VEXAMetadataParser.h"
#include "front/VEXAOverridableLocator.h"
#include "klv/keyLiteral.h"
#include "support/EventRecorder.h"
#include "support/Testing.h"

namespace {

TEST(VEXAMetadata, CarriesDocumentsBehindTheModel) {
    VEXAMetadataFactory factory;
    std::ostringstream bytes;
    GenericKLVWriter writer(bytes);
    VEXAMetadataCoder coder(writer, factory);
    using klvutil::operator""_key;
    const KLVKey ripPresent = "060E2B34.0101010E.04040503.00000000"_key;
    coder.setPrimerOverride({{0x9ABC, ripPresent}});
    coder.setFactory(factory);
    coder.setKAGSize(64);
    const auto preface = Preface::create();
    preface->setInstanceUID({{1}});
    preface->setVersion(0x0103);
    preface->setContentStorage(ContentStorage::create());
    preface->setRIPPresent(true);
    std::string region;
    for (const bool again : {false, true}) { // the end leaves the coder ready for the next region
        coder.startMetadata();
        coder.model({preface});
        coder.xmlMetadata("<a/>", 4);
        coder.xmlMetadata(nullptr, 0);
        coder.endMetadata();
        EXPECT_EQ(bytes.str(), again ? region + region : region = bytes.str());
    }

    const Bytes written(region.begin(), region.end());
    const auto elements = walkKLV(written);
    ASSERT_EQ(elements.size(), 6U); // primer, fill, Preface, ContentStorage, two documents
    EXPECT_TRUE(elements[2].offset % 64 == 0 && elements[2].offset % 512 != 0);
    EXPECT_NE(region.find("\x9A\xBC"), std::string::npos);

    Recording recording;
    EventRecorder recorder(recording);
    VEXAMetadataParser parser(recorder, factory);
    KeepingErrorHandler errors;
    parser.setErrorHandler(&errors);
    factory.setErrorHandler(boost::shared_ptr<ErrorHandler>(&errors, [](ErrorHandler*) {}));
    TestStream stream(written);
    GenericKLVReader reader(parser);
    reader.parse(stream);
    EXPECT_EQ(recording.text(),
              "m startMetadata\nm xml 3C612F3E\nm model of 1\nm xml null 0\nm endMetadata\n");
    EXPECT_EQ(errors.text(), "");
    const auto again = boost::dynamic_pointer_cast<Preface>(recorder.roots.front());
    EXPECT_TRUE(again->getRIPPresent());
    EXPECT_EQ(std::streamoff(again->getStreampos()), elements[2].end);
}

TEST(VEXAOverridableLocator, TellsThePlaceOfTheParseThatRuns) {
    const FixedLocator outer(10), inner(20);
    const auto locator = boost::make_shared<VEXAOverridableLocator>();
    const auto errors = boost::make_shared<KeepingErrorHandler>();
    VEXAOverridableLocator::ErrorHandler wrapper(errors, locator);
    std::string places;
    const auto look = [&] {
        places += std::to_string(std::streamoff(locator->getPosition())) + ' ';
    };
    EXPECT_EQ(failureOf(look), "has locator");
    wrapper.setLocator(&outer);
    wrapper.startParse();
    wrapper.warning({}, "seen through the wrapper");
    wrapper.setLocator(&inner);
    wrapper.startParse();
    look();
    locator->setOverride(std::streampos(30));
    look();
    locator->clearOverride();
    wrapper.endParse();
    look();
    EXPECT_EQ(places, "20 30 10 ");
    EXPECT_EQ(errors->text(), "warning 00000000 @10 seen through the wrapper\n");
    wrapper.endParse();
    EXPECT_EQ(failureOf(look), "has locator");
    locator->setOverride(std::streampos(40));
    EXPECT_EQ(failureOf(look), "");
    locator->clearOverride();
    places.clear();

    // An inner parse that its handler refuses is ended like any other.
    Recording recording;
    recording.interfere(1, [] { throw std::runtime_error("refused"); });
    VEXAOverridableLocator::ErrorHandler refusing(
        boost::make_shared<KeepingErrorHandler>(recording), locator);
    refusing.setLocator(&outer);
    refusing.startParse();
    refusing.setLocator(&inner);
    EXPECT_EQ(failureOf([&] { refusing.startParse(); }), "refused");
    refusing.endParse();
    look();
    EXPECT_EQ(places, "10 ");
}

} // namespace
