#include "support/interrupt.h"

#include <csignal>
#include <cstdlib>

namespace {

VEXAReader* reading = nullptr;
volatile std::sig_atomic_t interrupted = 0;

/// VEXAReader::stop only sets an atomic flag.
extern "C" void stopReading(int) {
    interrupted = 1;
    reading->stop();
}

} // namespace

void readInterruptibly(VEXAReader& reader) {
    reading = &reader;
    struct Catching {
        void (*before)(int) = std::signal(SIGINT, stopReading);
        Catching() {
            if (before == SIG_IGN) {
                std::signal(SIGINT, SIG_IGN);
            }
        }
        ~Catching() { std::signal(SIGINT, before); }
    };
    {
        const Catching catching;
        reader.read();
    }
    if (interrupted != 0) {
        throw Interrupted();
    }
}

void dieInterrupted() {
    std::signal(SIGINT, SIG_DFL);
    std::raise(SIGINT);
    std::abort();
}
