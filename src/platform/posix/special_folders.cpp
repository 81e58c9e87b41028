#include "platform/posix/special_folders.hpp"

#include <glib.h>

namespace pelrath {

namespace {

const char* pathOf(std::int32_t folder) {
    switch (folder) {
    case special_folder::desktop:
    case special_folder::desktopFolder:
        return g_get_user_special_dir(G_USER_DIRECTORY_DESKTOP);
    case special_folder::documents:
        return g_get_user_special_dir(G_USER_DIRECTORY_DOCUMENTS);
    case special_folder::music:
        return g_get_user_special_dir(G_USER_DIRECTORY_MUSIC);
    case special_folder::videos:
        return g_get_user_special_dir(G_USER_DIRECTORY_VIDEOS);
    case special_folder::templates:
        return g_get_user_special_dir(G_USER_DIRECTORY_TEMPLATES);
    case special_folder::pictures:
        return g_get_user_special_dir(G_USER_DIRECTORY_PICTURES);
    case special_folder::applicationData:
        return g_get_user_config_dir();
    case special_folder::localApplicationData:
        return g_get_user_data_dir();
    case special_folder::home:
        return g_get_home_dir();
    default:
        return nullptr;
    }
}

} // namespace

std::string specialFolderPath(std::int32_t folder) {
    const char* const path = pathOf(folder);
    return path == nullptr ? std::string{} : path;
}

} // namespace pelrath
