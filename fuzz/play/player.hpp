#pragma once

#include "table.hpp"
#include "world.hpp"

namespace pelrath::monkey {

/// Runs the real program in this process until it ends, and plays with its widgets from inside. What is not
/// as it must be goes to the error output; answers 0 where nothing did.
int play(const World& world, unsigned seed, Board& board);

} // namespace pelrath::monkey
