#pragma once

#include "platform/posix/file_handle.hpp"

#include <string>
#include <string_view>

namespace pelrath {

/// A file in the making: it has no name before it is given its own, and leaves nothing when it is given up or
/// its program dies. Where a name must come first, because the file system has no nameless files or is about
/// to rename one over another, it is a hidden one, `.pelrath-` and six letters or digits; the file is locked
/// for as long as it has that, which tells it from one that a dead program left. Failures are answered as the
/// system's errors (errno), 0 being none.
class NewFile {
public:
    enum class Start { Nameless, Hidden };

    NewFile() = default;
    ~NewFile() { giveUp(); }
    NewFile(NewFile&& other) noexcept;
    NewFile& operator=(NewFile&& other) noexcept;
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Makes it in that folder, readable and writable for the user alone. Hidden also where it cannot be
    /// nameless.
    [[nodiscard]] int create(const std::string& folder, Start start = Start::Nameless);

    /// Open for reading and writing.
    [[nodiscard]] int handle() const { return file_.get(); }

    /// Gives it a name in its folder, which stays when this goes. EEXIST where anything has that name. No
    /// other file is ever replaced, nor is part of one ever seen there.
    [[nodiscard]] int takeName(const std::string& name);
    /// Puts it in the place of whatever file has that name, or of none.
    [[nodiscard]] int replace(const std::string& name);
    /// True for an error by which the file system says that its nameless files stay nameless: what is in this
    /// one must go into one that is hidden from its start.
    [[nodiscard]] bool mustBeHidden(int error) const;
    /// True for an error by which it says that not even a hidden one can take a name and replace nothing.
    [[nodiscard]] static bool hasNoWay(int error);

    /// What a system that writes late has to say of what was written so far.
    [[nodiscard]] int settle() const;
    /// Makes the change of its name last, where the file system lets that be asked for. False when the disk
    /// refused it.
    [[nodiscard]] bool flushFolder() const;
    /// Gives it these permissions, where the file system has any.
    [[nodiscard]] int setMode(unsigned mode) const;
    /// Gives it the permissions that a file has which is made by its name.
    [[nodiscard]] int takeUsualMode() const;
    /// The handle, with the lock that a hidden file has; nothing else is to be done with this behind it.
    [[nodiscard]] FileHandle takeHandle() { return std::move(file_); }
    /// Takes back the name that it was given.
    void dropName(const std::string& name) const { ::unlinkat(folder_.get(), name.c_str(), 0); }

private:
    [[nodiscard]] int createHidden();
    [[nodiscard]] int link(const std::string& name) const;
    void giveUp();

    FileHandle folder_;
    FileHandle file_;
    std::string hidden_; // empty while it is nameless, and once it has its own name
    bool nameless_ = false;
};

[[nodiscard]] bool isHiddenName(std::string_view name);

} // namespace pelrath
