#include "contract/AlertContract.h"
#include "contract/OpenPanelContract.h"
#include "support/FakeDialogs.h"

namespace blankwell {
namespace {

class FakeAlertWorld {
public:
    Alert& alert() { return alert_; }

    Alert& dismissed() {
        alert_.dismissesNext = true;
        return alert_;
    }

    const std::vector<AlertContent>& read() const { return alert_.shown; }

private:
    EventLog events_;
    FakeAlert alert_{events_};
};

class FakeOpenPanelWorld {
public:
    OpenPanel& panel() { return panel_; }

    static std::vector<FileUrl> folders() {
        return {FileUrl("/Users/u/apples"), FileUrl("/Users/u/pears"), FileUrl("/Users/u/plums")};
    }

    void willChoose(const std::vector<FileUrl>& folders) { panel_.willChoose(folders); }

    void willCancel() { panel_.willCancel(); }

private:
    EventLog events_;
    FakeOpenPanel panel_{events_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, AlertContract, FakeAlertWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Fake, OpenPanelContract, FakeOpenPanelWorld);

} // namespace
} // namespace blankwell
