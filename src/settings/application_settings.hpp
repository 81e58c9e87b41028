#pragma once

#include "settings/recent_archives.hpp"
#include "settings/remembered_choices.hpp"
#include "settings/several_choices.hpp"

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

namespace pelrath {

/// How many background colours the viewport has.
inline constexpr std::int16_t backgroundColors = 9;

/// What the program keeps between two runs.
struct ApplicationSettings {
    double mainTop = 0;  ///< the main window's place, in pixels, rounded to 16 bits when stored
    double mainLeft = 0; ///< pixels
    std::string extractionFolder;
    std::string firstTimeDone = "False"; ///< "True", exactly, once the disclaimer was accepted
    std::int32_t viewPortWidth = 512;    ///< pixels
    std::int32_t viewPortHeight = 512;   ///< pixels
    std::int16_t viewPortColor = 0;      ///< below backgroundColors
    std::string bazarTempFolder;
    std::string cddsBackupFolder;
    RecentArchives recentArchives;
    RememberedChoices remembered;
    SeveralChoices several;
};

/// A load or save pass that ended at a key. The keys before it are done, it and those behind it are not.
class SettingsPassEnded : public std::runtime_error {
public:
    SettingsPassEnded(std::string key, const std::string& reason)
        : std::runtime_error(reason), key_(std::move(key)) {}
    [[nodiscard]] const std::string& key() const { return key_; }

private:
    std::string key_;
};

/// The settings file is there and cannot be read: nothing of it is known. The reason names it.
class SettingsUnreadable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Reads every key, in order and in one reading, from the profile file whose path without ".ini" is
/// `settingsBaseName`. Missing ones give their defaults.
void loadApplicationSettings(const std::string& settingsBaseName, ApplicationSettings& settings);

/// Writes every key, in the same order, all at once. A file that cannot be read (SettingsUnreadable) or
/// written stays as it is.
void saveApplicationSettings(const std::string& settingsBaseName, const ApplicationSettings& settings);

} // namespace pelrath
