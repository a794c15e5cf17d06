// What the rules of waiting have in common, and the routines that wait in ways of their own.
#include "records/Contention.h"

#include "InventoryFixture.h"
#include "records/PurchaseOrders.h"
#include "records/inventory/UsageHistory.h"

namespace lantos::test {
namespace {

using ui::Answer;

class Waiting : public InventoryTest {
 protected:
  // Runs a statement that fails so many times, with the rule.
  bool RunFailing(const ContentionRule& rule, int failures,
                  FileErrorNumber number = FileErrorNumber::PermissionDenied) {
    Contention contention(rule, desktop, world, "THE FILE");
    return contention.Run([&] {
      if (failures-- > 0) throw FileError(number, "no luck");
    });
  }
};

TEST_F(Waiting, TheTextsOfARuleTakeWhatIsWaitedForAndTheError) {
  constexpr ContentionRule rule = {.text = "{what}\r{error}", .title = "Wait({what}) {error}"};
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(RunFailing(rule, 1));
  ExpectBox(desktop.boxes.at(0), "Wait(THE FILE) Error 70: Permission denied", "THE FILE\rError 70: Permission denied",
            ui::Buttons::Ok, ui::Icon::None);
}

TEST_F(Waiting, ANameThatLooksLikeAPlaceholderStaysAsItIs) {
  constexpr ContentionRule rule = {.text = "{what}", .title = "T"};
  Contention contention(rule, desktop, world, "{error}");
  desktop.WillAnswer(Answer::Ok);
  bool failed = false;
  EXPECT_TRUE(contention.Run([&] {
    if (!std::exchange(failed, true)) throw FileError(FileErrorNumber::PermissionDenied, "no luck");
  }));
  EXPECT_EQ(desktop.boxes.at(0).text, "{error}");
}

TEST_F(Waiting, AWaitOfASecondIsToldOnTheStatusLineAndInTheLogUntilItEnds) {
  world.log.Open();
  const std::string word = "Waiting for THE FILE... (Error 70: Permission denied)";
  EXPECT_TRUE(RunFailing(contention::kOpenInventory, 9));
  EXPECT_EQ(desktop.statuses, std::vector<std::string>());
  EXPECT_TRUE(RunFailing(contention::kOpenInventory, 30));
  EXPECT_EQ(desktop.statuses, (std::vector<std::string>{word, ""}));
  EXPECT_EQ(desktop.boxes.size(), 0U);
  EXPECT_NE(InventoryLog().find(word), std::string::npos);
}

TEST_F(Waiting, AnErrorOfAnotherKindEndsTheWordOnTheStatusLineToo) {
  int tries = 0;
  {
    Contention contention(contention::kOpenInventory, desktop, world, "THE FILE");
    EXPECT_THROW(contention.Run([&] {
      if (++tries > 20) throw std::runtime_error("something else");
      throw FileError(FileErrorNumber::PermissionDenied, "no luck");
    }),
                 std::runtime_error);
  }
  ASSERT_EQ(desktop.statuses.size(), 2U);
  EXPECT_EQ(desktop.statuses.back(), "");
}

TEST_F(Waiting, TheTagsOfWorkOrdersAreTriedTwentyTimesAndThenTheErrorSurfaces) {
  EXPECT_TRUE(RunFailing(contention::kMomentsPatience, 19));
  EXPECT_EQ(patience.waits, std::vector<std::int64_t>(19, 100));
  EXPECT_THROW(RunFailing(contention::kMomentsPatience, 20), FileError);
  patience.waits.clear();
  EXPECT_THROW(RunFailing(contention::kMomentsPatience, 1, FileErrorNumber::DeviceIo), FileError);
  EXPECT_TRUE(patience.waits.empty()) << "only another copy's hold is waited out";
}

TEST_F(Waiting, TheUsageOfAPartIsTriedThreeTimesASecondApartAndThenTellsAndBeginsAnew) {
  PutParts({{"A", "AXLE"}});
  Read("A");
  std::optional<SharedFile> other = HeldByAnother(kUsageFile);
  desktop.WillAnswer(Answer::Ok);
  desktop.WillAnswer([&](const ui::Box&) {
    other.reset();
    return Answer::Ok;
  });
  UsageHistory history(world, desktop, inventory);
  EXPECT_EQ(history.UpdateUsage({4711, 0, "Doe", "Jane"}, 100, 200, 1), 0);
  ASSERT_EQ(desktop.boxes.size(), 2U);
  for (const ui::Box& box : desktop.boxes) {
    ExpectBox(box, "UpdateUsage Error 70: Permission denied",
              "Inventory Usage file locked by another user.\rClick OK to try again.", ui::Buttons::Ok,
              ui::Icon::Exclamation);
  }
  EXPECT_EQ(patience.Now().MillisecondsSince(*ParseLocalTime("2003-09-30T08:15:00")), 4000)
      << "two waits ahead of each";
  EXPECT_EQ(BytesOf(kUsageFile).size(), UsageRecord::kLength);
}

TEST_F(Waiting, APurchaseOrderThatNamesAPathNamesNoFile) {
  Put("../po.txt", "[Sublets]\r\nVALLEY\r\n");
  PoTag tag;
  tag.Put(potag::Number, 17);
  tag.Put(potag::Status, std::int16_t{1});
  tag.Put(potag::FileName, "../po.txt");
  Put(kOpenOrdersFile, std::string(reinterpret_cast<const char*>(tag.Bytes().data()), tag.Bytes().size()));
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(PurchaseOrders(world, desktop).GetOpenPOSublets().empty());
  ASSERT_EQ(desktop.boxes.size(), 1U);
  EXPECT_EQ(desktop.boxes[0].text, "Purchase Order detail file (../po.txt)\rnot found.  Skipped.");
  std::filesystem::remove(PathOf("../po.txt"));
}

TEST_F(Waiting, TheTagsOfPurchaseOrdersAreTheChoiceOfThePerson) {
  Put(kOpenOrdersFile, Image(PoTag::kLength));
  std::optional<SharedFile> other = HeldByAnother(kOpenOrdersFile);
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  PurchaseOrders orders(world, desktop);
  EXPECT_TRUE(orders.GetOpenPOSublets().empty());
  ASSERT_EQ(desktop.boxes.size(), 2U);
  ExpectBox(
      desktop.boxes[0], "zGetOpenPOSublets Error 70: Permission denied",
      "Purchase Orders tags file TQOPENPO.DAT\rlocked by another user.\rClick RETRY to try again, or CANCEL to skip.",
      ui::Buttons::RetryCancel, ui::Icon::None);
}

}  // namespace
}  // namespace lantos::test
