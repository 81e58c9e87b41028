#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <sys/types.h>

/// Runs a program with all processes and threads that come of it, shows the system calls that they make, and
/// spoils those that it is told to. Linux on x86-64 only: elsewhere requireTracing() says so and ends the
/// tool.
///
///     struct FullDisk : Observer {
///         Fate entered(const Call& call) override {
///             return pathOf(call.process, call.descriptor()).ends_with("/a.cdds") ? Fate::failed(ENOSPC)
///                                                                                 : Fate::untouched();
///         }
///     } disk;
///     const End end = follow({.arguments = {program, folder}, .calls = {SYS_pwrite64}}, disk);
///
/// The tracee stops at the calls named in Program::calls only, so that all others run at full speed. One
/// follow() at a time in a process, which must have no other children; SIGCHLD stays blocked in it.
namespace pelrath::calls {

struct Call {
    pid_t process = 0;
    pid_t thread = 0;
    int number = 0; ///< SYS_write, ...
    std::array<std::uint64_t, 6> arguments{};
    std::int64_t result = 0; ///< once it has been made: what it gives, or -errno

    /// The first argument, where that is a descriptor.
    [[nodiscard]] int descriptor() const { return static_cast<int>(arguments[0]); }
};

/// What becomes of a call.
struct Fate {
    enum Kind { Untouched, Seen, Answered, MadeAndFailed, Shortened, Killed };

    /// It is made, and not shown again.
    static Fate untouched() { return {}; }
    /// It is made, and left() is told its result.
    static Fate seen() { return {Seen, 0}; }
    /// It is not made, and fails with this errno.
    static Fate failed(int error) { return answered(-error); }
    /// It is not made, and gives this.
    static Fate answered(std::int64_t result) { return {Answered, static_cast<std::uint64_t>(result)}; }
    /// It is made, and tells this errno all the same, as close() and fsync() can; left() is told that.
    static Fate madeAndFailed(int error) { return {MadeAndFailed, static_cast<std::uint64_t>(error)}; }
    /// It is asked to move that many bytes at most; left() is told its result. For calls that have a
    /// countArgument() only.
    static Fate shortened(std::uint64_t count) { return {Shortened, count}; }
    /// SIGKILL for all processes of the tree; the call is not made.
    static Fate killed() { return {Killed, 0}; }

    Kind kind = Untouched;
    std::uint64_t value = 0;
};

/// Sees the calls while their thread stands still.
class Observer {
public:
    Observer() = default;
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;
    virtual ~Observer() = default;

    /// Before a call is made.
    virtual Fate entered(const Call&) { return Fate::seen(); }
    /// Behind a call, where its fate says so. False sends SIGKILL to all processes of the tree before the
    /// caller learns of the result.
    virtual bool left(const Call&) { return true; }
};

struct Program {
    std::vector<std::string> arguments{};   ///< the program's path first
    std::vector<std::string> environment{}; ///< "NAME=value", beside the tool's own
    std::string folder{};                   ///< to run in; the tool's own where empty
    int output = -1;          ///< becomes its standard output and error; the tool's own where -1
    std::vector<int> calls{}; ///< those that are shown; every one where empty
    std::chrono::milliseconds limit{20'000};
};

/// How the first process of the tree ended, once all of them have.
struct End {
    enum Kind { Exited, Signalled, Killed, Hung };
    Kind kind = Exited;
    int number = 0; ///< exit status, or signal

    [[nodiscard]] bool well() const { return kind == Exited && number == 0; }
};

/// Runs the program from its first instruction to the end of the whole tree. Addresses are the same in each
/// run. Throws std::system_error where it cannot be started or watched.
End follow(const Program& program, Observer& observer);

/// Ends the tool with a message and status 77 where processes cannot be watched.
void requireTracing();

/// Which argument says how many bytes read(), write() and their like are to move; -1 for other calls.
[[nodiscard]] int countArgument(int number);
/// "openat" for SYS_openat; "call 7" for one that has no name here.
[[nodiscard]] std::string nameOf(int number);
/// The number of a call by its name here, -1 where there is none.
[[nodiscard]] int numberOf(const std::string& name);

// Out of a process that stands still.

/// Bytes of its memory; fewer where it has fewer.
[[nodiscard]] std::string bytesAt(pid_t process, std::uint64_t address, std::size_t count);
/// Up to the terminating 0.
[[nodiscard]] std::string textAt(pid_t process, std::uint64_t address);
/// Where an open descriptor leads; empty where it is not open. Files without a name end in " (deleted)".
[[nodiscard]] std::string pathOf(pid_t process, int descriptor);
/// The full path that a call's arguments name: `directory` is the argument with the folder's descriptor, or
/// -1 where the call has none, `path` the one with the address of the text. Links are not followed.
[[nodiscard]] std::string pathArgument(const Call& call, int directory, int path);

} // namespace pelrath::calls
