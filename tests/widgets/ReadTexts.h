#pragma once

#include "widgets/TextLabel.h"

#include <QAccessible>
#include <QWidget>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace blankwell {

/// What a screen reader reads: what it is, and the text.
using ReadText = std::pair<QAccessible::Role, std::string>;

/// Everything in `view` that has a name and is shown, in the order in which it is read.
inline std::vector<ReadText> readTexts(QWidget& view) {
    std::vector<ReadText> texts;
    const auto collect = [&texts](QAccessibleInterface& element, const auto& recur) -> void {
        for (int i = 0; i < element.childCount(); ++i) {
            auto* const child = element.child(i);
            const auto name = child->text(QAccessible::Name).toStdString();
            if (child->state().invisible) {
                continue;
            }
            if (!name.empty()) {
                texts.emplace_back(child->role(), name);
            }
            recur(*child, recur);
        }
    };
    collect(*QAccessible::queryAccessibleInterface(&view), collect);
    return texts;
}

inline std::vector<std::string> readTexts(QWidget& view, QAccessible::Role role) {
    std::vector<std::string> texts;
    for (auto& [actual, text] : readTexts(view)) {
        if (actual == role) {
            texts.push_back(text);
        }
    }
    return texts;
}

/// The texts that are cut off, or stand apart from what belongs to them since they have much more
/// room than they need.
inline std::vector<std::string> badlyPlacedTexts(QWidget& view) {
    std::vector<std::string> bad;
    for (const auto* const label : view.findChildren<TextLabel*>()) {
        const int needed = label->hasHeightForWidth() ? label->heightForWidth(label->width())
                                                      : label->sizeHint().height();
        const int excess = label->height() - needed;
        if (label->isVisible() && (excess < 0 || excess > 5)) {
            bad.push_back(label->text().toStdString() + ": " + std::to_string(label->height()) +
                          " instead of " + std::to_string(needed));
        }
    }
    return bad;
}

} // namespace blankwell
