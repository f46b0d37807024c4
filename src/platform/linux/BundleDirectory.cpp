#include "platform/linux/BundleDirectory.h"

#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>
#include <plist/plist.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <system_error>
#include <type_traits>
#include <utility>

namespace blankwell {
namespace {

struct FreePropertyList {
    void operator()(plist_t node) const { plist_free(node); }
};

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

using PropertyList = std::unique_ptr<std::remove_pointer_t<plist_t>, FreePropertyList>;
template <typename Value>
using Allocated = std::unique_ptr<Value, FreeMemory>;

/// A null value where the file cannot be read or is no property list.
PropertyList readPropertyList(const FileUrl& url) {
    std::ifstream file(url.path(), std::ios::binary);
    std::ostringstream contents;
    contents << file.rdbuf();
    const auto bytes = std::move(contents).str();
    plist_t root = nullptr;
    plist_from_memory(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &root);
    return PropertyList(root);
}

bool isPlainName(std::string_view name) {
    return !name.empty() && name.find_first_of(std::string_view("/\0", 2)) == name.npos;
}

} // namespace

BundleDirectory::BundleDirectory(const FileUrl& programFolder)
    : contents_(programFolder.deletingLastPathComponent()) {}

std::expected<FileUrl, SystemError> BundleDirectory::folderOfRunningProgram() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        return std::unexpected(
            posixError(error.value(), "The program's own folder could not be found"));
    }
    return FileUrl(program.parent_path().string());
}

std::optional<FileUrl> BundleDirectory::resource(std::string_view name,
                                                 std::string_view extension) const {
    if (!isPlainName(name) || !isPlainName(extension)) {
        return std::nullopt;
    }
    auto file = contents_.appending("Resources").appending(fmt::format("{}.{}", name, extension));
    std::error_code error;
    return std::filesystem::is_regular_file(file.path(), error) ? std::optional(std::move(file))
                                                                : std::nullopt;
}

std::optional<std::string> BundleDirectory::infoString(std::string_view key) const {
    if (!info_) {
        info_ = readStrings(contents_.appending("Info.plist"));
    }
    const auto found = info_->find(key);
    return found == info_->end() ? std::nullopt : std::optional(found->second);
}

BundleDirectory::Strings BundleDirectory::readStrings(const FileUrl& propertyList) {
    const auto root = readPropertyList(propertyList);
    if (plist_get_node_type(root.get()) != PLIST_DICT) {
        return {};
    }
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(root.get(), &position);
    const Allocated<void> positionOwner(position);
    Strings strings;
    while (true) {
        char* key = nullptr;
        plist_t value = nullptr;
        plist_dict_next_item(root.get(), position, &key, &value);
        const Allocated<char> keyOwner(key);
        if (key == nullptr || value == nullptr) {
            return strings;
        }
        if (plist_get_node_type(value) == PLIST_STRING) {
            strings.insert_or_assign(key, plist_get_string_ptr(value, nullptr));
        }
    }
}

} // namespace blankwell
