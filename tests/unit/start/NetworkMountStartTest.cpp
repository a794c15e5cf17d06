#include <gtest/gtest.h>
#include <sys/statfs.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "estimatedb/EngineChoice.h"
#include "start/InitGlobals.h"
#include "start/InstalledShop.h"
#include "support/TestServer.h"

namespace {

bool everythingIsOnNfs = false;

}  // namespace

// Stands in front of the system's own call.
int StatfsOfTests(const char* path, struct statfs* status) __asm__("statfs64");
int StatfsOfTests(const char* path, struct statfs* status) {
  const auto result = static_cast<int>(::syscall(SYS_statfs, path, status));
  constexpr auto kNfs = 0x6969;
  if (result == 0 && everythingIsOnNfs) status->f_type = kNfs;
  return result;
}

namespace lantos {
namespace {

struct NetworkStart : test::InstalledShop {
  NetworkStart() {
    everythingIsOnNfs = true;
    environment.computerName = computer;
  }
  ~NetworkStart() { everythingIsOnNfs = false; }

  std::string LogOfStart() {
    std::vector<std::string> journals;
    EXPECT_TRUE(InitGlobals(shop, database, inventoryList, journals));
    return Log("LN930000.LOG");
  }

  Environment environment{clock, settings};
  Records records{environment, desktop};
  ui::GlobalKeys keys{desktop};
  Shop shop{desktop, environment, records, keys};
  EstimateDatabase database{environment, records};
  frmInvList inventoryList{shop};
};

constexpr const char* kAdvice = "a database server is the safe choice";

TEST(NetworkStart, AFileOnANetworkMountIsAdvisedAgainst) {
  EXPECT_NE(NetworkStart().LogOfStart().find(kAdvice), std::string::npos);
}

TEST(NetworkStart, EstimatesOnAServerAreTheSafeChoiceAlready) {
  NetworkStart start;
  test::TestServer& server = test::TestServer::Instance();
  start.data.Put("Lantos.mdb", server.File(server.MakeSchema()));
  MakeLantosTables(*OpenDatabase(start.data / "Lantos.mdb", start.clock));
  EXPECT_EQ(start.LogOfStart().find(kAdvice), std::string::npos);
}

}  // namespace
}  // namespace lantos
