#pragma once

#include <string>

namespace pelrath {

/// Where a working file of the program's goes when its usual place does not take it: a folder that only the
/// user can read, below the system's folder for temporary files. It is made again where it was cleared away,
/// and what is put there is gone when this goes.
class StagingPlace {
public:
    StagingPlace() = default;
    ~StagingPlace();
    StagingPlace(const StagingPlace&) = delete;
    StagingPlace& operator=(const StagingPlace&) = delete;

    /// The usual path where a file can be put there now, else one of the same name here. The usual one also
    /// where there is no room for such a folder: what is wrong is then told by whoever writes the file.
    [[nodiscard]] std::string pathFor(const std::string& usual);

private:
    std::string folder_; // empty: not needed yet
};

} // namespace pelrath
