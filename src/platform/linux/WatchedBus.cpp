#include "platform/linux/WatchedBus.h"

#include "platform/linux/SystemErrors.h"

#include <systemd/sd-bus.h>

#include <cerrno>
#include <cstdint>
#include <utility>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>

namespace blankwell {
namespace {

/// So many messages are dealt with before the event loop has its turn again.
constexpr int messagesAtOnce = 64;

constexpr auto unreachable = "The session bus cannot be reached";

std::unexpected<SystemError> failure(int result, const std::string& what) {
    return std::unexpected(posixError(-result, what));
}

int giveAnswer(sd_bus_message* message, void* handler, sd_bus_error* /*error*/) {
    // The slot, and with it the handler's place, may go while the handler runs.
    auto give = std::exchange(*static_cast<WatchedBus::AnswerHandler*>(handler), nullptr);
    if (const int number = sd_bus_message_get_errno(message); number != 0) {
        const auto* const error = sd_bus_message_get_error(message);
        give(failure(-number, error->name));
    } else {
        give(BusMessage(sd_bus_message_ref(message)));
    }
    return 1;
}

void deleteHandler(void* handler) {
    delete static_cast<WatchedBus::AnswerHandler*>(handler);
}

int giveSignal(sd_bus_message* message, void* handler, sd_bus_error* /*error*/) {
    if (sd_bus_message_is_signal(message, nullptr, nullptr) > 0) {
        BusMessage signal(sd_bus_message_ref(message));
        (*static_cast<WatchedBus::SignalHandler*>(handler))(signal);
    }
    return 0;
}

} // namespace

void WatchedBus::Close::operator()(sd_bus* bus) const {
    sd_bus_close_unref(bus);
}

WatchedBus::WatchedBus(SignalHandler onSignal)
    : onSignal_(std::make_unique<SignalHandler>(std::move(onSignal))),
      wakeUps_(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)),
      alarm_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      readiness_(::epoll_create1(EPOLL_CLOEXEC)) {
    watch(wakeUps_.get(), EPOLLIN);
    watch(alarm_.get(), EPOLLIN);
    watch(timer_.get(), EPOLLIN);
    sd_bus* opened = nullptr;
    if (sd_bus_open_user(&opened) < 0) {
        return;
    }
    bus_.reset(opened);
    if (sd_bus_add_filter(opened, nullptr, giveSignal, onSignal_.get()) < 0) {
        disconnect();
    }
    updateReadiness();
}

WatchedBus::~WatchedBus() = default;

std::string WatchedBus::uniqueName() const {
    const char* name = nullptr;
    // Before the bus has answered, sd-bus would wait for it.
    if (bus_ && sd_bus_is_ready(bus_.get()) > 0 && sd_bus_get_unique_name(bus_.get(), &name) >= 0) {
        return name;
    }
    return "";
}

std::expected<BusMessage, SystemError> WatchedBus::request(const BusMethod& method) const {
    if (!bus_) {
        return failure(-ENOTCONN, unreachable);
    }
    sd_bus_message* message = nullptr;
    const int result = sd_bus_message_new_method_call(
        bus_.get(), &message, method.destination.c_str(), method.path.c_str(),
        method.interface.c_str(), method.member.c_str());
    if (result < 0) {
        return failure(result, method.destination + " cannot be asked");
    }
    return BusMessage(message);
}

void WatchedBus::call(const BusMessage& message, std::chrono::milliseconds patience,
                      AnswerHandler handler) {
    auto kept = std::make_unique<AnswerHandler>(std::move(handler));
    sd_bus_slot* slot = nullptr;
    int result = bus_ ? message.status() : -ENOTCONN;
    if (result >= 0) {
        const std::chrono::microseconds time = patience;
        result = sd_bus_call_async(bus_.get(), &slot, message.get(), giveAnswer, kept.get(),
                                   static_cast<std::uint64_t>(time.count()));
    }
    if (result < 0) {
        (*kept)(failure(result, unreachable));
        return;
    }
    sd_bus_slot_set_destroy_callback(slot, deleteHandler);
    static_cast<void>(kept.release());
    sd_bus_slot_set_floating(slot, 1);
    sd_bus_slot_unref(slot);
    updateReadiness();
}

void WatchedBus::send(const BusMessage& message) {
    if (bus_ && message.status() >= 0) {
        sd_bus_message_set_expect_reply(message.get(), 0);
        // Where that fails, the connection is lost, which the next events tell.
        sd_bus_send(bus_.get(), message.get(), nullptr);
        updateReadiness();
    }
}

void WatchedBus::addMatch(const std::string& rule) {
    auto message = request({.destination = "org.freedesktop.DBus",
                            .path = "/org/freedesktop/DBus",
                            .interface = "org.freedesktop.DBus",
                            .member = "AddMatch"});
    if (message) {
        send(message->append(rule));
    }
}

void WatchedBus::wakeUp() const {
    ::eventfd_write(wakeUps_.get(), 1);
}

void WatchedBus::wakeUpAfter(std::chrono::milliseconds time) const {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const std::chrono::nanoseconds rest = time - seconds;
    const itimerspec once{.it_interval = {}, .it_value = {seconds.count(), rest.count()}};
    ::timerfd_settime(alarm_.get(), 0, &once, nullptr);
}

void WatchedBus::processEvents() {
    eventfd_t count = 0;
    ::eventfd_read(wakeUps_.get(), &count);
    ::eventfd_read(alarm_.get(), &count);
    for (int i = 0; i < messagesAtOnce && bus_; ++i) {
        const int result = sd_bus_process(bus_.get(), nullptr);
        if (result < 0) {
            disconnect();
        }
        if (result <= 0) {
            break;
        }
    }
    if (bus_ && sd_bus_is_open(bus_.get()) <= 0) {
        disconnect();
    }
    updateReadiness();
}

void WatchedBus::disconnect() {
    bus_.reset();
    const itimerspec never{};
    ::timerfd_settime(timer_.get(), 0, &never, nullptr);
}

void WatchedBus::updateReadiness() const {
    if (!bus_) {
        return;
    }
    const int events = sd_bus_get_events(bus_.get());
    std::uint64_t wanted = 0;
    if (events < 0 || sd_bus_get_timeout(bus_.get(), &wanted) < 0) {
        wakeUp();
        return;
    }
    watch(sd_bus_get_fd(bus_.get()), static_cast<std::uint32_t>(events));
    // A time of zero means at once to sd-bus, and never to the timer.
    constexpr std::uint64_t perSecond = 1'000'000;
    itimerspec time{};
    if (wanted != UINT64_MAX) {
        time.it_value.tv_sec = static_cast<time_t>(wanted / perSecond);
        time.it_value.tv_nsec = static_cast<long>(wanted % perSecond) * 1000 + 1;
    }
    ::timerfd_settime(timer_.get(), TFD_TIMER_ABSTIME, &time, nullptr);
}

void WatchedBus::watch(int descriptor, std::uint32_t events) const {
    epoll_event interest{.events = events, .data = {.fd = descriptor}};
    if (::epoll_ctl(readiness_.get(), EPOLL_CTL_MOD, descriptor, &interest) != 0) {
        ::epoll_ctl(readiness_.get(), EPOLL_CTL_ADD, descriptor, &interest);
    }
}

} // namespace blankwell
