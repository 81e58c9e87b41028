#include "platform/file_associations.hpp"

#include "platform/files.hpp"
#include "platform/runtime_error.hpp"

#include <gio/gdesktopappinfo.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <memory>

#include <unistd.h>

namespace pelrath {

namespace {

struct Unref {
    void operator()(gpointer object) const { g_object_unref(object); }
};
template <class T>
using Object = std::unique_ptr<T, Unref>;

struct Free {
    void operator()(gpointer memory) const { g_free(memory); }
    void operator()(char** words) const { g_strfreev(words); }
    void operator()(GError* error) const { g_error_free(error); }
};
using Text = std::unique_ptr<char, Free>;

Object<GAppInfo> programFor(const std::string& file) {
    // By the extension alone: an empty file's content is of no kind.
    const std::string name = "file." + std::string{fileExtension(file)};
    const Text type{g_content_type_guess(name.c_str(), nullptr, 0, nullptr)};
    if (g_content_type_is_unknown(type.get()) != FALSE) return nullptr;
    return Object<GAppInfo>{g_app_info_get_default_for_type(type.get(), FALSE)};
}

std::string executableOf(GAppInfo* program) {
    const char* command = g_app_info_get_commandline(program);
    char** split = nullptr;
    if (command == nullptr || g_shell_parse_argv(command, nullptr, &split, nullptr) == FALSE) return {};
    const std::unique_ptr<char*, Free> words{split};
    const Text path{g_find_program_in_path(split[0])};
    return path ? path.get() : "";
}

bool isStartedByMessage(GAppInfo* program) {
    return g_desktop_app_info_get_boolean(G_DESKTOP_APP_INFO(program), "DBusActivatable") != FALSE;
}

// Empty for a program that is none.
std::string interpreterOf(const std::string& program) {
    std::array<char, 256> start{}; // as far as the system looks
    std::ifstream{program, std::ios::binary}.read(start.data(), start.size() - 1);
    std::string_view line{start.data()};
    if (!line.starts_with("#!")) return {};
    line = line.substr(2, line.find('\n') - 2);
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    return std::string{line.substr(0, line.find_first_of(" \t"))};
}

RuntimeError notStarted(ErrorNumber number, const std::string& file, const std::string& reason) {
    return {static_cast<int>(number), "launchEditor",
            "The image editor cannot be started: " + reason +
                ".\r\n\r\nPlease choose another program for such files in the settings of your desktop, or "
                "open " +
                file + " by hand."};
}

// Programs are started through a helper, which nobody hears fail.
void requireExecutable(const std::string& program, const std::string& file) {
    const auto require = [&](const std::string& executed, const std::string& whose) {
        if (::access(executed.c_str(), X_OK) == 0) return;
        const ErrorNumber number = errorNumberOf(errno);
        throw notStarted(number, file, whose + executed + " cannot be executed");
    };
    require(program, "");
    const std::string interpreter = interpreterOf(program);
    if (!interpreter.empty()) require(interpreter, program + " cannot be run, as its interpreter ");
}

} // namespace

std::string DesktopAssociations::executableFor(const std::string& file) {
    const Object<GAppInfo> program = programFor(file);
    if (!program) return {};
    std::string executable = executableOf(program.get());
    if (!executable.empty() || !isStartedByMessage(program.get())) return executable;
    const char* entry = g_desktop_app_info_get_filename(G_DESKTOP_APP_INFO(program.get()));
    return entry == nullptr ? "" : entry;
}

// Through its desktop entry, as a sandboxed program has no other way to be started.
void DesktopAssociations::open(const std::string& file) {
    const Object<GAppInfo> program = programFor(file);
    if (!program) throw notStarted(ErrorNumber::FileNotFound, file, "there is none any more");
    if (!isStartedByMessage(program.get())) requireExecutable(executableOf(program.get()), file);
    const Object<GFile> argument{g_file_new_for_path(file.c_str())};
    const std::unique_ptr<GList, decltype(&g_list_free)> arguments{g_list_append(nullptr, argument.get()),
                                                                   &g_list_free};
    const Object<GAppLaunchContext> context{g_app_launch_context_new()};
    // Started "at time 0", long before anything the user did: for window managers that heed it, and programs
    // that pass it on, the focus stays where it is.
    g_app_launch_context_setenv(context.get(), "DESKTOP_STARTUP_ID", "pelrath_TIME0");
    GError* error = nullptr;
    if (g_app_info_launch(program.get(), arguments.get(), context.get(), &error) != FALSE) return;
    const std::unique_ptr<GError, Free> failure{error};
    throw notStarted(ErrorNumber::FileNotFound, file, failure->message);
}

} // namespace pelrath
