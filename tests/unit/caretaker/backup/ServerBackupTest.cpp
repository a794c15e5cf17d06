#include <gmock/gmock.h>

#include "caretaker/backup/BackupFixture.h"
#include "caretaker/backup/ShopFigures.h"
#include "caretaker/backup/ShopFiles.h"
#include "estimatedb/EngineChoice.h"
#include "estimatedb/EstimateMove.h"
#include "frame/FileIO.h"
#include "support/TestServer.h"

namespace lantos::test {

using ::testing::IsEmpty;

// What comes back is a shop with its estimates in a file: no server is touched, and none is needed.
TEST_F(BackupTest, OfAShopOnAServerHasItsTablesInAFile) {
  const std::vector<ShopFigure> inFile = FiguresOf(shop, clock);
  FileIO files(clock);
  files.SetDataDir(shop.string() + "/");
  MoveToServer(files, TestServer::Instance().Address(), "backedup", [](const MoveProgress&) {});
  Backup();
  Restore(archive, restored, {}, clock, TellNobody);
  EXPECT_FALSE(NamesServer(restored / "Lantos.mdb"));
  EXPECT_EQ(FiguresOf(restored, clock), inFile);
  EXPECT_EQ(place.Content(std::string("restored/") + kServerText), Content("Lantos.mdb"));
  EXPECT_THAT(Verify(archive, clock, TellNobody).differences, IsEmpty());
}

}  // namespace lantos::test
