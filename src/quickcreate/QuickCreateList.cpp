#include "quickcreate/QuickCreateList.h"

#include "quickcreate/FileTypeTileButton.h"
#include "quickcreate/QuickCreateContents.h"
#include "widgets/Heading.h"
#include "widgets/Metrics.h"
#include "widgets/SymbolLabel.h"
#include "widgets/TextLabel.h"

#include <QEvent>
#include <QKeyEvent>
#include <QResizeEvent>
#include <QStyle>

#include <algorithm>
#include <optional>
#include <utility>

namespace blankwell {
namespace {

constexpr int sectionSpacing = 16;
constexpr int columnSpacing = 12;
constexpr int rowSpacing = 10;
constexpr int titleSpacing = 2 * metrics::grid;
constexpr int bottomMargin = 4 * metrics::grid;
constexpr int columns = static_cast<int>(TileGrid::columns);

TileGrid gridOf(const std::vector<QuickCreateSection>& sections) {
    std::vector<std::size_t> sizes(sections.size());
    std::ranges::transform(sections, sizes.begin(),
                           [](const auto& section) { return section.types.size(); });
    return TileGrid(sizes);
}

std::optional<TileStep> stepOf(const QKeyEvent& event, Qt::LayoutDirection direction) {
    const bool isMirrored = direction == Qt::RightToLeft;
    switch (event.key()) {
    case Qt::Key_Right:
        return isMirrored ? TileStep::previous : TileStep::next;
    case Qt::Key_Left:
        return isMirrored ? TileStep::next : TileStep::previous;
    case Qt::Key_Down:
        return TileStep::down;
    case Qt::Key_Up:
        return TileStep::up;
    default:
        return std::nullopt;
    }
}

} // namespace

QuickCreateList::QuickCreateList(const Theme& theme,
                                 std::function<void(const FileTypeDefinition&)> create,
                                 QWidget* parent)
    : QWidget(parent),
      theme_(theme),
      create_(std::move(create)),
      emptySymbol_(new SymbolLabel(theme, quick_create_texts::nothingFoundSymbol,
                                   {.size = 28, .color = ColorRole::tertiaryLabel}, this)),
      emptyText_(new TextLabel(theme, quick_create_texts::nothingFound,
                               {.color = ColorRole::secondaryLabel}, this)) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
}

QuickCreateList::~QuickCreateList() = default;

void QuickCreateList::setSections(std::vector<QuickCreateSection> sections) {
    if (sections == sections_) {
        return;
    }
    sections_ = std::move(sections);
    grid_ = gridOf(sections_);
    std::vector<FileTypeTileButton*> shown;
    for (const auto& section : sections_) {
        for (const auto& type : section.types) {
            shown.push_back(&tileOf(type));
        }
    }
    const auto before = std::exchange(shown_, std::move(shown));
    setUpdatesEnabled(false); // one painting at the end in place of one for each change
    putInReadingOrder();
    for (auto* const tile : before) {
        tile->setVisible(std::ranges::find(shown_, tile) != shown_.end());
    }
    arrange();
    for (auto* const tile : shown_) {
        tile->setVisible(true);
    }
    setUpdatesEnabled(true);
}

bool QuickCreateList::focusFirstTile() {
    if (shown_.empty()) {
        return false;
    }
    focusTile(*shown_.front());
    return true;
}

QSize QuickCreateList::sizeHint() const {
    return {columns * 100, height_};
}

FileTypeTileButton& QuickCreateList::tileOf(const FileTypeDefinition& type) {
    auto& tile = tiles_[type.id];
    if (tile == nullptr) {
        tile = new FileTypeTileButton(theme_, type, [this, type] { create_(type); }, this);
    }
    return *tile;
}

Heading& QuickCreateList::titleOf(const QuickCreateSection& section) {
    auto& title = titles_[section.title];
    if (title == nullptr) {
        title = new Heading(theme_, section.title,
                            {.style = TextStyle::sectionTitle, .color = ColorRole::secondaryLabel},
                            this);
    }
    return *title;
}

/// For the keyboard and for screen readers.
void QuickCreateList::putInReadingOrder() {
    // A search leaves tiles out, and the order as it is.
    auto next = tabOrder_.begin();
    const bool isOrdered = std::ranges::all_of(shown_, [&](auto* tile) {
        next = std::find(next, tabOrder_.end(), tile);
        return next != tabOrder_.end();
    });
    if (isOrdered) {
        return;
    }
    for (const auto& section : sections_) {
        titleOf(section).raise();
        for (const auto& type : section.types) {
            tileOf(type).raise();
        }
    }
    for (std::size_t i = 1; i < shown_.size(); ++i) {
        setTabOrder(shown_[i - 1], shown_[i]);
    }
    tabOrder_ = shown_;
}

void QuickCreateList::arrange() {
    for (const auto& [name, title] : titles_) {
        title->setVisible(std::ranges::find(sections_, name, &QuickCreateSection::title) !=
                          sections_.end());
    }
    int height = 0;
    const int tileHeight = shown_.empty() ? 0 : shown_.front()->sizeHint().height();
    for (const auto& section : sections_) {
        height = arrangeSection(section, height == 0 ? 0 : height + sectionSpacing, tileHeight);
    }
    emptySymbol_->setVisible(sections_.empty());
    emptyText_->setVisible(sections_.empty());
    if (sections_.empty()) {
        height = arrangeEmptyState();
    }
    height += bottomMargin;
    if (std::exchange(height_, height) != height) {
        updateGeometry();
    }
}

void QuickCreateList::place(QWidget& widget, const QRect& rect) const {
    widget.setGeometry(QStyle::visualRect(layoutDirection(), this->rect(), rect));
}

/// Returns where the section ends.
int QuickCreateList::arrangeSection(const QuickCreateSection& section, int top, int tileHeight) {
    auto& title = titleOf(section);
    const int titleHeight = title.sizeHint().height();
    place(title, {0, top, width(), titleHeight});
    title.show();
    top += titleHeight + titleSpacing;

    const int room = width() - (columns - 1) * columnSpacing;
    const auto left = [&](int column) { return column * columnSpacing + room * column / columns; };
    int index = 0;
    for (const auto& type : section.types) {
        const int column = index % columns;
        const int row = index / columns;
        const int right = left(column + 1) - columnSpacing;
        place(tileOf(type), {left(column), top + row * (tileHeight + rowSpacing),
                             right - left(column), tileHeight});
        ++index;
    }
    const int rows = (index + columns - 1) / columns;
    return top + rows * tileHeight + (rows - 1) * rowSpacing;
}

/// Returns where it ends.
int QuickCreateList::arrangeEmptyState() {
    const int middle = width() / 2;
    const int top = 15 * metrics::grid;
    emptySymbol_->move(middle - emptySymbol_->width() / 2, top);
    emptyText_->resize(emptyText_->sizeHint());
    emptyText_->move(middle - emptyText_->width() / 2,
                     top + emptySymbol_->height() + 3 * metrics::grid);
    return emptyText_->geometry().bottom() + 1;
}

void QuickCreateList::keyPressEvent(QKeyEvent* event) {
    const auto step = stepOf(*event, layoutDirection());
    if (step && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier) {
        this->step(*step);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void QuickCreateList::step(TileStep step) {
    const auto focused = std::ranges::find_if(shown_, &QWidget::hasFocus);
    if (focused == shown_.end()) {
        return;
    }
    const auto tile = static_cast<std::size_t>(focused - shown_.begin());
    if (const auto next = grid_.after(tile, step)) {
        focusTile(*shown_[*next]);
    } else if (step == TileStep::up || step == TileStep::previous) {
        emit leftUpwards();
    }
}

void QuickCreateList::focusTile(FileTypeTileButton& tile) {
    tile.setFocus(Qt::TabFocusReason);
    emit tileFocused(&tile);
}

void QuickCreateList::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (event->size().width() != event->oldSize().width()) {
        arrange();
    }
}

void QuickCreateList::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::LayoutDirectionChange) {
        arrange();
    }
}

} // namespace blankwell
