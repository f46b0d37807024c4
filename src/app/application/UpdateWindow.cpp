#include "app/application/UpdateWindow.h"

#include "platform/Workspace.h"
#include "platform/qt/QtApplication.h"
#include "updates/UpdatePage.h"
#include "updates/UpdateView.h"
#include "widgets/QtStrings.h"

#include <QCloseEvent>
#include <QShortcut>
#include <QVBoxLayout>

#include <utility>

namespace blankwell {

/// The view in a window of its own. To close it is to answer so.
class UpdateWindow::Window : public QWidget {
public:
    Window(const Theme& theme, std::function<void()> closedByUser)
        : view(new UpdateView(theme)), closedByUser_(std::move(closedByUser)) {
        setWindowTitle(qString(updateWindowTitle));
        setWindowFlag(Qt::WindowMaximizeButtonHint, false);
        auto* const layout = new QVBoxLayout(this);
        layout->setContentsMargins({});
        layout->setSizeConstraint(QLayout::SetFixedSize);
        layout->addWidget(view);
        for (const QKeySequence& keys :
             {QKeySequence(QKeySequence::Close), QKeySequence(Qt::Key_Escape)}) {
            connect(new QShortcut(keys, this), &QShortcut::activated, this,
                    [this] { closedByUser_(); });
        }
    }

    UpdateView* const view;
    std::size_t shownKind = 0;

protected:
    void closeEvent(QCloseEvent* event) override {
        QWidget::closeEvent(event);
        if (event->spontaneous()) {
            closedByUser_();
        }
    }

private:
    std::function<void()> closedByUser_;
};

UpdateWindow::UpdateWindow(const Theme& theme, QtApplication& application, Workspace& workspace,
                           std::string runningVersion)
    : theme_(theme),
      application_(application),
      workspace_(workspace),
      runningVersion_(std::move(runningVersion)) {}

UpdateWindow::~UpdateWindow() = default;

void UpdateWindow::setListener(Listener listener) {
    listener_ = std::move(listener);
}

void UpdateWindow::show(const UpdateState& state, bool checksAutomatically) {
    auto& shown = window();
    shown.view->show(pageFor(state, runningVersion_), checksAutomatically);
    const bool isOfSameKind = std::exchange(shown.shownKind, state.index()) == state.index();
    if (!isOfSameKind || !shown.isVisible()) {
        application_.bringToFront(shown);
    }
}

void UpdateWindow::raise() {
    application_.bringToFront(window());
}

void UpdateWindow::close() {
    if (window_) {
        window_->hide();
    }
}

UpdateWindow::Window& UpdateWindow::window() {
    if (!window_) {
        window_ = std::make_unique<Window>(theme_, [this] {
            if (listener_.answered) {
                listener_.answered(UpdateAnswer::close);
            }
        });
        follow(*window_);
    }
    return *window_;
}

void UpdateWindow::follow(Window& window) {
    auto* const view = window.view;
    QObject::connect(view, &UpdateView::answered, &window, [this](UpdateAnswer answer) {
        if (listener_.answered) {
            listener_.answered(answer);
        }
    });
    QObject::connect(view, &UpdateView::checksAutomaticallyChanged, &window, [this](bool checks) {
        if (listener_.setChecksAutomatically) {
            listener_.setChecksAutomatically(checks);
        }
    });
    QObject::connect(view, &UpdateView::linkPressed, &window, [this, view](const std::string& url) {
        if (!workspace_.open(url)) {
            view->tellOfUnopenedLink();
        }
    });
}

} // namespace blankwell
