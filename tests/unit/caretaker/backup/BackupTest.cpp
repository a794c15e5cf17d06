#include "caretaker/backup/Backup.h"

#include <gmock/gmock.h>

#include <chrono>
#include <fstream>
#include <thread>

#include "caretaker/backup/BackupFixture.h"
#include "caretaker/backup/PlainFile.h"
#include "caretaker/backup/ShopFigures.h"
#include "estimatedb/EngineChoice.h"
#include "frame/SharedFile.h"

namespace lantos::test {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

TEST_F(BackupTest, RestoredIsTheShopFileByFileAndFigureByFigure) {
  const BackupDone done = Backup();
  const RestoreDone back = Restore(archive, restored, {}, clock, TellNobody);
  EXPECT_EQ(Names(restored), Names(shop));
  for (const std::string& name : Names(shop)) {
    if (!name.ends_with(".mdb")) EXPECT_EQ(place.Content("restored/" + name), Content(name)) << name;
  }
  EXPECT_EQ(FiguresOf(restored, clock), FiguresOf(shop, clock));
  EXPECT_EQ(back.manifest, done.manifest);
  EXPECT_TRUE(back.kept.empty());
}

TEST_F(BackupTest, FiguresCountRowsTotalsAndLinks) {
  const std::vector<ShopFigure> figures = FiguresOf(shop, clock);
  EXPECT_THAT(figures, Contains(ShopFigure{"records of TQCSTTAG.DAT", "12"}));
  EXPECT_THAT(figures, Contains(ShopFigure{"customer tags that lead to their customer", "12"}));
  EXPECT_THAT(figures, Contains(ShopFigure{"rows of Estimates in Lantos.mdb", "12"}));
  EXPECT_THAT(figures, Contains(ShopFigure{"estimates of known customers", "12"}));
}

TEST_F(BackupTest, LogsMailboxesAndWhatIsInTheMakingStay) {
  for (const char* name : {"LN930000.LOG", "AU9300.$$$", "Lantos-move.tmp", "Lantos-backup.txt"}) Put(name, "x");
  Backup();
  Restore(archive, restored, {}, clock, TellNobody);
  for (const char* name : {"LN930000.LOG", "AU9300.$$$", "Lantos-move.tmp", "Lantos-backup.txt"}) {
    EXPECT_THAT(Names(restored), Not(Contains(name)));
  }
}

// The first of them is copied long before the last: both are as they were behind the change, or neither.
TEST_F(BackupTest, WhatChangesWhileOthersAreCopiedIsTakenAgain) {
  Put("AAFIRST.DAT", "old");
  Put("ZZLAST.DAT", "old");
  bool isChanged = false;
  const BackupDone done = Backup([&](const BackupProgress& progress) {
    if (progress.step != "copying" || progress.done < 10'000 || isChanged) return;
    isChanged = true;
    Put("AAFIRST.DAT", "new");
    Put("ZZLAST.DAT", "new");
  });
  Restore(archive, restored, {}, clock, TellNobody);
  EXPECT_TRUE(isChanged);
  EXPECT_EQ(place.Content("restored/AAFIRST.DAT"), "new");
  EXPECT_EQ(place.Content("restored/ZZLAST.DAT"), "new");
  EXPECT_GT(done.rounds, 2);
}

TEST_F(BackupTest, TheDatabaseIsTakenAgainWhenARowChangesMeanwhile) {
  bool isChanged = false;
  Backup([&](const BackupProgress& progress) {
    if (progress.step != "copying" || isChanged) return;
    isChanged = true;
    OpenDatabase(shop / "Lantos.mdb", clock)->Run("UPDATE Estimates SET Comments = ?", {std::string("later")});
  });
  Restore(archive, restored, {}, clock, TellNobody);
  Recordset rows = OpenDatabase(restored / "Lantos.mdb", clock)->Run("select * from Estimates", {});
  EXPECT_EQ(rows.Text("Comments"), "later");
}

TEST_F(BackupTest, AFileThatIsGoneMeanwhileIsNotMissed) {
  Put("AAFIRST.DAT", "old");
  Backup([&](const BackupProgress&) { std::filesystem::remove(shop / "AAFIRST.DAT"); });
  Restore(archive, restored, {}, clock, TellNobody);
  EXPECT_THAT(Names(restored), Not(Contains("AAFIRST.DAT")));
}

TEST_F(BackupTest, AFileThatSomebodyHoldsIsWaitedFor) {
  SharedFile held(shop / "TQSYSTEM.DAT", Access::ReadWrite, Deny::All);
  clock.meanwhile = [&] { held.Close(); };
  Backup();
  EXPECT_FALSE(held.IsOpen());
  clock.meanwhile = [&] { clock.MoveOn(5000); };
  SharedFile again(shop / "TQSYSTEM.DAT", Access::ReadWrite, Deny::All);
  EXPECT_THAT(Refusal([&] { Backup(); }), HasSubstr("\"TQSYSTEM.DAT\" is in use by another program"));
}

TEST_F(BackupTest, AConversionThatIsUnderWayIsWaitedFor) {
  SharedFile journal(shop / "AJ930000.JNL", Access::ReadWrite, Deny::Write);
  clock.meanwhile = [&] {
    journal.Close();
    std::filesystem::remove(shop / "AJ930000.JNL");
  };
  EXPECT_EQ(Backup().manifest.Find("AJ930000.JNL"), nullptr);
}

TEST_F(BackupTest, AConversionIsWaitedForHoweverLongTheCopyingTook) {
  SharedFile journal(shop / "AJ930000.JNL", Access::ReadWrite, Deny::Write);
  int waits = 0;
  clock.meanwhile = [&] {
    if (++waits < 3 || !journal.IsOpen()) return;
    journal.Close();
    std::filesystem::remove(shop / "AJ930000.JNL");
  };
  bool isSlow = false;
  const BackupDone done = Backup([&](const BackupProgress& progress) {
    if (progress.step != "copying" || isSlow) return;
    isSlow = true;
    clock.MoveOn(130'000);
  });
  EXPECT_EQ(done.manifest.Find("AJ930000.JNL"), nullptr);
}

// Whatever is copied takes longer than a turn, and others write between the turns.
TEST_F(BackupTest, OnASlowMachineATurnStillEndsWithALookThatFindsNothingMoved) {
  int writes = 0;
  Put("AAFIRST.DAT", "old");
  const auto write = [&] { Put("AAFIRST.DAT", std::to_string(++writes)); };
  clock.meanwhile = write;
  const auto tell = [&](const BackupProgress& progress) {
    if (progress.step != "copying") return;
    clock.MoveOn(3000);
    if (writes == 0 && progress.done > 10'000) write();
  };
  EXPECT_EQ(Refusal([&] { Backup(tell); }), "");
  EXPECT_TRUE(std::filesystem::exists(archive));
}

// Another write within the same second would bear the same stamp.
TEST_F(BackupTest, WhatAFileSystemOfWholeSecondsHasStampedJustNowIsReadAgain) {
  constexpr std::size_t kLength = 5'000'000;
  Put("AAFIRST.DAT", std::string(kLength, 'x'));
  const auto now = std::filesystem::file_time_type::clock::now();
  std::filesystem::last_write_time(shop / "AAFIRST.DAT", std::chrono::floor<std::chrono::seconds>(now));
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  std::uint64_t copied = 0;
  Backup([&](const BackupProgress& progress) {
    if (progress.step == "copying") copied = progress.done;
  });
  EXPECT_GT(copied, 2 * kLength);
}

TEST_F(BackupTest, AConversionThatWasLeftInTheMiddleIsTheShops) {
  Put("AJ930000.JNL", "left");
  EXPECT_NE(Backup().manifest.Find("AJ930000.JNL"), nullptr);
}

TEST_F(BackupTest, AShopThatNeverStandsStillHasNoBackup) {
  int writes = 0;
  const auto tell = [&](const BackupProgress&) {
    Put("AAFIRST.DAT", std::to_string(++writes));
    clock.MoveOn(1000);
  };
  EXPECT_THAT(Refusal([&] { Backup(tell); }), HasSubstr("written to all the time"));
  EXPECT_EQ(place.Count(), 1u);  // the shop
}

TEST_F(BackupTest, WhatIsNoFileOfTheDirectoryIsLeftOutAndNamed) {
  std::filesystem::create_symlink("/etc/hostname", shop / "LINK.DAT");
  std::filesystem::create_symlink("TQSYSTEM.DAT", shop / "INSIDE.DAT");
  const BackupDone done = Backup();
  EXPECT_THAT(done.leftOut, ElementsAre("LINK.DAT"));
  EXPECT_NE(done.manifest.Find("INSIDE.DAT"), nullptr);
}

TEST_F(BackupTest, IsRefusedInsideTheShopAndOfNoShop) {
  EXPECT_THAT(Refusal([&] { MakeBackup(shop, shop / "x.tar.zst", clock, TellNobody); }), HasSubstr("own directory"));
  EXPECT_THAT(Refusal([&] { MakeBackup(place / "none", archive, clock, TellNobody); }), HasSubstr("no directory"));
  std::filesystem::create_directory(place / "empty");
  EXPECT_THAT(Refusal([&] { MakeBackup(place / "empty", archive, clock, TellNobody); }), HasSubstr("There is no shop"));
  EXPECT_FALSE(std::filesystem::exists(archive));
}

TEST_F(BackupTest, OfEveryNightKeepsTheNewestOfItsOwnNames) {
  for (const char* name : {"shop-20030901-020000.tar.zst", "shop-20030902-020000.tar.zst", "shop-of-others.tar.zst",
                           "shop-20030901-02000x.tar.zst"}) {
    place.Put(name, "x");
  }
  const BackupDone done = MakeNightlyBackup(shop, archive, 2, clock, TellNobody);
  EXPECT_EQ(done.archive.filename(), "shop-20030930-081500.tar.zst");
  EXPECT_THAT(Names(place.Path()), ElementsAre("shop-20030901-02000x.tar.zst", "shop-20030902-020000.tar.zst",
                                               "shop-20030930-081500.tar.zst", "shop-of-others.tar.zst"));
}

TEST_F(BackupTest, OfThisNightStaysWhereAClockWasAheadOnce) {
  place.Put("shop-20991231-020000.tar.zst", "x");
  place.Put("shop-20991230-020000.tar.zst", "x");
  const auto aDayAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(24);
  std::filesystem::last_write_time(place / "shop-20991231-020000.tar.zst", aDayAgo);
  const BackupDone done = MakeNightlyBackup(shop, archive, 2, clock, TellNobody);
  EXPECT_THAT(done.deleted, ElementsAre(place / "shop-20991231-020000.tar.zst"));
  EXPECT_THAT(Names(place.Path()), ElementsAre("shop-20030930-081500.tar.zst", "shop-20991230-020000.tar.zst"));
}

void LeaveFolder(const std::filesystem::path& folder) {
  std::filesystem::create_directory(folder);
  std::ofstream(folder / "TQSYSTEM.DAT") << "x";
}

TEST_F(BackupTest, TakesAwayWhatAKilledOneLeft) {
  LeaveFolder(place / "shop.tar.zst.copies-abc123");
  LeaveFolder(place / "shop.tar.zst.verify-abc123");
  LeaveFolder(place / "other.tar.zst.copies-abc123");
  LeaveFolder(place / "shop.tar.zst.copies-notours");
  const ScratchFolder living(place / "shop.tar.zst.copies");
  EXPECT_THAT(Backup().cleared, ::testing::UnorderedElementsAre(place / "shop.tar.zst.copies-abc123",
                                                                place / "shop.tar.zst.verify-abc123"));
  EXPECT_TRUE(std::filesystem::exists(living.Path()));
  EXPECT_TRUE(std::filesystem::exists(place / "other.tar.zst.copies-abc123"));
  EXPECT_TRUE(std::filesystem::exists(place / "shop.tar.zst.copies-notours"));
  EXPECT_FALSE(std::filesystem::exists(place / "shop.tar.zst.copies-abc123"));
  EXPECT_TRUE(Backup().cleared.empty());
}

TEST_F(BackupTest, OfANightTakesAwayWhatAnyNightLeft) {
  LeaveFolder(place / "shop-20030901-020000.tar.zst.copies-abc123");
  place.Put("shop-20030901-020000.tar.zst.part", "x");
  EXPECT_THAT(
      MakeNightlyBackup(shop, archive, 2, clock, TellNobody).cleared,
      ElementsAre(place / "shop-20030901-020000.tar.zst.copies-abc123", place / "shop-20030901-020000.tar.zst.part"));
}

TEST_F(BackupTest, OfANightThatFailsDeletesNothing) {
  place.Put("shop-20030901-020000.tar.zst", "x");
  const SharedFile held(shop / "TQSYSTEM.DAT", Access::ReadWrite, Deny::All);
  clock.meanwhile = [&] { clock.MoveOn(5000); };
  EXPECT_THAT(Refusal([&] { MakeNightlyBackup(shop, archive, 1, clock, TellNobody); }), Not(IsEmpty()));
  EXPECT_THAT(Names(place.Path()), ElementsAre("shop-20030901-020000.tar.zst"));
}

TEST_F(BackupTest, IsNobodyElsesToRead) {
  Backup();
  EXPECT_EQ(std::filesystem::status(archive).permissions(), std::filesystem::perms(0600));
}

}  // namespace lantos::test
