#pragma once

#include "platform/Account.h"
#include "platform/Environment.h"
#include "platform/FrontFolder.h"
#include "platform/WellKnownFolders.h"

#include <map>

namespace blankwell {

/// The account of a user whose home is /Users/u.
class FakeAccount : public Account {
public:
    std::optional<AccountRecord> record() const override { return userRecord; }

    FileUrl processHome() const override { return containerHome; }

    std::optional<AccountRecord> userRecord = AccountRecord{FileUrl("/Users/u")};
    FileUrl containerHome{"/container"};
};

/// An environment of the variables that a test sets.
class FakeEnvironment : public Environment {
public:
    std::optional<std::string> variable(const char* name) const override {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    }

    std::map<std::string, std::string, std::less<>> variables;
};

/// A file manager whose front window shows what `answer` says.
class FakeFrontFolder : public FrontFolder {
public:
    std::optional<std::string> path() override {
        ++asked;
        return answer;
    }

    std::optional<std::string> answer;
    int asked = 0;
};

/// The places of a desktop that has no others than the fixed ones.
class FakeWellKnownFolders : public WellKnownFolders {
public:
    FileUrl desktop(const FileUrl& home) const override {
        return home.appending(desktopName).standardized();
    }

    std::vector<FileUrl> volumes() const override { return volumeFolders; }

    std::string desktopName = "Desktop";
    std::vector<FileUrl> volumeFolders{FileUrl("/Volumes")};
};

} // namespace blankwell
