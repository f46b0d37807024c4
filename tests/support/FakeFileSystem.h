#pragma once

#include "base/Bytes.h"
#include "platform/FileSystem.h"
#include "support/EventLog.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>

namespace blankwell {

/// Files and folders in memory.
class FakeFileSystem : public FileSystem {
public:
    explicit FakeFileSystem(EventLog& events) : events_(events) {}

    std::expected<bool, SystemError> itemExists(const FileUrl& url) const override {
        ++existenceTests;
        if (failExistenceWith) {
            return std::unexpected(*failExistenceWith);
        }
        return folders.contains(url) || files.contains(url) || links.contains(url);
    }

    bool isDirectory(const FileUrl& url) const override { return folders.contains(url); }

    std::expected<void, SystemError>
    visitNames(const FileUrl& folder,
               const std::function<void(std::string_view)>& visitor) const override {
        ++listings;
        if (failListingWith) {
            return std::unexpected(*failListingWith);
        }
        const auto visit = [&](const FileUrl& url) {
            if (url != folder && url.deletingLastPathComponent() == folder) {
                visitor(url.lastPathComponent());
            }
        };
        std::ranges::for_each(folders, visit);
        std::ranges::for_each(links, visit);
        for (const auto& [url, contents] : files) {
            visit(url);
        }
        return {};
    }

    std::expected<void, SystemError> writeNew(const FileUrl& url,
                                              std::span<const std::byte> bytes) override {
        return make(url, Bytes(bytes.begin(), bytes.end()));
    }

    std::expected<void, SystemError> copyNew(const FileUrl& source, const FileUrl& url) override {
        const auto found = files.find(source);
        if (found == files.end()) {
            return std::unexpected(cocoaError(CocoaCode::fileNoSuchFile, "no such source"));
        }
        return make(url, found->second);
    }

    std::string displayName(const FileUrl& url) const override {
        const auto named = displayNames.find(url);
        return named == displayNames.end() ? std::string(url.lastPathComponent()) : named->second;
    }

    void addFile(std::string_view path, std::string_view contents = "") {
        const auto bytes = bytesOf(contents);
        files[FileUrl(std::string(path))] = Bytes(bytes.begin(), bytes.end());
    }

    void addFolder(std::string_view path) { folders.insert(FileUrl(std::string(path))); }

    /// The contents of a file, or "(none)".
    [[nodiscard]] std::string contents(std::string_view path) const {
        const auto found = files.find(FileUrl(std::string(path)));
        return found == files.end() ? "(none)" : std::string(textOf(found->second));
    }

    std::set<FileUrl> folders;
    std::set<FileUrl> links;
    std::map<FileUrl, Bytes> files;
    std::map<FileUrl, std::string> displayNames;
    std::optional<SystemError> failExistenceWith;
    std::optional<SystemError> failListingWith;
    std::optional<SystemError> failWritingWith;
    /// Called before a file is made: another process gets its turn.
    std::function<void()> beforeWriting = [] {};
    mutable int existenceTests = 0;
    mutable int listings = 0;

private:
    std::expected<void, SystemError> make(const FileUrl& url, Bytes bytes) {
        beforeWriting();
        if (failWritingWith) {
            return std::unexpected(*failWritingWith);
        }
        if (folders.contains(url) || files.contains(url) || links.contains(url)) {
            return std::unexpected(cocoaError(CocoaCode::fileWriteFileExists, "file exists"));
        }
        if (!folders.contains(url.deletingLastPathComponent())) {
            return std::unexpected(cocoaError(CocoaCode::fileNoSuchFile, "no such folder"));
        }
        events_.push_back("write " + url.path());
        files[url] = std::move(bytes);
        return {};
    }

    EventLog& events_;
};

} // namespace blankwell
