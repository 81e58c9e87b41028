#pragma once

#include "support/values.hpp"

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>

#include <sys/resource.h>
#include <sys/stat.h>

namespace pelrath::test {

/// A folder of the test's own, gone with all that is in it at its end.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "pelrath-test-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error{"no temporary folder"};
        path_ = pattern;
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string file(const std::string& name) const { return path_ + "/" + name; }

    [[nodiscard]] std::string write(const std::string& name, std::string_view bytes) const {
        std::ofstream out{file(name), std::ios::binary | std::ios::trunc};
        out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return file(name);
    }
    /// Nothing where there is no file.
    [[nodiscard]] std::string read(const std::string& name) const {
        if (!std::filesystem::is_regular_file(file(name))) return {};
        std::ifstream in{file(name), std::ios::binary};
        return {std::istreambuf_iterator<char>{in}, {}};
    }
    void makeFolder(const std::string& name) const { std::filesystem::create_directories(file(name)); }
    /// What nobody can open without waiting.
    void makePipe(const std::string& name) const { mkfifo(file(name).c_str(), 0600); }
    /// A file, or a folder with all that is in it.
    void remove(const std::string& name) const { std::filesystem::remove_all(file(name)); }
    /// Not true for a link that leads nowhere.
    [[nodiscard]] bool has(const std::string& name) const { return std::filesystem::exists(file(name)); }
    void permit(const std::string& name, unsigned bits) const {
        std::filesystem::permissions(file(name), std::filesystem::perms{bits});
    }
    [[nodiscard]] unsigned permitted(const std::string& name) const {
        return static_cast<unsigned>(std::filesystem::status(file(name)).permissions());
    }
    /// The names in it, or in a folder inside it, sorted.
    [[nodiscard]] std::vector<std::string> names(const std::string& inside = ".") const {
        std::vector<std::string> found;
        for (const auto& entry : std::filesystem::directory_iterator{file(inside)}) {
            found.push_back(entry.path().filename().string());
        }
        std::sort(found.begin(), found.end());
        return found;
    }
    /// The same as one text, with blanks between them.
    [[nodiscard]] std::string list(const std::string& inside = ".") const {
        std::string text;
        for (const std::string& name : names(inside)) {
            text += (text.empty() ? "" : " ") + name;
        }
        return text;
    }

private:
    std::string path_;
};

/// While it lives, the system's folder for temporary files is another.
class TemporaryFilesIn {
public:
    explicit TemporaryFilesIn(const std::string& folder) : before_(std::filesystem::temp_directory_path()) {
        std::filesystem::create_directory(folder);
        setenv("TMPDIR", folder.c_str(), 1);
    }
    ~TemporaryFilesIn() { setenv("TMPDIR", before_.c_str(), 1); }

private:
    std::string before_;
};

/// While it lives, no file of this process grows past a size: the system refuses the write half-way.
class FullDisk {
public:
    explicit FullDisk(rlim_t size) : handler_(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit small{size, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }

private:
    rlimit before_{};
    void (*handler_)(int);
};

} // namespace pelrath::test
