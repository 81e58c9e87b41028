#include "platform/posix/child_process.hpp"

#include "platform/runtime_error.hpp"

#include <array>
#include <cerrno>

#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>

namespace pelrath {

namespace {

/// What is done with the handles between the start of a process and that of its program.
class Redirections {
public:
    Redirections() { ::posix_spawn_file_actions_init(&actions_); }
    ~Redirections() { ::posix_spawn_file_actions_destroy(&actions_); }
    Redirections(const Redirections&) = delete;
    Redirections& operator=(const Redirections&) = delete;

    void add(int handle, int as) { ::posix_spawn_file_actions_adddup2(&actions_, handle, as); }
    [[nodiscard]] const posix_spawn_file_actions_t* get() const { return &actions_; }

private:
    posix_spawn_file_actions_t actions_{};
};

} // namespace

ChildProcess::ChildProcess(const std::string& executable, const std::vector<std::string>& arguments) {
    // Unlike a pipe, a socket can be written to without a signal when nobody reads.
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) {
        throw makeSystemError(errno, "ChildProcess", executable);
    }
    ours_ = FileHandle{ends[0]};
    const FileHandle its{ends[1]};
    Redirections redirections;
    redirections.add(its.get(), STDIN_FILENO);
    redirections.add(its.get(), STDOUT_FILENO);
    std::vector<std::string> words{executable};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> line;
    for (std::string& word : words) {
        line.push_back(word.data());
    }
    line.push_back(nullptr);
    const int error =
        ::posix_spawn(&process_, executable.c_str(), redirections.get(), nullptr, line.data(), environ);
    if (error != 0) throw makeSystemError(error, "ChildProcess", executable);
}

ChildProcess::~ChildProcess() {
    ours_.close();
    while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
    }
}

bool ChildProcess::write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = ::send(ours_.get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::optional<std::string> ChildProcess::readText() {
    std::size_t end = 0;
    while ((end = read_.find('\0')) == std::string::npos) {
        std::array<char, 4096> part{};
        const ssize_t count = ::read(ours_.get(), part.data(), part.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return std::nullopt;
        read_.append(part.data(), static_cast<std::size_t>(count));
    }
    std::string text = read_.substr(0, end);
    read_.erase(0, end + 1);
    return text;
}

} // namespace pelrath
