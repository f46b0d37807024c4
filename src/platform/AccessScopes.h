#pragma once

#include "base/FileUrl.h"

#include <utility>

namespace blankwell {

/// Opens and closes the access that a resolved bookmark grants.
class AccessScopes {
public:
    virtual ~AccessScopes() = default;

    /// Opens access to `url`. False where there is nothing to open for it: no `stop` is owed then.
    [[nodiscard]] virtual bool start(const FileUrl& url) = 0;

    /// Takes back one successful `start` of the same URL.
    virtual void stop(const FileUrl& url) = 0;
};

/// One access to a folder, closed at the end of this value's life if it was opened at its start.
class AccessScope {
public:
    /// `scopes` must outlive this object.
    AccessScope(AccessScopes& scopes, FileUrl url)
        : scopes_(scopes), url_(std::move(url)), started_(scopes_.start(url_)) {}

    ~AccessScope() {
        if (started_) {
            scopes_.stop(url_);
        }
    }

    AccessScope(const AccessScope&) = delete;
    AccessScope& operator=(const AccessScope&) = delete;

private:
    AccessScopes& scopes_;
    FileUrl url_;
    bool started_;
};

} // namespace blankwell
