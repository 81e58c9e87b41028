#pragma once

#include <stdexcept>
#include <string>

#include <csignal>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pelrath::test {

/// Another program that lives, and has a file or folder locked until it is killed.
class OtherProgram {
public:
    explicit OtherProgram(const std::string& path) {
        int ends[2];
        if (pipe(ends) != 0) throw std::runtime_error{"no pipe"};
        process_ = fork();
        if (process_ == 0) {
            dup2(ends[1], 0);
            close_range(1, ~0U, 0); // the locks of this program are not to outlive it
            const int held = open(path.c_str(), O_RDONLY);
            if (held < 0 || flock(held, LOCK_EX | LOCK_NB) != 0 || write(0, "", 1) != 1) _exit(1);
            for (;;) {
                pause();
            }
        }
        close(ends[1]);
        char byte = 0;
        const bool locked = read(ends[0], &byte, 1) == 1;
        close(ends[0]);
        if (!locked) throw std::runtime_error{"no lock of " + path};
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
    ~OtherProgram() {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }

private:
    pid_t process_ = -1;
};

} // namespace pelrath::test
