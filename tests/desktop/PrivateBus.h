#pragma once

#include "base/FileUrl.h"
#include "desktop/Program.h"
#include "support/TemporaryFolder.h"

#include <optional>
#include <string>

extern "C" struct sd_bus;

namespace blankwell {

/// A session bus beside the desktop's, which knows no program to start. While this value lives, the
/// environment names it instead of the desktop's.
class PrivateBus {
public:
    PrivateBus();
    ~PrivateBus();

    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Lets the bus itself hang.
    void hang() const { daemon_->hang(); }

    /// Lets it go on.
    void goOn() const { daemon_->goOn(); }

    /// Ends the bus itself.
    void end() { daemon_.reset(); }

private:
    TemporaryFolder folder_;
    std::string outerAddress_;
    std::optional<Program> daemon_;
};

/// A file manager that owns `name` on the bus and never answers.
class HungFileManager {
public:
    explicit HungFileManager(const std::string& name);
    ~HungFileManager();

    HungFileManager(const HungFileManager&) = delete;
    HungFileManager& operator=(const HungFileManager&) = delete;

    /// The first call that waits for it, as "INTERFACE.MEMBER URI..."; empty where none has come.
    [[nodiscard]] std::string waitingCall() const;

private:
    sd_bus* bus_ = nullptr;
};

} // namespace blankwell
