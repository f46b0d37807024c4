#pragma once

#include "access/FolderAccess.h"
#include "access/SecurityScopedBookmarkStore.h"
#include "filetypes/FileCreator.h"
#include "support/FakeAccessScopes.h"
#include "support/FakeApplication.h"
#include "support/FakeBookmarks.h"
#include "support/FakeBundle.h"
#include "support/FakeDialogs.h"
#include "support/FakeFileCoordinator.h"
#include "support/FakeFileSystem.h"
#include "support/FakeLog.h"
#include "support/FakeSurroundings.h"
#include "support/FakeTextOrder.h"
#include "support/FakeUserDefaults.h"

namespace blankwell {

/// The real folder access on doubles of the whole platform: a sandboxed process of the user `u`,
/// who has granted nothing yet.
struct FakeFolderAccess {
    FakeFolderAccess() { environment.variables["APP_SANDBOX_CONTAINER_ID"] = "container"; }

    EventLog events;
    FakePreferenceDomains domains;
    FakeBookmarks bookmarks;
    FakeTextOrder order;
    FakeLog log;
    FakeFileSystem files{events};
    FakeFileCoordinator coordinator;
    FakeBundle bundle;
    FakeAccessScopes scopes{events};
    FakeOpenPanel openPanel{events};
    FakeApplication application{events};
    FakeAccount account;
    FakeEnvironment environment;
    FakeWellKnownFolders folders;
    SecurityScopedBookmarkStore store{domains, bookmarks, order, log};
    FileCreator creator{files, coordinator, bundle, scopes};
    FolderAccess access{{
        .store = store,
        .creator = creator,
        .fileSystem = files,
        .scopes = scopes,
        .openPanel = openPanel,
        .application = application,
        .account = account,
        .environment = environment,
        .folders = folders,
    }};
};

} // namespace blankwell
