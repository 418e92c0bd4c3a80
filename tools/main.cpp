// The command vexa: one subcommand for each job, each in a file of its own beside this one.

#include "Subcommand.h"
#include "support/interrupt.h"

#include <vexa/vexa.h>

#include <cstddef>
#include <exception>
#include <iostream>
#include <iterator>
#include <string>

namespace {

struct Subcommand {
    const char* name;
    const char* purpose;
    Configure* configure;
};

constexpr Subcommand subcommands[] = {
    {"inspect", "Print what MXF files hold, and what is wrong with them", configureInspect},
    {"extract", "Write each essence track of an MXF file to a file of its own", configureExtract},
    {"rewrap", "Write an MXF file anew, event by event", configureRewrap},
};

std::string versionText() {
    const MXFProductVersion version = getVEXAToolkitVersion();
    return "vexa " + std::to_string(version.majorVersion) + '.' +
           std::to_string(version.minorVersion) + '.' + std::to_string(version.patchVersion);
}

/// The name of what was called, as "vexa inspect".
std::string nameOf(const CLI::App& vexa) {
    std::string name = vexa.get_name();
    for (const CLI::App* const subcommand : vexa.get_subcommands()) {
        name += ' ' + subcommand->get_name();
    }
    return name;
}

Status run(const std::string& name, const Work& work) {
    try {
        const Status status = work();
        if (std::cout.flush()) {
            return status;
        }
        std::cerr << name << ": can't write to standard output\n";
    } catch (const Interrupted&) {
        dieInterrupted();
    } catch (const std::exception& failure) {
        std::cout.flush();
        std::cerr << name << ": " << failure.what() << '\n';
    }
    return NotDone;
}

} // namespace

int main(int argc, char* argv[]) {
    CLI::App vexa("Works on MXF files (SMPTE 377M).", "vexa");
    vexa.set_version_flag("--version", versionText(), "Print the version");
    vexa.set_help_flag("-h,--help", "Print this");
    vexa.require_subcommand(1);
    vexa.footer("Exit status: 0 if all is sound, 1 if errors were reported, 2 if something could "
                "not be done.");
    Work works[std::size(subcommands)];
    for (std::size_t i = 0; i < std::size(subcommands); ++i) {
        works[i] = subcommands[i].configure(
            *vexa.add_subcommand(subcommands[i].name, subcommands[i].purpose));
    }
    try {
        vexa.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return run("vexa", [&] { return vexa.exit(error), Sound; });
        }
        std::cerr << nameOf(vexa) << ": " << error.what() << " (see " << nameOf(vexa)
                  << " --help)\n";
        return NotDone;
    }
    for (std::size_t i = 0; i < std::size(subcommands); ++i) {
        if (vexa.got_subcommand(subcommands[i].name)) {
            return run(nameOf(vexa), works[i]);
        }
    }
    return NotDone;
}
