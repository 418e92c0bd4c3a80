// Runs a fuzz target without a fuzzing engine: over seed files, and over mutations of them that are
// the same at each run.
//
// usage: TARGET [--mutations N] FILE-OR-DIRECTORY...

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

// NOLINTBEGIN: the names are those of the fuzzing engine and of the sanitizers
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" __attribute__((weak)) void __sanitizer_set_death_callback(void (*callback)());
// NOLINTEND

namespace {

using Bytes = std::vector<std::uint8_t>;

/// Of a large seed only its beginning and its end are used, cut at a key.
constexpr std::size_t headSize = 8192;
constexpr std::size_t tailSize = 4096;

/// What all keys begin with.
constexpr std::uint8_t keyPrefix[] = {0x06, 0x0E, 0x2B, 0x34};

/// Octets of a key.
constexpr std::size_t lengthOffset = 16;

struct Progress {
    std::string seed;
    std::string step;
    std::size_t inputs = 0;
} progress;

void tellProgress() {
    std::cerr << "in " << progress.seed << ", " << progress.step << '\n';
}

void abortHandler(int) {
    tellProgress();
}

Bytes readSeed(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios_base::binary);
    Bytes bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    if (!file) {
        throw std::runtime_error("can't read " + path.string());
    }
    if (bytes.size() > headSize + tailSize) {
        const auto lastOfHead = std::find_end(bytes.begin(), bytes.begin() + headSize,
                                              std::begin(keyPrefix), std::end(keyPrefix));
        bytes.erase(lastOfHead, std::search(bytes.end() - tailSize, bytes.end(),
                                            std::begin(keyPrefix), std::end(keyPrefix)));
    }
    return bytes;
}

std::vector<std::filesystem::path> filesOf(const std::vector<std::string>& arguments) {
    std::vector<std::filesystem::path> files;
    for (const std::string& argument : arguments) {
        if (!std::filesystem::is_directory(argument)) {
            files.emplace_back(argument);
            continue;
        }
        for (const auto& entry : std::filesystem::recursive_directory_iterator(argument)) {
            if (entry.is_regular_file()) {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

class Mutator {
public:
    /// One to four changes.
    Bytes operator()(Bytes bytes) {
        for (std::size_t changes = 1 + below(4); changes > 0; --changes) {
            change(bytes);
        }
        return bytes;
    }

    std::uint8_t byte() { return static_cast<std::uint8_t>(below(256)); }

private:
    std::size_t below(std::size_t limit) { return limit == 0 ? 0 : engine_() % limit; }

    /// A key, as a reader comes across it. There may be none.
    std::size_t someKey(const Bytes& bytes) {
        const auto from = bytes.begin() + static_cast<std::ptrdiff_t>(below(bytes.size()));
        const auto key = std::search(from, bytes.end(), std::begin(keyPrefix), std::end(keyPrefix));
        return key == bytes.end() ? 0 : static_cast<std::size_t>(key - bytes.begin());
    }

    /// Most of what a reader believes stands in keys, and right behind them.
    std::size_t place(const Bytes& bytes) {
        if (below(3) == 0) {
            return below(bytes.size());
        }
        const std::size_t key = someKey(bytes);
        return key + below(std::min<std::size_t>(bytes.size() - key, below(2) == 0 ? 1 : 40));
    }

    void change(Bytes& bytes) {
        const std::size_t at = place(bytes);
        const std::size_t size = std::min(below(256) + 1, bytes.size() - at);
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        const auto end = begin + static_cast<std::ptrdiff_t>(size);
        switch (below(7)) {
        case 0:
            bytes.erase(begin, bytes.end());
            break;
        case 1:
            bytes.erase(begin, end);
            break;
        case 2: {
            const Bytes block(begin, end);
            bytes.insert(begin, block.begin(), block.end());
            break;
        }
        case 3:
            overwrite(bytes, at, 8);
            break;
        case 4:
            overwrite(bytes, at, below(2) == 0 ? 4 : 1);
            break;
        case 5:
            lengthen(bytes, someKey(bytes) + lengthOffset);
            break;
        default:
            if (!bytes.empty()) {
                bytes[at] = static_cast<std::uint8_t>(bytes[at] ^ 1U << below(8));
            }
        }
    }

    /// Puts a length of 8 octets in the place of one of 1 or 3.
    void lengthen(Bytes& bytes, std::size_t at) {
        if (at + 4 >= bytes.size()) {
            return;
        }
        const std::size_t former = bytes[at] < 0x80 ? 1 : 4;
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(at);
        bytes.insert(begin, 9 - former, 0);
        bytes[at] = 0x88;
        overwrite(bytes, at + 1, 8);
    }

    void overwrite(Bytes& bytes, std::size_t at, std::size_t octets) {
        static constexpr std::uint64_t numbers[] = {
            0,          1,          0x7F,       0x80,       0x81,        0x83,       0x88,
            0xFF,       0xFFFF,     0x10000,    0x7FFFFFFF, 0x80000000,  0xFFFFFFFF, 1ULL << 32,
            1ULL << 40, ~0ULL >> 1, 1ULL << 63, ~0ULL - 15, ~0ULL - 255, ~0ULL};
        const std::uint64_t number = numbers[below(std::size(numbers))];
        for (std::size_t i = 0; i < octets && at + i < bytes.size(); ++i) {
            bytes[at + i] = static_cast<std::uint8_t>(number >> (8 * (octets - 1 - i)));
        }
    }

    // The same numbers at each run, by intention.
    std::mt19937 engine_{1}; // NOLINT(bugprone-random-generator-seed)
};

/// The last byte of an input chooses the target's options.
void run(const Bytes& bytes, std::uint8_t options) {
    Bytes input = bytes;
    input.push_back(options);
    input.shrink_to_fit(); // a read behind the end is one behind the allocation
    LLVMFuzzerTestOneInput(input.data(), input.size());
    ++progress.inputs;
}

void replay(const std::filesystem::path& path, unsigned long mutations) {
    const Bytes seed = readSeed(path);
    progress.seed = path.string();
    for (unsigned options = 0; options < 256; ++options) {
        progress.step = "options " + std::to_string(options);
        run(seed, static_cast<std::uint8_t>(options));
    }
    Mutator mutate;
    for (unsigned long i = 0; i < mutations; ++i) {
        progress.step = "mutation " + std::to_string(i);
        run(mutate(seed), mutate.byte());
    }
}

} // namespace

int main(int argc, char* argv[]) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    unsigned long mutations = 0;
    if (arguments.size() >= 2 && arguments[0] == "--mutations") {
        mutations = std::strtoul(arguments[1].c_str(), nullptr, 10);
        arguments.erase(arguments.begin(), arguments.begin() + 2);
    }
    std::signal(SIGABRT, abortHandler);
    if (__sanitizer_set_death_callback != nullptr) {
        __sanitizer_set_death_callback(tellProgress);
    }
    try {
        const std::vector<std::filesystem::path> files = filesOf(arguments);
        for (const std::filesystem::path& file : files) {
            replay(file, mutations);
        }
        std::cout << progress.inputs << " inputs from " << files.size() << " seeds\n";
        return files.empty() ? 2 : 0;
    } catch (const std::exception& failure) {
        std::cerr << failure.what() << '\n';
        return 2;
    }
}
