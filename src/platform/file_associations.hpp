#pragma once

#include <string>

namespace pelrath {

/// The programs that the desktop opens files with.
class FileAssociations {
public:
    virtual ~FileAssociations() = default;

    /// Path of the executable that opens files of the kind of this existing file, which its extension tells,
    /// or of the desktop entry of a program that has none and is started by message; empty when there is no
    /// program.
    [[nodiscard]] virtual std::string executableFor(const std::string& file) = 0;

    /// Starts the program for `file` with its path as the one argument, without waiting for it and without
    /// handing the focus to it. Fails when it cannot be started, with a description that says what to do.
    virtual void open(const std::string& file) = 0;
};

/// The associations of the user's desktop, from its own database of file types.
class DesktopAssociations : public FileAssociations {
public:
    [[nodiscard]] std::string executableFor(const std::string& file) override;
    void open(const std::string& file) override;
};

} // namespace pelrath
