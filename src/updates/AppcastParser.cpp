#include "updates/Appcast.h"

#include "base/Text.h"

#include <fmt/core.h>

#include <expat.h>

#include <array>
#include <charconv>
#include <memory>
#include <type_traits>
#include <utility>

namespace blankwell {
namespace {

constexpr std::string_view sparkleNamespace = "http://www.andymatuschak.org/xml-namespaces/sparkle";

/// Stands between a name and its namespace; no URL contains it.
constexpr char separator = '|';

/// `name` as feeds write it: "sparkle:" in place of the framework's namespace.
std::string plainName(std::string_view name) {
    const auto end = name.find(separator);
    if (end == std::string_view::npos) {
        return std::string(name);
    }
    return name.substr(0, end) == sparkleNamespace ? fmt::format("sparkle:{}", name.substr(end + 1))
                                                   : std::string(name);
}

std::optional<std::uint64_t> number(std::string_view text) {
    std::uint64_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    return isWhole ? std::optional(value) : std::nullopt;
}

struct TextField {
    std::string_view name;
    std::string AppcastItem::* member;
};

constexpr auto textElements = std::to_array<TextField>({
    {"sparkle:version", &AppcastItem::version},
    {"sparkle:shortVersionString", &AppcastItem::shortVersion},
    {"sparkle:minimumSystemVersion", &AppcastItem::minimumSystemVersion},
    {"sparkle:maximumSystemVersion", &AppcastItem::maximumSystemVersion},
    {"sparkle:channel", &AppcastItem::channel},
    {"sparkle:releaseNotesLink", &AppcastItem::releaseNotesLink},
    {"description", &AppcastItem::description},
});

/// What stands in an element of the item is preferred to these.
constexpr auto enclosureAttributes = std::to_array<TextField>({
    {"url", &AppcastItem::url},
    {"sparkle:edSignature", &AppcastItem::signature},
    {"sparkle:os", &AppcastItem::operatingSystem},
    {"sparkle:version", &AppcastItem::version},
    {"sparkle:shortVersionString", &AppcastItem::shortVersion},
});

/// Takes in the events of one feed.
class FeedReader {
public:
    /// Nothing where the feed was read to its end; else why not.
    std::optional<std::string> problem;
    Appcast items;

    void begin(std::string_view name, const char** attributes) {
        path_.push_back(plainName(name));
        text_.clear();
        if (path_.size() > AppcastLimits::depth) {
            problem = "The update feed is nested too deeply.";
        } else if (path_.size() == 1 && path_.front() != "rss") {
            problem = "What was found at the address of the update feed is no feed.";
        } else if (isItem()) {
            beginItem();
        } else if (isInItem()) {
            beginElement(path_.back(), attributes);
        }
    }

    void end() {
        if (isItem()) {
            endItem();
        } else if (isInItem()) {
            endElement(path_.back());
        }
        path_.pop_back();
        text_.clear();
    }

    void add(std::string_view text) { text_ += text; }

private:
    [[nodiscard]] bool isItem() const {
        return path_.size() == 3 && path_[1] == "channel" && path_[2] == "item";
    }

    /// Whether this is an element of an item itself, or one of its tags.
    [[nodiscard]] bool isInItem() const {
        const bool isTag = path_.size() == 5 && path_[3] == "sparkle:tags";
        return (path_.size() == 4 || isTag) && path_[1] == "channel" && path_[2] == "item";
    }

    void beginItem() {
        if (items.size() == AppcastLimits::items) {
            problem = "The update feed announces too many updates.";
            return;
        }
        items.emplace_back();
    }

    void beginElement(std::string_view name, const char** attributes) {
        if (name == "enclosure") {
            readEnclosure(attributes);
        } else if (name == "description") {
            readDescriptionFormat(attributes);
        } else if (name == "sparkle:criticalUpdate") {
            readCritical(attributes);
        }
    }

    void readEnclosure(const char** attributes) {
        for (; *attributes != nullptr; attributes += 2) {
            const auto name = plainName(attributes[0]);
            const auto value = trimmed(attributes[1]);
            for (const auto& field : enclosureAttributes) {
                if (name == field.name && (items.back().*field.member).empty()) {
                    items.back().*field.member = value;
                }
            }
            if (name == "length") {
                items.back().length = number(value);
            }
        }
    }

    void readDescriptionFormat(const char** attributes) {
        for (; *attributes != nullptr; attributes += 2) {
            if (plainName(attributes[0]) == "sparkle:format") {
                items.back().descriptionFormat = trimmed(attributes[1]);
            }
        }
    }

    void readCritical(const char** attributes) {
        items.back().isCritical = true;
        for (; *attributes != nullptr; attributes += 2) {
            if (plainName(attributes[0]) == "sparkle:version") {
                items.back().criticalBefore = trimmed(attributes[1]);
            }
        }
    }

    void endElement(std::string_view name) {
        for (const auto& field : textElements) {
            if (name == field.name) {
                items.back().*field.member = trimmed(text_);
            }
        }
    }

    void endItem() {
        auto& item = items.back();
        if (item.shortVersion.empty()) {
            item.shortVersion = item.version;
        }
    }

    std::vector<std::string> path_;
    std::string text_;
};

/// A reader with the parser that drives it.
class Parsing {
public:
    Parsing() : parser_(XML_ParserCreateNS(nullptr, separator)) {
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), begin, end);
        XML_SetCharacterDataHandler(parser_.get(), characters);
        XML_SetStartDoctypeDeclHandler(parser_.get(), documentType);
    }

    std::expected<Appcast, std::string> run(std::string_view text) {
        const auto status =
            XML_Parse(parser_.get(), text.data(), static_cast<int>(text.size()), XML_TRUE);
        if (reader_.problem) {
            return std::unexpected(*std::move(reader_.problem));
        }
        if (status != XML_STATUS_OK) {
            return std::unexpected(fmt::format("The update feed cannot be read: {} in line {}.",
                                               XML_ErrorString(XML_GetErrorCode(parser_.get())),
                                               XML_GetCurrentLineNumber(parser_.get())));
        }
        return std::move(reader_.items);
    }

private:
    struct Free {
        void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
    };

    static Parsing& of(void* data) { return *static_cast<Parsing*>(data); }

    static void XMLCALL begin(void* data, const char* name, const char** attributes) {
        of(data).reader_.begin(name, attributes);
        of(data).stopOnProblem();
    }

    static void XMLCALL end(void* data, const char* /*name*/) {
        if (!of(data).reader_.problem) {
            of(data).reader_.end();
        }
    }

    static void XMLCALL characters(void* data, const char* text, int length) {
        of(data).reader_.add({text, static_cast<std::size_t>(length)});
    }

    static void XMLCALL documentType(void* data, const char* /*name*/, const char* /*systemId*/,
                                     const char* /*publicId*/, int /*hasInternalSubset*/) {
        of(data).reader_.problem = "The update feed declares a document type, which no feed needs.";
        of(data).stopOnProblem();
    }

    void stopOnProblem() {
        if (reader_.problem) {
            XML_StopParser(parser_.get(), XML_FALSE);
        }
    }

    FeedReader reader_;
    std::unique_ptr<std::remove_pointer_t<XML_Parser>, Free> parser_;
};

} // namespace

std::expected<Appcast, std::string> parseAppcast(std::string_view text) {
    if (text.size() > AppcastLimits::size) {
        return std::unexpected("The update feed is too large.");
    }
    return Parsing().run(text);
}

} // namespace blankwell
