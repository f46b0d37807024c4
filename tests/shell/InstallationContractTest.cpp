#include "contract/BundleStoreContract.h"
#include "contract/InstallationTracesContract.h"
#include "support/FakeBundleStore.h"
#include "support/FakeInstallationTraces.h"

#include <string_view>

namespace blankwell {
namespace {

FileUrl inHome(std::string_view name) {
    return FileUrl("/h").appending(name);
}

class FakeBundleStoreWorld {
public:
    BundleStore& store() { return store_; }

    static FileUrl at(std::string_view name) { return inHome(name); }

    void addBundle(const FileUrl& url) { store_.add(url); }

    void addStranger(const FileUrl& url) { store_.strangers.insert(url); }

    void move(const FileUrl& from, const FileUrl& to) { store_.move(from, to); }

private:
    FakeBundleStore store_;
};

class FakeInstallationTracesWorld {
public:
    InstallationTraces& traces() { return traces_; }

    void addDomain(std::string_view name) { traces_.domains.emplace(name); }

    void addContainer(std::string_view group) { traces_.containers.emplace(group); }

    void registerApplication() { traces_.isRegistered = true; }

    bool hasDomain(std::string_view name) const { return traces_.domains.contains(name); }

    bool hasContainer(std::string_view group) const { return traces_.containers.contains(group); }

    bool isRegistered() const { return traces_.isRegistered; }

private:
    EventLog events_;
    FakeInstallationTraces traces_{events_};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Double, BundleStoreContract, FakeBundleStoreWorld);
INSTANTIATE_TYPED_TEST_SUITE_P(Double, InstallationTracesContract, FakeInstallationTracesWorld);

} // namespace
} // namespace blankwell
