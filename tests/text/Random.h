#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <numeric>
#include <random>
#include <string>
#include <vector>

namespace brindlex::test {

/// The seeds of a random test: some that are always the same, and one that is fresh, or that the
/// environment variable BRINDLEX_SEED gives. The last one is printed.
inline std::vector<std::uint64_t> seeds(std::size_t fixed) {
    std::vector<std::uint64_t> result(fixed);
    std::iota(result.begin(), result.end(), std::uint64_t{1});
    const char* const given = std::getenv("BRINDLEX_SEED");
    result.push_back(given ? std::strtoull(given, nullptr, 10) : std::random_device{}());
    std::cout << "BRINDLEX_SEED=" << result.back() << std::endl;
    return result;
}

/// Each byte once, in order.
inline std::string allBytes() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

/// The same numbers for the same seed on every system.
class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}
    /// A number from 0 to `count` - 1; `count` is not 0.
    std::size_t below(std::size_t count) { return static_cast<std::size_t>(engine_() % count); }
    bool oneIn(std::size_t chances) { return below(chances) == 0; }
    /// Characters out of `alphabet`.
    std::string text(std::size_t length, const std::string& alphabet) {
        std::string result;
        while (result.size() < length) result += alphabet[below(alphabet.size())];
        return result;
    }

  private:
    std::mt19937_64 engine_;
};

/// Seed and operations of the random sequence that runs, for the report of a failure.
class Journal {
  public:
    explicit Journal(std::uint64_t seed) { add("seed", seed); }
    template <typename... Arguments>
    void add(const char* operation, const Arguments&... arguments) {
        text_ += operation;
        ((text_ += ' ' + testing::PrintToString(arguments)), ...);
        text_ += '\n';
    }
    const std::string& text() const { return text_; }

  private:
    std::string text_;
};

}  // namespace brindlex::test
