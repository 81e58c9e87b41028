#pragma once

#include "imaging/block_decoder.hpp"
#include "inspection/finding.hpp"
#include "platform/busy_sign.hpp"
#include "session/session.hpp"
#include "transfer/insertion_choice.hpp"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace pelrath::inspection {

/// A level that an insertion would write.
struct CheckedLevel {
    std::int16_t level = 0;
    std::int32_t width = 1;
    std::int32_t height = 1;
    std::vector<std::byte> before; ///< its blocks in the archive
    std::vector<std::byte> after;  ///< those that would take their place
};

struct InsertionCheck {
    BlockFormat format = BlockFormat::Dxt1;
    std::vector<Finding> findings;
    /// Those that can be shown, the largest first; none where nothing would be written.
    std::vector<CheckedLevel> levels;
};

/// Reads what an insertion of this choice into the chosen texture would read, and makes the bytes that it
/// would write, by the same code. Writes nothing but temporary files in the program folder, which are gone
/// afterwards. `busy` shows that it is at work, and may be null; what it raises leaves here.
[[nodiscard]] InsertionCheck checkInsertion(Session& session, const InsertionChoice& choice, BusySign* busy);

} // namespace pelrath::inspection
