// Runs a fuzz target without a fuzzing engine: over seed files, and over mutations of them that are
// the same at each run.
//
// usage: TARGET MUTATIONS DIRECTORY...

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

// NOLINTBEGIN: the names are those of the fuzzing engine and of the sanitizers
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());
// NOLINTEND

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Of a large seed only its beginning and its end are used, cut at a key.
constexpr std::ptrdiff_t headSize = 8192;
constexpr std::ptrdiff_t tailSize = 4096;

/// What all keys begin with.
constexpr std::uint8_t keyPrefix[] = {0x06, 0x0E, 0x2B, 0x34};

constexpr std::size_t choices = 256;
constexpr std::size_t smallSize = 900;

/// The input that is being run.
std::string present;

void tellPresent() {
    std::cerr << "in " << present << '\n';
}

Bytes readSeed(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios_base::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (bytes.size() > headSize + tailSize) {
        bytes.erase(std::find_end(bytes.begin(), bytes.begin() + headSize, std::begin(keyPrefix),
                                  std::end(keyPrefix)),
                    std::search(bytes.end() - tailSize, bytes.end(), std::begin(keyPrefix),
                                std::end(keyPrefix)));
    }
    return bytes;
}

class Mutator {
public:
    /// One to four changes.
    Bytes operator()(Bytes bytes) {
        for (std::size_t changes = 1 + below(4); changes > 0 && !bytes.empty(); --changes) {
            change(bytes);
        }
        return bytes;
    }

    std::size_t below(std::size_t limit) { return engine_() % limit; }

private:
    void change(Bytes& bytes) {
        const std::size_t at = below(bytes.size());
        const std::size_t size = std::min(below(256) + 1, bytes.size() - at);
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + static_cast<std::ptrdiff_t>(size);
        switch (below(4)) {
        case 0:
            bytes.erase(begin, below(2) == 0 ? end : bytes.end());
            break;
        case 1: {
            const Bytes block(begin, end);
            bytes.insert(begin, block.begin(), block.end());
            break;
        }
        case 2:
            overwrite(bytes, at, std::size_t{1} << below(4));
            break;
        default:
            bytes[at] = static_cast<std::uint8_t>(bytes[at] ^ 1U << below(8));
        }
    }

    /// Puts there a power of 2, or what lies next to it, or its complement.
    void overwrite(Bytes& bytes, std::size_t at, std::size_t octets) {
        std::uint64_t number = (std::uint64_t{1} << below(1 + below(8 * octets))) - below(2);
        number = below(4) == 0 ? ~number : number;
        for (std::size_t i = 0; i < octets && at + i < bytes.size(); ++i) {
            bytes[at + i] = static_cast<std::uint8_t>(number >> (8 * (octets - 1 - i)));
        }
    }

    // The same numbers at each run, by intention.
    std::mt19937 engine_{1}; // NOLINT(bugprone-random-generator-seed)
};

/// The last byte of an input chooses how it is read: each choice, or every third, comes once
/// without a mutation. A small seed is cut at every length, and read with every bit of it wrong.
void replay(const std::filesystem::path& path, std::size_t mutations) {
    const Bytes seed = readSeed(path);
    Mutator mutate;
    const auto run = [&](Bytes input, std::size_t choice, const char* what, std::size_t number) {
        present = path.string() + ", " + what + ' ' + std::to_string(number);
        input.push_back(static_cast<std::uint8_t>(choice));
        LLVMFuzzerTestOneInput(input.data(), input.size());
    };
    const bool isSmall = seed.size() <= smallSize;
    for (std::size_t i = 0; i < choices; i += isSmall ? 1 : 3) {
        run(seed, i, "choice", i);
    }
    for (std::size_t i = 0; i < mutations; ++i) {
        run(mutate(seed), mutate.below(choices), "mutation", i);
    }
    for (std::size_t i = 0; isSmall && i < seed.size(); ++i) {
        run(Bytes(seed.begin(), seed.begin() + static_cast<std::ptrdiff_t>(i)), i, "cut at", i);
        for (std::size_t bit = 0; bit < 8; ++bit) {
            Bytes damaged = seed;
            damaged[i] = static_cast<std::uint8_t>(damaged[i] ^ 1U << bit);
            run(std::move(damaged), 5 * i + bit, "wrong bit", 8 * i + bit);
        }
    }
}

} // namespace

int main(int argc, char* argv[]) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    std::signal(SIGABRT, [](int) { tellPresent(); });
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(tellPresent);
    }
    std::vector<std::filesystem::path> seeds;
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(arguments[i])) {
            if (entry.is_regular_file()) {
                seeds.push_back(entry.path());
            }
        }
    }
    std::sort(seeds.begin(), seeds.end());
    for (const std::filesystem::path& seed : seeds) {
        replay(seed, std::stoul(arguments[0]));
    }
    return seeds.empty() ? 2 : 0;
}
