#pragma once

#include "platform/linux/StandardErrorLog.h"
#include "support/PrivateMounts.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace blankwell {

/// The system's own journal service, run for a test. Needs mounts and a /run that are the test's
/// own.
class SystemJournal {
public:
    SystemJournal() {
        if (std::filesystem::exists("/dev/kmsg")) {
            bindMount("/dev/null", "/dev/kmsg");
        }
        std::filesystem::create_directories("/run/log/journal");
        std::filesystem::create_directories("/run/systemd/journald.conf.d");
        // Nothing of the machine's: no disk, no kernel messages either way, and the audit as it is.
        std::ofstream("/run/systemd/journald.conf.d/test.conf")
            << "[Journal]\nStorage=volatile\nAudit=\nReadKMsg=no\nForwardToSyslog=no\n";
        service_ = ::fork();
        if (service_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::execl("/usr/lib/systemd/systemd-journald", "systemd-journald", nullptr);
            ::_exit(127);
        }
        for (int attempt = 0; attempt < 1000 && !journalListens(); ++attempt) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        EXPECT_TRUE(journalListens()) << "systemd-journald did not start";
    }

    ~SystemJournal() {
        ::kill(service_, SIGTERM);
        ::waitpid(service_, nullptr, 0);
    }

    SystemJournal(const SystemJournal&) = delete;
    SystemJournal& operator=(const SystemJournal&) = delete;

    /// The `MESSAGE` of each entry that `journalctl` finds by `matches`, oldest first.
    static std::vector<std::string> messages(const std::string& matches) {
        const auto command =
            "journalctl --sync && journalctl -q -o json -D /run/log/journal/* " + matches;
        const std::unique_ptr<FILE, int (*)(FILE*)> output(::popen(command.c_str(), "r"), ::pclose);
        std::vector<std::string> result;
        std::string line;
        for (int next = std::fgetc(output.get()); next != EOF; next = std::fgetc(output.get())) {
            if (next != '\n') {
                line += static_cast<char>(next);
                continue;
            }
            result.push_back(nlohmann::json::parse(line).at("MESSAGE").get<std::string>());
            line.clear();
        }
        return result;
    }

private:
    pid_t service_;
};

} // namespace blankwell
