// VEXASystemParser over any bytes as a partition's body: what it tells of system items on streams
// that can and can't seek, and that these, coded, parsed and coded again, are the same bytes.

#include "front/VEXASystemCoder.h"
#include "front/VEXASystemParser.h"
#include "gc/MXFGCSplitter.h"
#include "gc/MXFGCSystemCoder.h"
#include "klv/GenericKLVReader.h"
#include "klv/GenericKLVWriter.h"
#include "support.h"

#include <sstream>

namespace {

/// Parses system items, and codes them.
class Recoder {
public:
    Recoder() : writer_(coded), elements_(writer_), coder_(elements_) {
        writer_.startStream(true);
        parser_.setSDTICPSystemHandler(*coder_.getSDTICPSystemHandler());
        parser_.setQZProxySystemHandler(*coder_.getQZProxySystemHandler());
    }

    std::stringstream coded;

    void parse(std::istream& stream, ErrorHandler* errors) {
        if (errors != nullptr) {
            parser_.setErrorHandler(*errors);
        }
        MXFGCSplitter splitter(nullptr, &parser_, nullptr);
        GenericKLVReader reader(splitter);
        reader.setErrorHandler(errors);
        reader.parse(stream);
    }

private:
    GenericKLVWriter writer_;
    MXFGCSystemCoder elements_;
    VEXASystemCoder coder_;
    VEXASystemParser parser_;
};

} // namespace

void fuzz::testInput(const Input& input) {
    std::string coded;
    readEachWay(input, [&](std::istream& stream, Run& run) {
        Recoder recoder;
        CheckingErrorHandler checking(run.trail);
        CheckingErrorHandler* const errors = input.withErrorHandler ? &checking : nullptr;
        run.failure = failureOf(errors, [&] { recoder.parse(stream, errors); });
        coded = recoder.coded.str();
        run.trail.add("coded", {digestOf(coded.data(), coded.size())});
    });
    if (coded.empty()) {
        return;
    }
    std::istringstream stream(coded);
    Recoder again;
    require(failureOf(nullptr, [&] { again.parse(stream, nullptr); }).empty(), "coded is sound");
    require(again.coded.str() == coded, "what was coded is parsed and coded the same");
}
