#include "settings/application_settings.hpp"

#include "platform/runtime_error.hpp"
#include "settings/csetting.hpp"

#include <algorithm>
#include <cmath>

namespace pelrath {

namespace {

// One place for all that stands in the file, in its order. Whole numbers and texts are told apart by what
// they are kept in.
template <class Settings, class Pass>
void eachKey(Settings& s, const Pass& pass) {
    pass("Settings", "MainTop", s.mainTop);
    pass("Settings", "MainLeft", s.mainLeft);
    pass("Setup", "extractionfolder", s.extractionFolder);
    pass("Setup", "firsttimedone", s.firstTimeDone);
    pass("Settings", "ViewPortWidth", s.viewPortWidth);
    pass("Settings", "ViewPortHeight", s.viewPortHeight);
    pass("Settings", "ViewPortColor", s.viewPortColor);
    pass("Settings", "bazartempfolder", s.bazarTempFolder);
    pass("Settings", "cddsbackupfolder", s.cddsBackupFolder);
}

template <class Operation>
void atKey(const char* key, const Operation& operation) {
    try {
        operation();
    } catch (const RuntimeError& error) {
        throw SettingsPassEnded{key, error.description()};
    }
}

struct Load {
    CSetting& store;

    void operator()(const char* section, const char* key, std::string& value) const {
        atKey(key, [&] { value = store.GetSettingStr(section, key, value); });
    }
    template <class Number>
    void operator()(const char* section, const char* key, Number& value) const {
        atKey(key, [&] { value = store.GetSettingInt(section, key, static_cast<std::int16_t>(value)); });
    }
};

struct Save {
    CSetting& store;

    void operator()(const char* section, const char* key, const std::string& value) const {
        atKey(key, [&] { store.SaveSettingStr(section, key, value); });
    }
    template <class Number>
    void operator()(const char* section, const char* key, const Number& value) const {
        atKey(key, [&] {
            const double rounded = std::nearbyint(static_cast<double>(value));
            store.SaveSettingInt(section, key,
                                 narrowed(static_cast<std::int64_t>(std::clamp(rounded, -1e6, 1e6))));
        });
    }
};

// What cannot be read must not be written over either.
CSetting storeFor(const std::string& settingsBaseName) try {
    CSetting store;
    store.Init(settingsBaseName, CSetting::IniMode);
    store.beginPass();
    return store;
} catch (const RuntimeError& error) {
    throw SettingsUnreadable{error.description()};
}

} // namespace

void loadApplicationSettings(const std::string& settingsBaseName, ApplicationSettings& settings) {
    settings = {};
    CSetting store = storeFor(settingsBaseName);
    settings.recentArchives.load(store.pass()); // which cannot fail half-way
    settings.remembered.load(store.pass());
    settings.several.load(store.pass());
    eachKey(settings, Load{store});
}

void saveApplicationSettings(const std::string& settingsBaseName, const ApplicationSettings& settings) {
    CSetting store = storeFor(settingsBaseName);
    try {
        eachKey(settings, Save{store});
        settings.recentArchives.save(store.pass());
        settings.remembered.save(store.pass());
        settings.several.save(store.pass());
    } catch (const SettingsPassEnded&) {
        store.endPass();
        throw;
    }
    store.endPass();
}

} // namespace pelrath
