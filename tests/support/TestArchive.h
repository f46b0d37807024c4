#pragma once

#include <fmt/core.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <archive.h>
#include <archive_entry.h>
#include <sys/stat.h>

namespace blankwell {

/// One entry of a tape archive, of whatever kind, under whatever name.
struct ArchiveEntry {
    std::string path;
    std::string contents = {};
    mode_t type = S_IFREG;
    mode_t mode = 0644;
    /// What a symbolic link holds.
    std::string target = {};
    /// The entry that this is a hard link to.
    std::string hardLink = {};

    static ArchiveEntry folder(std::string path) {
        return {.path = std::move(path), .type = S_IFDIR, .mode = 0755};
    }

    static ArchiveEntry link(std::string path, std::string target) {
        return {
            .path = std::move(path), .type = S_IFLNK, .mode = 0777, .target = std::move(target)};
    }
};

/// The bytes of a compressed tape archive that holds `entries`.
inline std::string archiveOf(const std::vector<ArchiveEntry>& entries) {
    std::string bytes;
    const auto append = [](archive*, void* to, const void* data, std::size_t count) {
        static_cast<std::string*>(to)->append(static_cast<const char*>(data), count);
        return static_cast<la_ssize_t>(count);
    };
    const std::unique_ptr<archive, decltype(&archive_write_free)> writer(archive_write_new(),
                                                                         archive_write_free);
    archive_write_add_filter_zstd(writer.get());
    archive_write_set_format_pax_restricted(writer.get());
    archive_write_set_bytes_in_last_block(writer.get(), 1); // no filling
    archive_write_open(writer.get(), &bytes, nullptr, append, nullptr);
    for (const auto& item : entries) {
        const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(
            archive_entry_new(), archive_entry_free);
        archive_entry_set_pathname(entry.get(), item.path.c_str());
        archive_entry_set_mode(entry.get(), item.type | item.mode);
        archive_entry_set_size(entry.get(), static_cast<la_int64_t>(item.contents.size()));
        if (!item.target.empty()) {
            archive_entry_set_symlink(entry.get(), item.target.c_str());
        }
        if (!item.hardLink.empty()) {
            archive_entry_set_hardlink(entry.get(), item.hardLink.c_str());
        }
        archive_write_header(writer.get(), entry.get());
        archive_write_data(writer.get(), item.contents.data(), item.contents.size());
    }
    archive_write_close(writer.get());
    return bytes;
}

/// An Info.plist with these entries, where they are not empty.
inline std::string infoPlist(std::string_view version, std::string_view key,
                             std::string_view identifier = "app.blankwell.BlankwellPlus") {
    const std::array<std::array<std::string_view, 2>, 3> entries{
        {{"CFBundleIdentifier", identifier}, {"CFBundleVersion", version}, {"SUPublicEDKey", key}}};
    std::string text = R"(<?xml version="1.0"?><plist version="1.0"><dict>)";
    for (const auto& [name, value] : entries) {
        if (!value.empty()) {
            text += fmt::format("<key>{}</key><string>{}</string>", name, value);
        }
    }
    return text + "</dict></plist>";
}

/// The entries of a small bundle.
inline std::vector<ArchiveEntry> bundleEntries(std::string_view version, std::string_view key) {
    return {
        ArchiveEntry::folder("Blankwell+.app"),
        {.path = "Blankwell+.app/Contents/Info.plist", .contents = infoPlist(version, key)},
        {.path = "Blankwell+.app/Contents/Linux/blankwell-plus",
         .contents = fmt::format("#!/bin/sh\necho {}\n", version),
         .mode = 0755},
        {.path = "Blankwell+.app/Contents/Resources/blank.docx", .contents = "template"},
    };
}

} // namespace blankwell
