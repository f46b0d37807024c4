#include "platform/linux/update/CurlTransfer.h"

#include <fmt/core.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <utility>

#include <curl/curl.h>

namespace blankwell {
namespace {

using Reason = UpdateFailure::Reason;

struct FreeEasy {
    void operator()(CURL* easy) const { curl_easy_cleanup(easy); }
};

struct FreeMulti {
    void operator()(CURLM* multi) const { curl_multi_cleanup(multi); }
};

/// The beginning of the range in "content-range: bytes 100-199/200".
std::optional<std::uint64_t> rangeBegin(std::string_view header) {
    constexpr std::string_view unit = "bytes ";
    const auto at = header.find(unit);
    if (at == std::string_view::npos) {
        return std::nullopt;
    }
    const auto digits = header.substr(at + unit.size());
    std::uint64_t begin = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), begin);
    return error == std::errc() ? std::optional(begin) : std::nullopt;
}

bool startsWithIgnoringCase(std::string_view text, std::string_view lowered) {
    return text.size() >= lowered.size() &&
           std::ranges::equal(text.substr(0, lowered.size()), lowered, [](char one, char other) {
               return one == other || (one >= 'A' && one <= 'Z' && (one | 0x20) == other);
           });
}

Reason reasonOf(CURLcode code) {
    switch (code) {
    case CURLE_UNSUPPORTED_PROTOCOL:
    case CURLE_PEER_FAILED_VERIFICATION:
    case CURLE_SSL_CONNECT_ERROR:
    case CURLE_SSL_ISSUER_ERROR:
    case CURLE_SSL_CACERT_BADFILE:
        return Reason::insecure;
    case CURLE_OPERATION_TIMEDOUT:
        return Reason::tooSlow;
    case CURLE_PARTIAL_FILE:
        return Reason::truncated;
    case CURLE_TOO_MANY_REDIRECTS:
        return Reason::refused;
    default:
        return Reason::unreachable;
    }
}

/// A request with the handles that carry it out.
class Exchange {
public:
    explicit Exchange(CurlTransfer::Request request)
        : request_(std::move(request)), multi_(curl_multi_init()), easy_(curl_easy_init()) {
        limit();
        authenticate();
        callBack();
        curl_multi_add_handle(multi_.get(), easy_.get());
    }

    ~Exchange() { curl_multi_remove_handle(multi_.get(), easy_.get()); }

    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    std::expected<void, UpdateFailure> run(const std::stop_token& stop) {
        const std::stop_callback wakeUp(stop, [this] { curl_multi_wakeup(multi_.get()); });
        constexpr int longestWait = 250; // milliseconds, so that the speed of a stalled one falls
        int running = 1;
        while (running > 0) {
            if (stop.stop_requested()) {
                return std::unexpected(
                    UpdateFailure{Reason::cancelled, "The update was cancelled."});
            }
            curl_multi_perform(multi_.get(), &running);
            request_.pulse();
            if (running > 0) {
                curl_multi_poll(multi_.get(), nullptr, 0, longestWait, nullptr);
            }
        }
        return result();
    }

private:
    void set(CURLoption option, long value) { curl_easy_setopt(easy_.get(), option, value); }

    void set(CURLoption option, const char* value) { curl_easy_setopt(easy_.get(), option, value); }

    void limit() {
        constexpr long slowest = 256;     // bytes a second
        constexpr long connectLimit = 20; // seconds
        set(CURLOPT_URL, request_.url.c_str());
        set(CURLOPT_PROTOCOLS_STR, "https");
        set(CURLOPT_REDIR_PROTOCOLS_STR, "https");
        set(CURLOPT_FOLLOWLOCATION, 1L);
        set(CURLOPT_MAXREDIRS, 5L);
        set(CURLOPT_TIMEOUT, static_cast<long>(request_.timeLimit.count()));
        set(CURLOPT_CONNECTTIMEOUT, connectLimit);
        set(CURLOPT_LOW_SPEED_LIMIT, slowest);
        set(CURLOPT_LOW_SPEED_TIME, static_cast<long>(request_.stallLimit.count()));
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_QUICK_EXIT, 1L); // a name that is being looked up does not hold up a stop
        if (request_.begin > 0) {
            set(CURLOPT_RANGE, fmt::format("{}-", request_.begin).c_str());
        }
    }

    void authenticate() {
        set(CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
        if (!request_.certificates.empty()) {
            set(CURLOPT_CAINFO, request_.certificates.c_str());
        }
        set(CURLOPT_USERAGENT, "Blankwell+");
    }

    void callBack() {
        curl_easy_setopt(easy_.get(), CURLOPT_ERRORBUFFER, error_.data());
        curl_easy_setopt(easy_.get(), CURLOPT_HEADERFUNCTION, takeHeader);
        curl_easy_setopt(easy_.get(), CURLOPT_HEADERDATA, this);
        curl_easy_setopt(easy_.get(), CURLOPT_WRITEFUNCTION, takeContents);
        curl_easy_setopt(easy_.get(), CURLOPT_WRITEDATA, this);
    }

    static std::size_t takeHeader(char* bytes, std::size_t /*one*/, std::size_t count, void* self) {
        const std::string_view header(bytes, count);
        auto& response = static_cast<Exchange*>(self)->response_;
        if (startsWithIgnoringCase(header, "http/")) {
            response = {}; // that of a redirection does not count
        } else if (startsWithIgnoringCase(header, "content-range:")) {
            response.rangeBegin = rangeBegin(header);
        }
        return count;
    }

    static std::size_t takeContents(char* bytes, std::size_t /*one*/, std::size_t count,
                                    void* self) {
        return static_cast<Exchange*>(self)->take({bytes, count}) ? count : 0;
    }

    bool take(std::span<const char> bytes) {
        auto taken = accept();
        if (taken) {
            taken = request_.receive(bytes);
        }
        if (!taken) {
            failure_ = std::move(taken.error());
        }
        return taken.has_value();
    }

    std::expected<void, UpdateFailure> accept() {
        if (std::exchange(isAccepted_, true)) {
            return {};
        }
        curl_easy_getinfo(easy_.get(), CURLINFO_RESPONSE_CODE, &response_.status);
        return request_.accept(response_);
    }

    std::expected<void, UpdateFailure> result() {
        int left = 0;
        const CURLMsg* const message = curl_multi_info_read(multi_.get(), &left);
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-union-access): that is libcurl's form of it
        const auto code = message == nullptr ? CURLE_FAILED_INIT : message->data.result;
        if (failure_) {
            return std::unexpected(*std::move(failure_));
        }
        if (code == CURLE_OK) {
            return accept(); // which no contents have led to yet
        }
        const std::string_view detail =
            error_.front() == '\0' ? curl_easy_strerror(code) : std::string_view(error_.data());
        return std::unexpected(UpdateFailure{
            reasonOf(code), fmt::format("The update server could not be reached: {}.", detail)});
    }

    CurlTransfer::Request request_;
    CurlTransfer::Response response_;
    bool isAccepted_ = false;
    std::optional<UpdateFailure> failure_;
    std::array<char, CURL_ERROR_SIZE> error_{};
    std::unique_ptr<CURLM, FreeMulti> multi_;
    std::unique_ptr<CURL, FreeEasy> easy_;
};

} // namespace

std::expected<void, UpdateFailure> CurlTransfer::run(Request request, const std::stop_token& stop) {
    return Exchange(std::move(request)).run(stop);
}

} // namespace blankwell
