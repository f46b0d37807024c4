#include "platform/linux/JournalLog.h"

#include "contract/LogContract.h"
#include "platform/linux/FileDescriptor.h"
#include "support/PrivateMounts.h"
#include "support/SystemJournal.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <map>

#include <sys/socket.h>
#include <sys/un.h>

namespace blankwell {
namespace {

constexpr auto socketPath = "/run/systemd/journal/socket";

using Entry = std::map<std::string, std::string>;

/// Gives this program a /run of its own, once.
void replaceRunFolder() {
    static const bool replaced = [] {
        enterPrivateMounts(0);
        mountEmptyFolder("/run");
        return std::filesystem::create_directories("/run/systemd/journal");
    }();
    ASSERT_TRUE(replaced);
}

/// Reads one entry in the journal's native protocol: `NAME=value` lines, and for values that hold
/// line feeds the name on a line, 64 bits of little-endian size, the value, a line feed.
Entry parseEntry(std::string_view packet) {
    Entry entry;
    while (!packet.empty()) {
        const auto name = packet.substr(0, packet.find_first_of("=\n"));
        packet.remove_prefix(name.size());
        std::size_t start = 1;
        std::size_t size = packet.find('\n') - 1;
        if (packet.starts_with('\n')) {
            start = 1 + sizeof(std::uint64_t);
            std::memcpy(&size, packet.data() + 1, sizeof(std::uint64_t));
        }
        EXPECT_TRUE(entry.emplace(name, packet.substr(start, size)).second) << name;
        packet.remove_prefix(start + size + 1);
    }
    return entry;
}

/// A socket in the place of the system's journal.
class JournalSocket {
public:
    JournalSocket() {
        replaceRunFolder();
        std::filesystem::remove(socketPath);
        sockaddr_un address{.sun_family = AF_UNIX};
        std::strcpy(address.sun_path, socketPath);
        EXPECT_EQ(
            ::bind(socket_.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
    }

    std::vector<Entry> entries() {
        std::vector<Entry> result;
        std::string packet(200'000, '\0');
        while (true) {
            const auto size = ::recv(socket_.get(), packet.data(), packet.size(), MSG_DONTWAIT);
            if (size < 0) {
                return result;
            }
            result.push_back(
                parseEntry(std::string_view(packet).substr(0, static_cast<std::size_t>(size))));
        }
    }

    void stopListening() { socket_.reset(); }

private:
    FileDescriptor socket_{::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0)};
};

struct JournalSubject {
    Log& log() { return journalLog; }

    std::vector<FakeLog::Line> arrived() {
        std::vector<FakeLog::Line> lines;
        for (auto& entry : journal.entries()) {
            EXPECT_EQ(entry["SUBSYSTEM"], "app.blankwell.BlankwellPlus");
            lines.push_back({entry["PRIORITY"] == "3" ? LogLevel::error : LogLevel::notice,
                             entry["CATEGORY"], entry["MESSAGE"]});
        }
        return lines;
    }

    JournalSocket journal;
    JournalLog journalLog{"blankwell-plus"};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Journal, LogContract, JournalSubject);

struct JournalLogTest : testing::Test {
    JournalSocket journal;
    JournalLog log{"blankwell-plus"};
};

TEST_F(JournalLogTest, AnEntryHasExactlyTheFieldsThatReadersSelectBy) {
    log.write(LogLevel::notice, "DesktopCreation", "Created /a");
    log.write(LogLevel::error, "Uninstall", "No");
    EXPECT_THAT(journal.entries(),
                testing::ElementsAre(Entry{{"MESSAGE", "Created /a"},
                                           {"PRIORITY", "5"},
                                           {"SUBSYSTEM", "app.blankwell.BlankwellPlus"},
                                           {"CATEGORY", "DesktopCreation"},
                                           {"SYSLOG_IDENTIFIER", "blankwell-plus"}},
                                     Entry{{"MESSAGE", "No"},
                                           {"PRIORITY", "3"},
                                           {"SUBSYSTEM", "app.blankwell.BlankwellPlus"},
                                           {"CATEGORY", "Uninstall"},
                                           {"SYSLOG_IDENTIFIER", "blankwell-plus"}}));
}

TEST_F(JournalLogTest, MessagesKeepTheirLineFeedsAndBytesAndAddNoFields) {
    const std::string text("one\nPRIORITY=0\n\0\xFF", 17);
    log.write(LogLevel::notice, "A", text);

    const auto entries = journal.entries();
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].at("MESSAGE"), text);
    EXPECT_EQ(entries[0].at("PRIORITY"), "5");
}

TEST_F(JournalLogTest, TheJournalIsHeardWhereTheLogSendsTo) {
    EXPECT_TRUE(journalListens());
    journal.stopListening();
    EXPECT_FALSE(journalListens());
}

TEST_F(JournalLogTest, WhatTheJournalRefusesGoesToStandardError) {
    journal.stopListening();
    testing::internal::CaptureStderr();
    log.write(LogLevel::error, "Uninstall", "No");
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "<3>app.blankwell.BlankwellPlus[Uninstall] No\n");
}

TEST(JournalReadersTest, FindMessagesBySubsystemCategoryAndPriority) {
    replaceRunFolder();
    const SystemJournal journal;
    JournalLog log("blankwell-plus");
    log.write(LogLevel::notice, "DesktopCreation", "Created /a\nCATEGORY=Uninstall");
    log.write(LogLevel::error, "DesktopCreation", "Create failed: no");
    log.write(LogLevel::notice, "Uninstall", "Moved");

    const std::string ours = "SUBSYSTEM=app.blankwell.BlankwellPlus ";
    EXPECT_THAT(journal.messages(ours + "CATEGORY=DesktopCreation"),
                testing::ElementsAre("Created /a\nCATEGORY=Uninstall", "Create failed: no"));
    EXPECT_THAT(journal.messages(ours + "CATEGORY=Uninstall"), testing::ElementsAre("Moved"));
    EXPECT_THAT(journal.messages(ours + "--priority=err"),
                testing::ElementsAre("Create failed: no"));
    EXPECT_EQ(journal.messages("--identifier=blankwell-plus").size(), 3U);
}

} // namespace
} // namespace blankwell
