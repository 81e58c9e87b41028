#pragma once

#include "platform/message_boxes.hpp"

#include <gtest/gtest.h>

#include <functional>

namespace pelrath::test {

struct ShownBox {
    std::string text;
    std::string title;
    BoxIcon icon = BoxIcon::Exclamation;
    BoxButtons buttons = BoxButtons::Ok;
    bool operator==(const ShownBox&) const = default;
};

inline std::ostream& operator<<(std::ostream& out, const ShownBox& box) {
    return out << '[' << box.title << "] " << box.text << " (icon " << static_cast<int>(box.icon)
               << ", buttons " << static_cast<int>(box.buttons) << ')';
}

/// Message boxes that nobody sees. One that the test never takes fails it.
class RecordingBoxes : public MessageBoxes {
public:
    ~RecordingBoxes() override {
        for (const ShownBox& box : shown_) {
            ADD_FAILURE() << "unexpected message box: " << box;
        }
    }

    BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                   BoxButtons buttons) override {
        shown_.push_back({text, title, icon, buttons});
        if (whileShown) whileShown();
        return answer;
    }

    /// What was shown since the last call.
    std::vector<ShownBox> take() { return std::exchange(shown_, {}); }
    /// Since the last call one was shown, with these words in its text; none where the words are null.
    void expect(const char* words) {
        const std::vector<ShownBox> shown = take();
        ASSERT_EQ(shown.size(), words == nullptr ? 0U : 1U);
        if (words != nullptr) {
            EXPECT_NE(shown[0].text.find(words), std::string::npos) << shown[0];
        }
    }

    /// Since the last call this one was shown, and no other.
    void expect(const ShownBox& box) { EXPECT_EQ(take(), std::vector{box}); }

    BoxAnswer answer = BoxAnswer::Ok;
    std::function<void()> whileShown;

private:
    std::vector<ShownBox> shown_;
};

} // namespace pelrath::test
