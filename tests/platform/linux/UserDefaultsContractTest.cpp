#include "contract/UserDefaultsContract.h"

#include "platform/linux/PlistDomain.h"

#include "support/TemporaryFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace blankwell {
namespace {

struct PlistDomainWorld {
    UserDefaults& here() { return first; }

    UserDefaults& there() { return second; }

    /// Adds a number, as another program would.
    void putForeign(const std::string& key) {
        const auto path = folder.url().path() + "/d.plist";
        std::ifstream file(path);
        std::string document(std::istreambuf_iterator<char>(file), {});
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
