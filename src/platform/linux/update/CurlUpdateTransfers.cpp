#include "platform/linux/update/CurlUpdateTransfers.h"

#include "platform/linux/FileDescriptor.h"
#include "platform/linux/SystemErrors.h"
#include "platform/linux/update/CurlTransfer.h"
#include "platform/linux/update/SpeedMeter.h"

#include <fmt/core.h>

#include <cerrno>
#include <utility>

#include <curl/curl.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;
using Result = std::expected<void, UpdateFailure>;

constexpr long statusWhole = 200;
constexpr long statusRest = 206;
constexpr long statusNoSuchRange = 416;

std::unexpected<UpdateFailure> failure(Reason reason, std::string description) {
    return std::unexpected(UpdateFailure{reason, std::move(description)});
}

std::unexpected<UpdateFailure> diskFailure() {
    return failure(Reason::disk, posixError(errno, "The update could not be written").description);
}

std::unexpected<UpdateFailure> refusal(long status) {
    return failure(Reason::refused,
                   fmt::format("The update server answered with the status {}.", status));
}

/// A file that is being downloaded.
class Download {
public:
    Download(std::uint64_t length, const std::function<void(const TransferProgress&)>& progress)
        : length_(length), progress_(progress) {}

    Result open(const FileUrl& file) {
        descriptor_.reset(::open(file.path().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW,
                                 S_IRUSR | S_IWUSR));
        struct stat status{};
        if (!descriptor_ || ::fstat(descriptor_.get(), &status) != 0) {
            return diskFailure();
        }
        received_ = static_cast<std::uint64_t>(status.st_size);
        return received_ > length_ ? beginAnew() : Result();
    }

    [[nodiscard]] std::uint64_t received() const { return received_; }

    [[nodiscard]] bool isComplete() const { return received_ == length_; }

    Result beginAnew() {
        received_ = 0;
        meter_ = {};
        return ::ftruncate(descriptor_.get(), 0) == 0 ? Result() : diskFailure();
    }

    Result accept(const CurlTransfer::Response& response) {
        if (response.status == statusWhole) {
            return beginAnew();
        }
        if (response.status == statusRest && response.rangeBegin == received_) {
            return {};
        }
        isNotContinued_ = response.status == statusRest || response.status == statusNoSuchRange;
        return refusal(response.status);
    }

    /// Whether the server has something else than what the file begins with.
    [[nodiscard]] bool isNotContinued() const { return isNotContinued_ && received_ > 0; }

    Result write(std::span<const char> bytes) {
        if (bytes.size() > length_ - received_) {
            return failure(Reason::tooLarge, "The update is larger than announced.");
        }
        while (!bytes.empty()) {
            const auto written = ::pwrite(descriptor_.get(), bytes.data(), bytes.size(),
                                          static_cast<off_t>(received_));
            if (written < 0 && errno != EINTR) {
                return diskFailure();
            }
            const auto count = written < 0 ? 0 : static_cast<std::size_t>(written);
            received_ += count;
            bytes = bytes.subspan(count);
        }
        return {};
    }

    /// Tells how far it has come, four times a second at most.
    void report() {
        constexpr std::chrono::milliseconds interval{250};
        const auto now = std::chrono::steady_clock::now();
        if (now - reported_ >= interval) {
            reported_ = now;
            progress_({received_, length_, meter_.update(received_, now)});
        }
    }

private:
    std::uint64_t length_;
    const std::function<void(const TransferProgress&)>& progress_;
    FileDescriptor descriptor_;
    std::uint64_t received_ = 0;
    bool isNotContinued_ = false;
    SpeedMeter meter_;
    std::chrono::steady_clock::time_point reported_;
};

} // namespace

CurlUpdateTransfers::CurlUpdateTransfers(std::string certificates)
    : CurlUpdateTransfers(std::move(certificates), Limits()) {}

CurlUpdateTransfers::CurlUpdateTransfers(std::string certificates, Limits limits)
    : certificates_(std::move(certificates)), limits_(limits) {
    curl_global_init(CURL_GLOBAL_DEFAULT);
}

std::expected<std::string, UpdateFailure>
CurlUpdateTransfers::fetch(const std::string& url, std::size_t largest, std::stop_token stop) {
    std::string text;
    const auto accept = [](const CurlTransfer::Response& response) {
        return response.status == statusWhole ? Result() : refusal(response.status);
    };
    const auto receive = [&](std::span<const char> bytes) -> Result {
        if (bytes.size() > largest - text.size()) {
            return failure(Reason::tooLarge, "The update feed is too large.");
        }
        text.append(bytes.begin(), bytes.end());
        return {};
    };
    const auto fetched = CurlTransfer::run({.url = url,
                                            .certificates = certificates_,
                                            .timeLimit = limits_.fetch,
                                            .stallLimit = limits_.stall,
                                            .accept = accept,
                                            .receive = receive},
                                           stop);
    return fetched ? std::expected<std::string, UpdateFailure>(std::move(text))
                   : std::unexpected(fetched.error());
}

Result CurlUpdateTransfers::download(const std::string& url, std::uint64_t length,
                                     const FileUrl& file,
                                     const std::function<void(const TransferProgress&)>& progress,
                                     std::stop_token stop) {
    Download download(length, progress);
    if (auto opened = download.open(file); !opened || download.isComplete()) {
        return opened;
    }
    const auto run = [&] {
        return CurlTransfer::run(
            {.url = url,
             .certificates = certificates_,
             .timeLimit = limits_.download,
             .stallLimit = limits_.stall,
             .begin = download.received(),
             .accept = [&](const auto& response) { return download.accept(response); },
             .receive = [&](auto bytes) { return download.write(bytes); },
             .pulse = [&] { download.report(); }},
            stop);
    };
    auto done = run();
    if (!done && download.isNotContinued()) {
        done = download.beginAnew();
        if (done) {
            done = run();
        }
    }
    if (!done) {
        return done;
    }
    return download.isComplete()
               ? Result()
               : failure(Reason::truncated, "The update is smaller than announced.");
}

} // namespace blankwell
