#include "several/texture_list.hpp"

#include "platform/text.hpp"

#include <algorithm>

namespace pelrath::several {

namespace {

/// Tells which names in capitals a filter means.
class Filter {
public:
    explicit Filter(std::string_view text) : wanted_(upperCase(trimBlanks(text))) {
        isPattern_ = wanted_.find_first_of("*?") != std::string::npos;
        if (isPattern_) wanted_ = "*" + wanted_ + "*";
    }
    [[nodiscard]] bool means(const std::string& name) const {
        return isPattern_ ? matchesPattern(wanted_, name) : name.find(wanted_) != std::string::npos;
    }

private:
    std::string wanted_;
    bool isPattern_ = false;
};

std::string sidesOf(const TextureRecord& texture) {
    if (texture.mipmaps.empty()) return {};
    const MipmapRecord& largest = texture.mipmaps.front();
    return std::to_string(largest.width) + " x " + std::to_string(largest.height);
}

} // namespace

void TextureList::fill(const CddsArchive& archive) {
    archive_ = &archive;
    names_.clear();
    for (const TextureRecord& texture : archive.textures) {
        names_.push_back(upperCase(texture.name));
    }
    checked_.assign(names_.size(), false);
    currentRow_ = -1;
    filter("");
    tellMarks();
}

void TextureList::filter(std::string_view text) {
    const std::int16_t current =
        currentRow_ < 0 ? std::int16_t{-1} : shown_.at(static_cast<std::size_t>(currentRow_));
    const Filter wanted{text};
    shown_.clear();
    for (std::size_t i = 0; i < names_.size(); ++i) {
        if (wanted.means(names_[i])) shown_.push_back(static_cast<std::int16_t>(i));
    }
    ++fillings_;
    currentRow_ = shown_.empty() ? -1 : 0;
    goTo(current);
    changed.emit();
}

std::string TextureList::text(int row, Column column) const {
    const TextureRecord& texture = archive_->textures.at(indexOf(row));
    switch (column) {
    case Name:
        return visibleText(texture.name);
    case Sides:
        return sidesOf(texture);
    case Type:
        return visibleText(texture.fourCC);
    case Levels:
        return std::to_string(texture.mipmaps.size());
    }
    return {};
}

bool TextureList::mark(std::size_t index, bool checked) {
    if (checked_[index] == checked) return false;
    checked_[index] = checked;
    return true;
}

void TextureList::tellMarks() {
    checkedCount_ = static_cast<std::size_t>(std::ranges::count(checked_, true));
    changed.emit();
    marked.emit();
}

void TextureList::setChecked(int row, bool checked) {
    if (row >= 0 && row < count() && mark(indexOf(row), checked)) tellMarks();
}

void TextureList::checkShown(bool checked) {
    bool any = false;
    for (int row = 0; row < count(); ++row) {
        any = mark(indexOf(row), checked) || any;
    }
    if (any) tellMarks();
}

std::vector<std::int16_t> TextureList::checked() const {
    std::vector<std::int16_t> textures;
    for (std::size_t i = 0; i < checked_.size(); ++i) {
        if (checked_[i]) textures.push_back(static_cast<std::int16_t>(i));
    }
    return textures;
}

void TextureList::check(const std::vector<std::int16_t>& textures) {
    if (textures == checked()) return;
    checked_.assign(checked_.size(), false);
    for (const std::int16_t texture : textures) {
        checked_.at(static_cast<std::size_t>(texture)) = true;
    }
    tellMarks();
}

void TextureList::setCurrentRow(int row) {
    if (row >= 0 && row < count()) assign(currentRow_, row);
}

void TextureList::goTo(std::int16_t texture) {
    const auto found = std::ranges::lower_bound(shown_, texture);
    if (found != shown_.end() && *found == texture) setCurrentRow(static_cast<int>(found - shown_.begin()));
}

} // namespace pelrath::several
