#pragma once

#include "platform/WellKnownFolders.h"

#include <optional>
#include <string>

namespace blankwell {

/// The well-known folders of a freedesktop desktop.
class XdgWellKnownFolders : public WellKnownFolders {
public:
    /// Volumes are mounted for each user in a folder of their own, called `userName`, inside one of
    /// `mediaFolders`; without a name none of them is looked at.
    explicit XdgWellKnownFolders(std::optional<std::string> userName,
                                 std::vector<FileUrl> mediaFolders = {FileUrl("/media"),
                                                                      FileUrl("/run/media")});

    /// The `XDG_DESKTOP_DIR` of `home`/.config/user-dirs.dirs, in the form that
    /// `xdg-user-dirs-update` writes: an absolute path or one that begins with `$HOME`, in double
    /// quotes. "Desktop" in `home` where the file names none.
    ///
    /// The environment has no say: it may speak of another home than the given one.
    [[nodiscard]] FileUrl desktop(const FileUrl& home) const override;

    /// The user's folders in those for media, as far as they exist, then `/Volumes`.
    [[nodiscard]] std::vector<FileUrl> volumes() const override;

private:
    std::optional<std::string> userName_;
    std::vector<FileUrl> mediaFolders_;
};

} // namespace blankwell
