#include "desktop/AccountHome.h"

#include "desktop/Desktop.h"
#include "support/PrivateMounts.h"

#include <fstream>

namespace blankwell {

void moveAccountHome() {
    const auto home = desktopHome();
    const auto database = home.appending("passwd").path();
    std::ofstream(database) << "tester:x:" << ::getuid() << ':' << ::getgid() << "::" << home.path()
                            << ":/bin/sh\n";
    enterPrivateMounts();
    bindMount(database, "/etc/passwd");
}

} // namespace blankwell
