#pragma once

#include <QWidget>

namespace blankwell {

struct WindowScene;

/// A window of a scene, made for its content. Closing hides it.
class SceneWindow : public QWidget {
    Q_OBJECT

public:
    /// Takes `content` over. `menuBar`, where there is one, is taken over too and stands above it.
    SceneWindow(const WindowScene& scene, QWidget* content, QWidget* menuBar = nullptr);

signals:
    /// The user has closed it, and nothing else has.
    void closedByUser();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void closeForUser();
    void takeDefaultSize(const WindowScene& scene);
};

} // namespace blankwell
