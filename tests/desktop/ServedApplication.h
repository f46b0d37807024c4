#pragma once

#include <string>
#include <string_view>
#include <thread>
#include <vector>

extern "C" struct sd_bus;

namespace blankwell {

/// A program that owns `name` on the session bus and takes note of what it is asked over
/// `org.freedesktop.Application`, on a thread of its own.
class ServedApplication {
public:
    /// How it answers.
    enum class Manners {
        polite,
        /// It knows no such method.
        ignorant,
        /// It ends instead.
        ending,
    };

    explicit ServedApplication(const std::string& name, Manners manners = Manners::polite);
    ~ServedApplication();

    ServedApplication(const ServedApplication&) = delete;
    ServedApplication& operator=(const ServedApplication&) = delete;

    /// What it was asked, in order. Ends it.
    [[nodiscard]] std::vector<std::string> received();

private:
    void serve(const std::stop_token& stop);

    Manners manners_;
    sd_bus* bus_ = nullptr;
    std::vector<std::string> received_;
    std::jthread thread_;
};

} // namespace blankwell
