#include "platform/posix/files.hpp"

#include "platform/posix/byte_copy.hpp"
#include "platform/posix/folder_handle.hpp"
#include "platform/runtime_error.hpp"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace pelrath {

namespace {

[[noreturn]] void fail(std::string_view operation, const std::string& path) {
    throw makeSystemError(errno, operation, path);
}

bool isFolder(const std::string& path, bool& exists) {
    struct stat info {};
    exists = !path.empty() && ::stat(path.c_str(), &info) == 0;
    return exists && S_ISDIR(info.st_mode);
}

constexpr unsigned identifying = STATX_BASIC_STATS | STATX_BTIME;

FileIdentity identityOf(const struct statx& info) {
    const auto nanoseconds = [](const statx_timestamp& time) {
        return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec;
    };
    return {::makedev(info.stx_dev_major, info.stx_dev_minor),
            info.stx_ino,
            info.stx_size,
            nanoseconds(info.stx_mtime),
            nanoseconds(info.stx_ctime),
            (info.stx_mask & STATX_BTIME) != 0 ? nanoseconds(info.stx_btime) : 0};
}

// The path that a link leads to, be there a file or not; any other path as it is.
std::string endOfLinks(const std::string& path) {
    std::error_code none;
    std::filesystem::path end{path};
    constexpr int mostLinks = 40; // as the system itself
    for (int i = 0; i < mostLinks && std::filesystem::is_symlink(end, none); ++i) {
        end = end.parent_path() / std::filesystem::read_symlink(end, none);
    }
    return end.string();
}

} // namespace

bool fileExists(const std::string& path) {
    bool exists = false;
    const bool folder = isFolder(path, exists);
    return exists && !folder;
}

bool isNameTaken(const std::string& path) {
    struct stat info {};
    return ::lstat(path.c_str(), &info) == 0;
}

bool folderExists(const std::string& path) {
    bool exists = false;
    return isFolder(path, exists);
}

std::optional<FileIdentity> identityOf(const std::string& path) {
    struct statx info {};
    if (::statx(AT_FDCWD, path.c_str(), 0, identifying, &info) != 0) return std::nullopt;
    if (!S_ISREG(info.stx_mode)) return std::nullopt;
    return identityOf(info);
}

bool sameFile(const std::string& a, const std::string& b) {
    std::error_code missing;
    return std::filesystem::equivalent(a, b, missing);
}

std::string joinPath(std::string_view folder, std::string_view name) {
    std::string path{folder};
    if (!path.empty() && path.back() != '/') path.push_back('/');
    return path.append(name);
}

std::string_view withoutExtension(std::string_view name) { return name.substr(0, name.rfind('.')); }

std::string_view fileExtension(std::string_view path) {
    const std::string_view name = fileName(path);
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view{} : name.substr(dot + 1);
}

std::string_view fileName(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string_view parentFolder(std::string_view path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return {};
    return path.substr(0, slash == 0 ? 1 : slash);
}

// A pipe in the file's place must not hold the program up.
InputFile::InputFile(const std::string& path)
    : path_(path), file_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
    if (!file_) fail("InputFile", path);
    struct stat info {};
    if (::fstat(handle(), &info) != 0) fail("InputFile", path);
    if (!S_ISREG(info.st_mode)) throw makeSystemError(EISDIR, "InputFile", path);
    size_ = static_cast<std::uint64_t>(info.st_size);
}

FileIdentity InputFile::identity() const {
    struct statx info {};
    if (::statx(handle(), "", AT_EMPTY_PATH, identifying, &info) != 0) fail("InputFile", path_);
    return identityOf(info);
}

void InputFile::readAt(std::uint64_t offset, std::span<std::byte> into) const {
    if (offset > size_ || into.size() > size_ - offset) {
        throw makeError(ErrorNumber::InputPastEnd, "InputFile", path_);
    }
    while (!into.empty()) {
        const ssize_t count = ::pread(handle(), into.data(), into.size(), static_cast<off_t>(offset));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) fail("InputFile", path_);
        if (count == 0)
            throw makeError(ErrorNumber::InputPastEnd, "InputFile", path_ + " has become shorter meanwhile");
        offset += static_cast<std::uint64_t>(count);
        into = into.subspan(static_cast<std::size_t>(count));
    }
}

FileReplacement::FileReplacement(const std::string& path, OldFile old)
    : old_(old), finalPath_(old == OldFile::Kept ? path : endOfLinks(path)) {
    requireReplaceable(path);
    const int error = file_.create(std::string{parentFolder(finalPath_)});
    // What is missing is the folder, as the file may well be.
    if (error != 0) throw makeSystemError(error == ENOENT ? ENOTDIR : error, "FileReplacement", finalPath_);
}

void FileReplacement::requireReplaceable(const std::string& path) const {
    if (old_ == OldFile::Kept) {
        if (isNameTaken(path)) throw makeSystemError(EEXIST, "FileReplacement", path);
        return;
    }
    struct stat old {};
    const bool exists = ::stat(path.c_str(), &old) == 0;
    if (exists && !S_ISREG(old.st_mode)) {
        throw makeSystemError(EISDIR, "FileReplacement", path);
    } else if (exists && (old.st_mode & S_IWUSR) == 0) {
        // Nothing is opened for writing here, which is what would refuse it.
        throw makeError(ErrorNumber::PermissionDenied, "FileReplacement", path);
    }
}

void FileReplacement::write(Bytes bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file_.handle(), bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) fail("FileReplacement", finalPath_);
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

void FileReplacement::write(const InputFile& source, std::uint64_t offset, std::uint64_t count) {
    while (count > 0) {
        auto in = static_cast<off_t>(offset);
        const ssize_t copied = ::copy_file_range(source.handle(), &in, file_.handle(), nullptr, count, 0);
        if (copied <= 0) break; // not between these two; what really is wrong shows in the other way
        offset += static_cast<std::uint64_t>(copied);
        count -= static_cast<std::uint64_t>(copied);
    }
    std::vector<std::byte> rest(static_cast<std::size_t>(count));
    if (count > 0) source.readAt(offset, rest);
    write(rest);
}

void FileReplacement::takeOverMode() const {
    struct stat old {};
    const bool exists = ::stat(finalPath_.c_str(), &old) == 0;
    const int error = exists ? file_.setMode(old.st_mode & 07777U) : file_.takeUsualMode();
    if (error != 0) throw makeSystemError(error, "FileReplacement", finalPath_);
}

int FileReplacement::takeName() {
    const std::string name{fileName(finalPath_)};
    if (old_ == OldFile::Replaced) return file_.replace(name);
    const int error = file_.takeName(name);
    if (file_.mustBeHidden(error) || !NewFile::hasNoWay(error)) return error;
    // Nothing here spares what has the name already but a look at it.
    return isNameTaken(finalPath_) ? EEXIST : file_.replace(name);
}

int FileReplacement::putInPlace() {
    const int error = takeName();
    if (!file_.mustBeHidden(error)) return error;
    const NewFile nameless = std::move(file_);
    const int copied = copyToNewFile(nameless.handle(), std::string{parentFolder(finalPath_)},
                                     NewFile::Start::Hidden, {}, file_);
    return copied == 0 ? takeName() : copied;
}

void FileReplacement::finish(Durability durability) {
    takeOverMode();
    const auto require = [this](int error) {
        if (error != 0) throw makeSystemError(error, "FileReplacement", finalPath_);
    };
    if (durability == Durability::Flushed) require(::fsync(file_.handle()) == 0 ? 0 : errno);
    require(file_.settle());
    require(putInPlace());
    // The content is safe; whether its new name is as well changes nothing that could still be done here.
    if (durability == Durability::Flushed) (void)file_.flushFolder();
}

void replaceFile(const std::string& path, std::span<const Bytes> pieces, Durability durability, OldFile old) {
    FileReplacement file{path, old};
    for (const Bytes piece : pieces) {
        file.write(piece);
    }
    file.finish(durability);
}

void removeFile(const std::string& path) {
    if (::unlink(path.c_str()) != 0 && errno != ENOENT) fail("removeFile", path);
}

bool flushFolderOf(const std::string& path) {
    return flushFolder(openFolderToRead(std::string{parentFolder(path)}));
}

} // namespace pelrath
