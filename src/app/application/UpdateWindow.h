#pragma once

#include "updates/UpdateUserInterface.h"

#include <memory>
#include <string>

namespace blankwell {

class QtApplication;
class Theme;
class Workspace;

/// The window in which updates talk to the user. Made when it is first needed. Belongs to the main
/// thread.
class UpdateWindow : public UpdateUserInterface {
public:
    /// `workspace` opens the pages that updates lead to. `runningVersion` is what people call the
    /// version that runs. The others must outlive this.
    UpdateWindow(const Theme& theme, QtApplication& application, Workspace& workspace,
                 std::string runningVersion);
    ~UpdateWindow() override;

    void setListener(Listener listener) override;

    /// A state of another kind comes to the front; the progress of one that is shown does not.
    void show(const UpdateState& state, bool checksAutomatically) override;

    void raise() override;
    void close() override;

private:
    class Window;

    Window& window();
    void follow(Window& window);

    const Theme& theme_;
    QtApplication& application_;
    Workspace& workspace_;
    std::string runningVersion_;
    Listener listener_;
    std::unique_ptr<Window> window_;
};

} // namespace blankwell
