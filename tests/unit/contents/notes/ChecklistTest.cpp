#include <gmock/gmock.h>

#include "contents/ContentsBench.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmWOChklst.h"
#include "records/CheckList.h"

namespace lantos {
namespace {

using test::ContentsBench;
using testing::ElementsAre;
using Texts = std::vector<std::string>;

constexpr const char* kFile =
    "Before all\r\n[Engine]\r\nOil, check the stick\r\n  Belts\r\n\r\n[Brakes]\r\nPads\r\nDiscs\r\n[Empty]\r\n";

struct ChecklistBench : ContentsBench {
  ChecklistBench() {
    directory.Put("CHECKLST.TXT", kFile);
    records.checkList.LoadChecklistFile();
  }
  void Store(const std::string& data) { database.lantosData.AddChecklistRow(1001, data); }
  Texts Stored() {
    Texts rows;
    Recordset& stored = database.lantosData.ChecklistForEstimate(1001);
    for (; !stored.Eof(); stored.MoveNext()) rows.push_back(stored.Text("ChecklistData"));
    stored.Close();
    return rows;
  }
  // What is ticked, with its values.
  Texts Used() const {
    Texts used;
    for (const ChecklistItem& item : records.checkList.items) {
      if (item.Used) used.push_back(item.Name + "|" + item.Service + "|" + item.DueBackMiles);
    }
    return used;
  }
  void Use(const std::function<void(frmWOChklst&)>& person) {
    desktop.WillUse([person](ui::Form& form) { person(dynamic_cast<frmWOChklst&>(form)); });
    EstimateChecklist(bench);
  }
};

Texts Rows(const ui::ListBox& list) {
  Texts rows;
  for (const ui::ListRow& row : list.Rows()) rows.push_back((row.checked ? "x " : "  ") + row.text);
  return rows;
}

TEST(EstimateChecklist, AnEstimateWithoutTicksHasNoRowsAndNothingIsLoaded) {
  ChecklistBench bench;
  LoadEstimateChecklist(bench.bench);
  EXPECT_FALSE(bench.records.checkList.ChecklistLoaded);
  bench.Use([](frmWOChklst& form) { test::Press(form, "F10"); });
  EXPECT_FALSE(bench.records.checkList.ChecklistLoaded);
  EXPECT_TRUE(bench.Stored().empty());
}

TEST(EstimateChecklist, TheStoredRowsTickTheTableAndBringTheirValues) {
  ChecklistBench bench;
  bench.Store("[Engine], , ");
  bench.Store("Oil,Leaks,3000");
  bench.Store("Belts, , ");
  LoadEstimateChecklist(bench.bench);
  EXPECT_TRUE(bench.records.checkList.ChecklistLoaded);
  EXPECT_THAT(bench.Used(), ElementsAre("[Engine]||", "Oil|Leaks|3000", "Belts||"));
}

TEST(EstimateChecklist, ARowOfAnItemThatIsNoLongerThereIsToldOnceALoadAndLostAtTheNextSave) {
  ChecklistBench bench;
  bench.Store("[Engine], , ");
  bench.Store("Horn,Weak, ");
  bench.desktop.WillAnswer(ui::Answer::Ok);
  bench.Use([](frmWOChklst& form) { test::Press(form, "F10"); });
  ASSERT_EQ(bench.desktop.boxes.size(), 1U);
  EXPECT_EQ(bench.desktop.boxes[0].text, "Couldn't locate Horn in checklist.  Item skipped.");
  EXPECT_EQ(bench.desktop.boxes[0].title, "LoadCheckListValues");
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , "));
}

TEST(EstimateChecklist, ServiceTextWithACommaSplitsWronglyOnTheWayBack) {
  ChecklistBench bench;
  bench.Use([](frmWOChklst& form) {
    form.List1.DoCheck(0, true);
    form.List2.DoCheck(0, true);
    test::Type(form.Service, "Leaks, badly");
    test::Type(form.DueBackMiles, "3000");
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Oil,Leaks, badly,3000"));
  LoadEstimateChecklist(bench.bench);
  EXPECT_THAT(bench.Used(), ElementsAre("[Engine]||", "Oil|Leaks|badly"));
}

TEST(EstimateChecklist, EachSaveReplacesTheWholeSet) {
  ChecklistBench bench;
  bench.Store("[Engine], , ");
  bench.Store("Oil,Leaks,3000");
  bench.Use([](frmWOChklst& form) {
    form.List1.DoCheck(0, false);
    form.List1.DoCheck(1, true);
    form.List2.DoCheck(1, true);
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Brakes], , ", "Discs, , "));
  EXPECT_TRUE(bench.records.checkList.ChecklistLoaded);
}

TEST(EstimateChecklist, CancelPutsTheTableBackAndWritesNothing) {
  ChecklistBench bench;
  bench.Store("[Engine], , ");
  bench.Store("Oil,Leaks,3000");
  bench.Use([](frmWOChklst& form) {
    form.List1.DoCheck(0, false);
    form.cmdSelect1.DoClick();
    test::Press(form, "Esc");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Engine], , ", "Oil,Leaks,3000"));
  EXPECT_THAT(bench.Used(), ElementsAre("[Engine]||", "Oil|Leaks|3000"));
  EXPECT_TRUE(bench.records.checkList.ChecklistLoaded);
}

// A work order takes what the table has.
TEST(EstimateChecklist, ASaveThatFailsStaysOnTheScreenUntilItIsGivenUp) {
  ChecklistBench bench;
  bench.Do("create trigger Refuse before insert on Checklist begin select raise(abort, 'no'); end");
  bench.desktop.failuresExpected = true;
  const auto before = bench.Used();
  bench.Use([&](frmWOChklst& form) {
    form.List1.DoCheck(1, true);
    form.List2.DoCheck(1, true);
    test::Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(form.List2.Checked(1));
    bench.desktop.WillAnswer(ui::Answer::Ok);
    test::Press(form, "Esc");
  });
  EXPECT_EQ(bench.desktop.boxes.back().text, "The checklist was not stored.");
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_TRUE(bench.Stored().empty());
  EXPECT_EQ(bench.Used(), before);
  EXPECT_FALSE(bench.records.checkList.ChecklistLoaded);
}

TEST(EstimateChecklist, ASaveThatSucceedsAtTheNextTryIsStoredWhole) {
  ChecklistBench bench;
  bench.Do("create trigger Refuse before insert on Checklist begin select raise(abort, 'no'); end");
  bench.desktop.failuresExpected = true;
  bench.Use([&](frmWOChklst& form) {
    form.List1.DoCheck(1, true);
    test::Press(form, "F10");
    bench.Do("drop trigger Refuse");
    test::Press(form, "F10");
  });
  EXPECT_THAT(bench.Stored(), ElementsAre("[Brakes], , "));
  EXPECT_TRUE(bench.records.checkList.ChecklistLoaded);
}

TEST(frmWOChklst, ShowsCategoriesWithoutBracketsAndTheItemsOfTheOneSelected) {
  ChecklistBench bench;
  frmWOChklst form(bench.shop);
  form.LoadForm();
  EXPECT_EQ(form.Caption(), "Estimate Checklist");
  EXPECT_THAT(Rows(form.List1), ElementsAre("  Engine", "  Brakes", "  Empty"));
  EXPECT_EQ(form.List1.ItemData(1), 4);
  EXPECT_THAT(Rows(form.List2), ElementsAre("  Oil", "  Belts"));
  form.List1.DoSelect(1);
  EXPECT_THAT(Rows(form.List2), ElementsAre("  Pads", "  Discs"));
  form.List1.DoSelect(2);
  EXPECT_TRUE(Rows(form.List2).empty());
}

TEST(frmWOChklst, AnItemAheadOfTheFirstCategoryIsShownNowhere) {
  ChecklistBench bench;
  EXPECT_EQ(bench.records.checkList.items[0].Name, "Before all");
  frmWOChklst form(bench.shop);
  form.LoadForm();
  for (int row = 0; row < form.List1.ListCount(); ++row) {
    form.List1.DoSelect(row);
    EXPECT_EQ(form.List2.FindText("Before all"), -1);
  }
}

TEST(frmWOChklst, UntickingACategoryUnticksItsItems) {
  ChecklistBench bench;
  frmWOChklst form(bench.shop);
  form.LoadForm();
  form.List1.DoCheck(0, true);
  form.cmdSelect2.DoClick();
  EXPECT_THAT(Rows(form.List2), ElementsAre("x Oil", "x Belts"));
  form.List1.DoCheck(0, false);
  EXPECT_THAT(Rows(form.List2), ElementsAre("  Oil", "  Belts"));
  EXPECT_TRUE(bench.Used().empty());
}

TEST(frmWOChklst, AllCategoriesAndAllItemsAtOnce) {
  ChecklistBench bench;
  frmWOChklst form(bench.shop);
  form.LoadForm();
  form.cmdSelect1.DoClick();
  EXPECT_THAT(bench.Used(), ElementsAre("[Engine]||", "[Brakes]||", "[Empty]||"));
  form.cmdSelect2.DoClick();
  EXPECT_THAT(bench.Used(), ElementsAre("[Engine]||", "Oil||", "Belts||", "[Brakes]||", "[Empty]||"));
  form.cmdClear2.DoClick();
  EXPECT_THAT(bench.Used(), ElementsAre("[Engine]||", "[Brakes]||", "[Empty]||"));
  form.List2.DoCheck(1, true);
  form.List1.DoSelect(1);
  form.cmdClear1.DoClick();
  EXPECT_TRUE(bench.Used().empty()) << "items of a category that isn't on show count too";
}

TEST(frmWOChklst, TheValuesAreThoseOfTheSelectedItemAndGoIntoTheTableAtOnce) {
  ChecklistBench bench;
  frmWOChklst form(bench.shop);
  form.LoadForm();
  EXPECT_FALSE(form.Service.Enabled());
  form.List1.DoCheck(0, true);
  form.List2.DoSelect(1);
  EXPECT_TRUE(form.Service.Enabled());
  test::Type(form.Service, "Cracked");
  test::Type(form.DueBackMiles, "500");
  EXPECT_EQ(bench.records.checkList.items[3].Service, "Cracked");
  EXPECT_EQ(bench.records.checkList.items[3].DueBackMiles, "500");
  form.List2.DoSelect(0);
  EXPECT_EQ(form.Service.Text(), "");
  form.List2.DoSelect(1);
  EXPECT_EQ(form.Service.Text(), "Cracked");
  EXPECT_EQ(form.DueBackMiles.Text(), "500");
}

TEST(frmWOChklst, WithoutAFileBothListsAreEmptyAndNothingIsSaid) {
  ContentsBench bench;
  bench.records.checkList.LoadChecklistFile();
  frmWOChklst form(bench.shop);
  form.LoadForm();
  EXPECT_EQ(form.List1.ListCount(), 0);
  EXPECT_EQ(form.List2.ListCount(), 0);
  EXPECT_TRUE(bench.desktop.boxes.empty());
}

}  // namespace
}  // namespace lantos
