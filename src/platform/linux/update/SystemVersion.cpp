#include "platform/linux/update/SystemVersion.h"

#include <sys/utsname.h>

namespace blankwell {

std::string runningSystemVersion() {
    struct utsname names{};
    return ::uname(&names) == 0 ? names.release : "";
}

} // namespace blankwell
