#pragma once

#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace brindlex::test {

/// The seeds of a random test: some that are always the same, and a fresh one, which is printed.
inline std::vector<std::uint64_t> seeds(std::size_t fixed) {
    std::vector<std::uint64_t> result;
    for (std::uint64_t seed = 1; seed <= fixed; ++seed) {
        result.push_back(seed);
    }
    result.push_back(std::random_device{}());
    std::cout << "fresh seed " << result.back() << std::endl;
    return result;
}

/// The same numbers for the same seed on every system.
class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    /// A number from 0 to `count` - 1; `count` is not 0.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    /// A number from `first` to `last`, both included.
    std::size_t between(std::size_t first, std::size_t last) {
        return first + below(last - first + 1);
    }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }
    /// Characters out of `alphabet`.
    std::string text(std::size_t length, const std::string& alphabet) {
        std::string result;
        while (result.size() < length) {
            result += alphabet[below(alphabet.size())];
        }
        return result;
    }

  private:
    std::mt19937_64 engine_;
};

/// The operations of the random sequence that runs, as lines of C++ that make a test case. They are
/// printed when the test fails (by `text()`) and when the code under test aborts.
class Journal {
  public:
    explicit Journal(std::string declaration) : text_(std::move(declaration) + '\n') {
        current() = this;
    }
    ~Journal() { current() = nullptr; }
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    void add(const std::string& line) { text_ += line + '\n'; }
    const std::string& text() const { return text_; }

    static void printOnAbort() {
        std::signal(SIGABRT, [](int) {
            if (const Journal* journal = current()) {
                std::fputs(journal->text_.c_str(), stderr);
            }
        });
    }

  private:
    static Journal*& current() {
        static Journal* journal = nullptr;
        return journal;
    }

    std::string text_;
};

/// A text as a C++ literal.
inline std::string literal(const std::string& text) {
    std::string result = "\"";
    for (const char byte : text) {
        switch (byte) {
            case '\r':
                result += "\\r";
                break;
            case '\n':
                result += "\\n";
                break;
            case '"':
                result += "\\\"";
                break;
            case '\\':
                result += "\\\\";
                break;
            default:
                result += byte;
        }
    }
    return result + '"';
}

}  // namespace brindlex::test
