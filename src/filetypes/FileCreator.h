#pragma once

#include "base/FileUrl.h"
#include "filetypes/FileCreationError.h"
#include "platform/SystemError.h"

#include <expected>
#include <functional>
#include <string_view>

namespace blankwell {

class AccessScopes;
class Bundle;
class FileCoordinator;
class FileSystem;
struct FileTypeDefinition;

/// Makes new files: chooses a free name, and writes the type's first bytes without ever replacing
/// anything.
///
/// Keeps no state between calls, shows nothing and logs nothing.
class FileCreator {
public:
    /// All must outlive this object.
    FileCreator(FileSystem& fileSystem, FileCoordinator& coordinator, const Bundle& bundle,
                AccessScopes& scopes)
        : fileSystem_(fileSystem), coordinator_(coordinator), bundle_(bundle), scopes_(scopes) {}

    /// Creates a file of `type` in `folder` and returns where it is. A name that somebody takes
    /// between its choice and the write makes the call fail; no other name is tried.
    /// Errors: `TemplateMissing`, `WriteFailed`. On an error the folder is as it was.
    [[nodiscard]] std::expected<FileUrl, FileCreationError>
    createFile(const FileTypeDefinition& type, const FileUrl& folder) const;

    /// The text that a file of this type starts with; empty for types that have none.
    [[nodiscard]] static std::string_view templateContent(const FileTypeDefinition& type);

private:
    using Accessor = std::function<std::expected<void, SystemError>(const FileUrl&)>;

    [[nodiscard]] std::expected<void, FileCreationError>
    writeContents(const FileTypeDefinition& type, const FileUrl& target) const;
    [[nodiscard]] std::expected<void, SystemError> coordinatedWrite(const FileUrl& url,
                                                                    const Accessor& accessor) const;

    FileSystem& fileSystem_;
    FileCoordinator& coordinator_;
    const Bundle& bundle_;
    AccessScopes& scopes_;
};

} // namespace blankwell
