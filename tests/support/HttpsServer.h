#pragma once

#include "support/TemporaryFolder.h"

#include <fmt/core.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <string_view>

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace blankwell {

/// A web server on the loopback, with an authority of its own (see https_server.py), as long as
/// this value lives. It serves the files that a test puts in its folder.
class HttpsServer {
public:
    HttpsServer() {
        int input[2];
        int output[2];
        if (::pipe(input) != 0 || ::pipe(output) != 0) {
            throw std::runtime_error("no pipes");
        }
        start(input, output);
        ::close(input[0]);
        ::close(output[1]);
        input_ = input[1];
        readPorts(output[0]);
    }

    ~HttpsServer() {
        ::close(input_);
        ::waitpid(process_, nullptr, 0);
    }

    HttpsServer(const HttpsServer&) = delete;
    HttpsServer& operator=(const HttpsServer&) = delete;

    [[nodiscard]] const TemporaryFolder& folder() const { return folder_; }

    [[nodiscard]] std::string certificates() const { return folder_.at("authority.pem").path(); }

    [[nodiscard]] std::string url(std::string_view path) const { return at("https", 0, path); }

    /// The same server without encryption.
    [[nodiscard]] std::string plainUrl(std::string_view path) const { return at("http", 1, path); }

    /// Vouched for by an authority that nobody trusts.
    [[nodiscard]] std::string foreignUrl(std::string_view path) const {
        return at("https", 2, path);
    }

    /// With a certificate for another host.
    [[nodiscard]] std::string elsewhereUrl(std::string_view path) const {
        return at("https", 3, path);
    }

    /// With a certificate of the past.
    [[nodiscard]] std::string expiredUrl(std::string_view path) const {
        return at("https", 4, path);
    }

private:
    [[nodiscard]] std::string at(std::string_view scheme, int server, std::string_view path) const {
        return fmt::format("{}://127.0.0.1:{}/{}", scheme, ports_[server], path);
    }

    void start(const int (&input)[2], const int (&output)[2]) {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, input[0], STDIN_FILENO);
        posix_spawn_file_actions_adddup2(&actions, output[1], STDOUT_FILENO);
        posix_spawn_file_actions_addclosefrom_np(&actions, 3);
        const char* const arguments[] = {BLANKWELL_SYSTEM_PYTHON, "-B", BLANKWELL_HTTPS_SERVER,
                                         folder_.url().path().c_str(), nullptr};
        const int failed = ::posix_spawn(&process_, arguments[0], &actions, nullptr,
                                         const_cast<char* const*>(arguments), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (failed != 0) {
            throw std::runtime_error("the server does not start");
        }
    }

    void readPorts(int output) {
        std::FILE* const stream = ::fdopen(output, "r");
        const int count = std::fscanf(stream, "%d %d %d %d %d", &ports_[0], &ports_[1], &ports_[2],
                                      &ports_[3], &ports_[4]);
        std::fclose(stream);
        if (count != 5) {
            throw std::runtime_error("the server does not tell its ports");
        }
    }

    TemporaryFolder folder_;
    pid_t process_ = -1;
    int input_ = -1;
    int ports_[5]{};
};

} // namespace blankwell
