#include "contract/UserDefaultsContract.h"

#include "platform/linux/PlistDomain.h"

#include "support/FileContents.h"
#include "support/TemporaryFolder.h"

#include <fstream>

namespace blankwell {
namespace {

struct PlistDomainWorld {
    UserDefaults& here() { return first; }

    UserDefaults& there() { return second; }

    /// Adds a number, as another program would.
    void putForeign(const std::string& key) {
        const auto path = folder.url().path() + "/d.plist";
        auto document = contentsOf(path);
        if (document.empty()) {
            document = "<plist version=\"1.0\"><dict></dict></plist>";
        }
        document.insert(document.rfind("</dict>"), "<key>" + key + "</key><integer>7</integer>");
        std::ofstream(path) << document;
    }

    TemporaryFolder folder;
    PlistDomain first{folder.url().path(), "d"};
    PlistDomain second{folder.url().path(), "d"};
};

INSTANTIATE_TYPED_TEST_SUITE_P(Plist, UserDefaultsContract, PlistDomainWorld);

} // namespace
} // namespace blankwell
