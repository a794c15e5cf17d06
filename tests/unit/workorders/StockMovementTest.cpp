// Parts that leave the stock for a work order.
#include "workorders/StockMovement.h"

#include "records/InventoryFixture.h"
#include "records/inventory/Inventory.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kOpened = 731868;  // 2003-09-30 as the files have it

class StockMovementTest : public ShopTest {
 protected:
  StockMovementTest() {
    environment.log.Open();
    order.WorkorderNumber = 5001;
    order.Totals.Put(wototals::DateOpen, kOpened);
    order.Customer.Put(customer::Lastname, "Adams");
    order.Customer.Put(customer::Firstname, "Beth");
  }

  // The files of the parts, and the list as it stands after loading.
  void PutParts(const std::vector<PartImage>& parts) {
    Image tags, masters;
    for (const PartImage& part : parts) {
      tags.Append(TagImage(part, static_cast<std::int32_t>(std::string(masters).size())));
      masters.Append(MasterImage(part));
    }
    Put(kInventoryTagFile, tags);
    Put(kInventoryFile, masters);
    inventory.SizeArrays();
    for (const PartImage& part : parts) {
      InventoryTag tag;
      tag.Put(inventorytag::StockNumber, part.number);
      tag.Put(inventorytag::InStock, part.inStock);
      inventory.AppendTag(tag);
    }
  }
  std::optional<std::int16_t> TakeOut(const std::string& number, std::int16_t quantity, Cents cost = 250,
                                      Cents price = 433) {
    StockMovement stock(environment, desktop, records, [this](std::string step) { steps.push_back(std::move(step)); });
    return stock.TakeOut({number, quantity, cost, price}, order);
  }
  std::int32_t StockInTag(std::size_t part) const { return BytesOf(kInventoryTagFile).at(kTagBytes * part + 76); }
  std::int32_t StockInMaster(std::size_t part) const { return BytesOf(kInventoryFile).at(kMasterBytes * part + 331); }
  FileLink UsageLink(std::size_t part) const { return LongAt(BytesOf(kInventoryFile), kMasterBytes * part + 336); }
  std::vector<std::string> Files() const {
    return {BytesOf(kInventoryTagFile), BytesOf(kInventoryFile), BytesOf(kUsageFile)};
  }

  Inventory& inventory = records.inventory;
  Workorder order;
  std::vector<std::string> steps;
};

TEST_F(StockMovementTest, LowersTheStockInTagMasterAndList) {
  PutParts({{.number = "PAD-9", .inStock = 6}, {.number = "OIL-1", .inStock = 40}});
  EXPECT_EQ(TakeOut("OIL-1", 5), 35);
  EXPECT_EQ(StockInTag(1), 35);
  EXPECT_EQ(StockInMaster(1), 35);
  EXPECT_EQ(inventory.PartInStock("OIL-1"), 35);
  EXPECT_EQ(StockInTag(0), 6) << "the other part";
  EXPECT_THAT(steps, ElementsAre("the usage of OIL-1 was noted", "the stock of OIL-1 is now 35"));
}

TEST_F(StockMovementTest, MoreThanThereIsLeavesLessThanNothingAndAReturnAddsToIt) {
  PutParts({{.number = "PAD-9", .inStock = 1}});
  EXPECT_EQ(TakeOut("PAD-9", 3), -2);
  EXPECT_EQ(TakeOut("PAD-9", -4), 2);
  EXPECT_EQ(StockInTag(0), 2);
}

// One walk from the end of the tag file notes them all, those of parts on the way too, and no later search is needed.
TEST_F(StockMovementTest, ForeseenPartsAreFoundInOneWalk) {
  PutParts({{.number = "AIR-3", .inStock = 2}, {.number = "PAD-9", .inStock = 6}, {.number = "OIL-1", .inStock = 40}});
  StockMovement stock(environment, desktop, records, [](const std::string&) {});
  stock.Foresee({"OIL-1", "PAD-9", "NONE-5", "OIL-1"});
  EXPECT_EQ(inventory.Location(inventory.FindPart("OIL-1")), kTagBytes * 2);
  EXPECT_EQ(inventory.Location(inventory.FindPart("PAD-9")), kTagBytes);
  EXPECT_EQ(inventory.Location(inventory.FindPart("AIR-3")), kNoLink) << "the walk ends at the last one wanted";
  EXPECT_EQ(stock.TakeOut({"PAD-9", 1, 250, 433}, order), 5);
  EXPECT_EQ(StockInTag(1), 5);
}

TEST_F(StockMovementTest, AHeldTagFileLeavesForeseenPartsToTheirOwnSearchWithoutAWord) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  StockMovement stock(environment, desktop, records, [](const std::string&) {});
  {
    const SharedFile held(environment.files.PathOf(kInventoryTagFile), Access::ReadWrite, Deny::All, Absent::Fail);
    stock.Foresee({"PAD-9"});
  }
  EXPECT_EQ(inventory.Location(inventory.FindPart("PAD-9")), kNoLink);
  EXPECT_TRUE(desktop.boxes.empty());
  EXPECT_EQ(stock.TakeOut({"PAD-9", 1, 250, 433}, order), 5);
}

TEST_F(StockMovementTest, NotesTheUseCostAndPriceCrosswise) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  TakeOut("PAD-9", 2);
  EXPECT_EQ(BytesOf(kUsageFile), std::string(Image(76)
                                                 .Text(0, "PAD-9")
                                                 .Long(21, 5001)
                                                 .Long(25, kOpened)
                                                 .Text(29, "Adams,Beth")
                                                 .Integer(61, 2)
                                                 .Long(63, 250)
                                                 .Long(67, 433)
                                                 .Long(71, kNoLink)));
  EXPECT_EQ(UsageLink(0), 0);
}

TEST_F(StockMovementTest, ChainsEachPartsUsesFromItsMaster) {
  PutParts({{.number = "PAD-9", .inStock = 6}, {.number = "OIL-1", .inStock = 40}});
  TakeOut("PAD-9", 1);
  TakeOut("OIL-1", 1);
  TakeOut("PAD-9", 1);
  EXPECT_EQ(UsageLink(0), 152);
  EXPECT_EQ(UsageLink(1), 76);
  EXPECT_EQ(LongAt(BytesOf(kUsageFile), 152 + 71), 0) << "the use before it";
}

TEST_F(StockMovementTest, APartThatIsNotInTheInventoryMovesNothing) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  const auto before = Files();
  EXPECT_EQ(TakeOut("GONE-7", 2), std::nullopt);
  EXPECT_EQ(TakeOut("", 2), std::nullopt);
  EXPECT_EQ(Files(), before);
  EXPECT_THAT(steps, IsEmpty());
}

TEST_F(StockMovementTest, APartThatCannotBeReadMovesNothingAndTheLogSaysSo) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  Put(kInventoryTagFile, TagImage({.number = "PAD-8"}, 0));
  const auto before = Files();
  desktop.WillAnswer(ui::Answer::Cancel);
  EXPECT_EQ(TakeOut("PAD-9", 2), std::nullopt);
  EXPECT_EQ(Files(), before);
  EXPECT_THAT(Log(), testing::HasSubstr("Convert: the stock of PAD-9 could not be read and was not moved\n"));
}

TEST_F(StockMovementTest, ARecordOfAnotherNumberIsWarnedOfAndMovedAllTheSame) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  EXPECT_EQ(TakeOut("PAD-9", 1), 5);  // from here on the tag's place is known
  Put(kInventoryTagFile, TagImage({.number = "PAD-8", .inStock = 9}, 0));
  Put(kInventoryFile, MasterImage({.number = "PAD-7", .inStock = 9}));
  desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok});
  EXPECT_EQ(TakeOut("PAD-9", 2), 7);
  ASSERT_EQ(desktop.boxes.size(), 2u);
  ExpectBox(desktop.boxes[0], "Convert - Update Inventory",
            "Warning! Inventory tag file problem.\rLooking for 'PAD-9'\rFound 'PAD-8'", ui::Buttons::Ok,
            ui::Icon::None);
  ExpectBox(desktop.boxes[1], "Convert - Update Inventory",
            "Warning! Inventory master file problem.\rLooking for 'PAD-9'\rFound 'PAD-7'", ui::Buttons::Ok,
            ui::Icon::None);
  EXPECT_EQ(StockInMaster(0), 7) << "by the tag's stock";
}

TEST_F(StockMovementTest, AStockBeyond16BitsIsAnErrorAndNothingMoves) {
  PutParts({{.number = "PAD-9", .inStock = -100}});
  const auto before = Files();
  EXPECT_THROW(TakeOut("PAD-9", 32767), std::overflow_error);
  EXPECT_EQ(Files(), before);
  EXPECT_THAT(steps, IsEmpty());
}

TEST_F(StockMovementTest, HeldHistoryIsAskedForAheadOfTheStock) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  SharedFile held = HeldByAnother(kUsageFile);
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, "Inventory Usage file locked by another user.\rClick OK to try again.");
    EXPECT_EQ(StockInTag(0), 6);
    EXPECT_THAT(steps, IsEmpty());
    held.Close();
    return ui::Answer::Ok;
  });
  EXPECT_EQ(TakeOut("PAD-9", 2), 4);
}

TEST_F(StockMovementTest, TheListIsLoadedToItsEndFirst) {
  PutParts({{.number = "PAD-9", .inStock = 6}});
  const InventoryTag tag = inventory.Tag(0);
  inventory.SizeArrays();
  int asked = 0;
  inventory.onFinishLoading = [&] {
    ++asked;
    inventory.AppendTag(tag);
  };
  EXPECT_EQ(TakeOut("PAD-9", 2), 4);
  EXPECT_EQ(asked, 1);
}

TEST_F(StockMovementTest, WhoeverShowsThePartHearsOfItOnceItIsWritten) {
  PutParts({{.number = "OIL-1", .inStock = 40}, {.number = "PAD-9", .inStock = 6}});
  std::vector<Inventory::PartIndex> heard;
  inventory.onPartChanged = [&](FileLink offset, Inventory::PartIndex index) {
    heard.push_back(index);
    EXPECT_EQ(offset, kMasterBytes);
    EXPECT_EQ(StockInMaster(1), 4);
    EXPECT_EQ(inventory.PartInStock("PAD-9"), 4);
    EXPECT_EQ(steps.size(), 1u) << "the stock is told of behind it";
  };
  inventory.onNewPart = [](FileLink, Inventory::PartIndex) { ADD_FAILURE() << "no part is new"; };
  TakeOut("PAD-9", 2);
  EXPECT_THAT(heard, ElementsAre(1));
}

TEST_F(StockMovementTest, TheUseOfAWorkOrderIsByItsNumberItsDayAndItsCustomer) {
  const UsageHistory::Use use = StockMovement::UseIn(order);
  EXPECT_EQ(use.workorderNumber, 5001);
  EXPECT_EQ(use.date, kOpened);
  EXPECT_EQ(use.customerLastname, "Adams");
  EXPECT_EQ(use.customerFirstname, "Beth");
}

}  // namespace
}  // namespace lantos::test
