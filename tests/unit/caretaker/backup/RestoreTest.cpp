#include "caretaker/backup/Restore.h"

#include <gmock/gmock.h>

#include "caretaker/backup/BackupFixture.h"
#include "estimatedb/EngineChoice.h"
#include "frame/SharedFile.h"

namespace lantos::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

class RestoreTest : public BackupTest {
 protected:
  RestoreTest() { Backup(); }

  std::string RefusalOfRestore() {
    return Refusal([&] { Restore(archive, shop, {}, clock, TellNobody); });
  }
  // Nothing was made beside the shop's files, and none of them was touched.
  void ExpectUntouched() {
    EXPECT_EQ(Content("TQSYSTEM.DAT"), before);
    for (const auto& entry : std::filesystem::directory_iterator(shop)) EXPECT_FALSE(entry.is_directory());
  }

  std::string before = Content("TQSYSTEM.DAT");
};

TEST_F(RestoreTest, KeepsWhatItReplacesAndWhatTheBackupHasnt) {
  Put("TQSYSTEM.DAT", "later");
  Put("W0099999.tqa", "later");
  const RestoreDone done = Restore(archive, shop, {}, clock, TellNobody);
  EXPECT_EQ(Content("TQSYSTEM.DAT"), before);
  EXPECT_THAT(Names(shop), Not(Contains("W0099999.tqa")));
  EXPECT_EQ(done.kept, shop / "replaced-2003-09-30");
  EXPECT_EQ(Content("replaced-2003-09-30/TQSYSTEM.DAT"), "later");
  EXPECT_EQ(Content("replaced-2003-09-30/W0099999.tqa"), "later");
  Restore(archive, shop, {}, clock, TellNobody);
  EXPECT_EQ(Content("replaced-2003-09-30-2/TQSYSTEM.DAT"), before);
}

TEST_F(RestoreTest, TakesSingleFilesInAnySpelling) {
  Put("TQSYSTEM.DAT", "later");
  Put("TQVENDOR.DAT", "later");
  const RestoreDone done = Restore(archive, shop, {"tqsystem.dat"}, clock, TellNobody);
  EXPECT_THAT(done.restored, ElementsAre("TQSYSTEM.DAT"));
  EXPECT_EQ(Content("TQSYSTEM.DAT"), before);
  EXPECT_EQ(Content("TQVENDOR.DAT"), "later");
  EXPECT_THAT(Refusal([&] { Restore(archive, shop, {"NOWHERE.DAT"}, clock, TellNobody); }), HasSubstr("NOWHERE.DAT"));
}

// Rolled back into the database that comes, it would spoil it.
TEST_F(RestoreTest, AJournalOfTheOldDatabaseGoesWithIt) {
  Put("Lantos.mdb", "damaged");
  Put("Lantos.mdb-journal", "of the old one");
  Restore(archive, shop, {"Lantos.mdb"}, clock, TellNobody);
  EXPECT_THAT(Names(shop), Not(Contains("Lantos.mdb-journal")));
  EXPECT_EQ(Content("replaced-2003-09-30/Lantos.mdb-journal"), "of the old one");
}

TEST_F(RestoreTest, IsRefusedWhereACopyRuns) {
  const SharedFile log(shop / "LN930000.LOG", Access::ReadWrite, Deny::All);
  EXPECT_THAT(RefusalOfRestore(), HasSubstr("\"LN930000.LOG\" is in use"));
  ExpectUntouched();
}

TEST_F(RestoreTest, IsRefusedWhereAnotherProgramHasAFile) {
  const SharedFile file(shop / "TQVENDOR.DAT", Access::Read, Deny::None);
  EXPECT_THAT(RefusalOfRestore(), HasSubstr("\"TQVENDOR.DAT\" is in use"));
  ExpectUntouched();
}

TEST_F(RestoreTest, IsRefusedWhereAnotherProgramHasADatabaseOfItsOwn) {
  Put("Korvel.mdb", std::string("\0\1\0\0Standard Jet DB", 19) + std::string(4000, '\0'));
  const SharedFile file(shop / "Korvel.mdb", Access::Read, Deny::None);
  EXPECT_THAT(RefusalOfRestore(), HasSubstr("\"Korvel.mdb\" is in use"));
  ExpectUntouched();
}

// A backup leaves out what leads elsewhere.
TEST_F(RestoreTest, KeepsALinkThatBearsAFilesName) {
  std::filesystem::rename(shop / "TQVENDOR.DAT", place / "elsewhere");
  std::filesystem::create_symlink(place / "elsewhere", shop / "TQVENDOR.DAT");
  const RestoreDone done = Restore(archive, shop, {"TQVENDOR.DAT"}, clock, TellNobody);
  EXPECT_FALSE(std::filesystem::is_symlink(shop / "TQVENDOR.DAT"));
  EXPECT_TRUE(std::filesystem::is_symlink(done.kept / "TQVENDOR.DAT"));
}

TEST_F(RestoreTest, IsRefusedWhereTheDatabaseIsLocked) {
  const auto engine = OpenDatabase(shop / "Lantos.mdb", clock);
  engine->Together([&] { EXPECT_THAT(RefusalOfRestore(), HasSubstr("\"Lantos.mdb\" is in use")); });
  ExpectUntouched();
}

// What can't be put in its place is a folder of its name.
TEST_F(RestoreTest, WhatFailsInTheMiddleIsTakenBack) {
  std::filesystem::rename(shop / "TQVENDOR.DAT", place / "aside");
  std::filesystem::create_directory(shop / "TQVENDOR.DAT");
  const std::vector<std::string> names = Names(shop);
  EXPECT_THROW(Restore(archive, shop, {}, clock, TellNobody), FileError);
  EXPECT_EQ(Names(shop), names);
  EXPECT_EQ(Content("TQSYSTEM.DAT"), before);
  EXPECT_FALSE(std::filesystem::exists(shop / "replaced-2003-09-30"));
  EXPECT_FALSE(std::filesystem::exists(shop / "Lantos-restore.tmp"));
}

TEST_F(RestoreTest, ADamagedDatabaseIsReplaced) {
  Put("Lantos.mdb", Content("Lantos.mdb").substr(0, 5000));
  Restore(archive, shop, {}, clock, TellNobody);
  EXPECT_FALSE(OpenDatabase(shop / "Lantos.mdb", clock)->Run("select * from Estimates", {}).Eof());
}

TEST_F(RestoreTest, TheNewFilesHaveTheModesOfASharedDirectory) {
  std::filesystem::permissions(shop, std::filesystem::perms(02770));
  Restore(archive, shop, {}, clock, TellNobody);
  EXPECT_EQ(std::filesystem::status(shop / "TQSYSTEM.DAT").permissions(), std::filesystem::perms(0660));
}

TEST_F(RestoreTest, AVerifiedBackupIsAlikeAndLeavesNothingBehind) {
  const std::vector<std::string> names = Names(place.Path());
  const Verified verified = Verify(archive, clock, TellNobody);
  EXPECT_THAT(verified.differences, IsEmpty());
  EXPECT_THAT(verified.faults, IsEmpty());
  EXPECT_EQ(Names(place.Path()), names);
  EXPECT_TRUE(NoteVerified(verified.manifest, clock));
  EXPECT_EQ(Content("Lantos-backup.txt"), "2003-09-30T08:15:00 2003-09-30T08:15:00\r\n");
}

TEST_F(RestoreTest, IsNotedInNoDirectoryThatIsNoShopNorOfNoTime) {
  Manifest manifest;
  manifest.directory = place.Path();
  manifest.madeAt = "2003-09-30T08:15:00";
  EXPECT_FALSE(NoteVerified(manifest, clock));
  EXPECT_FALSE(std::filesystem::exists(place / "Lantos-backup.txt"));
  manifest.directory = shop;
  manifest.madeAt = "whatever it likes";
  EXPECT_FALSE(NoteVerified(manifest, clock));
  EXPECT_FALSE(std::filesystem::exists(shop / "Lantos-backup.txt"));
}

// It isn't the backup's fault.
TEST_F(RestoreTest, AFaultOfTheShopItselfIsTold) {
  Put("TQCSTDAT.DAT", Content("TQCSTDAT.DAT") + "half a record");
  Backup();
  const Verified verified = Verify(archive, clock, TellNobody);
  EXPECT_THAT(verified.differences, IsEmpty());
  EXPECT_THAT(verified.faults, Contains(HasSubstr("TQCSTDAT.DAT")));
}

}  // namespace lantos::test
