#pragma once

#include <string>

namespace pelrath {

enum class BoxIcon { None, Exclamation, Critical, Question };
enum class BoxButtons { Ok, OkCancel };
enum class BoxAnswer { Ok, Cancel };

/// The title of a message box that is given none.
inline constexpr const char* programTitle = "Pelrath";

/// Modal message boxes. show() returns when the user has answered; closing the box by its frame answers Ok
/// where Ok is the only button, Cancel otherwise.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    virtual BoxAnswer show(const std::string& text, const std::string& title, BoxIcon icon,
                           BoxButtons buttons) = 0;

    void exclamation(const std::string& text, const std::string& title) {
        show(text, title, BoxIcon::Exclamation, BoxButtons::Ok);
    }
    void critical(const std::string& text, const std::string& title) {
        show(text, title, BoxIcon::Critical, BoxButtons::Ok);
    }
};

} // namespace pelrath
