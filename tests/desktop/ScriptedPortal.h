#pragma once

#include "desktop/BusPeer.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace blankwell {

/// What a program asked the portal to bind: by the shortcut's id, its description and the trigger
/// that it prefers.
using BoundShortcuts = std::map<std::string, std::map<std::string, std::string>>;

/// Reads `a(sa{sv})` from a call.
BoundShortcuts readBoundShortcuts(sd_bus_message* call);

/// Appends type `a(sa{sv})`: each id with the description of its trigger.
void appendGivenShortcuts(sd_bus_message* message, const std::map<std::string, std::string>& given);

/// The desktop's portal, as far as global shortcuts go, answering as a test says. As KDE's, it
/// gives only shortcuts that the session was created with.
class ScriptedPortal {
public:
    enum class Answer {
        give,
        /// The user declines.
        cancel,
        /// The portal fails.
        fail,
        /// The call itself is answered with an error.
        error,
        /// The response is not of the type it has to be.
        malformed,
        /// The response lacks what it has to hold.
        empty,
        /// The response holds a number where a text has to be.
        garbled,
        /// The call is answered, and no response ever comes.
        silence,
        /// The call itself is not answered.
        hang,
    };

    /// Answers with `version` whether there are global shortcuts.
    explicit ScriptedPortal(Answer version = Answer::give);

    void process() { peer_.process(); }

    /// Emits the signal that the shortcut `id` of the last session was triggered.
    void activate(const std::string& id) { activate(session, id); }

    void activate(const std::string& ofSession, const std::string& id);

    /// Emits that the portal has closed the last session.
    void closeSession();

    /// Emits that the last session has these shortcuts now.
    void changeShortcuts(const std::map<std::string, std::string>& given);

    // The responses that `silence` holds back, to the last `request`.
    void respondToCreate();
    void respondToBind();

    Answer toVersion;
    Answer toCreate = Answer::give;
    Answer toBind = Answer::give;
    /// Says of each shortcut that is asked for what triggers it; one that is not here is triggered
    /// by "Key" and its id.
    std::map<std::string, std::string> triggers;
    /// The shortcuts that the user leaves out.
    std::set<std::string> leftOut;

    /// Behind the paths of requests and sessions that a program expects from its tokens.
    std::string pathSuffix;
    /// The D-Bus type of a session's path in a response.
    char sessionType = 's';

    /// The last request; empty before there was one.
    std::string request;
    /// The last session; empty before there was one.
    std::string session;
    /// What the last session was created with.
    BoundShortcuts created;
    /// The name on the bus of the program that asked last.
    std::string program;
    /// What was asked for last.
    BoundShortcuts bound;
    int sessions = 0;
    int bindings = 0;
    /// The paths of the requests and sessions that the program closed.
    std::vector<std::string> closed;

private:
    void handle(sd_bus_message* call);
    void answerVersion(sd_bus_message* call) const;
    void create(sd_bus_message* call);
    void bind(sd_bus_message* call);
    /// Answers the call with the path of a request; whether a response is to follow.
    bool beginRequest(sd_bus_message* call, Answer answer, const std::string& token);
    void respond(Answer answer, const char* key, const std::function<void(sd_bus_message*)>& value);
    void emit(sd_bus_message* signal) const;
    [[nodiscard]] std::string objectOf(const char* kind, const std::string& token) const;

    bool isOpen_ = false;
    BusPeer peer_;
};

} // namespace blankwell
