#include "copies/copy_list.hpp"

#include "platform/text.hpp"

namespace pelrath::copies {

namespace {

std::string namesOf(const batch::Plan& differences) {
    constexpr std::size_t most = 4; // as many as the width of a line has room for
    if (differences.empty()) return "nothing";
    const std::size_t count = differences.size();
    std::string names = std::to_string(count) + (count == 1 ? " texture: " : " textures: ");
    for (std::size_t i = 0; i < count && i < most; ++i) {
        names += (i == 0 ? "" : ", ") + visibleText(differences[i].name);
    }
    return count > most ? names + ", ..." : names;
}

} // namespace

std::string wordsOf(const CopyLook& look) {
    switch (look.state) {
    case CopyState::Waiting:
        return "waiting";
    case CopyState::Looking:
        return "comparing, " + std::to_string(look.percent) + " %";
    case CopyState::Stopped:
        return "not compared";
    case CopyState::Compared:
        return namesOf(look.differences);
    case CopyState::OfAnother:
        return "of another archive";
    case CopyState::Unreadable:
        return "cannot be compared";
    }
    return {};
}

} // namespace pelrath::copies
