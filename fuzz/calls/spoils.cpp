#include "calls/spoils.hpp"

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <sstream>

#include <fcntl.h>
#include <sys/syscall.h>

namespace pelrath::calls {

namespace {

// Of a path's way to its file.
constexpr const char* ofPaths = "EACCES EIO ELOOP ENAMETOOLONG ENOENT ENOMEM ENOTDIR ESTALE";
constexpr const char* ofWriting = "EIO ENOSPC EDQUOT EFBIG EINTR EPERM";

struct Errors {
    const char* general;   ///< the call is not made
    const char* made = ""; ///< it is, and tells of a failure all the same
    const char* lasting = "";
};

const std::map<int, Errors> errors{
    {SYS_openat,
     {"EACCES EIO EINTR ELOOP EMFILE ENAMETOOLONG ENFILE ENOENT ENOMEM ENOTDIR EOVERFLOW ESTALE"}},
    {SYS_newfstatat, {"EACCES EIO ELOOP ENAMETOOLONG ENOENT ENOMEM ENOTDIR EOVERFLOW ESTALE"}},
    {SYS_statx, {"EACCES EIO ELOOP ENAMETOOLONG ENOENT ENOMEM ENOTDIR ENOSYS ESTALE"}},
    {SYS_fstat, {"EIO ENOMEM EOVERFLOW ESTALE"}},
    {SYS_access, {ofPaths}},
    {SYS_faccessat, {ofPaths}},
    {SYS_faccessat2, {ofPaths}},
    {SYS_readlink, {"EACCES EINVAL EIO ELOOP ENAMETOOLONG ENOENT ENOMEM ENOTDIR"}},
    {SYS_getcwd, {"EACCES ENOENT ENOMEM"}},
    {SYS_read, {"EIO EINTR ESTALE"}},
    {SYS_pread64, {"EIO EINTR ESTALE"}},
    {SYS_getdents64, {"EIO ENOENT ESTALE"}},
    {SYS_lseek, {"EINVAL EOVERFLOW"}},
    {SYS_write, {ofWriting, "", "EIO ENOSPC"}},
    {SYS_pwrite64, {ofWriting, "", "EIO ENOSPC"}},
    {SYS_copy_file_range,
     {"EFBIG EINTR EINVAL EIO ENOMEM ENOSPC ENOSYS EOPNOTSUPP EOVERFLOW EPERM ETXTBSY EXDEV"}},
    {SYS_fallocate, {"EFBIG EINTR EIO ENODEV ENOSPC ENOSYS EOPNOTSUPP EPERM"}},
    {SYS_ftruncate, {"EFBIG EINTR EINVAL EIO EPERM EROFS"}},
    {SYS_fsync, {"", "EIO ENODATA ENOSPC EDQUOT EINTR EINVAL EREMOTEIO EROFS", "EIO"}},
    {SYS_fdatasync, {"", "EIO ENOSPC EDQUOT EINTR EINVAL EROFS"}},
    {SYS_sync_file_range, {"", "EIO EINVAL ENODATA ENOMEM ENOSPC EREMOTEIO ESPIPE"}},
    {SYS_close, {"", "EIO EINTR ENOSPC EDQUOT"}},
    {SYS_rename,
     {"EACCES EBUSY EDQUOT EIO EISDIR ELOOP EMLINK ENOENT ENOMEM ENOSPC ENOTDIR EPERM EROFS EXDEV"}},
    {SYS_renameat,
     {"EACCES EBUSY EDQUOT EIO EISDIR ELOOP EMLINK ENOENT ENOMEM ENOSPC ENOTDIR EPERM EROFS EXDEV"}},
    {SYS_renameat2,
     {"EACCES EBUSY EDQUOT EEXIST EINVAL EIO EISDIR ELOOP EMLINK ENOENT ENOMEM ENOSPC ENOSYS ENOTDIR "
      "EPERM EROFS EXDEV"}},
    {SYS_linkat,
     {"EACCES EDQUOT EEXIST EINVAL EIO ELOOP EMLINK ENAMETOOLONG ENOENT ENOMEM ENOSPC ENOTDIR EPERM "
      "EROFS EXDEV"}},
    {SYS_unlink, {"EACCES EBUSY EIO EISDIR ELOOP ENOMEM ENOTDIR EPERM EROFS", "ENOENT", "EPERM"}},
    {SYS_unlinkat, {"EACCES EBUSY EIO EISDIR ELOOP ENOMEM ENOTDIR EPERM EROFS", "ENOENT", "EPERM"}},
    {SYS_rmdir, {"EACCES EBUSY EIO ELOOP ENOMEM ENOTDIR ENOTEMPTY EPERM EROFS", "ENOENT"}},
    {SYS_mkdir, {"EACCES EDQUOT EEXIST ELOOP EMLINK ENAMETOOLONG ENOENT ENOMEM ENOSPC ENOTDIR EPERM EROFS"}},
    {SYS_fchmod, {"EIO ENOENT ENOMEM EPERM EROFS"}},
    {SYS_chmod, {"EACCES EIO ELOOP ENOENT ENOMEM ENOTDIR EPERM EROFS"}},
    {SYS_fchmodat, {"EACCES EIO ELOOP ENOENT ENOMEM ENOTDIR EPERM EROFS"}},
    {SYS_utimensat, {"EACCES ENOENT EPERM EROFS"}},
    {SYS_flock, {"EINTR EINVAL ENOLCK ENOSYS EOPNOTSUPP EWOULDBLOCK", "", "EWOULDBLOCK"}},
    {SYS_fcntl, {"EACCES EINTR EINVAL EMFILE ENOLCK"}},
    {SYS_ioctl, {"EINVAL EIO EOPNOTSUPP EPERM ETXTBSY EXDEV"}},
    {SYS_fstatfs, {"EINTR EIO ENOMEM ENOSYS EOVERFLOW"}},
    {SYS_statfs, {"EACCES EINTR EIO ENOENT ENOMEM ENOSYS EOVERFLOW"}},
    {SYS_pipe2, {"EMFILE ENFILE"}},
    {SYS_memfd_create, {"EMFILE ENFILE ENOMEM"}},
    {SYS_clone, {"EAGAIN ENOMEM"}},
    {SYS_clone3, {"EAGAIN ENOMEM ENOSYS"}},
    {SYS_wait4, {"", "EINTR"}},
    {SYS_getrandom, {"EAGAIN EINTR ENOSYS"}},
    {SYS_mmap, {"ENOMEM EAGAIN"}},
    {SYS_mremap, {"ENOMEM EAGAIN"}},
    {SYS_munmap, {"ENOMEM"}},
    {SYS_mprotect, {"ENOMEM"}},
    {SYS_madvise, {"ENOMEM EAGAIN"}},
};

// Of these either no failure is known, or none that a program without faults can meet.
const std::set<int> unfailing{
    SYS_umask,           SYS_exit_group,   SYS_exit, SYS_getpid, SYS_gettid, SYS_getuid,          SYS_geteuid,
    SYS_rt_sigprocmask,  SYS_rt_sigaction, SYS_brk,  SYS_futex,  SYS_rseq,   SYS_set_robust_list, SYS_setsid,
    SYS_clock_nanosleep, SYS_sched_yield};

int numberOfError(const std::string& name) {
    for (int error = 1; error < 200; ++error) {
        const char* const known = strerrorname_np(error);
        if (known != nullptr && name == known) return error;
    }
    return name == "EWOULDBLOCK" ? EWOULDBLOCK : name == "EOPNOTSUPP" ? EOPNOTSUPP : 0;
}

template <class Make>
void add(std::vector<Spoil>& spoils, const std::string& names, const Make& fate) {
    std::istringstream words{names};
    for (std::string name; words >> name;) {
        spoils.push_back({name, fate(numberOfError(name)), false});
    }
}

std::string furtherErrors(const Call& call) {
    if (call.number != SYS_openat) return "";
    const auto flags = static_cast<int>(call.arguments[2]);
    std::string more = (flags & O_ACCMODE) == O_RDONLY ? "" : "EPERM EROFS ETXTBSY ";
    if ((flags & O_CREAT) != 0 || makesNamelessFile(call)) more += "ENOSPC EDQUOT ";
    if (makesNamelessFile(call)) more += "EISDIR EINVAL EOPNOTSUPP ";
    if ((flags & O_EXCL) != 0) more += "EEXIST ";
    return more;
}

} // namespace

std::vector<Spoil> spoilsOf(const Call& call) {
    std::vector<Spoil> spoils;
    const auto found = errors.find(call.number);
    if (found == errors.end()) return spoils;
    add(spoils, found->second.general, &Fate::failed);
    add(spoils, furtherErrors(call), &Fate::failed);
    add(spoils, found->second.made, &Fate::madeAndFailed);
    const std::size_t once = spoils.size();
    add(spoils, found->second.lasting, &Fate::failed);
    for (std::size_t i = once; i < spoils.size(); ++i) {
        spoils[i].name += '+';
        spoils[i].lasts = true;
    }
    const int argument = countArgument(call.number);
    if (argument < 0) return spoils;
    const std::uint64_t count = call.arguments[static_cast<std::size_t>(argument)];
    if (count > 1) spoils.push_back({"SHORT", Fate::shortened(count / 2), false});
    const bool reads =
        call.number == SYS_read || call.number == SYS_pread64 || call.number == SYS_copy_file_range;
    if (reads) spoils.push_back({"END", Fate::answered(0), false});
    return spoils;
}

bool makesNamelessFile(const Call& call) {
    return call.number == SYS_openat && (call.arguments[2] & O_TMPFILE) == O_TMPFILE;
}

bool cannotFail(int number) { return unfailing.count(number) != 0; }

} // namespace pelrath::calls
