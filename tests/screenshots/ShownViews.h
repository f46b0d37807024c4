#pragma once

#include <functional>
#include <memory>
#include <vector>

class QWidget;

namespace blankwell {

struct Stage;

/// A view of which the documentation has a picture: the name of that, and what makes the view.
struct ShownView {
    const char* name;
    std::function<std::unique_ptr<QWidget>(Stage&)> make;
};

/// To show another view in the documentation, add it here.
[[nodiscard]] const std::vector<ShownView>& shownViews();

} // namespace blankwell
