#pragma once

#include "views/OnboardingPages.h"

#include <cstddef>
#include <string_view>
#include <vector>

namespace blankwell {

class AppSettings;

/// The buttons under the walkthrough's pages.
enum class OnboardingButton { back, skip, next, getStarted };

[[nodiscard]] std::string_view title(OnboardingButton button);

/// The walkthrough: which page is shown, and for how long it is shown at all. Belongs to the main
/// thread.
class OnboardingModel {
public:
    static constexpr std::size_t pageCount = onboardingPageCount;

    /// `settings` must outlive this object.
    explicit OnboardingModel(AppSettings& settings) : settings_(settings) {}

    /// Whether the walkthrough is to be shown over the main window.
    [[nodiscard]] bool isShown() const;

    /// The page shown, from 0.
    [[nodiscard]] std::size_t page() const { return page_; }

    /// All pages, with the Quick Create shortcut that the user has now.
    [[nodiscard]] std::vector<OnboardingPage> pages() const;

    /// The buttons of the page shown, from left to right.
    [[nodiscard]] std::vector<OnboardingButton> buttons() const;

    /// Does what `button` says; nothing where the page shown does not have it. Skipping and getting
    /// started complete the walkthrough, which begins at its first page if it is shown again.
    void press(OnboardingButton button);

private:
    void finish();

    AppSettings& settings_;
    std::size_t page_ = 0;
};

} // namespace blankwell
