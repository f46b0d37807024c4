#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace blankwell {

using Arguments = std::vector<std::string>;

/// Looks at `condition` again and again until it holds, or until `patience` is over. Returns
/// whether it holds.
bool eventually(const std::function<bool()>& condition,
                std::chrono::milliseconds patience = std::chrono::seconds(20));

/// What a command that ends by itself writes to its standard output.
std::string outputOf(const Arguments& command);

/// A program that a test starts, and that ends with this value. Its output is thrown away.
class Program {
public:
    explicit Program(const Arguments& command);
    ~Program();

    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    /// Its process id.
    [[nodiscard]] pid_t process() const { return process_; }

    /// Lets it hang: it keeps its windows and names and does nothing any more.
    void hang() const;

    /// Lets it go on.
    void goOn() const;

    /// Asks it to end as a session does, and returns what `exitStatus()` does.
    int terminate();

    /// Waits until it ends, and returns its exit status, or -1 where a signal ended it.
    int exitStatus();

private:
    pid_t process_ = -1;
};

} // namespace blankwell
