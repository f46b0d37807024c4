#include "filetypes/FileCreator.h"

#include "base/Bytes.h"
#include "filetypes/FileTypeDefinition.h"
#include "filetypes/UniqueFileUrl.h"
#include "platform/AccessScopes.h"
#include "platform/Bundle.h"
#include "platform/FileCoordinator.h"
#include "platform/FileSystem.h"

#include <array>
#include <optional>
#include <utility>

namespace blankwell {
namespace {

using namespace std::string_view_literals;

constexpr std::array<std::pair<std::string_view, std::string_view>, 4> templates{{
    {"rtf"sv, "{\\rtf1\\ansi\\deff0\n"
              "}\n"sv},
    {"json"sv, "{}\n"sv},
    {"xml"sv, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
              "<root>\n"
              "</root>\n"sv},
    {"html"sv, "<!doctype html>\n"
               "<html lang=\"en\">\n"
               "<head>\n"
               "  <meta charset=\"utf-8\">\n"
               "  <title>Untitled</title>\n"
               "</head>\n"
               "<body>\n"
               "</body>\n"
               "</html>\n"sv},
}};

FileCreationError writeFailed(SystemError error) {
    return {FileCreationError::WriteFailed{std::move(error)}};
}

} // namespace

std::expected<FileUrl, FileCreationError> FileCreator::createFile(const FileTypeDefinition& type,
                                                                  const FileUrl& folder) const {
    auto target = uniqueFileUrl(fileSystem_, folder, "Untitled", type.fileExtension);
    if (!target) {
        return std::unexpected(writeFailed(std::move(target.error())));
    }
    const AccessScope scope(scopes_, folder);
    if (auto written = writeContents(type, *target); !written) {
        return std::unexpected(std::move(written.error()));
    }
    return *std::move(target);
}

std::string_view FileCreator::templateContent(const FileTypeDefinition& type) {
    for (const auto& [id, content] : templates) {
        if (id == type.id) {
            return content;
        }
    }
    return {};
}

std::expected<void, FileCreationError> FileCreator::writeContents(const FileTypeDefinition& type,
                                                                  const FileUrl& target) const {
    Accessor accessor = [&](const FileUrl& url) {
        return fileSystem_.writeNew(url, bytesOf(templateContent(type)));
    };
    if (type.category == FileTypeCategory::office) {
        auto resource = bundle_.resource("blank", type.fileExtension);
        if (!resource) {
            return std::unexpected(FileCreationError{
                FileCreationError::TemplateMissing{"blank." + type.fileExtension}});
        }
        accessor = [this, source = *std::move(resource)](const FileUrl& url) {
            return fileSystem_.copyNew(source, url);
        };
    }
    if (auto written = coordinatedWrite(target, accessor); !written) {
        return std::unexpected(writeFailed(std::move(written.error())));
    }
    return {};
}

std::expected<void, SystemError> FileCreator::coordinatedWrite(const FileUrl& url,
                                                               const Accessor& accessor) const {
    std::optional<std::expected<void, SystemError>> outcome;
    auto coordination = coordinator_.coordinateReplacing(
        url, [&](const FileUrl& handedOut) { outcome = accessor(handedOut); });
    if (coordination) {
        return std::unexpected(*std::move(coordination));
    }
    if (!outcome) {
        return std::unexpected(
            cocoaError(CocoaCode::fileWriteUnknown, "The file couldn’t be saved."));
    }
    return *std::move(outcome);
}

} // namespace blankwell
