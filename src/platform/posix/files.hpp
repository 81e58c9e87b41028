#pragma once

#include "platform/posix/file_handle.hpp"
#include "platform/posix/file_identity.hpp"
#include "platform/posix/new_file.hpp"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Files of the system. Paths are UTF-8; every failure leaves as a RuntimeError whose number is from the
/// general table and whose description names the path.
namespace pelrath {

using Bytes = std::span<const std::byte>;

/// True for anything at `path` that is not a folder (a dangling link is nothing).
[[nodiscard]] bool fileExists(const std::string& path);
[[nodiscard]] bool folderExists(const std::string& path);
/// True for anything that has the name, a link that leads nowhere as well.
[[nodiscard]] bool isNameTaken(const std::string& path);
/// True where both paths lead to one and the same file, by whatever links.
[[nodiscard]] bool sameFile(const std::string& a, const std::string& b);

/// Folder and name with exactly one separator between them.
[[nodiscard]] std::string joinPath(std::string_view folder, std::string_view name);

/// `name` without its last dot and what follows it; a name without a dot stays whole.
[[nodiscard]] std::string_view withoutExtension(std::string_view name);

/// What follows the last dot of a path's last part, empty where that has none.
[[nodiscard]] std::string_view fileExtension(std::string_view path);

/// What follows the last separator of a path.
[[nodiscard]] std::string_view fileName(std::string_view path);

/// The folder part of a path, without its last separator (the separator itself for the root's children),
/// empty when the path has none.
[[nodiscard]] std::string_view parentFolder(std::string_view path);

/// A file open for reading at any position. Closes itself; never moves, never writes.
class InputFile {
public:
    /// Fails for a missing file, a folder, or a file that cannot be opened.
    explicit InputFile(const std::string& path);

    /// Length in bytes when it was opened.
    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// Where it was found; another file may have that name by now.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// As it is now.
    [[nodiscard]] FileIdentity identity() const;
    /// The system's handle, for what else of this room works on the very file.
    [[nodiscard]] int handle() const { return file_.get(); }

    /// Fills `into` with the bytes from the 0-based position `offset`. Fails with "Input past end of file"
    /// unless all of them lie inside the file.
    void readAt(std::uint64_t offset, std::span<std::byte> into) const;

private:
    std::string path_;
    FileHandle file_;
    std::uint64_t size_ = 0;
};

/// Whether a replaced file must be on the disk before replaceFile() returns.
enum class Durability { Flushed, Scratch };

/// What becomes of an old file. Kept: whatever has the name, be it that it comes at the last moment, stays
/// there, and FileExists is the failure.
enum class OldFile { Replaced, Kept };

/// The new content of a file in the making: written into a new file first, which is then renamed over it.
/// Given up before that, it leaves the old file as it was and no other file behind. Where the path is a link,
/// the file that it leads to is the one replaced.
class FileReplacement {
public:
    /// Fails where the folder takes no new file, where something that is no regular file stands in its place,
    /// and where the old file is read-only.
    explicit FileReplacement(const std::string& path, OldFile old = OldFile::Replaced);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Appends to the new content.
    void write(Bytes bytes);
    /// Appends as many bytes of another file from the 0-based position `offset` on, in the kernel where that
    /// can be. Fails as the source's readAt() does, too.
    void write(const InputFile& source, std::uint64_t offset, std::uint64_t count);
    /// Puts it in place, with the old file's permissions where there was one.
    void finish(Durability durability);

private:
    void requireReplaceable(const std::string& path) const;
    void takeOverMode() const;
    [[nodiscard]] int putInPlace();
    [[nodiscard]] int takeName();

    OldFile old_;
    std::string finalPath_;
    NewFile file_;
};

/// The pieces, one after another, as the whole new content of `path`; all of it or nothing.
void replaceFile(const std::string& path, std::span<const Bytes> pieces, Durability durability,
                 OldFile old = OldFile::Replaced);

/// Removes a file, read-only or not. A missing file is no failure.
void removeFile(const std::string& path);

/// Makes a change of the file's name last, where the file system lets that be asked for. False when the disk
/// refused it.
[[nodiscard]] bool flushFolderOf(const std::string& path);

} // namespace pelrath
