#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>
#include <string>

/// A directory of one test's own, gone with the test.
class ScratchDirectory {
public:
    ScratchDirectory() : path_(::testing::TempDir() + "vexa_io_XXXXXX") {
        if (::mkdtemp(path_.data()) == nullptr) {
            throw std::runtime_error("no scratch directory");
        }
    }
    ~ScratchDirectory() { std::filesystem::remove_all(path_); }
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;

    std::string file(const std::string& name) const { return path_ + "/" + name; }

    std::string fileWith(const std::string& name, const std::string& bytes) const {
        std::ofstream(file(name), std::ios::binary) << bytes;
        return file(name);
    }

private:
    std::string path_;
};

inline std::string bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// The same bytes in every run.
inline std::string randomBytes(std::size_t size, unsigned seed = 1) {
    std::mt19937 engine(seed);
    std::string bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(engine());
    }
    return bytes;
}
