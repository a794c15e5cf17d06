#include <dlfcn.h>
#include <netdb.h>

#include <atomic>
#include <string_view>
#include <thread>

#include "DatabaseFixture.h"
#include "estimatedb/postgres/ConnectingThread.h"
#include "estimatedb/postgres/ServerWatch.h"

namespace lantos::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

std::atomic<bool> isHeld = false;
std::atomic<int> lookUps = 0;

milliseconds Since(steady_clock::time_point begin) {
  return std::chrono::duration_cast<milliseconds>(steady_clock::now() - begin);
}

}  // namespace
}  // namespace lantos::test

// In front of the system's own, whichever library asks: names that end in ".held" are looked up for as long as wanted.
extern "C" int getaddrinfo(const char* name, const char* service, const addrinfo* hints, addrinfo** found) {
  using namespace lantos::test;
  if (name != nullptr && std::string_view(name).ends_with(".held")) {
    ++lookUps;
    while (isHeld) std::this_thread::sleep_for(milliseconds(1));
    return EAI_NONAME;
  }
  static const auto system = reinterpret_cast<decltype(&getaddrinfo)>(::dlsym(RTLD_NEXT, "getaddrinfo"));
  return system(name, service, hints, found);
}

namespace lantos::test {
namespace {

class SlowNames : public testing::Test {
 protected:
  SlowNames() {
    isHeld = true;
    lookUps = 0;
  }
  // A look-up that nobody waits for any more ends by itself.
  ~SlowNames() override {
    isHeld = false;
    std::this_thread::sleep_for(milliseconds(50));
  }
};

TEST_F(SlowNames, HoldNobodyUpWhoFollows) {
  constexpr WatchTimes kQuick{
      .patience = milliseconds(5), .firstPause = milliseconds(1), .longestPause = milliseconds(1)};
  const ServerPlace place{"Lantos.mdb", "postgresql://shop@server.held/test", "shop", "server.held", "test"};
  ServerWatch watch(place, std::make_shared<OwnChanges>(), kQuick);
  const auto begin = steady_clock::now();
  for (int look = 0; look < 100; ++look, std::this_thread::sleep_for(milliseconds(1))) {
    const auto before = steady_clock::now();
    watch.Ask();
    EXPECT_LT(Since(before), milliseconds(300));
  }
  EXPECT_EQ(lookUps, 1) << "one is waited for, and no second one begun beside it";
  EXPECT_FALSE(watch.Contact().stands);
  EXPECT_EQ(watch.Contact().reason, "");
  isHeld = false;
  for (int look = 0; look < 2000 && watch.Contact().reason.empty(); ++look) {
    watch.Ask();
    std::this_thread::sleep_for(milliseconds(1));
  }
  EXPECT_THAT(watch.Contact().reason, testing::HasSubstr("server.held"));
  EXPECT_LT(Since(begin), milliseconds(5000));
}

TEST_F(SlowNames, HoldACommandUpNoLongerThanItsPatience) {
  const auto begin = steady_clock::now();
  EXPECT_THROW(PostgresConnection("postgresql://shop@server.held/test", milliseconds(100)), PostgresFailure);
  EXPECT_GE(Since(begin), milliseconds(100));
  EXPECT_LT(Since(begin), milliseconds(2000));
}

}  // namespace
}  // namespace lantos::test
