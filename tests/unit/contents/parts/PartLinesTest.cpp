#include "contents/parts/PartLines.h"

#include <gmock/gmock.h>

#include <map>
#include <random>

#include "contents/parts/PartsBench.h"
#include "frame/PlainWords.h"
#include "records/modSystem.h"

namespace lantos {
namespace {

using test::Line;
using test::PartsBench;
using ui::Answer;

std::int64_t SumOfRows(const ui::ListBox& list) {
  std::int64_t sum = 0;
  for (const ui::ListRow& row : list.Rows()) {
    sum += RoundHalfEven(Val(row.text.substr(row.text.rfind(' ') + 1)) * 100);
  }
  return sum;
}

TEST(PartLines, ASecondEntryOfANumberIsMergedInEitherCase) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("abc", 2, 100), PartLines::Choosing::ItsRow);
  bench.contents.parts.AddPartLine(Line(" ABC ", 3, 150), PartLines::Choosing::ItsRow);
  EXPECT_EQ(bench.board.listParts.ListCount(), 1);
  EXPECT_EQ(bench.Stored(), "750");
  EXPECT_EQ(bench.Ask("select Quantity from Parts"), "5");
}

TEST(PartLines, AnApostropheBreaksTheSearchAndLeavesEverythingAsItWas) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("A-1", 1, 100), PartLines::Choosing::ItsRow);
  try {
    bench.contents.parts.AddPartLine(Line("O'RING", 1, 100), PartLines::Choosing::ItsRow);
    ADD_FAILURE() << "not refused";
  } catch (const WordedError& error) {
    EXPECT_EQ(error.Words(), "The part number \"O'RING\" can't be stored: a part number must not hold an apostrophe.");
  }
  EXPECT_EQ(bench.Stored(), "100");
  EXPECT_EQ(bench.board.listParts.ListCount(), 1);
}

TEST(PartLines, AChangeThatCantBeStoredLosesNothing) {
  PartsBench bench;
  bench.database.lantosData.AddPartRow(1001, {"O'RING", "RING", 4, 25, 100, 10, 30});
  bench.contents.parts.LoadPartList();
  bench.board.listParts.SelectRow(0);
  bench.desktop.failuresExpected = true;
  bench.desktop.WillUse([&](ui::Form& form) {
    test::Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    bench.desktop.WillAnswer(Answer::Ok);
    test::Press(form, "Esc");
  });
  bench.contents.parts.Change();
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(bench.desktop.boxes.back().text, "The part \"O'RING\" was not stored.");
  EXPECT_EQ(bench.Stored(), "100");
}

TEST(PartLines, OfSeveralPartsAllAreRemovedOrNone) {
  PartsBench bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::parts_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  for (const char* number : {"A-1", "B-2"}) {
    bench.contents.parts.AddPartLine(Line(number, 1, 1000), PartLines::Choosing::NoRow);
  }
  bench.Do(
      "create trigger Refuse before delete on Parts when old.PartNumber = 'A-1' begin select raise(abort, 'no'); end");
  bench.board.listParts.DoSelectRows({0, 1});
  bench.desktop.WillAnswer(Answer::Yes);
  EXPECT_THROW(bench.contents.parts.Remove(), DatabaseError);
  EXPECT_EQ(bench.board.listParts.ListCount(), 2);
  EXPECT_EQ(bench.Stored(), "2000");
  EXPECT_EQ(bench.Ask("select Price from Waste"), "200");
}

TEST(PartLines, APartThatCantBeChangedStaysAsItIsAndOnItsScreen) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("A-1", 1, 1000), PartLines::Choosing::ItsRow);
  bench.Do("create trigger Refuse before insert on Parts begin select raise(abort, 'no'); end");
  const auto before = bench.board.listParts.List(0);
  bench.desktop.failuresExpected = true;
  bench.desktop.WillUse([&](ui::Form& form) {
    test::Type(dynamic_cast<frmWOPart&>(form).QuantityUsed, "3");
    test::Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(bench.board.listParts.List(0), before);
    bench.Do("drop trigger Refuse");
    test::Press(form, "F10");
  });
  bench.contents.parts.Change();
  EXPECT_EQ(bench.Stored(), "3000");
  EXPECT_EQ(bench.contents.lines.parts.size(), 1U);
}

TEST(PartLines, AnySequenceOfAddingChangingAndRemovingLeavesTheRowsEqualToTheDatabase) {
  PartsBench bench;
  std::mt19937 random(77);
  std::map<std::string, std::pair<std::int32_t, Cents>> expected;
  for (int round = 0; round < 300; ++round) {
    const std::string number = "P-" + std::to_string(random() % 8);
    const auto quantity = static_cast<std::int32_t>(random() % 9) - 2;
    const auto price = static_cast<Cents>(random() % 5000);
    if (random() % 3 != 0 || expected.empty()) {
      bench.contents.parts.AddPartLine(Line(number, quantity, price),
                                       random() % 2 == 0 ? PartLines::Choosing::ItsRow : PartLines::Choosing::NoRow);
      expected[number] = {expected[number].first + quantity, price};
    } else {
      const int row = static_cast<int>(random() % expected.size());
      const std::string gone = Trim(Left(bench.board.listParts.List(row), 21));
      bench.contents.parts.RemovePartLine(row);
      expected.erase(gone);
    }
    std::int64_t sum = 0;
    for (const auto& [part, line] : expected) sum += static_cast<std::int64_t>(line.first) * line.second;
    ASSERT_EQ(SumOfRows(bench.board.listParts), sum);
    ASSERT_EQ(bench.Ask("select total(PartTotal) from Parts"), std::to_string(sum));
  }
}

TEST(PartLines, TheRowHasItsFixedColumnsAndTheCostAsItemData) {
  PartsBench bench;
  bench.database.lantosData.AddPartRow(1001, {"A-1", "A TEXT OF MORE THAN TWENTY LETTERS", 3, 125, 375, 80, 150});
  bench.contents.parts.LoadPartList();
  EXPECT_EQ(bench.board.listParts.List(0), "A-1                   A TEXT OF MORE THAN      3    1.25    3.75");
  EXPECT_EQ(bench.board.listParts.ItemData(0), 80);
  EXPECT_EQ(bench.contents.lines.parts.at(0).list, 150);
}

TEST(PartLines, AnAddedPartIsSelectedWhereThatIsWanted) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("A-1", 1, 100), PartLines::Choosing::ItsRow);
  bench.contents.parts.AddPartLine(Line("B-2", 1, 100), PartLines::Choosing::ItsRow);
  EXPECT_TRUE(bench.board.listParts.Selected(1));
  EXPECT_FALSE(bench.board.listParts.Selected(0));
  bench.contents.parts.AddPartLine(Line("A-1", 1, 100), PartLines::Choosing::NoRow);
  EXPECT_FALSE(bench.board.listParts.Selected(0) || bench.board.listParts.Selected(1));
}

TEST(PartLines, AClearedListCountsForNothingAndComesBackWithTheNextPart) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("A-1", 1, 100), PartLines::Choosing::ItsRow);
  bench.contents.parts.ClearPartList();
  EXPECT_EQ(bench.board.listParts.ListCount(), 0);
  EXPECT_TRUE(bench.contents.lines.parts.empty());
  EXPECT_EQ(bench.Stored(), "100");
  bench.contents.parts.AddPartLine(Line("B-2", 1, 50), PartLines::Choosing::ItsRow);
  EXPECT_EQ(bench.board.listParts.ListCount(), 2);
  EXPECT_EQ(bench.contents.lines.parts.size(), 2U);
}

TEST(PartLines, AClearedListIsLeftOutOfTheSurchargeUntilItIsSeenAgain) {
  PartsBench bench;
  bench.records.system.SysRec.Put(sysrec::parts_surcharge_percent, 100000);
  bench.records.system.SysRec.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  const auto surcharge = [&] { return bench.Ask("select Price from Waste where VendorName = 'SURCHARGE'"); };
  bench.contents.parts.AddPartLine(Line("A-1", 1, 1000), PartLines::Choosing::ItsRow);
  bench.contents.parts.ClearPartList();
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(surcharge(), "0");
  bench.database.lantosData.AddPartRow(1001, {"THEIRS", "PART", 1, 400, 400, 0, 0});
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(surcharge(), "40");
  bench.contents.parts.AddPartLine(Line("B-2", 1, 500), PartLines::Choosing::ItsRow);
  EXPECT_EQ(surcharge(), "190");
}

TEST(PartLines, OfSeveralPartsNoneIsRemovedWhereOneIsAnotherByThen) {
  PartsBench bench;
  for (const char* number : {"A-1", "B-2"}) {
    bench.contents.parts.AddPartLine(Line(number, 1, 1000), PartLines::Choosing::NoRow);
  }
  bench.database.lantosData.DeletePart(1001, "A-1");
  bench.board.listParts.DoSelectRows({0, 1});
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  bench.contents.parts.Remove();
  EXPECT_THAT(bench.desktop.boxes.back().text, testing::StartsWith("The parts \"A-1\" \"B-2\" were not removed:"));
  EXPECT_EQ(bench.board.listParts.ListCount(), 1);
  EXPECT_EQ(bench.Stored(), "1000");
}

TEST(PartLines, ANonStockedPartIsStoredInCapitalsWithTheSurchargeAndTheTotalsBehindIt) {
  PartsBench bench;
  bench.records.system.SysRec.Put(sysrec::parts_surcharge_percent, 100000);
  bench.records.system.SysRec.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Caption(), "Add Non-Stocked Part");
    auto& part = dynamic_cast<frmWOPart&>(form);
    test::Type(part.PartNumber, "hose-7");
    test::Type(part.Description, "hose");
    test::Type(part.QuantityUsed, "2");
    test::Type(part.CostPrice, "3");
    test::Type(part.SalePrice, "5");
    test::Type(part.ListPrice, "6");
    test::Press(form, "F10");
  });
  bench.contents.parts.AddNonStock();
  EXPECT_EQ(bench.Ask("select PartNumber || PartDesc || Quantity || ' ' || PartTotal from Parts"), "HOSE-7HOSE2 1000");
  EXPECT_EQ(bench.Ask("select Price from Waste where VendorName = 'SURCHARGE'"), "100");
  EXPECT_EQ(bench.board.totalRefreshes, 1);
}

TEST(PartLines, AChangedPartHasItsQuantityReplaced) {
  PartsBench bench;
  bench.contents.parts.AddPartLine(Line("A-1", 5, 100), PartLines::Choosing::ItsRow);
  bench.desktop.WillUse([](ui::Form& form) {
    EXPECT_EQ(form.Caption(), "Change Part for Estimate");
    test::Type(dynamic_cast<frmWOPart&>(form).QuantityUsed, "2");
    test::Press(form, "F10");
  });
  bench.contents.parts.Change();
  EXPECT_EQ(bench.Ask("select Quantity || ' ' || PartTotal from Parts"), "2 200");
  EXPECT_TRUE(bench.board.listParts.Selected(0));
}

TEST(PartLines, SeveralPartsAreRemovedAtOnceAndChangedOneByOne) {
  PartsBench bench;
  for (const char* number : {"A-1", "B-2", "C-3"}) {
    bench.contents.parts.AddPartLine(Line(number, 1, 100), PartLines::Choosing::NoRow);
  }
  bench.board.listParts.DoSelectRows({0, 2});
  bench.desktop.WillAnswer({Answer::Ok, Answer::No, Answer::Yes});
  bench.contents.parts.Change();
  EXPECT_EQ(bench.desktop.boxes[0].text, "You must select a single part to change.");
  bench.contents.parts.Remove();
  EXPECT_EQ(bench.board.listParts.ListCount(), 3);
  bench.contents.parts.Remove();
  EXPECT_EQ(bench.Ask("select group_concat(PartNumber) from Parts"), "B-2");
  EXPECT_EQ(bench.contents.lines.parts.at(0).partNumber, "B-2");
  EXPECT_EQ(bench.board.totalRefreshes, 4) << "behind each of the three, and once behind the removal";
}

TEST(PartLines, ChangeAndRemoveNeedASelection) {
  PartsBench bench;
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  bench.contents.parts.Change();
  bench.contents.parts.Remove();
  EXPECT_EQ(bench.desktop.boxes[0].text, "You must select a part in order to change it.");
  EXPECT_EQ(bench.desktop.boxes[1].text, "You must select a part in order to remove it.");
}

TEST(PartLines, AQuantityTimesAPriceThatNoRowHoldsStoresNothing) {
  PartsBench bench;
  EXPECT_THROW(bench.contents.parts.AddPartLine(Line("A-1", 30000, 30000000), PartLines::Choosing::ItsRow),
               std::overflow_error);
  EXPECT_EQ(bench.Ask("select count(*) from Parts"), "0");
}

TEST(PartLines, AKitWithAPriceStandsForItsPartsWhichShowAtNoCharge) {
  PartsBench bench;
  bench.Stock("OIL", 5);
  InventoryKitRecord kit;
  kit.Put(inventorykit::KitNumber, "KIT-A");
  kit.Put(inventorykit::Line(0), "OIL(3)");
  bench.records.kits.SaveKit(kit);
  bench.inventory.CurrentInv.Put(inventory::StockNumber, "KIT-A");
  bench.inventory.CurrentInv.Put(inventory::Description, "KIT");
  bench.inventory.CurrentInv.Put(inventory::Location, "KIT:(12.50,14.00)");
  bench.desktop.WillUse([](ui::Form& form) {
    test::Type(dynamic_cast<frmWOKit&>(form).QuantityUsed, "2");
    test::Press(form, "F10");
  });
  bench.contents.parts.AddKitLines();
  EXPECT_EQ(bench.Ask("select Quantity || ' ' || PartTotal from Parts where PartNumber = 'KIT-A'"), "2 2500");
  EXPECT_EQ(bench.Ask("select Quantity || ' ' || PartTotal from Parts where PartNumber = 'OIL'"), "6 0");
  EXPECT_EQ(bench.board.totalRefreshes, 1);
}

}  // namespace
}  // namespace lantos
