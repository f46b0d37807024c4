#include "platform/linux/DrainedMainQueue.h"

#include "contract/MainQueueContract.h"
#include "support/FakeMainQueue.h"

namespace blankwell {
namespace {

INSTANTIATE_TYPED_TEST_SUITE_P(Fake, MainQueueContract, FakeMainQueue);
INSTANTIATE_TYPED_TEST_SUITE_P(Drained, MainQueueContract, DrainedMainQueue);

} // namespace
} // namespace blankwell
