#pragma once

#include "platform/posix/file_handle.hpp"

#include <array>
#include <string>
#include <string_view>

namespace pelrath {

/// The names that the program's temporary files have, wherever they are.
inline constexpr std::array temporaryNames{"tmp.dds", "tmp1.dds", "tmp2.dds"};

/// A folder that only the user can read, below the system's folder for temporary files, made when it is first
/// needed and locked for as long as it is in use: it goes with this, and what a program that died has left of
/// its own goes with the next start.
class PrivateFolder {
public:
    PrivateFolder() = default;
    ~PrivateFolder() { (void)remove(); }
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    /// Its path, also when it was cleared away meanwhile and had to be made again. Empty where there is no
    /// room for such a folder.
    [[nodiscard]] const std::string& path();

    /// Removes it with the temporary files and pictures in it. 0, or what the system says (errno); then it
    /// stays.
    [[nodiscard]] int remove();

private:
    void make();
    [[nodiscard]] bool isThere() const;

    std::string path_; // empty: not needed yet
    FileHandle folder_;
};

/// `pelrath-` and six letters or digits.
[[nodiscard]] bool isPrivateFolderName(std::string_view name);

/// Takes the temporary files, and pictures (.png), out of such a folder, which has been opened. 0, or what
/// the system says.
[[nodiscard]] int emptyPrivateFolder(int folder);

} // namespace pelrath
