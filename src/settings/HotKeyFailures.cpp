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

void HotKeyFailures::remove(const HotKeyAction& action) {
    std::visit(
        Overloaded{
            [&](const HotKeyAction::QuickCreate&) { quickCreate.reset(); },
            [&](const HotKeyAction::CreateFile& create) { fileTypes.erase(create.fileTypeID); },
        },
        action.kind);
}

} // namespace blankwell
