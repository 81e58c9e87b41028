#pragma once

#include "imaging/colour_fit.hpp"
#include "imaging/source_block.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace pelrath {

/// Compresses the colours of blocks, eight at a time. In DXT5 every texel inside the level counts, in DXT1
/// those with an alpha of at least 128; the others become clear. What a decoder once made of a coding is
/// coded without a loss.
class ColourEncoder {
public:
    explicit ColourEncoder(BlockFormat format) : format_(format) {}

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
        BlockTexels texels;
        TexelMarks visible;
        TexelMarks clear;
        std::optional<Candidate> known; ///< unless it has other texels clear
        std::byte* coding;
    };
    struct Queue {
        std::array<Task, laneCount> tasks;
        std::size_t size = 0;
    };

    [[nodiscard]] std::optional<unsigned> errorOf(const Task& task, std::uint64_t coding) const;
    [[nodiscard]] Candidate codingWith(const Task& task, std::uint32_t ends) const;
    [[nodiscard]] std::optional<Candidate> flatCoding(const Task& task) const;
    [[nodiscard]] std::optional<Candidate> exactCoding(const Task& task) const;
    void run(Queue& queue, bool cutOut) const;
    void settle(const Task& task, Candidate candidate) const;

    BlockFormat format_;
    Queue whole_;  ///< blocks without clear texels
    Queue cutOut_; ///< with some
};

} // namespace pelrath
