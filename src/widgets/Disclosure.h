#pragma once

#include <QWidget>

#include <string_view>

class QVBoxLayout;

namespace blankwell {

class DisclosureHeader;
class Theme;

/// A title under which content is shown or hidden. Space and Return on the title change that. At
/// first it is hidden.
class Disclosure : public QWidget {
    Q_OBJECT

public:
    /// `symbol` may be empty.
    Disclosure(const Theme& theme, std::string_view title, std::string_view symbol,
               QWidget* parent = nullptr);

    /// Where the content goes, from top to bottom.
    [[nodiscard]] QVBoxLayout& content() { return *contentLayout_; }

    [[nodiscard]] bool isExpanded() const;

    void setExpanded(bool expanded);

signals:
    void toggled(bool isExpanded);

private:
    DisclosureHeader* header_;
    QWidget* content_;
    QVBoxLayout* contentLayout_;
};

} // namespace blankwell
