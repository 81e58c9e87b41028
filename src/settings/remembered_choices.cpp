#include "settings/remembered_choices.hpp"

#include <limits>

namespace pelrath {

namespace {

constexpr const char* section = "Remember";
constexpr std::size_t anyLength = std::numeric_limits<std::size_t>::max();

template <class Choices, class Pass>
void eachKey(Choices& choices, const Pass& pass) {
    pass("Extraction", choices.extraction);
    pass("Insertion", choices.insertion);
}

} // namespace

void RememberedChoices::load(const Profile& profile) {
    eachKey(*this, [&](const char* key, std::string& words) {
        words = profile.text(section, key, anyLength).value_or("");
    });
}

void RememberedChoices::save(Profile& profile) const {
    eachKey(*this, [&](const char* key, const std::string& words) {
        if (!words.empty() || profile.text(section, key, anyLength)) profile.put(section, key, words);
    });
}

} // namespace pelrath
