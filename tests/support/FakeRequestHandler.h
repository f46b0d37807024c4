#pragma once

#include "app/FinderRequestHandler.h"
#include "support/FakeFolderAccess.h"
#include "support/FakeMainQueue.h"

namespace blankwell {

/// The real handler of requests on doubles of what it uses.
struct FakeRequestHandler : FakeFolderAccess {
    FakeWorkspace workspace{events};
    FakeAlert alert{events};
    FakeMainQueue mainQueue;
    FinderRequestHandler handler{{
        .folderAccess = access,
        .workspace = workspace,
        .alert = alert,
        .application = application,
        .mainQueue = mainQueue,
        .log = log,
    }};
};

} // namespace blankwell
