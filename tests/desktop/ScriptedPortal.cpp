#include "desktop/ScriptedPortal.h"

#include <systemd/sd-bus.h>

#include <algorithm>
#include <utility>

namespace blankwell {
namespace {

constexpr auto portalName = "org.freedesktop.portal.Desktop";
constexpr auto portalPath = "/org/freedesktop/portal/desktop";
constexpr auto shortcutsInterface = "org.freedesktop.portal.GlobalShortcuts";

/// Options, type `a{sv}`: the texts, and the shortcuts where there are any.
struct Options {
    std::map<std::string, std::string> texts;
    BoundShortcuts shortcuts;
};

Options readOptions(sd_bus_message* message) {
    Options options;
    require(sd_bus_message_enter_container(message, 'a', "{sv}"), "no dictionary");
    while (sd_bus_message_enter_container(message, 'e', "sv") > 0) {
        const char* key = nullptr;
        const char* value = nullptr;
        require(sd_bus_message_read(message, "s", &key), "no key");
        if (key == std::string("shortcuts")) {
            require(sd_bus_message_enter_container(message, 'v', "a(sa{sv})"), "no shortcuts");
            options.shortcuts = readBoundShortcuts(message);
            sd_bus_message_exit_container(message);
        } else {
            require(sd_bus_message_read(message, "v", "s", &value), "no text");
            options.texts.emplace(key, value);
        }
        sd_bus_message_exit_container(message);
    }
    sd_bus_message_exit_container(message);
    return options;
}

/// What a response says that was held back.
ScriptedPortal::Answer atLast(ScriptedPortal::Answer answer) {
    return answer == ScriptedPortal::Answer::silence ? ScriptedPortal::Answer::give : answer;
}

} // namespace

BoundShortcuts readBoundShortcuts(sd_bus_message* call) {
    BoundShortcuts bound;
    require(sd_bus_message_enter_container(call, 'a', "(sa{sv})"), "no shortcuts");
    while (sd_bus_message_enter_container(call, 'r', "sa{sv}") > 0) {
        const char* id = nullptr;
        require(sd_bus_message_read(call, "s", &id), "no id");
        bound.emplace(id, readOptions(call).texts);
        sd_bus_message_exit_container(call);
    }
    sd_bus_message_exit_container(call);
    return bound;
}

void appendGivenShortcuts(sd_bus_message* message,
                          const std::map<std::string, std::string>& given) {
    sd_bus_message_open_container(message, 'a', "(sa{sv})");
    for (const auto& [id, trigger] : given) {
        require(sd_bus_message_append(message, "(sa{sv})", id.c_str(), 2, "description", "s", "",
                                      "trigger_description", "s", trigger.c_str()),
                "no shortcut");
    }
    sd_bus_message_close_container(message);
}

ScriptedPortal::ScriptedPortal(Answer version)
    : toVersion(version), peer_(portalName, [this](auto* call) { handle(call); }) {}

void ScriptedPortal::activate(const std::string& ofSession, const std::string& id) {
    sd_bus_message* signal = nullptr;
    sd_bus_message_new_signal(peer_.bus(), &signal, portalPath, shortcutsInterface, "Activated");
    sd_bus_message_append(signal, "osta{sv}", ofSession.c_str(), id.c_str(), 1, 0);
    emit(signal);
}

void ScriptedPortal::closeSession() {
    sd_bus_message* signal = nullptr;
    sd_bus_message_new_signal(peer_.bus(), &signal, session.c_str(),
                              "org.freedesktop.portal.Session", "Closed");
    sd_bus_message_append(signal, "a{sv}", 0);
    emit(signal);
}

void ScriptedPortal::changeShortcuts(const std::map<std::string, std::string>& given) {
    sd_bus_message* signal = nullptr;
    sd_bus_message_new_signal(peer_.bus(), &signal, portalPath, shortcutsInterface,
                              "ShortcutsChanged");
    sd_bus_message_append(signal, "o", session.c_str());
    appendGivenShortcuts(signal, given);
    emit(signal);
}

void ScriptedPortal::respondToCreate() {
    const auto answer = atLast(toCreate);
    respond(answer, "session_handle", [&](auto* response) {
        if (answer == Answer::garbled) {
            sd_bus_message_append(response, "v", "u", 1);
        } else {
            const std::string type(1, sessionType);
            sd_bus_message_append(response, "v", type.c_str(), session.c_str());
        }
    });
}

void ScriptedPortal::respondToBind() {
    std::map<std::string, std::string> given;
    for (const auto& [id, properties] : bound) {
        if (created.contains(id) && !leftOut.contains(id)) {
            const auto trigger = triggers.find(id);
            given.emplace(id, trigger == triggers.end() ? "Key " + id : trigger->second);
        }
    }
    const auto answer = atLast(toBind);
    respond(answer, "shortcuts", [&](auto* response) {
        if (answer == Answer::garbled) {
            sd_bus_message_append(response, "v", "a(sa{sv})", 1, bound.begin()->first.c_str(), 1,
                                  "trigger_description", "u", 1);
            return;
        }
        sd_bus_message_open_container(response, 'v', "a(sa{sv})");
        appendGivenShortcuts(response, given);
        sd_bus_message_close_container(response);
    });
}

void ScriptedPortal::handle(sd_bus_message* call) {
    const std::string member = sd_bus_message_get_member(call);
    program = sd_bus_message_get_sender(call);
    if (member == "Get") {
        answerVersion(call);
    } else if (member == "CreateSession") {
        create(call);
    } else if (member == "BindShortcuts") {
        bind(call);
    } else if (member == "Close") {
        closed.emplace_back(sd_bus_message_get_path(call));
        isOpen_ = isOpen_ && closed.back() != session;
    } else {
        sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_METHOD, "%s", member.c_str());
    }
}

void ScriptedPortal::answerVersion(sd_bus_message* call) const {
    if (toVersion == Answer::give) {
        sd_bus_reply_method_return(call, "v", "u", 1);
    } else if (toVersion == Answer::malformed) {
        sd_bus_reply_method_return(call, "v", "s", "one");
    } else if (toVersion == Answer::error) {
        sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "No such interface");
    }
}

void ScriptedPortal::create(sd_bus_message* call) {
    ++sessions;
    const auto options = readOptions(call);
    session = objectOf("session", options.texts.at("session_handle_token"));
    created = options.shortcuts;
    if (std::exchange(isOpen_, true)) {
        sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "The session exists");
    } else if (beginRequest(call, toCreate, options.texts.at("handle_token"))) {
        respondToCreate();
    }
}

void ScriptedPortal::bind(sd_bus_message* call) {
    ++bindings;
    const char* ofSession = nullptr;
    const char* window = nullptr;
    require(sd_bus_message_read(call, "o", &ofSession), "no session");
    bound = readBoundShortcuts(call);
    require(sd_bus_message_read(call, "s", &window), "no window");
    if (ofSession != session) {
        sd_bus_reply_method_errorf(call, SD_BUS_ERROR_INVALID_ARGS, "Unknown session");
    } else if (beginRequest(call, toBind, readOptions(call).texts.at("handle_token"))) {
        respondToBind();
    }
}

bool ScriptedPortal::beginRequest(sd_bus_message* call, Answer answer, const std::string& token) {
    request = objectOf("request", token);
    if (answer == Answer::error) {
        sd_bus_reply_method_errorf(call, SD_BUS_ERROR_FAILED, "Scripted");
    } else if (answer != Answer::hang) {
        sd_bus_reply_method_return(call, "o", request.c_str());
    }
    return answer != Answer::error && answer != Answer::hang && answer != Answer::silence;
}

void ScriptedPortal::respond(Answer answer, const char* key,
                             const std::function<void(sd_bus_message*)>& value) {
    sd_bus_message* response = nullptr;
    sd_bus_message_new_signal(peer_.bus(), &response, request.c_str(),
                              "org.freedesktop.portal.Request", "Response");
    if (answer == Answer::malformed) {
        sd_bus_message_append(response, "us", 0, "nonsense");
        emit(response);
        return;
    }
    const int code = answer == Answer::cancel ? 1 : answer == Answer::fail ? 2 : 0;
    sd_bus_message_append(response, "u", code);
    sd_bus_message_open_container(response, 'a', "{sv}");
    if (answer == Answer::give || answer == Answer::garbled) {
        sd_bus_message_open_container(response, 'e', "sv");
        sd_bus_message_append(response, "s", key);
        value(response);
        sd_bus_message_close_container(response);
    }
    sd_bus_message_close_container(response);
    emit(response);
}

void ScriptedPortal::emit(sd_bus_message* signal) const {
    require(sd_bus_message_set_destination(signal, program.c_str()), "no destination");
    require(sd_bus_send(peer_.bus(), signal, nullptr), "no signal");
    sd_bus_message_unref(signal);
}

std::string ScriptedPortal::objectOf(const char* kind, const std::string& token) const {
    auto name = program.substr(1);
    std::ranges::replace(name, '.', '_');
    return std::string(portalPath) + '/' + kind + '/' + name + '/' + token + pathSuffix;
}

} // namespace blankwell
