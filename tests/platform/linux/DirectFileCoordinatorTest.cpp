#include "platform/linux/DirectFileCoordinator.h"

#include "contract/FileCoordinatorContract.h"
#include "support/FakeFileCoordinator.h"

namespace blankwell {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, FileCoordinatorContract, FakeFileCoordinator);
INSTANTIATE_TYPED_TEST_SUITE_P(Direct, FileCoordinatorContract, DirectFileCoordinator);

} // namespace
} // namespace blankwell
