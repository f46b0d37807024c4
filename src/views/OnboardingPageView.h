#pragma once

#include "views/OnboardingPages.h"

#include <QWidget>

class QVBoxLayout;

namespace blankwell {

class Theme;

/// One page of the walkthrough.
class OnboardingPageView : public QWidget {
    Q_OBJECT

public:
    OnboardingPageView(const Theme& theme, OnboardingPage page, QWidget* parent = nullptr);

    [[nodiscard]] const OnboardingPage& page() const { return page_; }

private:
    void addHeader(QVBoxLayout& column);
    void add(QVBoxLayout& column, const OnboardingElement& element);

    const Theme& theme_;
    OnboardingPage page_;
};

} // namespace blankwell
