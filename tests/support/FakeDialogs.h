#pragma once

#include "platform/Alert.h"
#include "platform/OpenPanel.h"
#include "support/EventLog.h"

#include <deque>
#include <utility>

namespace blankwell {

/// An open panel that answers from a script; it cancels when the script is at its end.
class FakeOpenPanel : public OpenPanel {
public:
    explicit FakeOpenPanel(EventLog& events) : events_(events) {}

    OpenPanelResult runModal(const OpenPanelConfiguration& configuration) override {
        events_.push_back("panel " + configuration.title);
        shown.push_back(configuration);
        if (answers.empty()) {
            return {.response = OpenPanelResult::Response::cancelled};
        }
        auto answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }

    void willChoose(std::vector<FileUrl> urls) {
        answers.push_back({OpenPanelResult::Response::confirmed, std::move(urls)});
    }

    void willCancel() { answers.push_back({.response = OpenPanelResult::Response::cancelled}); }

    std::deque<OpenPanelResult> answers;
    std::vector<OpenPanelConfiguration> shown;

private:
    EventLog& events_;
};

/// An alert before a user who presses Return, or once Escape.
class FakeAlert : public Alert {
public:
    explicit FakeAlert(EventLog& events) : events_(events) {}

    std::size_t runModal(const AlertContent& content) override {
        events_.push_back("alert " + content.messageText);
        shown.push_back(content);
        const bool dismisses = std::exchange(dismissesNext, false);
        return dismisses && !content.buttons.empty() ? content.buttons.size() - 1 : 0;
    }

    std::vector<AlertContent> shown;
    /// Whether the user presses Escape at the next alert.
    bool dismissesNext = false;

private:
    EventLog& events_;
};

} // namespace blankwell
