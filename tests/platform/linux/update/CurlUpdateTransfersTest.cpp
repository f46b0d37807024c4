#include "platform/linux/update/CurlUpdateTransfers.h"

#include "support/HttpsServer.h"

#include <gmock/gmock.h>

#include <chrono>
#include <thread>

namespace blankwell {
namespace {

using namespace std::chrono_literals;
using Reason = UpdateFailure::Reason;
using testing::HasSubstr;
using testing::Not;

constexpr std::size_t largest = 1000;

struct CurlUpdateTransfersTest : testing::Test {
    static void SetUpTestSuite() { server = new HttpsServer; }

    static void TearDownTestSuite() { delete server; }

    CurlUpdateTransfersTest() {
        std::filesystem::remove(server->folder().at("ranges").path());
        server->folder().addFile("archive", contents);
    }

    std::expected<std::string, UpdateFailure> fetch(const std::string& url) {
        return transfers.fetch(url, largest, {});
    }

    Reason reasonOfFetch(const std::string& url) {
        const auto result = fetch(url);
        EXPECT_FALSE(result) << "fetched " << result.value_or("");
        return result ? Reason::disk : result.error().reason;
    }

    std::expected<void, UpdateFailure> download(const std::string& path, std::size_t length) {
        return transfers.download(server->url(path), length, file,
                                  [this](const auto& progress) { reports.push_back(progress); },
                                  {});
    }

    Reason reasonOfDownload(const std::string& path, std::size_t length) {
        const auto result = download(path, length);
        EXPECT_FALSE(result);
        return result ? Reason::disk : result.error().reason;
    }

    std::string ranges() const { return server->folder().contents("ranges"); }

    static HttpsServer* server;
    std::string contents = "The archive's bytes, all of them in their order.";
    TemporaryFolder folder;
    FileUrl file = folder.at("download");
    std::vector<TransferProgress> reports;
    CurlUpdateTransfers transfers{server->certificates(),
                                  {.fetch = 1s, .download = 5s, .stall = 1s}};
};

HttpsServer* CurlUpdateTransfersTest::server = nullptr;

TEST_F(CurlUpdateTransfersTest, FetchesAText) {
    EXPECT_EQ(fetch(server->url("file/archive")).value(), contents);
}

TEST_F(CurlUpdateTransfersTest, FollowsARedirectionToASecureAddress) {
    EXPECT_EQ(fetch(server->url("to?url=/file/archive")).value(), contents);
}

TEST_F(CurlUpdateTransfersTest, AnAddressWithoutEncryptionIsNeverAskedFor) {
    EXPECT_EQ(reasonOfFetch(server->plainUrl("file/archive")), Reason::insecure);
    EXPECT_EQ(reasonOfFetch(server->url("to?url=" + server->plainUrl("file/archive"))),
              Reason::insecure);
    EXPECT_EQ(reasonOfFetch("file:///etc/hostname"), Reason::insecure);
    EXPECT_EQ(reasonOfFetch(server->url("to?url=file:///etc/hostname")), Reason::insecure);
    EXPECT_EQ(reasonOfFetch("ftp://127.0.0.1/"), Reason::insecure);
}

TEST_F(CurlUpdateTransfersTest, OnlyServersThatAreVouchedForAreTrusted) {
    EXPECT_EQ(reasonOfFetch(server->foreignUrl("file/archive")), Reason::insecure);
    EXPECT_EQ(reasonOfFetch(server->elsewhereUrl("file/archive")), Reason::insecure);
    EXPECT_EQ(reasonOfFetch(server->expiredUrl("file/archive")), Reason::insecure);
    EXPECT_EQ(
        CurlUpdateTransfers("").fetch(server->url("file/archive"), largest, {}).error().reason,
        Reason::insecure);
}

TEST_F(CurlUpdateTransfersTest, RedirectionsThatNeverEndAreRefused) {
    EXPECT_EQ(reasonOfFetch(server->url("loop")), Reason::refused);
}

TEST_F(CurlUpdateTransfersTest, AnAnswerThatIsNotTheTextIsRefused) {
    const auto missing = fetch(server->url("status/404"));
    EXPECT_EQ(missing.error().reason, Reason::refused);
    EXPECT_THAT(missing.error().description, HasSubstr("404"));
    EXPECT_EQ(reasonOfFetch(server->url("status/500")), Reason::refused);
    EXPECT_EQ(reasonOfFetch(server->url("status/204")), Reason::refused);
}

TEST_F(CurlUpdateTransfersTest, NothingIsToldOfTheUser) {
    const auto headers = fetch(server->url("cookie")).value();
    EXPECT_THAT(headers, HasSubstr("User-Agent: Blankwell+\n"));
    EXPECT_THAT(headers, Not(HasSubstr("Cookie")));
    EXPECT_THAT(headers, Not(HasSubstr("Referer")));
    EXPECT_THAT(headers, Not(HasSubstr("Authorization")));
}

TEST_F(CurlUpdateTransfersTest, NothingIsUnpackedOnTheWay) {
    EXPECT_THAT(fetch(server->url("packed")).value(), HasSubstr(" packed"));
    EXPECT_THAT(fetch(server->url("headers")).value(), Not(HasSubstr("Accept-Encoding")));
}

TEST_F(CurlUpdateTransfersTest, ATextMayBeAsLargeAsAllowedAndNoLarger) {
    EXPECT_EQ(transfers.fetch(server->url("file/archive"), contents.size(), {}).value(), contents);
    EXPECT_EQ(transfers.fetch(server->url("file/archive"), contents.size() - 1, {}).error().reason,
              Reason::tooLarge);
    EXPECT_EQ(reasonOfFetch(server->url("endless")), Reason::tooLarge);
}

TEST_F(CurlUpdateTransfersTest, AServerThatDripsOrHangsIsGivenUp) {
    EXPECT_EQ(reasonOfFetch(server->url("drip")), Reason::tooSlow);
    EXPECT_EQ(reasonOfFetch(server->url("hang")), Reason::tooSlow);
}

TEST_F(CurlUpdateTransfersTest, ToStallAndToTakeLongAreLimitedEachByItself) {
    using Limits = CurlUpdateTransfers::Limits;
    for (const auto limits : {Limits{.fetch = 60s, .download = 60s, .stall = 1s},
                              Limits{.fetch = 1s, .download = 1s, .stall = 60s}}) {
        CurlUpdateTransfers limited(server->certificates(), limits);
        const auto begin = std::chrono::steady_clock::now();
        EXPECT_EQ(limited.fetch(server->url("drip"), largest, {}).error().reason, Reason::tooSlow);
        EXPECT_EQ(limited.download(server->url("drip"), 100'000, file, [](const auto&) {}, {})
                      .error()
                      .reason,
                  Reason::tooSlow);
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 30s);
    }
}

TEST_F(CurlUpdateTransfersTest, ABrokenConnectionIsAFailure) {
    EXPECT_EQ(reasonOfFetch(server->url("break/archive")), Reason::truncated);
    EXPECT_EQ(reasonOfFetch("https://127.0.0.1:1/"), Reason::unreachable);
}

TEST_F(CurlUpdateTransfersTest, AStopEndsAFetchAtOnce) {
    std::stop_source source;
    std::jthread stopper([&] {
        std::this_thread::sleep_for(100ms);
        source.request_stop();
    });
    const auto begin = std::chrono::steady_clock::now();
    const auto result = CurlUpdateTransfers(server->certificates())
                            .fetch(server->url("hang"), largest, source.get_token());
    EXPECT_EQ(result.error().reason, Reason::cancelled);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, 600ms);
}

TEST_F(CurlUpdateTransfersTest, DownloadsAFile) {
    ASSERT_TRUE(download("file/archive", contents.size()));
    EXPECT_EQ(folder.contents("download"), contents);
    EXPECT_EQ(ranges(), "None\n");
}

TEST_F(CurlUpdateTransfersTest, ABrokenDownloadIsContinued) {
    EXPECT_EQ(reasonOfDownload("break/archive", contents.size()), Reason::truncated);
    EXPECT_EQ(folder.contents("download"), contents.substr(0, contents.size() / 2));
    ASSERT_TRUE(download("file/archive", contents.size()));
    EXPECT_EQ(folder.contents("download"), contents);
    EXPECT_EQ(ranges(), std::to_string(contents.size() / 2) + "\n");
}

TEST_F(CurlUpdateTransfersTest, AServerThatCannotContinueSendsTheWhole) {
    for (const auto* path : {"whole/archive", "shifted/archive", "norange/archive"}) {
        folder.addFile("download", "something else");
        ASSERT_TRUE(download(path, contents.size())) << path;
        EXPECT_EQ(folder.contents("download"), contents) << path;
    }
}

TEST_F(CurlUpdateTransfersTest, WhatIsThereAlreadyIsNotAskedForAgain) {
    folder.addFile("download", contents);
    ASSERT_TRUE(download("status/500", contents.size()));
    EXPECT_EQ(folder.contents("download"), contents);
}

TEST_F(CurlUpdateTransfersTest, AFileThatIsTooLongIsBegunAnew) {
    folder.addFile("download", contents + "and more");
    ASSERT_TRUE(download("file/archive", contents.size()));
    EXPECT_EQ(folder.contents("download"), contents);
    EXPECT_EQ(ranges(), "None\n");
}

TEST_F(CurlUpdateTransfersTest, ADownloadHasTheAnnouncedLength) {
    EXPECT_EQ(reasonOfDownload("file/archive", contents.size() - 1), Reason::tooLarge);
    std::filesystem::remove(file.path());
    EXPECT_EQ(reasonOfDownload("file/archive", contents.size() + 1), Reason::truncated);
}

TEST_F(CurlUpdateTransfersTest, AnEndlessDownloadStopsAtTheAnnouncedLength) {
    constexpr std::size_t length = 100'000;
    EXPECT_EQ(reasonOfDownload("endless", length), Reason::tooLarge);
    EXPECT_LE(std::filesystem::file_size(file.path()), length);
}

TEST_F(CurlUpdateTransfersTest, ADownloadThatDripsIsGivenUpAndKeptForTheNextAttempt) {
    EXPECT_EQ(reasonOfDownload("drip", 100'000), Reason::tooSlow);
    EXPECT_GT(std::filesystem::file_size(file.path()), 0);
}

TEST_F(CurlUpdateTransfersTest, ARefusedDownloadWritesNothing) {
    EXPECT_EQ(reasonOfDownload("status/404", contents.size()), Reason::refused);
    EXPECT_EQ(folder.contents("download"), "");
}

TEST_F(CurlUpdateTransfersTest, ProgressIsTold) {
    ASSERT_TRUE(download("file/archive", contents.size()));
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports.front().expected, contents.size());
    reports.clear();
    std::filesystem::remove(file.path());
    EXPECT_EQ(reasonOfDownload("drip", 100'000), Reason::tooSlow);
    ASSERT_GE(reports.size(), 3U);
    EXPECT_GT(reports.back().received, reports.front().received);
    EXPECT_GT(reports.back().bytesPerSecond, 0U);
}

TEST_F(CurlUpdateTransfersTest, AFileThatCannotBeWrittenIsAFailureOfTheDisk) {
    folder.addFolder("download");
    EXPECT_EQ(reasonOfDownload("file/archive", contents.size()), Reason::disk);
}

TEST_F(CurlUpdateTransfersTest, ALinkInPlaceOfTheFileIsNotFollowed) {
    const auto other = folder.addFile("other", "");
    std::filesystem::create_symlink(other.path(), file.path());
    EXPECT_EQ(reasonOfDownload("file/archive", contents.size()), Reason::disk);
    EXPECT_EQ(folder.contents("other"), "");
}

} // namespace
} // namespace blankwell
