// The inventory files while another workstation has them.
#include <sys/wait.h>
#include <unistd.h>

#include <optional>
#include <thread>

#include "InventoryFixture.h"
#include "records/inventory/Inventory.h"

namespace lantos::test {
namespace {

using ui::Answer;

class InventoryContention : public InventoryTest {
 protected:
  InventoryContention() { PutParts({{"A", "AXLE"}, {"B", "BELT"}}); }

  // Another workstation has the file for so many waits.
  void HoldFor(std::size_t waits, std::string_view file, Access access = Access::Read, Deny deny = Deny::All) {
    holder_ = HeldByAnother(file, access, deny);
    patience.onWait = [this, waits] {
      if (patience.waits.size() >= waits) holder_.reset();
    };
  }
  void Release() { holder_.reset(); }

  std::optional<SharedFile> holder_;
};

TEST_F(InventoryContention, AWriteWaitsForTheTagFileWithoutABoxATenthOfASecondAtATime) {
  const FileLink offset = Read("A");
  HoldFor(50, kInventoryTagFile);
  inventory.CurrentInvTag.Put(inventorytag::InStock, 3);
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(patience.waits, std::vector<std::int64_t>(50, 100));
  EXPECT_EQ(desktop.boxes.size(), 0U);
  EXPECT_EQ(TagBytes(0), std::string(TagImage({"A", "AXLE", {}, 3}, 0)));
}

TEST_F(InventoryContention, AWriteWaitsForTheMasterFileInTheSameWay) {
  const FileLink offset = Read("B");
  HoldFor(50, kInventoryFile, Access::Read, Deny::None);  // a mere reader is in the way of a write
  inventory.CurrentInv.Put(inventory::Comment, "new");
  inventory.WriteInventory(offset, 1, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(patience.waits, std::vector<std::int64_t>(50, 100));
  EXPECT_EQ(desktop.boxes.size(), 0U);
  EXPECT_EQ(MasterBytes(1), std::string(MasterImage({"B", "BELT"}).Text(186, "new")));
}

TEST_F(InventoryContention, AWriteOutlivesAnyOtherFailureOfTheOpenToo) {
  const FileLink offset = Read("A");
  const std::filesystem::path away = PathOf("AWAY");
  std::filesystem::rename(PathOf(kInventoryFile), away);
  std::filesystem::create_directory(PathOf(kInventoryFile));
  patience.onWait = [&] {
    if (patience.waits.size() < 3) return;
    std::filesystem::remove(PathOf(kInventoryFile));
    std::filesystem::rename(away, PathOf(kInventoryFile));
  };
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(patience.waits.size(), 3U);
  EXPECT_EQ(desktop.boxes.size(), 0U);
}

TEST_F(InventoryContention, TheSearchForATagWaitsWithoutEndAndWithoutABox) {
  HoldFor(40, kInventoryTagFile, Access::ReadWrite, Deny::All);
  EXPECT_EQ(inventory.FindTagLocation(1), 128);
  EXPECT_EQ(patience.waits, std::vector<std::int64_t>(40, 100));
  EXPECT_EQ(desktop.boxes.size(), 0U);
  EXPECT_EQ(desktop.statuses,
            (std::vector<std::string>{"Waiting for TQINVTAG.DAT... (Error 70: Permission denied)", ""}));
}

TEST_F(InventoryContention, AnotherProcessThatHoldsTheFileIsWaitedForUntilItEnds) {
  const FileLink offset = Read("A");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    const SharedFile held(PathOf(kInventoryTagFile), Access::ReadWrite, Deny::All);
    [[maybe_unused]] const ssize_t told = write(ready[1], "x", 1);
    pause();
    _exit(0);
  }
  char byte;
  ASSERT_EQ(read(ready[0], &byte, 1), 1);
  patience.onWait = [&] {
    if (patience.waits.size() != 4) return;
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  };
  inventory.CurrentInvTag.Put(inventorytag::InStock, 3);
  inventory.WriteInventory(offset, 0, Inventory::Core::Stays, Inventory::Broadcast::No);
  EXPECT_EQ(patience.waits.size(), 4U);
  EXPECT_EQ(TagBytes(0), std::string(TagImage({"A", "AXLE", {}, 3}, 0)));
  close(ready[0]);
  close(ready[1]);
}

TEST_F(InventoryContention, AReadThatFailsAsksAndRetryTriesAgainAQuarterOfASecondLater) {
  Read("A");
  for (const std::string_view file : {kInventoryTagFile, kInventoryFile}) {
    desktop.boxes.clear();
    patience.waits.clear();
    HoldFor(1000, file);
    desktop.WillAnswer({Answer::Retry, Answer::Retry});
    desktop.WillAnswer([&](const ui::Box&) {
      Release();
      return Answer::Retry;
    });
    FileLink offset = kNoLink;
    EXPECT_TRUE(inventory.ReadInventory(offset, 0));
    ASSERT_EQ(desktop.boxes.size(), 3U);
    for (const ui::Box& box : desktop.boxes) {
      ExpectBox(box, "ReadInventory", "Can not read tags record for A\rError 70: Permission denied",
                ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    }
    EXPECT_EQ(patience.waits, (std::vector<std::int64_t>{250, 250, 250}));
  }
}

TEST_F(InventoryContention, CancelAtAReadGivesUpAndLeavesNoFileOpen) {
  Read("A");
  Read("B");
  for (const std::string_view file : {kInventoryTagFile, kInventoryFile}) {
    HoldFor(1000, file);
    desktop.WillAnswer(Answer::Cancel);
    FileLink offset = kNoLink;
    EXPECT_FALSE(inventory.ReadInventory(offset, 0));
    EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "B") << "the master is the last one read";
    Release();
    EXPECT_NO_THROW(HeldByAnother(kInventoryTagFile));
    EXPECT_NO_THROW(HeldByAnother(kInventoryFile));
  }
  EXPECT_TRUE(patience.waits.empty());
}

TEST_F(InventoryContention, TheReadOfATagAloneHasItsOwnTitle) {
  Read("A");
  HoldFor(1000, kInventoryTagFile);
  desktop.WillAnswer(Answer::Retry);
  desktop.WillAnswer(Answer::Cancel);
  InventoryTag tag;
  EXPECT_FALSE(inventory.ReadInventoryTag(0, tag));
  ExpectBox(desktop.boxes.front(), "ReadInventoryTag", "Can not read tags record for A\rError 70: Permission denied",
            ui::Buttons::RetryCancel, ui::Icon::Exclamation);
  EXPECT_EQ(patience.waits, std::vector<std::int64_t>{250});
}

TEST_F(InventoryContention, APartThatIsNotInTheFileIsAFailedReadUntilItIsThere) {
  const Inventory::PartIndex index = inventory.AppendTag(NamedTag("LATE"));
  desktop.WillAnswer(Answer::Retry);
  desktop.WillAnswer([&](const ui::Box& box) {
    ExpectBox(box, "ReadInventory", "Can not read tags record for LATE\rError 57: Device I/O error",
              ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    Put(kInventoryTagFile, BytesOf(kInventoryTagFile) + std::string(TagImage({"LATE"}, 688)));
    return Answer::Retry;
  });
  FileLink offset = kNoLink;
  EXPECT_TRUE(inventory.ReadInventory(offset, index));
  EXPECT_EQ(inventory.CurrentInvTag.Get(inventorytag::StockNumber), "LATE");
  EXPECT_EQ(inventory.Location(index), 256);
}

TEST_F(InventoryContention, ATagThatLeadsNowhereIsAFailedReadAndPastTheEndAreZeros) {
  Put(kInventoryTagFile, std::string(TagImage({"A"}, -2)) + std::string(TagImage({"B"}, 100000)));
  desktop.WillAnswer(Answer::Cancel);
  FileLink offset = kNoLink;
  EXPECT_FALSE(inventory.ReadInventory(offset, 0));
  offset = kNoLink;
  EXPECT_TRUE(inventory.ReadInventory(offset, 1));
  EXPECT_EQ(offset, 100000);
  EXPECT_EQ(inventory.CurrentInv, InventoryRecord{});
}

TEST_F(InventoryContention, EachOpenIsKeptOutExactlyByWhatItsSharingModeMeets) {
  struct Routine {
    std::string name;
    std::string_view file;
    Access access;
    Deny deny;
    std::function<void()> run;
  };
  const auto closing = [this](FileHandle handle) { world.openFiles.CloseFile(handle); };
  const std::vector<Routine> routines = {
      {"FindTagLocation", kInventoryTagFile, Access::Read, Deny::None, [&] { inventory.FindTagLocation(0); }},
      {"tag for write", kInventoryTagFile, Access::Write, Deny::All,
       [&] { closing(inventory.OpenInventoryTagForWrite()); }},
      {"master for write", kInventoryFile, Access::Write, Deny::All,
       [&] { closing(inventory.OpenInventoryForWrite()); }},
      {"ReadInventory, tag", kInventoryTagFile, Access::Read, Deny::None, [&] { Read("A"); }},
      {"ReadInventory, master", kInventoryFile, Access::Read, Deny::None, [&] { Read("A"); }},
  };
  desktop.otherwise = [&](const ui::Box&) { return Answer::Retry; };
  Read("A");
  for (const Routine& routine : routines) {
    for (const auto& [access, deny] : std::vector<std::pair<Access, Deny>>{{Access::Read, Deny::None},
                                                                           {Access::Write, Deny::None},
                                                                           {Access::Read, Deny::Write},
                                                                           {Access::ReadWrite, Deny::All}}) {
      const bool writes = routine.access != Access::Read;
      const bool kept = routine.deny == Deny::All || deny == Deny::All || (deny == Deny::Write && writes);
      patience.waits.clear();
      HoldFor(2, routine.file, access, deny);
      routine.run();
      EXPECT_EQ(patience.waits.size(), kept ? 2U : 0U) << routine.name;
      Release();
    }
    EXPECT_NO_THROW(HeldByAnother(routine.file)) << routine.name << " holds its file";
  }
}

}  // namespace
}  // namespace lantos::test
