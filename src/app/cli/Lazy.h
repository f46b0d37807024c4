#pragma once

#include "platform/FrontFolder.h"
#include "platform/LoginItem.h"
#include "platform/SessionApplication.h"
#include "platform/TextOrder.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"
#include "shell/Installation.h"
#include "shell/Uninstallation.h"

#include <functional>
#include <memory>
#include <utility>

namespace blankwell::cli {

/// An adapter that is made when it is first used.
template <typename Port>
class Lazy {
public:
    using Make = std::function<std::unique_ptr<Port>()>;

    explicit Lazy(Make make) : make_(std::move(make)) {}

    [[nodiscard]] Port& get() const {
        if (!made_) {
            made_ = make_();
        }
        return *made_;
    }

private:
    Make make_;
    mutable std::unique_ptr<Port> made_;
};

class LazyTextOrder : public TextOrder {
public:
    explicit LazyTextOrder(Lazy<TextOrder>::Make make) : order_(std::move(make)) {}

    [[nodiscard]] std::strong_ordering standardCompare(std::string_view left,
                                                       std::string_view right) const override {
        return order_.get().standardCompare(left, right);
    }

    [[nodiscard]] bool caseInsensitiveContains(std::string_view text,
                                               std::string_view needle) const override {
        return order_.get().caseInsensitiveContains(text, needle);
    }

private:
    Lazy<TextOrder> order_;
};

class LazyPreferenceDomains : public PreferenceDomains {
public:
    explicit LazyPreferenceDomains(Lazy<PreferenceDomains>::Make make)
        : domains_(std::move(make)) {}

    [[nodiscard]] UserDefaults* suite(std::string_view name) override {
        return domains_.get().suite(name);
    }

    [[nodiscard]] UserDefaults& standard() override { return domains_.get().standard(); }

private:
    Lazy<PreferenceDomains> domains_;
};

class LazyLoginItem : public LoginItem {
public:
    explicit LazyLoginItem(Lazy<LoginItem>::Make make) : item_(std::move(make)) {}

    [[nodiscard]] std::expected<bool, SystemError> isOn() const override {
        return item_.get().isOn();
    }

    [[nodiscard]] std::expected<void, SystemError> turnOn() override {
        return item_.get().turnOn();
    }

    [[nodiscard]] std::expected<void, SystemError> turnOff() override {
        return item_.get().turnOff();
    }

private:
    Lazy<LoginItem> item_;
};

class LazyInstallation : public Installation {
public:
    explicit LazyInstallation(Lazy<Installation>::Make make) : installation_(std::move(make)) {}

    std::expected<FileUrl, SystemError> install(const std::optional<FileUrl>& folder) override {
        return installation_.get().install(folder);
    }

    std::expected<void, SystemError> unregister() override {
        return installation_.get().unregister();
    }

    [[nodiscard]] std::vector<FileManagerMenuState> menuStates() override {
        return installation_.get().menuStates();
    }

    std::expected<void, SystemError> turnMenu(FileManager manager, bool on) override {
        return installation_.get().turnMenu(manager, on);
    }

private:
    Lazy<Installation> installation_;
};

class LazyUninstallation : public Uninstallation {
public:
    explicit LazyUninstallation(Lazy<Uninstallation>::Make make)
        : uninstallation_(std::move(make)) {}

    std::expected<Ending, SystemError> run(Consent consent) override {
        return uninstallation_.get().run(consent);
    }

private:
    Lazy<Uninstallation> uninstallation_;
};

class LazySessionApplication : public SessionApplication {
public:
    explicit LazySessionApplication(Lazy<SessionApplication>::Make make)
        : application_(std::move(make)) {}

    [[nodiscard]] Taken activate() override { return application_.get().activate(); }

    [[nodiscard]] Taken open(const std::vector<std::string>& urls) override {
        return application_.get().open(urls);
    }

    [[nodiscard]] Taken activateAction(std::string_view action) override {
        return application_.get().activateAction(action);
    }

    [[nodiscard]] std::expected<void, SystemError> quit() override {
        return application_.get().quit();
    }

private:
    Lazy<SessionApplication> application_;
};

class LazyWorkspace : public Workspace {
public:
    explicit LazyWorkspace(Lazy<Workspace>::Make make) : workspace_(std::move(make)) {}

    void reveal(const FileUrl& url) override { workspace_.get().reveal(url); }

    bool open(std::string_view url) override { return workspace_.get().open(url); }

private:
    Lazy<Workspace> workspace_;
};

class LazyFrontFolder : public FrontFolder {
public:
    explicit LazyFrontFolder(Lazy<FrontFolder>::Make make) : frontFolder_(std::move(make)) {}

    std::optional<std::string> path() override { return frontFolder_.get().path(); }

private:
    Lazy<FrontFolder> frontFolder_;
};

} // namespace blankwell::cli
