#include "platform/posix/folder_watch.hpp"

#include "platform/posix/files.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <string_view>

#include <linux/magic.h>
#include <sys/inotify.h>
#include <sys/vfs.h>

namespace pelrath {

namespace {

// A file that is linked into place is only made.
constexpr std::uint32_t ofFiles = IN_CLOSE_WRITE | IN_MOVED_TO | IN_MOVED_FROM | IN_CREATE | IN_DELETE;
constexpr std::uint32_t ofFolder = IN_MOVE_SELF | IN_DELETE_SELF | IN_ONLYDIR;

// The system is told what it does itself there, and not what others do.
bool othersCanWriteUnseen(const std::string& folder) {
    constexpr std::array<std::uint32_t, 8> shared{NFS_SUPER_MAGIC,  SMB_SUPER_MAGIC, CIFS_SUPER_MAGIC,
                                                  SMB2_SUPER_MAGIC, V9FS_MAGIC,      FUSE_SUPER_MAGIC,
                                                  CEPH_SUPER_MAGIC, AFS_FS_MAGIC};
    struct statfs system {};
    if (::statfs(folder.c_str(), &system) != 0) return true;
    const auto kind = static_cast<std::uint32_t>(system.f_type);
    return std::find(shared.begin(), shared.end(), kind) != shared.end();
}

} // namespace

struct FolderWatch::Report {
    int watch;
    std::uint32_t what;
    std::string_view name;
};

FolderWatch::FolderWatch() : watches_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

void FolderWatch::follow(const std::vector<std::string>& paths) {
    std::map<std::string, std::set<std::string>> wanted; // names by their folders
    for (const std::string& path : paths) {
        wanted[std::string{parentFolder(path)}].emplace(fileName(path));
        std::error_code nowhere;
        const std::string target = std::filesystem::canonical(path, nowhere).string();
        if (!nowhere) wanted[std::string{parentFolder(target)}].emplace(fileName(target));
    }
    const auto before = std::exchange(names_, {});
    blind_ = false;
    for (const auto& [folder, names] : wanted) {
        add(folder, names);
    }
    for (const auto& [watch, names] : before) {
        if (names_.count(watch) == 0) ::inotify_rm_watch(watches_.get(), watch);
    }
}

void FolderWatch::add(const std::string& folder, const std::set<std::string>& names) {
    const int watch = ::inotify_add_watch(watches_.get(), folder.c_str(), ofFiles | ofFolder);
    if (watch >= 0) names_[watch].insert(names.begin(), names.end());
    blind_ = blind_ || watch < 0 || othersCanWriteUnseen(folder);
}

bool FolderWatch::taken() {
    alignas(inotify_event) std::array<char, 16384> buffer;
    bool concerned = false;
    ssize_t length = 0;
    while ((length = ::read(watches_.get(), buffer.data(), buffer.size())) > 0) {
        for (std::size_t at = 0; at < static_cast<std::size_t>(length);) {
            inotify_event event{};
            std::memcpy(&event, &buffer.at(at), sizeof event);
            const char* name = event.len > 0 ? &buffer.at(at + sizeof event) : ""; // which ends with a zero
            concerned = concerns({event.wd, event.mask, name}) || concerned;
            at += sizeof event + event.len;
        }
    }
    return concerned;
}

bool FolderWatch::concerns(const Report& report) {
    if ((report.what & IN_Q_OVERFLOW) != 0) return true;
    const auto found = names_.find(report.watch);
    if (found == names_.end()) return false; // of a folder that was watched before
    if ((report.what & (IN_IGNORED | IN_MOVE_SELF | IN_DELETE_SELF | IN_UNMOUNT)) != 0) {
        blind_ = true; // another folder can take its place
        return true;
    }
    return found->second.count(std::string{report.name}) != 0;
}

} // namespace pelrath
