#include "bench/Paired.h"
#include "bench/ScratchFolder.h"
#include "platform/linux/update/BundleInstaller.h"
#include "platform/linux/update/BundleUse.h"
#include "platform/linux/update/CurlUpdateTransfers.h"
#include "platform/linux/update/StagingFolder.h"
#include "support/HttpsServer.h"
#include "support/SigningKey.h"
#include "support/TestArchive.h"
#include "updates/UpdateJob.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <fstream>
#include <random>

#include <curl/curl.h>

namespace blankwell {
namespace {

/// What one fetch costs at least: the same request by the library's simplest means.
void fetchPlainly(const std::string& url, const std::string& certificates) {
    CURL* const easy = curl_easy_init();
    std::string text;
    const auto append = [](char* bytes, std::size_t, std::size_t count, void* to) {
        static_cast<std::string*>(to)->append(bytes, count);
        return count;
    };
    curl_easy_setopt(easy, CURLOPT_URL, url.c_str());
    curl_easy_setopt(easy, CURLOPT_CAINFO, certificates.c_str());
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, +append);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, &text);
    curl_easy_perform(easy);
    curl_easy_cleanup(easy);
}

/// A feed of twenty releases with notes, none of them newer than the running one.
std::string feed() {
    std::string items;
    for (int version = 20; version > 0; --version) {
        items += fmt::format(R"(<item><sparkle:version>{}</sparkle:version>
            <description>{}</description>
            <enclosure url="https://example.org/a" length="1" sparkle:edSignature="a"/></item>)",
                             version, std::string(500, 'x'));
    }
    return fmt::format(
        R"(<rss xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel>{}</channel></rss>)",
        items);
}

void checkForUpdate(benchmark::State& state) {
    const HttpsServer server;
    server.folder().addFile("appcast.xml", feed());
    const auto url = server.url("whole/appcast.xml");
    const auto certificates = server.certificates();
    const ScratchFolder folder;
    const BundleUse use(folder.url());
    CurlUpdateTransfers transfers(certificates);
    BundleInstaller installer(use);
    const UpdateJob job(transfers, installer);
    bool isRight = true;
    measurePaired(
        state,
        [&] {
            const auto found = job.check(url, {.version = "20", .systemVersion = "6.1"}, {});
            isRight = isRight && found && !*found;
        },
        [&] { fetchPlainly(url, certificates); }, [&] { return isRight; });
}

BENCHMARK(checkForUpdate)->Iterations(200);

/// The entries of a bundle of 50 MB that hardly compresses.
std::vector<ArchiveEntry> largeBundle(const std::string& key) {
    constexpr int files = 200;
    constexpr std::size_t size = 250'000;
    std::mt19937_64 random(1);
    auto entries = bundleEntries("2", key);
    for (int i = 0; i < files; ++i) {
        std::string contents(size, '\0');
        for (auto& byte : contents) {
            byte = static_cast<char>(random());
        }
        entries.push_back({.path = fmt::format("Blankwell+.app/Contents/Resources/{}", i),
                           .contents = std::move(contents)});
    }
    return entries;
}

void write(const std::string& path, std::string_view contents) {
    std::ofstream(path, std::ios::binary) << contents;
}

void installUpdate(benchmark::State& state) {
    const ScratchFolder folder;
    const SigningKey key;
    const auto archive = archiveOf(largeBundle(key.publicKey()));
    const auto signature = key.sign(archive);
    write(folder.at("archive"), archive);
    write(folder.at("key.pem"), key.publicKeyPem());
    write(folder.at("signature.base64"), signature);
    const FileUrl bundle(folder.at("Blankwell+.app"));
    std::filesystem::create_directories(bundle.path());
    const auto verifyAndUnpack = fmt::format(
        "cd {} && mkdir out && base64 -d signature.base64 > signature && "
        "openssl pkeyutl -verify -rawin -pubin -inkey key.pem -in archive -sigfile signature "
        "> /dev/null && tar --extract --file archive --zstd --directory out",
        folder.path());
    bool isRight = true;
    const auto install = [&] {
        const BundleUse use(bundle);
        const auto staging = BundleInstaller(use).begin();
        const auto staged =
            (*staging)->unpack((*staging)->archive("a"), signature, key.publicKey(), {});
        isRight = isRight && staged && (*staged)->install();
    };
    const auto tidyUp = [&] {
        StagingFolder::sweep(bundle);
        std::filesystem::remove_all(folder.at("out"));
        const auto staging = StagingFolder::hold(bundle);
        write(staging->archive("a").path(), archive);
        return isRight;
    };
    tidyUp();
    measurePaired(
        state, install, [&] { isRight = std::system(verifyAndUnpack.c_str()) == 0 && isRight; },
        tidyUp);
}

BENCHMARK(installUpdate)->Iterations(15);

} // namespace
} // namespace blankwell

BENCHMARK_MAIN();
