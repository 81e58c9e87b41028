#pragma once

namespace pelrath {

/// True where somebody sees what the program writes to its error output as it comes.
[[nodiscard]] bool errorsGoToTerminal();

/// From now on a write to a pipe that nobody reads any more fails instead of killing the program. Programs
/// that are started have none of this.
void outliveReaders();

/// To come before any file is opened: a standard handle that was closed by whoever started the program would
/// be given to one, which would then get what is said. Reading and writing such a handle fails from now on.
void holdStandardHandles();

} // namespace pelrath
