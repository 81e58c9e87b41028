#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace pelrath {

/// A failure inside an operation: a number that its messages show, the operation it comes from, and an
/// English sentence. Whoever is responsible for reporting catches it at its own boundary.
class RuntimeError : public std::runtime_error {
public:
    RuntimeError(int number, std::string source, const std::string& description)
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}

    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] const std::string& source() const { return source_; }
    [[nodiscard]] std::string description() const { return what(); }

private:
    int number_;
    std::string source_;
};

/// The numbers of the general failures; their sentences are in errorDescription().
enum class ErrorNumber {
    InvalidCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    SubscriptOutOfRange = 9,
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIoError = 57,
    FileExists = 58,
    DiskFull = 61,
    InputPastEnd = 62,
    TooManyFiles = 67,
    DeviceUnavailable = 68,
    PermissionDenied = 70,
    PathFileAccess = 75,
    PathNotFound = 76,
};

/// The English sentence of a general failure, without a full stop.
[[nodiscard]] std::string_view errorDescription(ErrorNumber number);

/// The general failure that a system error code (errno) stands for; Device I/O error for any code without
/// an entry of its own.
[[nodiscard]] ErrorNumber errorNumberOf(int systemError);

/// A RuntimeError with the number's own sentence, followed by `detail` in brackets when there is one.
[[nodiscard]] RuntimeError makeError(ErrorNumber number, std::string_view source,
                                     std::string_view detail = {});

/// The RuntimeError of a failed system call; `systemError` is its errno.
[[nodiscard]] RuntimeError makeSystemError(int systemError, std::string_view source, std::string_view detail);

} // namespace pelrath
