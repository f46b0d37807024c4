#include "platform/linux/StandardErrorLog.h"

#include "contract/LogContract.h"
#include "platform/linux/FileDescriptor.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/un.h>

namespace blankwell {
namespace {

struct FakeLogSubject {
    Log& log() { return fake; }

    std::vector<FakeLog::Line> arrived() { return std::exchange(fake.lines, {}); }

    FakeLog fake;
};

/// A log on a file in memory, read back as lines.
struct StandardErrorSubject {
    Log& log() { return standardErrorLog; }

    std::string text() {
        std::string all(100'000, '\0');
        const auto size = ::pread(file.get(), all.data(), all.size(), position);
        all.resize(static_cast<std::size_t>(size));
        position += size;
        return all;
    }

    std::vector<FakeLog::Line> arrived() {
        const std::string start = "app.blankwell.BlankwellPlus[";
        std::istringstream lines(text());
        std::vector<FakeLog::Line> result;
        for (std::string line; std::getline(lines, line);) {
            const auto bracket = line.find("] ");
            EXPECT_EQ(line.substr(3, start.size()), start);
            result.push_back({line.substr(0, 3) == "<3>" ? LogLevel::error : LogLevel::notice,
                              line.substr(3 + start.size(), bracket - 3 - start.size()),
                              line.substr(bracket + 2)});
        }
        return result;
    }

    FileDescriptor file{::memfd_create("log", MFD_CLOEXEC)};
    off_t position = 0;
    StandardErrorLog standardErrorLog{file.get()};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, LogContract, FakeLogSubject);
INSTANTIATE_TYPED_TEST_SUITE_P(StandardError, LogContract, StandardErrorSubject);

struct StandardErrorLogTest : testing::Test {
    StandardErrorSubject subject;
};

TEST_F(StandardErrorLogTest, WritesPrioritySubsystemAndCategoryBeforeTheText) {
    subject.log().write(LogLevel::notice, "DesktopCreation", "Created /a");
    subject.log().write(LogLevel::error, "Uninstall", "No");
    EXPECT_EQ(subject.text(), "<5>app.blankwell.BlankwellPlus[DesktopCreation] Created /a\n"
                              "<3>app.blankwell.BlankwellPlus[Uninstall] No\n");
}

TEST_F(StandardErrorLogTest, AMessageIsOneLineWhateverItHolds) {
    subject.log().write(LogLevel::notice, "A\nB", "one\n<0>two\x1b[2J");
    EXPECT_EQ(subject.text(), "<5>app.blankwell.BlankwellPlus[A\\nB] one\\n<0>two\\x1b[2J\n");
}

TEST_F(StandardErrorLogTest, ALineGoesOutInOneWrite) {
    std::array<int, 2> ends{};
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_DGRAM, 0, ends.data()), 0);
    const FileDescriptor ours(ends[0]);
    const FileDescriptor theirs(ends[1]);
    StandardErrorLog(theirs.get()).write(LogLevel::notice, "A", "text");

    std::array<char, 100> packet{}; // as much as one write put in
    const auto size = ::recv(ours.get(), packet.data(), packet.size(), 0);
    EXPECT_EQ(std::string_view(packet.data(), static_cast<std::size_t>(size)),
              "<5>app.blankwell.BlankwellPlus[A] text\n");
}

TEST_F(StandardErrorLogTest, AClosedStreamDoesNoHarm) {
    subject.file.reset();
    subject.log().write(LogLevel::error, "A", "text");
}

struct JournalListensTest : testing::Test {
    /// A datagram socket that is bound to `path`.
    static FileDescriptor listen(const std::string& path) {
        FileDescriptor socket(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
        sockaddr_un address{.sun_family = AF_UNIX};
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(
            ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        return socket;
    }

    TemporaryFolder folder;
    std::string path = folder.url().appending("socket").path();
};

TEST_F(JournalListensTest, OnlyWhereSomebodyListensAtTheSocket) {
    EXPECT_FALSE(journalListens(path));
    auto socket = listen(path);
    EXPECT_TRUE(journalListens(path));
    socket.reset(); // leaves the socket's file behind
    EXPECT_FALSE(journalListens(path));
}

TEST_F(JournalListensTest, NotAtAFileOrAPathThatNoSocketCanHave) {
    folder.addFile("socket");
    EXPECT_FALSE(journalListens(path));
    EXPECT_FALSE(journalListens("/" + std::string(200, 'a')));
}

} // namespace
} // namespace blankwell
