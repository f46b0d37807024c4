#include "desktop/PortalBackend.h"

#include <systemd/sd-bus.h>

#include <map>

namespace blankwell {
namespace {

constexpr auto objectPath = "/org/freedesktop/portal/desktop";
constexpr auto interface = "org.freedesktop.impl.portal.GlobalShortcuts";

} // namespace

PortalBackend::PortalBackend() : peer_(busName, [this](auto* call) { handle(call); }) {}

bool PortalBackend::press(const std::string& trigger) {
    for (const auto& [id, properties] : bound) {
        if (properties.at("preferred_trigger") == trigger) {
            require(sd_bus_emit_signal(peer_.bus(), objectPath, interface, "Activated", "osta{sv}",
                                       session_.c_str(), id.c_str(), 1, 0),
                    "no signal");
            return true;
        }
    }
    return false;
}

void PortalBackend::closeSession() {
    require(sd_bus_emit_signal(peer_.bus(), session_.c_str(), "org.freedesktop.impl.portal.Session",
                               "Closed", ""),
            "no signal");
    bound.clear();
}

void PortalBackend::handle(sd_bus_message* call) {
    const std::string member = sd_bus_message_get_member(call);
    if (member == "GetAll") {
        sd_bus_reply_method_return(call, "a{sv}", 1, "version", "u", 1);
    } else if (member == "CreateSession") {
        createSession(call);
    } else if (member == "BindShortcuts") {
        bind(call);
    } else if (member == "Close") {
        if (session_ == sd_bus_message_get_path(call)) {
            bound.clear();
        }
        sd_bus_reply_method_return(call, "");
    } else {
        sd_bus_reply_method_errorf(call, SD_BUS_ERROR_UNKNOWN_METHOD, "%s", member.c_str());
    }
}

void PortalBackend::createSession(sd_bus_message* call) {
    const char* request = nullptr;
    const char* session = nullptr;
    const char* application = nullptr;
    require(sd_bus_message_read(call, "oos", &request, &session, &application), "no session");
    session_ = session;
    applicationId = application;
    sd_bus_reply_method_return(call, "ua{sv}", 0, 0);
}

void PortalBackend::bind(sd_bus_message* call) {
    const char* request = nullptr;
    const char* session = nullptr;
    require(sd_bus_message_read(call, "oo", &request, &session), "no session");
    if (declines) {
        sd_bus_reply_method_return(call, "ua{sv}", 1, 0);
        return;
    }
    bound = readBoundShortcuts(call);
    std::map<std::string, std::string> given;
    for (const auto& [id, properties] : bound) {
        given.emplace(id, "Key " + id);
    }
    sd_bus_message* reply = nullptr;
    require(sd_bus_message_new_method_return(call, &reply), "no reply");
    sd_bus_message_append(reply, "u", 0);
    sd_bus_message_open_container(reply, 'a', "{sv}");
    sd_bus_message_open_container(reply, 'e', "sv");
    sd_bus_message_append(reply, "s", "shortcuts");
    sd_bus_message_open_container(reply, 'v', "a(sa{sv})");
    appendGivenShortcuts(reply, given);
    for (int depth = 0; depth < 3; ++depth) {
        sd_bus_message_close_container(reply);
    }
    require(sd_bus_send(peer_.bus(), reply, nullptr), "no reply");
    sd_bus_message_unref(reply);
}

} // namespace blankwell
