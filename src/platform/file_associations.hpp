#pragma once

#include "platform/runtime_error.hpp"

#include <functional>
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

    /// Hears that a program does not start; the description says what to do.
    using Failed = std::function<void(const RuntimeError&)>;

    /// Starts the program for `file` with its path as the one argument, without waiting for it and without
    /// handing the focus to it. Calls `failed`, as soon as it shows and nothing else runs, where it does not
    /// start; never after this object's end.
    virtual void open(const std::string& file, const Failed& failed) = 0;
};

} // namespace pelrath
