#pragma once

#include <functional>
#include <string>

extern "C" {
struct sd_bus;
struct sd_bus_message;
}

namespace blankwell {

/// A program on the session bus that the test plays itself: it is called when `process()` runs.
class BusPeer {
public:
    /// Owns `name`. `handler` gets each method call, and answers it or not.
    BusPeer(const std::string& name, std::function<void(sd_bus_message*)> handler);
    ~BusPeer();

    BusPeer(const BusPeer&) = delete;
    BusPeer& operator=(const BusPeer&) = delete;

    /// Deals with what has arrived.
    void process();

    [[nodiscard]] sd_bus* bus() const { return bus_; }

private:
    std::function<void(sd_bus_message*)> handler_;
    sd_bus* bus_ = nullptr;
};

/// Throws `what` where `result` is an error of sd-bus.
void require(int result, const char* what);

} // namespace blankwell
