#include "platform/posix/new_file.hpp"

#include "platform/posix/file_lock.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/posix/unique_name.hpp"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

namespace pelrath {

namespace {

constexpr std::string_view hiddenPrefix = ".pelrath-";

int outcome(int result) { return result == 0 ? 0 : errno; }

/// How file systems, and whoever watches over them, say that there is no such thing as a link here, or as a
/// rename that replaces nothing.
bool refusesLinks(int error) {
    constexpr std::array answers{EPERM, EOPNOTSUPP, ENOSYS, EINVAL, EXDEV, EMLINK};
    return std::ranges::find(answers, error) != answers.end();
}

} // namespace

bool isHiddenName(std::string_view name) { return isUniqueName(name, hiddenPrefix); }

NewFile::NewFile(NewFile&& other) noexcept
    : folder_(std::move(other.folder_)), file_(std::move(other.file_)),
      hidden_(std::exchange(other.hidden_, {})), nameless_(std::exchange(other.nameless_, false)) {}

NewFile& NewFile::operator=(NewFile&& other) noexcept {
    std::swap(folder_, other.folder_);
    std::swap(file_, other.file_);
    std::swap(hidden_, other.hidden_);
    std::swap(nameless_, other.nameless_);
    return *this;
}

void NewFile::giveUp() {
    if (!hidden_.empty()) ::unlinkat(folder_.get(), hidden_.c_str(), 0);
}

int NewFile::create(const std::string& folder, Start start) {
    folder_ = openFolder(folder);
    if (!folder_) return errno;
    nameless_ = false;
    if (start == Start::Nameless) {
        file_ = FileHandle{::openat(folder_.get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, 0600)};
        nameless_ = static_cast<bool>(file_);
    }
    return nameless_ ? 0 : createHidden();
}

int NewFile::createHidden() {
    for (int i = 0; i < uniqueNameAttempts; ++i) {
        const std::string name = uniqueName(hiddenPrefix);
        file_ = FileHandle{
            ::openat(folder_.get(), name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600)};
        if (!file_ && errno != EEXIST) return errno;
        if (!file_) continue;
        // Whoever clears up may have taken it for a dead program's before it was locked.
        if (tryLock(file_.get(), LockKind::Exclusive) == LockAnswer::Taken) continue;
        if (isGone(file_.get())) continue;
        hidden_ = name;
        return 0;
    }
    return EEXIST;
}

// ENOENT: the folder in which the system shows what is open is missing.
bool NewFile::mustBeHidden(int error) const { return nameless_ && (refusesLinks(error) || error == ENOENT); }

bool NewFile::hasNoWay(int error) { return refusesLinks(error); }

int NewFile::link(const std::string& name) const {
    const std::string own = "/proc/self/fd/" + std::to_string(file_.get());
    return outcome(::linkat(AT_FDCWD, own.c_str(), folder_.get(), name.c_str(), AT_SYMLINK_FOLLOW));
}

int NewFile::takeName(const std::string& name) {
    if (nameless_) return link(name);
    int error = outcome(::linkat(folder_.get(), hidden_.c_str(), folder_.get(), name.c_str(), 0));
    if (error == 0) {
        if (::unlinkat(folder_.get(), hidden_.c_str(), 0) == 0) hidden_.clear();
    } else if (refusesLinks(error)) {
        error = outcome(
            ::renameat2(folder_.get(), hidden_.c_str(), folder_.get(), name.c_str(), RENAME_NOREPLACE));
        if (error == 0) hidden_.clear();
    }
    return error;
}

int NewFile::replace(const std::string& name) {
    if (nameless_) {
        int error = link(name);
        if (error != EEXIST) return error;
        (void)tryLock(file_.get(), LockKind::Exclusive); // nobody has seen it yet
        for (int i = 0; error == EEXIST && i < uniqueNameAttempts; ++i) {
            hidden_ = uniqueName(hiddenPrefix);
            error = link(hidden_);
        }
        if (error != 0) {
            hidden_.clear();
            return error;
        }
        nameless_ = false;
    }
    const int error = outcome(::renameat(folder_.get(), hidden_.c_str(), folder_.get(), name.c_str()));
    if (error == 0) hidden_.clear();
    return error;
}

// By closing the file once, which keeps neither it nor its lock from staying with the other handle.
int NewFile::settle() const {
    const int twin = ::fcntl(file_.get(), F_DUPFD_CLOEXEC, 0);
    return twin < 0 ? errno : outcome(::close(twin));
}

int NewFile::takeUsualMode() const {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return setMode(0666U & ~mask);
}

// Some file systems have no modes to set.
int NewFile::setMode(unsigned mode) const {
    const bool set =
        ::fchmod(file_.get(), mode) == 0 || errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS;
    return set ? 0 : errno;
}

bool NewFile::flushFolder() const {
    const FileHandle folder{::openat(folder_.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
    return pelrath::flushFolder(folder);
}

} // namespace pelrath
