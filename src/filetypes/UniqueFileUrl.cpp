#include "filetypes/UniqueFileUrl.h"

#include "platform/FileSystem.h"

#include <charconv>
#include <cstdint>
#include <string>
#include <vector>

namespace blankwell {
namespace {

/// How many names are asked for one by one before the folder is read in one pass. A folder seldom
/// holds more blank files than this, and reading it costs what it holds.
constexpr std::uint64_t namesBeforeListing = 16;

/// The names "BASE.EXT" (number 1), "BASE 2.EXT", "BASE 3.EXT", ...
class NumberedNames {
public:
    NumberedNames(std::string_view baseName, std::string_view fileExtension)
        : prefix_(baseName), suffix_(".") {
        prefix_ += ' ';
        suffix_ += fileExtension;
    }

    [[nodiscard]] std::string name(std::uint64_t number) const {
        if (number == 1) {
            return prefix_.substr(0, prefix_.size() - 1) + suffix_;
        }
        return prefix_ + std::to_string(number) + suffix_;
    }

    /// The number from 2 up that `name` carries, spelled exactly as `name(number)` does; else 0.
    [[nodiscard]] std::uint64_t number(std::string_view name) const {
        if (!name.starts_with(prefix_) || !name.ends_with(suffix_) ||
            name.size() <= prefix_.size() + suffix_.size()) {
            return 0;
        }
        const auto* const first = name.data() + prefix_.size();
        const auto* const last = name.data() + name.size() - suffix_.size();
        std::uint64_t number = 0;
        const auto [end, error] = std::from_chars(first, last, number);
        const bool isPlain = error == std::errc{} && end == last && *first != '0' && number > 1;
        return isPlain ? number : 0;
    }

private:
    std::string prefix_;
    std::string suffix_;
};

/// Which numbers are seen to be taken by reading `folder` once. A number it does not name may be
/// taken all the same: names can be equal to the file system and not to us.
std::vector<bool> listTakenNumbers(const FileSystem& fileSystem, const FileUrl& folder,
                                   const NumberedNames& names) {
    // A name far beyond the number of items cannot be reached before a gap, so it is not noted.
    constexpr std::uint64_t highestNoted = 1U << 24U;
    std::vector<bool> taken;
    // A folder that cannot be read can still be written to: then nothing is known beforehand.
    (void)fileSystem.visitNames(folder, [&](std::string_view name) {
        const auto number = names.number(name);
        if (number >= taken.size() && number <= highestNoted) {
            taken.resize(number * 2 + 1);
        }
        if (number < taken.size()) {
            taken[number] = true;
        }
    });
    return taken;
}

} // namespace

std::expected<FileUrl, SystemError> uniqueFileUrl(const FileSystem& fileSystem,
                                                  const FileUrl& folder, std::string_view baseName,
                                                  std::string_view fileExtension) {
    const NumberedNames names(baseName, fileExtension);
    std::vector<bool> taken;
    for (std::uint64_t number = 1;; ++number) {
        if (number == namesBeforeListing + 1) {
            taken = listTakenNumbers(fileSystem, folder, names);
        }
        if (number < taken.size() && taken[number]) {
            continue;
        }
        auto candidate = folder.appending(names.name(number));
        const auto exists = fileSystem.itemExists(candidate);
        if (!exists) {
            return std::unexpected(exists.error());
        }
        if (!*exists) {
            return candidate;
        }
    }
}

} // namespace blankwell
