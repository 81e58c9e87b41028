#pragma once

#include "controls/modal_windows.hpp"
#include "platform/busy_sign.hpp"
#include "platform/file_associations.hpp"
#include "support/values.hpp"

#include <functional>
#include <string>
#include <vector>

namespace pelrath::test {

/// Dialogs that the test answers.
class AnsweringWindows : public ModalWindows {
public:
    void showModal(Window& window) override {
        ++shown;
        window.activated.emit();
        if (answer) answer();
        window.unload(); // by its frame, unless the answer has done it
    }
    int shown = 0;
    std::function<void()> answer;
};

/// Remembers what it was told.
class RecordingSign : public BusySign {
public:
    void show(const std::string& what, std::uint64_t done, std::uint64_t total) override {
        if (total == 0) return; // comes when the machine is slow
        seen += what + " " + row(done, total) + "; ";
        if (done == total) atTheEnd();
    }
    void clear() override {
        if (seen.ends_with("; ")) seen += "clear";
    }

    std::string seen;
    std::function<void()> atTheEnd = [] {};
};

/// Knows one program for every kind of file, or none.
class RecordingAssociations : public FileAssociations {
public:
    [[nodiscard]] std::string executableFor(const std::string& file) override {
        probe = file;
        return executable;
    }
    void open(const std::string& file, const Failed& failed) override {
        if (broken) return failed(makeError(ErrorNumber::PermissionDenied, "open", "broken"));
        opened.push_back(file);
    }
    std::string executable;
    bool broken = false; ///< it does not start
    std::string probe;
    std::vector<std::string> opened;
};

} // namespace pelrath::test
