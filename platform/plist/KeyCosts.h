#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace prismo {

/// How often libplist compares keys, at most, while it fills dictionaries, which may be nested. It goes
/// through the keys one by one as long as they are less than 500; then, through the one of 4,096 chains that
/// the key's sum names.
class KeyCosts {
  public:
    void open() { starts_.push_back(keys_.size()); }
    /// The text must outlive this.
    void add(std::string_view key) { keys_.push_back(key); }

    /// The comparisons of the dictionary that was opened last.
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
        // Keys may come twice, but those of different chains are different ones.
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
