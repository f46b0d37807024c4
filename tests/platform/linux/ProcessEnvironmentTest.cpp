#include "platform/linux/ProcessEnvironment.h"

#include "contract/EnvironmentContract.h"
#include "support/FakeSurroundings.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace blankwell {
namespace {

struct FakeEnvironmentSubject {
    FakeEnvironmentSubject() {
        fake.variables["BLANKWELL_TEST_SET"] = "value";
        fake.variables["BLANKWELL_TEST_EMPTY"] = "";
    }

    const Environment& environment() { return fake; }

    FakeEnvironment fake;
};

struct ProcessEnvironmentSubject {
    ProcessEnvironmentSubject() {
        ::setenv("BLANKWELL_TEST_SET", "value", 1);
        ::setenv("BLANKWELL_TEST_EMPTY", "", 1);
    }

    ~ProcessEnvironmentSubject() {
        ::unsetenv("BLANKWELL_TEST_SET");
        ::unsetenv("BLANKWELL_TEST_EMPTY");
    }

    const Environment& environment() { return process; }

    ProcessEnvironment process;
};

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, EnvironmentContract, FakeEnvironmentSubject);
INSTANTIATE_TYPED_TEST_SUITE_P(Process, EnvironmentContract, ProcessEnvironmentSubject);

} // namespace
} // namespace blankwell
