#include "settings/HotKeyFailures.h"

#include "base/Overloaded.h"

namespace blankwell {

void HotKeyFailures::add(const HotKeyAction& action, HotKeyStatus status) {
    std::visit(Overloaded{
                   [&](const HotKeyAction::QuickCreate&) { quickCreate = status; },
                   [&](const HotKeyAction::CreateFile& create) {
                       fileTypes.insert_or_assign(create.fileTypeID, status);
                   },
               },
               action.kind);
}

} // namespace blankwell
