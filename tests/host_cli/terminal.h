// SPDX-License-Identifier: LicenseRef-ORVALD
// A program at a terminal of its own: keys go in, what would be on the screen comes out.
#pragma once

#include <chrono>
#include <csignal>
#include <poll.h>
#include <pty.h>
#include <string>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

namespace kextest {

class Terminal
{
public:
    /// Runs one command, given as shell text, in a folder.
    Terminal(const std::string& folder, const std::string& command)
    {
        winsize size = {40, 100, 0, 0};
        child_ = forkpty(&file_, nullptr, nullptr, &size);
        if (child_ != 0) return;
        setenv("TERM", "xterm", 1);
        setenv("LC_ALL", "C", 1);
        if (chdir(folder.c_str()) != 0) _exit(127);
        execl("/bin/sh", "sh", "-c", ("exec " + command).c_str(), nullptr);
        _exit(127);
    }
    ~Terminal()
    {
        if (!ended_) {
            kill(child_, SIGKILL);
            waitpid(child_, nullptr, 0);
        }
        close(file_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    void type(std::string_view keys)
    {
        seen_.clear();
        while (!keys.empty()) {
            const ssize_t count = write(file_, keys.data(), keys.size());
            if (count <= 0) return;
            keys.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    /// Waits until the text has come since the last keys; false after some seconds.
    bool waitFor(std::string_view text)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(10);
        while (seen_.find(text) == std::string::npos) {
            if (std::chrono::steady_clock::now() > end || !readMore(10'000)) return false;
        }
        return true;
    }
    /// Types, then waits for the text.
    bool answers(std::string_view keys, std::string_view text)
    {
        type(keys);
        return waitFor(text);
    }
    /// What has come since the last keys.
    const std::string& seen() const { return seen_; }
    /// The exit status, -1 where the program does not end by itself in some seconds.
    int end()
    {
        int status = 0;
        for (int i = 0; i < 1000 && !ended_; ++i) {
            if (!readMore(10)) usleep(10'000);
            ended_ = waitpid(child_, &status, WNOHANG) == child_;
        }
        return ended_ && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    bool readMore(int milliseconds)
    {
        pollfd wait = {file_, POLLIN, 0};
        if (poll(&wait, 1, milliseconds) <= 0) return false;
        char bytes[4096];
        const ssize_t count = read(file_, bytes, sizeof bytes);
        if (count <= 0) return false;
        for (const char byte : std::string_view(bytes, static_cast<std::size_t>(count))) take(byte);
        return true;
    }
    /// Leaves out what moves the cursor: text that is added shows behind what is there.
    void take(char byte)
    {
        const bool begins = byte == '\x1b';
        if (begins || inEscape_) {
            inEscape_ = begins || byte == '[' || byte == ';' || (byte >= '0' && byte <= '?');
        } else if (byte == '\n' || static_cast<unsigned char>(byte) >= ' ') {
            seen_ += byte;
        }
    }

    int file_ = -1;
    pid_t child_ = -1;
    bool ended_ = false;
    bool inEscape_ = false;
    std::string seen_;
};

} // namespace kextest
