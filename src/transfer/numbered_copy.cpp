#include "transfer/numbered_copy.hpp"

#include "platform/posix/file_copy.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/runtime_error.hpp"

#include <charconv>
#include <functional>
#include <limits>

namespace pelrath {

namespace {

constexpr std::int32_t lastNumber = std::numeric_limits<std::int16_t>::max();

/// The sign of one copy.
class CopySign {
public:
    CopySign(BusySign* sign, std::string what) : sign_(sign), what_(std::move(what)) {}
    ~CopySign() {
        if (sign_ != nullptr) sign_->clear();
    }
    CopySign(const CopySign&) = delete;
    CopySign& operator=(const CopySign&) = delete;

    void operator()(std::uint64_t done, std::uint64_t total) const {
        if (sign_ != nullptr) sign_->show(what_, done, total);
    }

private:
    BusySign* sign_;
    std::string what_;
};

} // namespace

std::string copyName(const std::string& archivePath, std::int32_t number) {
    return std::string{withoutExtension(fileName(archivePath))} + "-" + std::to_string(number) + ".cdds";
}

std::optional<std::int32_t> numberOfCopy(const std::string& archivePath, std::string_view name) {
    const std::string_view stem = withoutExtension(name);
    std::int32_t number = -1;
    const std::size_t dash = stem.rfind('-');
    if (dash == std::string_view::npos) return std::nullopt;
    (void)std::from_chars(stem.data() + dash + 1, stem.data() + stem.size(), number);
    const bool isOne = number >= 0 && number <= lastNumber && name == copyName(archivePath, number);
    return isOne ? std::optional{number} : std::nullopt;
}

std::string makeNumberedCopy(const InputFile& archive, const std::string& archivePath,
                             const std::string& folder, BusySign* busy) {
    const auto nameOf = [&](std::int32_t number) { return joinPath(folder, copyName(archivePath, number)); };
    removeHiddenLeftovers(folder);
    std::int32_t number = 0;
    while (number <= lastNumber && (fileExists(nameOf(number)) || folderExists(nameOf(number)))) {
        ++number;
    }
    if (number <= lastNumber) {
        const CopySign sign{busy, "Copying " + std::string{fileName(archive.path())}};
        FileCopy copy{archive, folder, std::cref(sign)};
        // A name can have been taken meanwhile.
        for (; number <= lastNumber; ++number) {
            if (copy.takeName(nameOf(number))) return nameOf(number);
        }
    }
    throw makeError(ErrorNumber::FileExists, "makeSafeCopy",
                    "all numbers up to " + std::to_string(lastNumber) + " are taken in " + folder +
                        "; please choose another folder for them");
}

} // namespace pelrath
