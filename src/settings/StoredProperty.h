#pragma once

#include "base/Published.h"
#include "platform/Log.h"
#include "platform/UserDefaults.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

namespace blankwell {

/// How a property stands in its domain.
template <typename Value>
struct StoredForm {
    std::string_view key;
    /// The value for what is stored, or for nothing; the default for what cannot be used.
    Value (*decode)(const std::optional<PropertyValue>& stored);
    /// Nothing where the value has no stored form.
    std::optional<PropertyValue> (*encode)(const Value& value);
    /// Reading also puts the stored form right where it is not that of the value read.
    bool isRewrittenOnLoad = false;
};

/// A published value that is written through to a preference domain.
///
/// An assignment is announced, held, and then written under the property's one key. A write that
/// fails is logged; the value is held all the same. Belongs to the main thread.
template <typename Value>
class StoredProperty {
public:
    /// Reads the value from `defaults`. All must outlive this object.
    StoredProperty(ObjectWillChange& owner, UserDefaults& defaults, const Logger& logger,
                   const StoredForm<Value>& form)
        : defaults_(defaults),
          logger_(logger),
          form_(form),
          stored_(defaults.value(form.key)),
          published_(owner, form.decode(stored_)) {
        rewriteIfNeeded(published_.get());
    }

    [[nodiscard]] const Value& get() const { return published_.get(); }

    void set(Value value) {
        published_.set(std::move(value), [this](const Value& held) { write(held); });
    }

    /// Publishes what somebody else has stored since the last read or write; nothing where nobody
    /// has.
    void reload() {
        auto stored = defaults_.value(form_.key);
        if (stored == stored_) {
            return;
        }
        stored_ = std::move(stored);
        auto value = form_.decode(stored_);
        rewriteIfNeeded(value);
        if (value != published_.get()) {
            published_.set(std::move(value));
        }
    }

    /// As `Published::observe`.
    Subscription observe(typename Published<Value>::Observer observer) {
        return published_.observe(std::move(observer));
    }

    /// As `Published::observeChanges`.
    Subscription observeChanges(typename Published<Value>::Observer observer) {
        return published_.observeChanges(std::move(observer));
    }

    [[nodiscard]] std::size_t observerCount() const { return published_.observerCount(); }

private:
    void rewriteIfNeeded(const Value& loaded) {
        if (form_.isRewrittenOnLoad && form_.encode(loaded) != stored_) {
            write(loaded);
        }
    }

    void write(const Value& value) {
        auto form = form_.encode(value);
        if (!form) {
            return;
        }
        if (const auto written = defaults_.set(form_.key, *form); !written) {
            logger_.error("Failed to store {}: {}", form_.key, written.error().description);
            return;
        }
        stored_ = std::move(form);
    }

    UserDefaults& defaults_;
    const Logger& logger_;
    StoredForm<Value> form_;
    /// What the domain held when it was last read or written here.
    std::optional<PropertyValue> stored_;
    Published<Value> published_;
};

} // namespace blankwell
