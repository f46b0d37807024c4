#include "platform/linux/AutostartEntry.h"

#include <array>

namespace blankwell {
namespace {

constexpr auto group = G_KEY_FILE_DESKTOP_GROUP;
constexpr auto exec = G_KEY_FILE_DESKTOP_KEY_EXEC;
constexpr auto hidden = G_KEY_FILE_DESKTOP_KEY_HIDDEN;
/// By which GNOME's settings switch an entry off.
constexpr auto gnomeEnabled = "X-GNOME-Autostart-enabled";

constexpr std::string_view programName = "blankwell-plus";
constexpr std::string_view argument = "--background";

struct Field {
    const char* key;
    const char* value;
};

constexpr std::array fields = {
    Field{"Type", "Application"},
    Field{"Name", "Blankwell+"},
    Field{"Comment", "Create blank files anywhere"},
    Field{"Icon", "app.blankwell.BlankwellPlus"},
    Field{"Terminal", "false"},
};

using Text = std::unique_ptr<char, decltype(&g_free)>;

/// The command that starts `program`, quoted as the Desktop Entry Specification wants it.
std::string commandOf(std::string_view program) {
    constexpr std::string_view escaped = "\"`$\\";
    std::string quoted = "\"";
    for (const char character : program) {
        if (escaped.contains(character)) {
            quoted += '\\';
        }
        quoted += character == '%' ? std::string("%%") : std::string(1, character);
    }
    return quoted + "\" " + std::string(argument);
}

} // namespace

void AutostartEntry::Release::operator()(GKeyFile* file) const {
    g_key_file_unref(file);
}

AutostartEntry::AutostartEntry() : file_(g_key_file_new()) {}

AutostartEntry AutostartEntry::starting(std::string_view program) {
    AutostartEntry entry;
    for (const auto& field : fields) {
        g_key_file_set_string(entry.file_.get(), group, field.key, field.value);
    }
    g_key_file_set_string(entry.file_.get(), group, exec, commandOf(program).c_str());
    return entry;
}

std::expected<AutostartEntry, std::string> AutostartEntry::parse(const std::string& text) {
    constexpr auto everything =
        static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS | G_KEY_FILE_KEEP_TRANSLATIONS);
    AutostartEntry entry;
    GError* error = nullptr;
    if (g_key_file_load_from_data(entry.file_.get(), text.data(), text.size(), everything,
                                  &error) == 0) {
        const std::string message = error->message;
        g_error_free(error);
        return std::unexpected(message);
    }
    if (g_key_file_has_group(entry.file_.get(), group) == 0) {
        return std::unexpected("It has no group [Desktop Entry]");
    }
    return entry;
}

bool AutostartEntry::isOn() const {
    const bool isEnabled =
        g_key_file_has_key(file_.get(), group, gnomeEnabled, nullptr) == 0 || flag(gnomeEnabled);
    return isEnabled && !flag(hidden) && !command().empty();
}

bool AutostartEntry::isUntouched() const {
    if (!hasUsualCommand()) {
        return false;
    }
    auto fresh = starting("");
    g_key_file_set_string(fresh.file_.get(), group, exec, command().c_str());
    return fresh.text() == text();
}

void AutostartEntry::turnOn(std::string_view program) {
    if (command().empty() || hasUsualCommand()) {
        g_key_file_set_string(file_.get(), group, exec, commandOf(program).c_str());
    }
    g_key_file_remove_key(file_.get(), group, hidden, nullptr);
    g_key_file_remove_key(file_.get(), group, gnomeEnabled, nullptr);
}

void AutostartEntry::turnOff() {
    g_key_file_set_boolean(file_.get(), group, hidden, 1);
}

std::string AutostartEntry::text() const {
    const Text text(g_key_file_to_data(file_.get(), nullptr, nullptr), g_free);
    return text.get();
}

std::string AutostartEntry::command() const {
    const Text value(g_key_file_get_string(file_.get(), group, exec, nullptr), g_free);
    return value ? value.get() : "";
}

bool AutostartEntry::hasUsualCommand() const {
    int count = 0;
    char** words = nullptr;
    if (g_shell_parse_argv(command().c_str(), &count, &words, nullptr) == 0) {
        return false;
    }
    const std::unique_ptr<char*, decltype(&g_strfreev)> owner(words, g_strfreev);
    const std::string_view program = words[0];
    return count == 2 && words[1] == argument && program.starts_with('/') &&
           program.ends_with('/' + std::string(programName));
}

bool AutostartEntry::flag(const char* key) const {
    return g_key_file_get_boolean(file_.get(), group, key, nullptr) != 0;
}

} // namespace blankwell
