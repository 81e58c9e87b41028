#include "controls/text_box.hpp"

#include "platform/text.hpp"

#include <algorithm>

namespace pelrath {

void TextBox::setText(std::string text) {
    if (text == text_) return;
    text_ = std::move(text);
    selectionStart_ = 0;
    selectionLength_ = 0;
    changed.emit();
    change.emit();
}

void TextBox::setSelection(std::size_t start, std::size_t length) {
    adoptSelection(start, length);
    changed.emit();
}

void TextBox::edit(std::string text, std::size_t start, std::size_t length) {
    const bool same = text == text_;
    text_ = std::move(text);
    adoptSelection(start, length);
    if (!same) change.emit();
}

void TextBox::adoptSelection(std::size_t start, std::size_t length) {
    const std::size_t count = characterCount(text_);
    selectionStart_ = std::min(start, count);
    selectionLength_ = std::min(length, count - selectionStart_);
}

} // namespace pelrath
