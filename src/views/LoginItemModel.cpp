#include "views/LoginItemModel.h"

#include "platform/LoginItem.h"

#include <utility>

namespace blankwell {

LoginItemModel::LoginItemModel(LoginItem& item)
    : item_(item), content_{.caption = std::string(loginItemTexts.description)} {}

void LoginItemModel::reload() {
    auto content = read();
    // Why the last switching failed stays to be read until something else happens.
    const bool isAsBefore =
        content.isEnabled && content_.isEnabled && content.isOn == content_.isOn;
    if (!isAsBefore && content != content_) {
        show(std::move(content));
    }
}

void LoginItemModel::setOn(bool on) {
    const auto turned = on ? item_.turnOn() : item_.turnOff();
    auto content = read();
    if (!turned && content.isEnabled) {
        content.caption = turned.error().description;
        content.captionColor = ColorRole::red;
    }
    show(std::move(content)); // also where it is as it was: the switch must go back
}

LoginItemContent LoginItemModel::read() const {
    const auto isOn = item_.isOn();
    if (!isOn) {
        return {.isEnabled = false, .caption = isOn.error().description};
    }
    return {.isOn = *isOn, .caption = std::string(loginItemTexts.description)};
}

void LoginItemModel::show(LoginItemContent content) {
    content_ = std::move(content);
    observers_.notify();
}

} // namespace blankwell
