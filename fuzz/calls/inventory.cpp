#include "calls/inventory.hpp"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pelrath::calls {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const std::string& path) {
    throw std::system_error{errno, std::generic_category(), path};
}

std::string pathOf(const std::string& folder, const std::string& name) {
    std::string path = folder;
    if (!name.empty()) path.append("/").append(name);
    return path;
}

struct statx infoOf(const std::string& path, int flags) {
    struct statx info {};
    if (::statx(AT_FDCWD, path.c_str(), flags, STATX_BASIC_STATS | STATX_BTIME, &info) != 0) fail(path);
    return info;
}

FileKey keyOf(const struct statx& info) {
    const bool known = (info.stx_mask & STATX_BTIME) != 0;
    return {info.stx_ino, known ? info.stx_btime.tv_sec * 1'000'000'000 + info.stx_btime.tv_nsec : 0};
}

std::string readAll(const std::string& path) {
    std::ifstream in{path, std::ios::binary};
    if (!in) fail(path);
    return {std::istreambuf_iterator<char>{in}, {}};
}

std::pair<FileKey, StoredFile> lookAt(const std::string& path, int flags) {
    const struct statx info = infoOf(path, flags);
    const bool folder = S_ISDIR(info.stx_mode);
    std::string bytes = S_ISREG(info.stx_mode) ? readAll(path) : std::string{};
    return {keyOf(info), {folder, info.stx_mode & 07777U, std::make_shared<std::string>(std::move(bytes))}};
}

Inventory lookAtAll(const std::string& folder) {
    Inventory found;
    const auto add = [&found](const std::string& name, const std::string& path) {
        auto [key, file] = lookAt(path, AT_SYMLINK_NOFOLLOW);
        found.names[name] = key;
        found.files.try_emplace(key, std::move(file));
    };
    add("", folder);
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator{folder}) {
        const std::string path = entry.path();
        add(path.substr(folder.size() + 1), path);
    }
    return found;
}

class OpenFile {
public:
    OpenFile(const std::string& path, int flags) : path_(path), handle_(::open(path.c_str(), flags, 0600)) {
        if (handle_ < 0) fail(path);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    ~OpenFile() { ::close(handle_); }

    void write(const std::string& bytes, std::size_t from, std::size_t count) const {
        while (count > 0) {
            const ssize_t done = ::pwrite(handle_, bytes.data() + from, count, static_cast<off_t>(from));
            if (done <= 0) fail(path_);
            from += static_cast<std::size_t>(done);
            count -= static_cast<std::size_t>(done);
        }
    }
    void cut(std::size_t length) const {
        if (::ftruncate(handle_, static_cast<off_t>(length)) != 0) fail(path_);
    }

private:
    const std::string& path_;
    int handle_;
};

void writeOver(const std::string& path, const std::string& old, const std::string& wanted) {
    const OpenFile file{path, O_WRONLY | O_CLOEXEC};
    const std::size_t common = std::min(old.size(), wanted.size());
    constexpr std::size_t part = 4096;
    for (std::size_t at = 0; at < wanted.size(); at += part) {
        const std::size_t count = std::min(part, wanted.size() - at);
        if (at + count > common || old.compare(at, count, wanted, at, count) != 0)
            file.write(wanted, at, count);
    }
    if (old.size() != wanted.size()) file.cut(wanted.size());
}

void setMode(const std::string& path, mode_t mode) {
    if (::chmod(path.c_str(), mode) != 0) fail(path);
}

} // namespace

const StoredFile* Inventory::at(const std::string& name) const {
    const auto found = names.find(name);
    return found == names.end() ? nullptr : &files.at(found->second);
}

const std::string& Inventory::bytesOf(const std::string& name) const {
    static const std::string none;
    const StoredFile* const file = at(name);
    return file == nullptr ? none : *file->bytes;
}

bool same(const Inventory& a, const Inventory& b) {
    if (a.names.size() != b.names.size()) return false;
    for (const auto& [name, key] : a.names) {
        const StoredFile& one = a.files.at(key);
        const StoredFile* const other = b.at(name);
        if (other == nullptr || one.folder != other->folder || one.mode != other->mode ||
            *one.bytes != *other->bytes)
            return false;
    }
    return true;
}

std::string folderOf(const std::string& name) {
    const std::size_t slash = name.rfind('/');
    return slash == std::string::npos ? std::string{} : name.substr(0, slash);
}

Inventory inventoryOf(const std::string& folder) {
    for (;;) {
        try {
            return lookAtAll(folder);
        } catch (const std::system_error& error) { // what was there a moment ago can be gone
            if (error.code() != std::errc::no_such_file_or_directory) throw;
        }
    }
}

std::pair<FileKey, StoredFile> fileAt(const std::string& path) { return lookAt(path, 0); }

void restore(const std::string& folder, const Inventory& state) {
    const Inventory found = inventoryOf(folder);
    // From the deepest names on, so that folders are empty when their turn comes.
    for (auto old = found.names.rbegin(); old != found.names.rend(); ++old) {
        const auto& [name, key] = *old;
        const StoredFile* const wanted = state.at(name);
        const bool folderStays = wanted != nullptr && wanted->folder && found.files.at(key).folder;
        const bool fileStays = wanted != nullptr && !wanted->folder && state.names.at(name) == key;
        if (!folderStays && !fileStays) fs::remove(pathOf(folder, name));
    }
    std::map<FileKey, std::string> made;
    for (const auto& [name, key] : state.names) {
        const std::string path = pathOf(folder, name);
        const StoredFile& wanted = state.files.at(key);
        const auto old = found.names.find(name);
        if (wanted.folder) {
            fs::create_directory(path);
        } else if (old != found.names.end() && old->second == key) {
            writeOver(path, found.bytesOf(name), *wanted.bytes);
        } else if (const auto twin = made.find(key); twin != made.end()) {
            fs::create_hard_link(twin->second, path);
        } else {
            OpenFile{path, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC}.write(*wanted.bytes, 0,
                                                                          wanted.bytes->size());
        }
        made.try_emplace(key, path);
        setMode(path, wanted.mode);
    }
}

} // namespace pelrath::calls
