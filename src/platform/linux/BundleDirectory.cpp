#include "platform/linux/BundleDirectory.h"

#include "platform/linux/FileSnapshot.h"
#include "platform/linux/SystemErrors.h"

#include <fmt/core.h>

#include <filesystem>
#include <system_error>
#include <utility>

namespace blankwell {
namespace {

/// An empty list where the file cannot be read or is no property list.
PropertyList readPropertyList(const FileUrl& url) {
    const auto file = FileSnapshot::open(url.path());
    if (!file) {
        return {};
    }
    const auto document = file->contents(PropertyList::largestSize + 1);
    return document ? PropertyList::parse(*document).value_or(PropertyList()) : PropertyList();
}

bool isPlainName(std::string_view name) {
    return !name.empty() &&
           name.find_first_of(std::string_view("/\0", 2)) == std::string_view::npos;
}

/// What has the programs in "Contents/Linux"; nothing where they stand elsewhere.
std::optional<FileUrl> enclosing(const FileUrl& programFolder) {
    const auto contents = programFolder.deletingLastPathComponent();
    const bool isInside =
        programFolder.lastPathComponent() == "Linux" && contents.lastPathComponent() == "Contents";
    return isInside ? std::optional(contents.deletingLastPathComponent()) : std::nullopt;
}

} // namespace

BundleDirectory::BundleDirectory(const FileUrl& programFolder)
    : programs_(programFolder), contents_(programFolder.deletingLastPathComponent()) {}

std::expected<FileUrl, SystemError> BundleDirectory::folderOfRunningProgram() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    if (error) {
        return std::unexpected(
            posixError(error.value(), "The program's own folder could not be found"));
    }
    return FileUrl(program.parent_path().string());
}

std::optional<FileUrl> BundleDirectory::bundleOf(const FileUrl& programFolder) {
    auto bundle = enclosing(programFolder);
    const bool isBundle = bundle && bundle->lastPathComponent().ends_with(".app");
    return isBundle ? bundle : std::nullopt;
}

FileUrl BundleDirectory::url() const {
    return enclosing(programs_).value_or(programs_);
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
        info_ = readPropertyList(contents_.appending("Info.plist"));
    }
    const auto* const value = info_->find(key);
    const auto* const text = value == nullptr ? nullptr : std::get_if<std::string>(value);
    return text == nullptr ? std::nullopt : std::optional(*text);
}

} // namespace blankwell
