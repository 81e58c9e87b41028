#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

namespace pelrath {

/// What the program keeps between two runs.
struct ApplicationSettings {
    double mainTop = 0;  ///< the main window's place, in pixels, rounded to 16 bits when stored
    double mainLeft = 0; ///< pixels
    std::string extractionFolder;
    std::string firstTimeDone = "False"; ///< "True", exactly, once the disclaimer was accepted
    std::int32_t viewPortWidth = 512;    ///< pixels
    std::int32_t viewPortHeight = 512;   ///< pixels
    std::int16_t viewPortColor = 0;
    std::string bazarTempFolder;
    std::string cddsBackupFolder;
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

/// Reads every key, in order, from the profile file whose path without ".ini" is `settingsBaseName`. Missing
/// ones give their defaults.
void loadApplicationSettings(const std::string& settingsBaseName, ApplicationSettings& settings);

/// Writes every key, in the same order.
void saveApplicationSettings(const std::string& settingsBaseName, const ApplicationSettings& settings);

} // namespace pelrath
