#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace prismo {

/// How often, at most, libplist compares keys while it fills dictionaries, which may be nested. It searches
/// all keys while there are fewer than 500. After that it searches one of 4,096 chains, which a hash of the
/// key selects.
class KeyCosts {
  public:
    void open() { starts_.push_back(keys_.size()); }
    /// The text must outlive this.
    void add(std::string_view key) { keys_.push_back(key); }

    /// Closes the dictionary that was opened last, and returns its number of comparisons.
    std::size_t close() {
        const auto start = starts_.back();
        starts_.pop_back();
        const auto count = keys_.size() - start;
        const auto cost = count < largestPlain ? count * count / 2 : costInChains(start);
        keys_.resize(start);
        return cost;
    }

  private:
    static constexpr std::size_t largestPlain = 500;
    static constexpr std::size_t chains = 4096;

    static std::size_t chain(std::string_view key) {
        std::uint32_t sum = 5381;
        for (const char c : key)
            sum = sum * 33 + static_cast<std::uint32_t>(static_cast<signed char>(c));
        return sum % chains;
    }

    std::size_t costInChains(std::size_t start) const {
        std::array<std::uint32_t, chains> lengths{};
        std::size_t cost = 0;
        // Keys may occur twice, but keys in different chains differ.
        std::size_t different = 0;
        for (auto i = start; i < keys_.size(); ++i) {
            auto& length = lengths[chain(keys_[i])];
            if (different < largestPlain) cost += std::min(i - start, largestPlain);
            if (length == 0) ++different;
            cost += length++;
        }
        return cost;
    }

    std::vector<std::size_t> starts_;
    std::vector<std::string_view> keys_;
};

} // namespace prismo
