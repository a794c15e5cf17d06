#include "frame/NetworkMount.h"

#include <gtest/gtest.h>

namespace lantos {

TEST(NetworkMounts, LocalAndMissingPathsAreNone) {
  EXPECT_FALSE(IsOnNetworkMount("/proc"));
  EXPECT_FALSE(IsOnNetworkMount("/nowhere/at/all"));
}

}  // namespace lantos
