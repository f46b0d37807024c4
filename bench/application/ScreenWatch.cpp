#include "bench/application/ScreenWatch.h"

#include <poll.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

namespace blankwell {
namespace {

using std::chrono::milliseconds;

constexpr int rowDistance = 50;
constexpr std::chrono::seconds patience{5};

/// How many pixels differ.
std::size_t distance(const ScreenWatch::Picture& left, const ScreenWatch::Picture& right) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < left.size(); ++i) {
        count += left[i] == right[i] ? 0U : 1U;
    }
    return count;
}

} // namespace

ScreenWatch::ScreenWatch() : connection_(xcb_connect(nullptr, nullptr)) {
    auto* const connection = connection_.get();
    const auto* const extension = xcb_get_extension_data(connection, &xcb_damage_id);
    if (extension == nullptr || extension->present == 0) {
        throw std::runtime_error("no X server that tells of what is drawn");
    }
    damageEvent_ = extension->first_event + XCB_DAMAGE_NOTIFY;
    screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const X11Memory<xcb_damage_query_version_reply_t> version(xcb_damage_query_version_reply(
        connection,
        xcb_damage_query_version(connection, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION),
        nullptr));
    damage_ = xcb_generate_id(connection);
    xcb_damage_create(connection, damage_, screen_->root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
    xcb_flush(connection);
}

ScreenWatch::Picture ScreenWatch::look() {
    auto* const connection = connection_.get();
    std::vector<xcb_get_image_cookie_t> questions;
    for (int row = rowDistance / 2; row < screen_->height_in_pixels; row += rowDistance) {
        questions.push_back(xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, screen_->root, 0,
                                          static_cast<std::int16_t>(row), screen_->width_in_pixels,
                                          1, ~0U));
    }
    Picture picture;
    for (const auto question : questions) {
        const X11Memory<xcb_get_image_reply_t> row(
            xcb_get_image_reply(connection, question, nullptr));
        const std::size_t known = picture.size();
        picture.resize(known + screen_->width_in_pixels);
        if (row && xcb_get_image_data_length(row.get()) == screen_->width_in_pixels * 4) {
            std::memcpy(picture.data() + known, xcb_get_image_data(row.get()),
                        screen_->width_in_pixels * sizeof(std::uint32_t));
        }
    }
    return picture;
}

ScreenWatch::Picture ScreenWatch::settle(milliseconds quiet) {
    const auto end = Clock::now() + patience;
    while (Clock::now() < end && drawnBefore(Clock::now() + quiet)) {
    }
    return look();
}

std::optional<ScreenWatch::Clock::time_point> ScreenWatch::awaitPicture(const Picture& before,
                                                                        const Picture& wanted) {
    const auto tolerance = distance(before, wanted) / 20;
    const auto end = Clock::now() + patience;
    while (drawnBefore(end)) {
        const auto seen = look();
        const auto now = Clock::now();
        if (distance(seen, wanted) <= tolerance) {
            return now;
        }
    }
    return std::nullopt;
}

bool ScreenWatch::drawnBefore(Clock::time_point end) {
    auto* const connection = connection_.get();
    while (true) {
        bool isDrawn = false;
        while (const X11Memory<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
            isDrawn = isDrawn || (event->response_type & 0x7f) == damageEvent_;
        }
        if (isDrawn) {
            xcb_damage_subtract(connection, damage_, XCB_NONE, XCB_NONE);
            xcb_flush(connection);
            return true;
        }
        const auto left = std::chrono::ceil<milliseconds>(end - Clock::now()).count();
        ::pollfd socket{.fd = xcb_get_file_descriptor(connection), .events = POLLIN, .revents = 0};
        if (left <= 0 || ::poll(&socket, 1, static_cast<int>(left)) == 0) {
            return false;
        }
    }
}

} // namespace blankwell
