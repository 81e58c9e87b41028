#pragma once

#include "imaging/alpha_fit.hpp"
#include "imaging/source_block.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace pelrath {

/// Compresses the alphas of DXT5 blocks, eight at a time. What a decoder once made of a coding is coded
/// without a loss.
class AlphaEncoder {
public:
    /// `known` is a coding that the block may have already; it stays unless another comes nearer. `coding`
    /// must stay where it is until finish().
    void add(const SourceBlock& block, std::optional<std::uint64_t> known, std::span<std::byte, 8> coding);
    /// Puts every coding in its place.
    void finish();

private:
    struct Candidate {
        std::uint64_t coding;
        unsigned error;
    };
    struct Task {
        std::array<std::uint8_t, texelsPerBlock> values;
        TexelMarks inside;
        std::optional<Candidate> known;
        std::byte* coding;
    };

    [[nodiscard]] static unsigned errorOf(const Task& task, std::uint64_t coding);
    [[nodiscard]] static Candidate codingWith(const Task& task, unsigned first, unsigned second);
    [[nodiscard]] static std::optional<Candidate> easyCoding(const Task& task);
    [[nodiscard]] static std::optional<Candidate> exactCoding(const Task& task);
    static void settle(const Task& task, Candidate candidate);

    std::array<Task, laneCount> tasks_;
    std::size_t size_ = 0;
};

} // namespace pelrath
