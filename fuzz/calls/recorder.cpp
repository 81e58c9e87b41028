#include "calls/recorder.hpp"

#include <array>
#include <stdexcept>

#include <fcntl.h>
#include <sys/syscall.h>

namespace pelrath::calls {

namespace {

constexpr std::array changing{
    SYS_open,     SYS_openat,    SYS_openat2,         SYS_creat,          SYS_write,    SYS_pwrite64,
    SYS_writev,   SYS_pwritev,   SYS_pwritev2,        SYS_sendfile,       SYS_splice,   SYS_ioctl,
    SYS_truncate, SYS_ftruncate, SYS_fallocate,       SYS_rename,         SYS_renameat, SYS_renameat2,
    SYS_link,     SYS_linkat,    SYS_symlink,         SYS_symlinkat,      SYS_unlink,   SYS_unlinkat,
    SYS_rmdir,    SYS_mkdir,     SYS_mkdirat,         SYS_chmod,          SYS_fchmod,   SYS_fchmodat,
    SYS_fsync,    SYS_fdatasync, SYS_copy_file_range, SYS_sync_file_range};

/// The descriptor of the file that a call may have written into, -1 where it has none.
int writtenBy(const Call& call) {
    switch (call.number) {
    case SYS_write:
    case SYS_pwrite64:
    case SYS_writev:
    case SYS_pwritev:
    case SYS_pwritev2:
    case SYS_sendfile:
    case SYS_ioctl:
    case SYS_ftruncate:
    case SYS_fallocate:
    case SYS_fchmod:
        return call.descriptor();
    case SYS_splice:
    case SYS_copy_file_range:
        return static_cast<int>(call.arguments[2]);
    default:
        return -1;
    }
}

std::string linkOf(const Call& call, int descriptor) {
    return "/proc/" + std::to_string(call.process) + "/fd/" + std::to_string(descriptor);
}

/// Whether it may have changed names or files: opening may only where it makes or cuts one.
bool mayChange(const Call& call) {
    const auto has = [&call](std::size_t argument) {
        return (call.arguments.at(argument) & (O_CREAT | O_TRUNC)) != 0;
    };
    switch (call.number) {
    case SYS_open:
        return has(1);
    case SYS_openat:
        return has(2);
    case SYS_fsync:
    case SYS_fdatasync:
    case SYS_sync_file_range:
        return false;
    default:
        return true;
    }
}

} // namespace

Recorder::Recorder(std::string folder, IsMarker begins, IsMarker ends)
    : folder_(std::move(folder)), begins_(std::move(begins)), ends_(std::move(ends)) {
    if (!begins_) begin();
}

std::vector<int> Recorder::calls() { return {changing.begin(), changing.end()}; }

Fate Recorder::entered(const Call& call) {
    if (begins_ && begins_(call)) {
        begin();
        return Fate::untouched();
    }
    if (recording_ && ends_ && ends_(call)) end();
    return recording_ ? Fate::seen() : Fate::untouched();
}

bool Recorder::left(const Call& call) {
    if (call.result >= 0) look(call);
    return true;
}

void Recorder::begin() {
    known_ = inventoryOf(folder_);
    log_ = {known_, {}};
    recording_ = true;
}

void Recorder::end() {
    known_ = inventoryOf(folder_);
    recording_ = false;
}

void Recorder::look(const Call& call) {
    Step step{.call = nameOf(call.number)};
    if (const int file = writtenBy(call); file >= 0) {
        if (!pathOf(call.process, file).starts_with(folder_ + "/")) return;
        step.files.insert(fileAt(linkOf(call, file))); // which may have no name
    }
    if (mayChange(call)) {
        Inventory now = inventoryOf(folder_);
        for (const auto& [name, key] : known_.names) {
            const auto found = now.names.find(name);
            if (found == now.names.end()) step.names.push_back({name, key, std::nullopt});
        }
        for (const auto& [name, key] : now.names) {
            const auto found = known_.names.find(name);
            if (found == known_.names.end()) {
                step.names.push_back({name, std::nullopt, key});
            } else if (found->second != key) {
                step.names.push_back({name, found->second, key});
            }
        }
        for (const auto& [key, state] : now.files) {
            const auto found = known_.files.find(key);
            const bool changed = found == known_.files.end() || found->second.mode != state.mode ||
                                 *found->second.bytes != *state.bytes;
            if (changed) step.files.emplace(key, state);
        }
        known_ = std::move(now);
    }
    step.flushed = flushedBy(call);
    step.dataOnly = call.number == SYS_fdatasync;
    const bool flushes = step.flushed || call.number == SYS_sync_file_range;
    if (flushes || !step.names.empty() || !step.files.empty()) log_.steps.push_back(std::move(step));
}

std::optional<FileKey> Recorder::flushedBy(const Call& call) const {
    if (call.number != SYS_fsync && call.number != SYS_fdatasync) return std::nullopt;
    if (!pathOf(call.process, call.descriptor()).starts_with(folder_)) return std::nullopt;
    return fileAt(linkOf(call, call.descriptor())).first;
}

Log Recorder::finish() {
    if (recording_) end();
    if (log_.steps.empty()) throw std::logic_error{"nothing was recorded"};
    Disk disk{log_};
    while (disk.stepsDone() < log_.steps.size()) {
        disk.next();
    }
    Answers last;
    for (const Question& question : disk.questions()) {
        last.push_back(static_cast<std::uint16_t>(question.since.size() - 1));
    }
    if (!same(disk.after(last), known_)) throw std::logic_error{"a change was not recorded"};
    return std::move(log_);
}

} // namespace pelrath::calls
