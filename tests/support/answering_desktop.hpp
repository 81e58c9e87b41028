#pragma once

#include "controls/modal_windows.hpp"
#include "platform/file_associations.hpp"

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

/// Knows one program for every kind of file, or none.
class RecordingAssociations : public FileAssociations {
public:
    [[nodiscard]] std::string executableFor(const std::string& file) override {
        probe = file;
        return executable;
    }
    void open(const std::string& file) override { opened.push_back(file); }
    std::string executable;
    std::string probe;
    std::vector<std::string> opened;
};

} // namespace pelrath::test
