#include "platform/linux/LinuxRegistrations.h"

#include "base/ListedText.h"
#include "base/Overloaded.h"
#include "platform/Identifiers.h"
#include "platform/UserDefaults.h"
#include "platform/linux/FileReplacement.h"
#include "platform/linux/FileSnapshot.h"
#include "platform/linux/PrivateFolder.h"
#include "platform/linux/RegistrationRecord.h"
#include "platform/linux/SystemErrors.h"
#include "platform/linux/ThunarActionList.h"

#include <fcntl.h>
#include <fmt/core.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

namespace blankwell {
namespace {

using Kind = RegistrationRecord::Kind;
using Records = std::set<RegistrationRecord>;
using Done = std::expected<void, SystemError>;

constexpr std::string_view keyPrefix = "registered.";
/// More than any file that is read here has.
constexpr std::size_t mostBytes = 4UL * 1024 * 1024;

std::unexpected<SystemError> failure(int number, std::string_view what, const FileUrl& url) {
    return std::unexpected(
        posixError(number, fmt::format("Could not {} \"{}\"", what, url.path())));
}

std::unexpected<SystemError> foreign(const FileUrl& url) {
    return std::unexpected(SystemError{
        SystemError::Domain::posix, EEXIST,
        fmt::format("\"{}\" was not made by Blankwell+, and stays as it is.", url.path())});
}

/// The contents of the file `url`, or nothing where there is none.
std::expected<std::optional<std::string>, SystemError> read(const FileUrl& url) {
    const auto file = FileSnapshot::open(url.path());
    if (!file && (file.error() == ENOENT || file.error() == ENOTDIR)) {
        return std::nullopt;
    }
    auto contents = file ? file->contents(mostBytes) : std::unexpected(file.error());
    if (!contents) {
        return failure(contents.error(), "read", url);
    }
    if (contents->size() == mostBytes) {
        return failure(EFBIG, "read", url);
    }
    return *std::move(contents);
}

/// The permissions of the file `url`, or those of a new one.
mode_t modeOf(const FileUrl& url) {
    struct stat status{};
    constexpr mode_t fresh = S_IRUSR | S_IWUSR;
    return ::stat(url.path().c_str(), &status) == 0 ? status.st_mode & 0777U : fresh;
}

/// Writes the file `url`; where a link stands for it, the file that it leads to.
Done write(const FileUrl& url, std::string_view contents, mode_t mode) {
    std::error_code error;
    const auto target = std::filesystem::canonical(url.path(), error);
    auto replacement =
        FileReplacement::prepare(error ? url.path() : target.string(), contents, mode);
    const auto replaced =
        replacement ? replacement->commit() : std::unexpected(replacement.error());
    return replaced ? Done() : failure(replaced.error(), "write", url);
}

Done makeParent(const FileUrl& url) {
    const auto folder = url.deletingLastPathComponent();
    const auto made = makePrivateFolder(folder.path());
    return made ? Done() : failure(made.error(), "make the folder", folder);
}

Done put(const RegisteredFile& file, bool isListed) {
    const auto present = read(file.url);
    if (!present) {
        return std::unexpected(present.error());
    }
    const mode_t mode = S_IRUSR | S_IWUSR | (file.isProgram ? mode_t{S_IXUSR} : mode_t{0});
    if (*present == file.contents && (!file.isProgram || (modeOf(file.url) & S_IXUSR) != 0)) {
        return {};
    }
    if (*present && !isListed && !(**present).contains(bundleIdentifier)) {
        return foreign(file.url);
    }
    return write(file.url, file.contents, mode);
}

Done put(const RegisteredLink& link, bool isListed) {
    std::error_code error;
    const auto status = std::filesystem::symlink_status(link.url.path(), error);
    const auto target = std::filesystem::read_symlink(link.url.path(), error);
    if (!error && target == link.target.path()) {
        return {};
    }
    const bool isFree = status.type() == std::filesystem::file_type::not_found;
    const bool isOurs = !error && (isListed || target.string().contains(".app/Contents/"));
    if (!isFree && !isOurs) {
        return foreign(link.url);
    }
    const auto temporary = link.url.path() + ".tmp";
    ::unlink(temporary.c_str());
    if (::symlink(link.target.path().c_str(), temporary.c_str()) != 0 ||
        ::rename(temporary.c_str(), link.url.path().c_str()) != 0) {
        const int number = errno;
        ::unlink(temporary.c_str());
        return failure(number, "make the link", link.url);
    }
    return {};
}

Done put(const RegisteredEntry& entry, bool /*isListed*/) {
    const auto present = read(entry.url);
    if (!present) {
        return std::unexpected(present.error());
    }
    const auto& text = present->value_or("");
    const auto wanted = withListedEntry(text, entry.group, entry.key, entry.value);
    return wanted == text ? Done() : write(entry.url, wanted, modeOf(entry.url));
}

std::unexpected<SystemError> damaged(const FileUrl& url, std::string_view problem) {
    return std::unexpected(SystemError{SystemError::Domain::posix, EBADMSG,
                                       fmt::format("\"{}\" is damaged: {}.", url.path(), problem)});
}

Done put(const RegisteredActions& list, bool /*isListed*/) {
    auto present = read(list.url);
    const bool isMissing = present && !*present;
    auto text = isMissing ? read(list.usual) : present;
    if (!text) {
        return std::unexpected(text.error());
    }
    const auto wanted = withThunarActions(text->value_or(""), bundleIdentifier, list.actions);
    if (!wanted) {
        return damaged(list.url, wanted.error());
    }
    return *present == *wanted ? Done() : write(list.url, *wanted, modeOf(list.url));
}

Done put(const RegisteredPlace& /*place*/, bool /*isListed*/) {
    return {};
}

Done unlinkFile(const FileUrl& url) {
    if (::unlink(url.path().c_str()) != 0 && errno != ENOENT && errno != ENOTDIR) {
        return failure(errno, "remove", url);
    }
    return {};
}

/// What Python keeps of a module beside it.
void removeCompiled(const FileUrl& module) {
    constexpr std::string_view suffix = ".py";
    const auto name = module.lastPathComponent();
    if (!name.ends_with(suffix)) {
        return;
    }
    const auto stem = std::string(name.substr(0, name.size() - suffix.size() + 1));
    const auto cache = module.deletingLastPathComponent().appending("__pycache__");
    std::error_code error;
    for (const auto& file : std::filesystem::directory_iterator(cache.path(), error)) {
        if (file.path().filename().string().starts_with(stem)) {
            ::unlink(file.path().c_str());
        }
    }
    ::rmdir(cache.path().c_str()); // stays where others have modules there
}

Done removeEntry(const RegistrationRecord& record) {
    const auto present = read(record.url);
    if (!present || !*present) {
        return present ? Done() : std::unexpected(present.error());
    }
    const auto wanted =
        withoutListedEntry(**present, record.details[0], record.details[1], record.details[2]);
    return wanted == **present ? Done() : write(record.url, wanted, modeOf(record.url));
}

Done removeActions(const FileUrl& url) {
    const auto present = read(url);
    if (!present || !*present) {
        return present ? Done() : std::unexpected(present.error());
    }
    const auto wanted = withThunarActions(**present, bundleIdentifier, {});
    if (!wanted) {
        return damaged(url, wanted.error());
    }
    return *wanted == **present ? Done() : write(url, *wanted, modeOf(url));
}

/// A file in which nobody has written since it was made.
Done removeMadeFile(const RegistrationRecord& record) {
    const auto present = read(record.url);
    if (!present || !*present) {
        return present ? Done() : std::unexpected(present.error());
    }
    const auto& start = record.details.empty() ? std::string() : record.details[0];
    return **present == start ? unlinkFile(record.url) : Done();
}

Done remove(const RegistrationRecord& record) {
    switch (record.kind) {
    case Kind::file:
        removeCompiled(record.url);
        return unlinkFile(record.url);
    case Kind::link:
        return unlinkFile(record.url);
    case Kind::entry:
        return removeEntry(record);
    case Kind::actions:
        return removeActions(record.url);
    case Kind::place:
        return {};
    case Kind::madeFile:
        return removeMadeFile(record);
    case Kind::madeFolder:
        ::rmdir(record.url.path().c_str()); // stays where others have something in it
        return {};
    }
    std::unreachable();
}

bool isMissing(const FileUrl& url) {
    struct stat status{};
    return ::lstat(url.path().c_str(), &status) != 0 && (errno == ENOENT || errno == ENOTDIR);
}

const FileUrl& urlOf(const Registration& registration) {
    return std::visit([](const auto& specific) -> const FileUrl& { return specific.url; },
                      registration);
}

/// The folders above `url` that are not there, or that were not until something of ours came.
void addMadeFolders(Records& records, const FileUrl& url, const std::set<FileUrl>& made) {
    for (auto folder = url.deletingLastPathComponent(); isMissing(folder) || made.contains(folder);
         folder = folder.deletingLastPathComponent()) {
        records.insert({Kind::madeFolder, folder, {}});
    }
}

/// What the list of actions is where there is nothing of ours in it.
std::string startOf(const RegisteredActions& list) {
    const auto usual = read(list.usual);
    return withThunarActions(usual ? usual->value_or("") : "", bundleIdentifier, {}).value_or("");
}

/// What comes to be if `registration` is put in place now.
void addRecords(Records& records, const Registration& registration,
                const std::set<FileUrl>& madeFolders) {
    const auto& url = urlOf(registration);
    records.insert(recordOf(registration));
    addMadeFolders(records, url, madeFolders);
    if (!isMissing(url)) {
        return;
    }
    if (const auto* const list = std::get_if<RegisteredActions>(&registration)) {
        records.insert({Kind::madeFile, url, {startOf(*list)}});
    } else if (std::holds_alternative<RegisteredEntry>(registration)) {
        records.insert({Kind::madeFile, url, {}});
    }
}

/// Whether `record`, of something that was made along with others, goes with one of `wanted`.
bool isStillNeeded(const RegistrationRecord& record, const Records& wanted) {
    return std::ranges::any_of(wanted, [&](const RegistrationRecord& other) {
        switch (record.kind) {
        case Kind::madeFile:
            return other.url == record.url;
        case Kind::madeFolder:
            return covers(record.url, other.url);
        default:
            return false;
        }
    });
}

/// Files first, then the folders, the inner ones before the outer.
std::vector<RegistrationRecord> inOrderOfRemoval(const Records& records) {
    std::vector<RegistrationRecord> order(records.begin(), records.end());
    std::ranges::stable_sort(order, [](const auto& left, const auto& right) {
        const bool areFolders = left.kind == Kind::madeFolder && right.kind == Kind::madeFolder;
        return areFolders ? left.url.path().size() > right.url.path().size()
                          : left.kind < right.kind;
    });
    return order;
}

} // namespace

LinuxRegistrations::LinuxRegistrations(UserDefaults& list, FileUrl home)
    : list_(list), home_(std::move(home)) {}

Done LinuxRegistrations::set(std::string_view group,
                             const std::vector<Registration>& registrations) {
    const FileDescriptor home(::open(home_.path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!home || ::flock(home.get(), LOCK_EX) != 0) {
        return failure(errno, "open", home_);
    }
    return change(group, registrations);
}

Done LinuxRegistrations::clear(std::string_view group) {
    return load(group).empty() ? Done() : set(group, {});
}

Done LinuxRegistrations::change(std::string_view group,
                                const std::vector<Registration>& registrations) {
    const auto old = load(group);
    const auto folders = madeFolders();
    Records wanted;
    for (const auto& registration : registrations) {
        addRecords(wanted, registration, folders);
    }
    std::ranges::copy_if(old, std::inserter(wanted, wanted.end()),
                         [&](const auto& record) { return isStillNeeded(record, wanted); });
    auto all = wanted;
    all.insert(old.begin(), old.end());
    if (const auto stored = store(group, all); !stored) {
        return stored;
    }

    Done result;
    const auto note = [&](const Done& done) { result = result ? done : result; };
    for (const auto& registration : registrations) {
        auto done = makeParent(urlOf(registration));
        if (done) {
            done = std::visit(
                [&](const auto& specific) {
                    return put(specific, old.contains(recordOf(registration)));
                },
                registration);
        }
        // What is not ours must not be taken away as ours one day.
        if (!done && !old.contains(recordOf(registration))) {
            wanted.erase(recordOf(registration));
        }
        note(done);
    }
    for (const auto& record : inOrderOfRemoval(old)) {
        if (wanted.contains(record)) {
            continue;
        }
        const auto done = remove(record);
        if (!done) {
            wanted.insert(record);
        }
        note(done);
    }
    note(store(group, wanted));
    return result;
}

/// Groups share folders, and the last one takes them away.
std::set<FileUrl> LinuxRegistrations::madeFolders() const {
    std::set<FileUrl> folders;
    for (const auto& group : groups()) {
        for (const auto& record : load(group)) {
            if (record.kind == Kind::madeFolder) {
                folders.insert(record.url);
            }
        }
    }
    return folders;
}

std::vector<std::string> LinuxRegistrations::groups() const {
    auto keys = list_.keys(keyPrefix);
    for (auto& key : keys) {
        key.erase(0, keyPrefix.size());
    }
    return keys;
}

Records LinuxRegistrations::load(std::string_view group) const {
    const auto lines = list_.read<std::vector<std::string>>(fmt::format("{}{}", keyPrefix, group));
    Records records;
    for (const auto& line : lines.value_or(std::vector<std::string>())) {
        if (auto record = registrationRecord(line)) {
            records.insert(*std::move(record));
        }
    }
    return records;
}

Done LinuxRegistrations::store(std::string_view group, const Records& records) {
    const auto key = fmt::format("{}{}", keyPrefix, group);
    if (records.empty()) {
        return list_.remove(key);
    }
    std::vector<std::string> lines;
    std::ranges::transform(records, std::back_inserter(lines),
                           [](const auto& record) { return text(record); });
    if (list_.read<std::vector<std::string>>(key) == lines) {
        return {};
    }
    return list_.set(key, std::move(lines));
}

} // namespace blankwell
