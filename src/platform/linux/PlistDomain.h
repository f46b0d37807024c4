#pragma once

#include "platform/UserDefaults.h"
#include "platform/linux/FileSnapshot.h"
#include "platform/linux/PropertyList.h"

#include <optional>
#include <string>
#include <string_view>

namespace blankwell {

/// A preference domain kept as an XML property list, DIRECTORY/NAME.plist.
///
/// Reads are answered from memory as long as the file is the one that was read: one `stat` each.
/// A missing, damaged or unreadable file reads as an empty domain. Nothing is touched before the
/// first read.
///
/// A write takes the lock NAME.plist.lock, reads the file again, changes that key, and replaces the
/// file in one step, so that no process loses another's keys and no crash leaves half a file. The
/// folder is made if missing (0700; files 0600). If the file is a link, what it points to is
/// replaced, and lock and temporary stand beside that. A write that would change nothing, a value
/// set to what it is, writes nothing. A damaged file is kept as NAME.plist.damaged-1 (-2, …) by the
/// first write; one that exists but cannot be read makes the write fail.
class PlistDomain : public UserDefaults {
public:
    /// The domain `name` in `directory`, an absolute path.
    PlistDomain(std::string_view directory, std::string_view name);

    [[nodiscard]] std::optional<PropertyValue> value(std::string_view key) const override;
    [[nodiscard]] std::vector<PropertyEntry> entries(std::string_view prefix) const override;
    std::expected<void, SystemError> set(std::string_view key, PropertyValue value) override;
    std::expected<void, SystemError> remove(std::string_view key) override;

private:
    /// What a key shall hold; nothing: the key shall be absent.
    using Wish = std::optional<PropertyValue>;

    std::expected<void, int> refresh() const;
    bool grants(std::string_view key, const Wish& wish) const;
    std::expected<void, SystemError> change(std::string_view key, const Wish& wish);
    std::expected<void, SystemError> changeLocked(std::string_view key, const Wish& wish,
                                                  const std::string& target);
    std::expected<void, int> replace(const std::string& target, std::string_view document) const;
    SystemError readError(int number) const;
    SystemError saveError(int number) const;

    std::string directory_;
    std::string path_;
    /// The file that `list_` was read from; none if there was nothing to read.
    mutable std::optional<FileSnapshot> snapshot_;
    mutable PropertyList list_;
    mutable bool isDamaged_ = false;
};

} // namespace blankwell
