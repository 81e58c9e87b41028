#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <tuple>

#include <sys/types.h>

/// What stands in a folder at one moment: names, bytes and permission bits of all that is below it.
namespace pelrath::calls {

/// Which file it is, for good: a number that is given to another file comes with another birth.
struct FileKey {
    std::uint64_t inode = 0;
    std::int64_t birth = 0; ///< nanoseconds since 1970; 0 where the file system does not know
    bool operator==(const FileKey&) const = default;
    bool operator<(const FileKey& other) const {
        return std::tie(inode, birth) < std::tie(other.inode, other.birth);
    }
};

using Content = std::shared_ptr<const std::string>;

struct StoredFile {
    bool folder = false;
    mode_t mode = 0;
    Content bytes; ///< never null; empty for a folder
};

struct Inventory {
    std::map<std::string, FileKey> names; ///< "" the folder itself, "copies", "copies/a-0.cdds"
    std::map<FileKey, StoredFile> files;

    /// Null where nothing has that name.
    [[nodiscard]] const StoredFile* at(const std::string& name) const;
    /// The bytes of the file of that name, empty where there is none.
    [[nodiscard]] const std::string& bytesOf(const std::string& name) const;
};

/// True where both have the same names, bytes and permission bits, in whatever files.
[[nodiscard]] bool same(const Inventory& a, const Inventory& b);
/// "" for "copies", "copies" for "copies/a-0.cdds".
[[nodiscard]] std::string folderOf(const std::string& name);

[[nodiscard]] Inventory inventoryOf(const std::string& folder);
/// The key and state of what an open path leads to, a file without a name included.
[[nodiscard]] std::pair<FileKey, StoredFile> fileAt(const std::string& path);
/// Makes all below the folder so. A file that is there under its name and key is written in place, and stays
/// the file that it is.
void restore(const std::string& folder, const Inventory& state);

} // namespace pelrath::calls
