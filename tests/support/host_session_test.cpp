#include "support/host_session.h"

#include <gtest/gtest.h>

#include "test_util.h"
#include "workbook/in_memory_application.h"

namespace orv {
namespace {

TEST(HostSessionApplication, HandsOutTheAttachedHostUntilDetached) {
  InMemoryApplication host;
  HostSession::Attach(&host);
  EXPECT_EQ(&HostSession::Application(), &host);
  HostSession::Attach(nullptr);
  EXPECT_EQ(test::ExpectError(err::kObjectRequired, "Line 0 in ORVDescriptives.HostSession.Application",
                              [] { HostSession::Application(); }),
            "Object required");
}

}  // namespace
}  // namespace orv
