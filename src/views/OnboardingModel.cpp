#include "views/OnboardingModel.h"

#include "settings/AppSettings.h"

#include <algorithm>

namespace blankwell {

std::string_view title(OnboardingButton button) {
    switch (button) {
    case OnboardingButton::back:
        return "Back";
    case OnboardingButton::skip:
        return "Skip";
    case OnboardingButton::next:
        return "Next";
    case OnboardingButton::getStarted:
        break;
    }
    return "Get Started";
}

bool OnboardingModel::isShown() const {
    return !settings_.hasCompletedOnboarding.get();
}

std::vector<OnboardingPage> OnboardingModel::pages() const {
    return onboardingPages(settings_.quickCreateShortcut.get().displayString());
}

std::vector<OnboardingButton> OnboardingModel::buttons() const {
    using enum OnboardingButton;
    std::vector<OnboardingButton> buttons;
    if (page_ > 0) {
        buttons.push_back(back);
    }
    if (page_ + 1 < pageCount) {
        buttons.insert(buttons.end(), {skip, next});
    } else {
        buttons.push_back(getStarted);
    }
    return buttons;
}

void OnboardingModel::press(OnboardingButton button) {
    const auto offered = buttons();
    if (std::ranges::find(offered, button) == offered.end()) {
        return;
    }
    switch (button) {
    case OnboardingButton::back:
        --page_;
        return;
    case OnboardingButton::next:
        ++page_;
        return;
    case OnboardingButton::skip:
    case OnboardingButton::getStarted:
        finish();
        return;
    }
}

void OnboardingModel::finish() {
    page_ = 0;
    settings_.hasCompletedOnboarding.set(true);
}

} // namespace blankwell
