#pragma once

#include <algorithm>
#include <cstddef>
#include <exception>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

/// Options, which begin with "-", and operands, in any order.
class CommandLine {
public:
    CommandLine(int argc, const char* const* argv) : arguments_(argv + 1, argv + argc) {}

    /// Takes the option out; false if it isn't there.
    bool take(const std::string& option) {
        const auto rest = std::remove(arguments_.begin(), arguments_.end(), option);
        const bool found = rest != arguments_.end();
        arguments_.erase(rest, arguments_.end());
        return found;
    }

    /// Prints the usage if it was asked for, or if there is more left than that many operands, or
    /// less. Gives the exit status then.
    std::optional<int> showUsage(const char* usage, std::size_t operands) {
        if (take("-h") || take("--help")) {
            std::cout << usage;
            return std::cout.flush() ? 0 : 2;
        }
        const bool hasOption = std::any_of(arguments_.begin(), arguments_.end(),
                                           [](const auto& text) { return text[0] == '-'; });
        if (hasOption || arguments_.size() != operands) {
            std::cerr << usage;
            return 2;
        }
        return std::nullopt;
    }

    const std::string& operand(std::size_t i) const { return arguments_[i]; }

private:
    std::vector<std::string> arguments_;
};

/// Does a program's work on a file, and returns its exit status: that of the work, or 2, with the
/// reason on standard error, if it throws or standard output couldn't be written.
template <class Work> int run(const char* program, const std::string& path, Work work) {
    try {
        const int status = work();
        if (!std::cout.flush()) {
            throw std::runtime_error("unsuccessful output");
        }
        return status;
    } catch (const std::exception& failure) {
        std::cout.flush();
        std::cerr << program << ": " << path << ": " << failure.what() << '\n';
        return 2;
    }
}
