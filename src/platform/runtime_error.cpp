#include "platform/runtime_error.hpp"

#include <array>
#include <cerrno>

namespace pelrath {

namespace {

struct Row {
    ErrorNumber number;
    std::string_view description;
    std::array<int, 4> systemErrors; // 0: unused place
};

constexpr std::array rows{
    Row{ErrorNumber::InvalidCall, "Invalid procedure call", {EINVAL}},
    Row{ErrorNumber::Overflow, "Overflow", {EOVERFLOW, ERANGE, EFBIG}},
    Row{ErrorNumber::OutOfMemory, "Out of memory", {ENOMEM}},
    Row{ErrorNumber::SubscriptOutOfRange, "Subscript out of range", {}},
    Row{ErrorNumber::BadFileName, "Bad file name or number", {EBADF, ENAMETOOLONG, ELOOP}},
    Row{ErrorNumber::FileNotFound, "File not found", {ENOENT}},
    Row{ErrorNumber::DeviceIoError, "Device I/O error", {EIO}},
    Row{ErrorNumber::FileExists, "File already exists", {EEXIST, ENOTEMPTY}},
    Row{ErrorNumber::DiskFull, "Disk full", {ENOSPC, EDQUOT}},
    Row{ErrorNumber::InputPastEnd, "Input past end of file", {}},
    Row{ErrorNumber::TooManyFiles, "Too many files", {EMFILE, ENFILE}},
    Row{ErrorNumber::DeviceUnavailable, "Device unavailable", {ENODEV, ENXIO}},
    Row{ErrorNumber::PermissionDenied, "Permission denied", {EACCES, EPERM, EROFS, ETXTBSY}},
    Row{ErrorNumber::PathFileAccess, "Path/File access error", {EISDIR, EBUSY}},
    Row{ErrorNumber::PathNotFound, "Path not found", {ENOTDIR}},
};

// What the number's sentence alone would leave to be guessed.
std::string_view adviceOn(int systemError) {
    switch (systemError) {
    case ENAMETOOLONG:
        return ": a name in it, or the whole, is too long; please choose a folder with a shorter path";
    case ELOOP:
        return ": its links lead round in a circle; please choose another folder";
    case EFBIG:
        return ": beyond the length that files may have here";
    case EISDIR:
        return ": a folder, or something else that is no file, stands in its place; please remove or rename it";
    case ENOTDIR:
        return ": its folder is gone; please choose the folder again";
    default:
        return {};
    }
}

} // namespace

std::string_view errorDescription(ErrorNumber number) {
    for (const Row& row : rows) {
        if (row.number == number) return row.description;
    }
    return "Application-defined error";
}

ErrorNumber errorNumberOf(int systemError) {
    for (const Row& row : rows) {
        for (const int code : row.systemErrors) {
            if (code != 0 && code == systemError) return row.number;
        }
    }
    return ErrorNumber::DeviceIoError;
}

RuntimeError makeError(ErrorNumber number, std::string_view source, std::string_view detail) {
    std::string text{errorDescription(number)};
    if (!detail.empty()) text.append(" (").append(detail).append(")");
    return {static_cast<int>(number), std::string{source}, text};
}

RuntimeError makeSystemError(int systemError, std::string_view source, std::string_view detail) {
    return makeError(errorNumberOf(systemError), source, std::string{detail}.append(adviceOn(systemError)));
}

} // namespace pelrath
