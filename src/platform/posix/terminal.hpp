#pragma once

namespace pelrath {

/// True where somebody sees what the program writes to its error output as it comes.
[[nodiscard]] bool errorsGoToTerminal();

/// From now on a write to a pipe that nobody reads any more fails instead of killing the program. Programs
/// that are started have none of this.
void outliveReaders();

} // namespace pelrath
