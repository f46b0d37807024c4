#pragma once

#include "base/FileUrl.h"
#include "platform/LoginItem.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

class AutostartEntry;

/// A desktop entry in the user's autostart folder, as the Desktop Application Autostart
/// Specification has it.
///
/// What the user has changed in the entry stays: a changed one is switched off by `Hidden=true`,
/// not removed, and keeps a command of the user's own. A command that only names the program at
/// another place is brought up to date.
class XdgAutostart : public LoginItem {
public:
    /// The entry `name`.desktop under `configHome`, the user's `XDG_CONFIG_HOME`. It starts
    /// `program`, an absolute path, without a window.
    XdgAutostart(const FileUrl& configHome, std::string_view name, FileUrl program);

    [[nodiscard]] std::expected<bool, SystemError> isOn() const override;

    /// Fails also where there is no such program, and where the entry is damaged, which stays as
    /// it is.
    [[nodiscard]] std::expected<void, SystemError> turnOn() override;
    [[nodiscard]] std::expected<void, SystemError> turnOff() override;

    /// Removes the entry, whatever the user has made of it; of a link, the link. The folder goes
    /// with it where nothing else is in it. An entry that cannot be removed stays.
    void forget() const;

private:
    using Change = std::function<std::expected<void, SystemError>()>;

    [[nodiscard]] std::expected<std::optional<AutostartEntry>, SystemError> load() const;
    [[nodiscard]] std::expected<void, SystemError> store(const AutostartEntry& entry) const;
    [[nodiscard]] std::expected<void, SystemError> locked(const Change& change) const;

    FileUrl folder_;
    FileUrl file_;
    FileUrl program_;
};

} // namespace blankwell
