#pragma once

#include <QWidget>

namespace blankwell {

class Theme;
struct HelpFileTypeGroup;

/// The types of one category, in two columns.
class HelpFileTypeGroupView : public QWidget {
    Q_OBJECT

public:
    HelpFileTypeGroupView(const Theme& theme, const HelpFileTypeGroup& group,
                          QWidget* parent = nullptr);
};

} // namespace blankwell
