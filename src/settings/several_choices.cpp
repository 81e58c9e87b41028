#include "settings/several_choices.hpp"

#include <limits>

namespace pelrath {

namespace {

constexpr const char* section = "Several";
constexpr std::size_t anyLength = std::numeric_limits<std::size_t>::max();
constexpr std::int16_t levelChoices = 3;
constexpr std::int16_t filters = 9;

// One place for all of the section.
template <class Choices, class Pass>
void eachKey(Choices& c, const Pass& pass) {
    pass("Remember", c.remembered, std::int16_t{2});
    pass("Images", c.images, std::int16_t{2});
    pass("Levels", c.levels, levelChoices);
    pass("Create", c.create, std::int16_t{2});
    pass("Filter", c.filter, filters);
    pass("Overwrite", c.overwrite, std::int16_t{2});
}

} // namespace

void SeveralChoices::load(const Profile& profile) {
    *this = {};
    eachKey(*this, [&profile](const char* key, auto& value, std::int16_t end) {
        const std::int32_t stored = profile.number(section, key, value);
        if (stored >= 0 && stored < end) value = static_cast<std::decay_t<decltype(value)>>(stored);
    });
    folder = profile.text(section, "Folder", anyLength).value_or("");
    if (!remembered) *this = {};
}

void SeveralChoices::save(Profile& profile) const {
    if (!remembered && !profile.text(section, "Remember", anyLength)) return;
    eachKey(*this, [&profile](const char* key, auto value, std::int16_t /*end*/) {
        profile.put(section, key, std::to_string(static_cast<int>(value)));
    });
    profile.put(section, "Folder", folder);
}

} // namespace pelrath
