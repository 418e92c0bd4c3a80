// vexa rewrap: a file anew, event by event. Two runs over the input: the first reads no essence and
// learns where everything will lie, which the packs announce; the second writes.

#include "Subcommand.h"
#include "rewrap/EssenceRelay.h"
#include "rewrap/Relay.h"
#include "support/OutputFile.h"
#include "support/ProgressLine.h"
#include "support/Reports.h"
#include "support/input.h"
#include "support/interrupt.h"

#include <vexa/vexa.h>

#include <boost/make_shared.hpp>

#include <iostream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>

namespace {

struct Options {
    std::string input;
    std::string output;
};

/// Wants no value, and sees where the footer partition goes.
class FooterFinder : public DullKLVHandler {
public:
    std::uint64_t footer = 0;

    void setLocator(const Locator* locator) override { locator_ = locator; }
    bool startFixedLengthPack(const KLVKey& key, std::uint64_t, std::uint8_t**) override {
        if (MXFPartitionKey::isPartitionKey(key) && MXFPartitionKey::isFooter(key)) {
            const std::uint64_t head = KLVKey::size + 4;
            footer = static_cast<std::uint64_t>(std::streamoff(locator_->getPosition())) - head;
        }
        return false;
    }

private:
    const Locator* locator_ = nullptr;
};

/// One run over the input, into `writer`.
void play(const std::string& input, VEXAWriter& writer, const boost::shared_ptr<Reports>& reports,
          const boost::shared_ptr<EssenceRelay>& essence, const Layout* known) {
    const auto file = openInput(input);
    const auto relay = boost::make_shared<Relay>(writer, *essence, known);
    const auto reader = createVEXAReader(file);
    /// The writer outlives the reader.
    const auto shared = [&](auto* handler) {
        return boost::shared_ptr<std::remove_pointer_t<decltype(handler)>>(relay, handler);
    };
    reader->setStructureHandler(relay);
    reader->setMetadataHandler(relay);
    reader->setIndexHandler(relay);
    reader->setGCStructureHandler(essence);
    reader->setSDTICPSystemHandler(shared(writer.getSDTICPSystemHandler()));
    reader->setQZProxySystemHandler(shared(writer.getQZProxySystemHandler()));
    reader->setEssenceHandler(essence);
    reader->setErrorHandler(reports);
    try {
        readInterruptibly(*reader);
    } catch (const klvutil::parse_error& failure) {
        throw std::runtime_error(explain(failure, *file));
    }
}

Layout learn(const std::string& input, const boost::shared_ptr<Reports>& reports) {
    const auto nowhere = boost::make_shared<std::ostringstream>();
    const auto writer = createVEXAWriter(nowhere);
    FooterFinder finder;
    writer->getMXFWriter()->setHandler(&finder);
    const auto essence = boost::make_shared<EssenceRelay>(
        *writer, [=] { return reports->position(); }, false);
    play(input, *writer, reports, essence, nullptr);
    return {finder.footer, essence->shifts()};
}

Status write(const Options& options) {
    const auto reports = boost::make_shared<Reports>(
        false, [](const Report& report) { std::cerr << lineOf(report) << '\n'; });
    const Layout layout = learn(options.input, reports);

    OutputFile output(options.output, options.input);
    ProgressLine progress(options.input);
    const auto told = boost::make_shared<Reports>(false, [](const Report&) {});
    const auto position = [&] {
        progress.tell(*told);
        return told->position();
    };
    const auto writer = createVEXAWriter(output.stream());
    const auto essence = boost::make_shared<EssenceRelay>(*writer, position, true);
    play(options.input, *writer, told, essence, &layout);
    output.finish();
    return reports->hasErrors() ? ErrorsReported : Sound;
}

Status rewrap(const Options& options) {
    try {
        return write(options);
    } catch (const OutputFailure&) {
        throw;
    } catch (const std::exception& failure) {
        throw std::runtime_error(options.input + ": " + failure.what());
    }
}

} // namespace

Work configureRewrap(CLI::App& app) {
    const auto options = std::make_shared<Options>();
    app.add_option("IN", options->input, "The MXF file, which is left as it is")->required();
    app.add_option("OUT", options->output, "The new file")->required();
    return [options] { return rewrap(*options); };
}
