#include <gmock/gmock.h>

#include "contents/ContentsBench.h"
#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmSubList.h"
#include "contents/extras/frmWOExtra.h"

// frmEstExtras: the screens of sublets and waste, which differ in their table alone.
namespace lantos {
namespace {

using test::ContentsBench;
using testing::ElementsAre;
using testing::IsEmpty;
using ui::Answer;

struct ExtrasBench : ContentsBench {
  void WillEdit(const std::string& caption, const std::string& vendor, const std::string& key = "F10") {
    desktop.WillUse([=](ui::Form& form) {
      EXPECT_EQ(form.Caption(), caption);
      test::Type(dynamic_cast<frmWOExtra&>(form).Vendor, vendor);
      test::Press(form, key);
    });
  }
  // "number:vendor" of what lies in the database.
  std::vector<std::string> Stored(const std::string& table, const std::string& number) {
    std::vector<std::string> rows;
    Recordset stored = database.lantosData.Connection().Run("select * from " + table + " order by " + number, {});
    for (; !stored.Eof(); stored.MoveNext()) rows.push_back(stored.Text(number) + ":" + stored.Text("VendorName"));
    return rows;
  }
  static std::vector<std::string> Rows(const frmEstExtras& form) {
    std::vector<std::string> rows;
    for (const ui::ListRow& row : form.listLines.Rows()) rows.push_back(std::to_string(row.data) + " " + row.text);
    return rows;
  }
};

TEST(frmEstExtras, TheTwoScreensHaveNamesListsAndCaptionsOfTheirOwn) {
  ExtrasBench bench;
  bench.board.customer.Put(customer::Firstname, "Beth");
  bench.board.customer.Put(customer::Lastname, "Adams");
  frmEstExtras sublets(bench.bench, kSubletExtras);
  frmEstExtras waste(bench.bench, kWasteExtras);
  sublets.LoadForm();
  EXPECT_EQ(sublets.Name() + " " + sublets.listLines.Name() + " " + sublets.Caption(),
            "frmEstSublets listSublets Estimate Sublets");
  EXPECT_EQ(waste.Name() + " " + waste.listLines.Name() + " " + waste.Caption(),
            "frmEstWaste listWaste Estimate Waste");
  EXPECT_EQ(sublets.lblEstimateNumber.Caption() + " " + sublets.lblCustName.Caption(), "001001 Beth Adams");
}

TEST(frmEstExtras, ShowsARowForEachTextAndTheNumberAtTheFirst) {
  ExtrasBench bench;
  bench.database.lantosData.AddWaste(1001, 4, {"OIL", "", 100, 350, "", "", "", "", "Yes"});
  bench.database.lantosData.AddWaste(1001, 2, {"GLASS", "A-7", 9000, 12000, "FRONT", "", "LEFT", "", "No"});
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  EXPECT_THAT(ExtrasBench::Rows(form),
              ElementsAre("2 GLASS (A-7) 90.00 120.00", "0 --> FRONT", "0     LEFT", "4 OIL 1.00 3.50"));
  EXPECT_EQ(form.listLines.ListIndex(), 0);
}

TEST(frmEstExtras, EachScreenWritesToItsOwnTable) {
  ExtrasBench bench;
  frmEstExtras waste(bench.bench, kWasteExtras);
  waste.LoadForm();
  waste.Show();
  bench.WillEdit("Estimate Waste", "OIL");
  waste.cmdAdd.DoClick();
  waste.Hide();
  EXPECT_THAT(bench.Stored("Waste", "WasteNumber"), ElementsAre("1:OIL"));
  frmEstExtras sublets(bench.bench, kSubletExtras);
  sublets.LoadForm();
  sublets.Show();
  bench.desktop.WillUse([](ui::Form& list) {
    dynamic_cast<frmSubList&>(list).POSubletList.DoSelect(0);
    test::Press(list, "F10");
  });
  bench.WillEdit("Estimate Sublet", "GLASS");
  test::Press(sublets, "Insert");
  EXPECT_THAT(bench.Stored("Sublets", "SubletNumber"), ElementsAre("1:GLASS"));
  EXPECT_EQ(bench.Stored("Waste", "WasteNumber").size(), 1U);
}

TEST(frmEstExtras, AChangedLineKeepsItsNumberAndARemovedOneGoesWithAllItsRows) {
  ExtrasBench bench;
  bench.database.lantosData.AddSublet(1001, 2, {"GLASS", "", 0, 100, "FRONT", "", "", "", "No"});
  bench.database.lantosData.AddSublet(1001, 3, {"TOWING", "", 0, 100, "", "", "", "", "No"});
  frmEstExtras form(bench.bench, kSubletExtras);
  form.LoadForm();
  form.Show();
  form.listLines.DoSelect(1);
  bench.WillEdit("Change Sublet", "DOOR");
  form.cmdChange.DoClick();
  EXPECT_THAT(bench.Stored("Sublets", "SubletNumber"), ElementsAre("2:DOOR", "3:TOWING"));
  EXPECT_EQ(form.listLines.ListIndex(), 0);
  form.listLines.DoSelect(1);
  bench.desktop.WillAnswer({Answer::No, Answer::Yes});
  test::Press(form, "Delete");
  test::Press(form, "Delete");
  EXPECT_EQ(bench.desktop.boxes.at(1).text, "Remove\r    DOOR 0.00 1.00\rfrom this estimate?");
  EXPECT_THAT(ExtrasBench::Rows(form), ElementsAre("3 TOWING 0.00 1.00"));
  EXPECT_THAT(bench.Stored("Sublets", "SubletNumber"), ElementsAre("3:TOWING"));
}

TEST(frmEstExtras, ALineThatCantBeStoredLeavesTheOldOneAndItsEditor) {
  ExtrasBench bench;
  bench.database.lantosData.AddWaste(1001, 1, {"OIL", "", 0, 100, "", "", "", "", "No"});
  bench.Do("create trigger Refuse before insert on Waste begin select raise(abort, 'no'); end");
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  form.Show();
  bench.desktop.failuresExpected = true;
  bench.desktop.WillUse([&](ui::Form& editor) {
    auto& extra = dynamic_cast<frmWOExtra&>(editor);
    test::Type(extra.Vendor, "COOLANT");
    test::Press(editor, "F10");
    EXPECT_TRUE(editor.Visible());
    EXPECT_EQ(extra.Vendor.Text(), "COOLANT");
    test::Press(editor, "F2");
    EXPECT_EQ(extra.Vendor.Text(), "OIL") << "as it is stored";
    bench.desktop.WillAnswer(Answer::Ok);
    test::Press(editor, "Esc");
  });
  form.cmdChange.DoClick();
  EXPECT_EQ(bench.desktop.boxes.back().text, "The waste \"COOLANT\" was not stored.");
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_THAT(bench.Stored("Waste", "WasteNumber"), ElementsAre("1:OIL"));
  EXPECT_THAT(ExtrasBench::Rows(form), ElementsAre("1 OIL 0.00 1.00"));
}

TEST(frmEstExtras, ANumberThatAnotherWorkstationHasTakenIsPassedOverAndItsLineSeen) {
  ExtrasBench bench;
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  form.Show();
  bench.database.lantosData.AddWaste(1001, 1, {"THEIRS", "", 0, 100, "", "", "", "", "No"});
  bench.WillEdit("Estimate Waste", "OURS");
  form.cmdAdd.DoClick();
  EXPECT_THAT(bench.Stored("Waste", "WasteNumber"), ElementsAre("1:THEIRS", "2:OURS"));
  EXPECT_THAT(ExtrasBench::Rows(form), ElementsAre("1 THEIRS 0.00 1.00", "2 OURS 0.00 0.00"));
  EXPECT_EQ(form.listLines.ListIndex(), 1);
}

TEST(frmEstExtras, ALineThatCantBeRemovedStays) {
  ExtrasBench bench;
  for (const int number : {1, 2})
    bench.database.lantosData.AddSublet(1001, number, {"OIL", "", 0, 100, "", "", "", "", "No"});
  bench.Do("create trigger Refuse before delete on Sublets begin select raise(abort, 'no'); end");
  frmEstExtras form(bench.bench, kSubletExtras);
  form.LoadForm();
  form.Show();
  form.listLines.DoSelect(1);
  bench.desktop.failuresExpected = true;
  bench.desktop.WillAnswer(Answer::Yes);
  form.cmdRemove.DoClick();
  EXPECT_THAT(bench.desktop.failures, ElementsAre(std::string(WordsOf(DatabaseErrorKind::Refused))));
  EXPECT_THAT(ExtrasBench::Rows(form), ElementsAre("1 OIL 0.00 1.00", "2 OIL 0.00 1.00"));
  EXPECT_EQ(form.listLines.ListIndex(), 1);
}

TEST(frmEstExtras, TheSurchargeIsntChangedByHand) {
  ExtrasBench bench;
  bench.database.lantosData.AddSublet(1001, 1, {"SURCHARGE", "", 500, 500, "SUPPLIES", "", "", "", "No"});
  frmEstExtras form(bench.bench, kSubletExtras);
  form.LoadForm();
  form.Show();
  bench.desktop.WillAnswer(Answer::Ok);
  form.cmdChange.DoClick();
  EXPECT_EQ(bench.desktop.boxes.at(0).title, "Can not edit SURCHARGE.");
  EXPECT_THAT(bench.desktop.forms, IsEmpty());
}

TEST(frmEstExtras, ALineThatAnotherWorkstationHasRemovedIsTold) {
  ExtrasBench bench;
  bench.database.lantosData.AddWaste(1001, 1, {"OIL", "", 0, 100, "", "", "", "", "No"});
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  form.Show();
  bench.database.lantosData.DeleteWaste(1001, 1);
  bench.desktop.WillAnswer(Answer::Ok);
  form.cmdChange.DoClick();
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "Waste information not found in database.");
  EXPECT_THAT(ExtrasBench::Rows(form), IsEmpty());
}

TEST(frmEstExtras, ALineThatAnotherWorkstationHasChangedIsSeenAsItIsWhenItIsToBeChanged) {
  ExtrasBench bench;
  bench.database.lantosData.AddWaste(1001, 1, {"OIL", "", 0, 100, "", "", "", "", "No"});
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  form.Show();
  bench.database.lantosData.DeleteWaste(1001, 1);
  bench.database.lantosData.AddWaste(1001, 1, {"GLASS", "", 0, 300, "", "", "", "", "No"});
  bench.desktop.WillUse([&](ui::Form& editor) {
    EXPECT_EQ(dynamic_cast<frmWOExtra&>(editor).Vendor.Text(), "GLASS");
    EXPECT_THAT(ExtrasBench::Rows(form), ElementsAre("1 GLASS 0.00 3.00"));
    test::Press(editor, "Esc");
  });
  form.cmdChange.DoClick();
}

TEST(frmEstExtras, ALineToWorkOnMustBeSelected) {
  ExtrasBench bench;
  frmEstExtras form(bench.bench, kWasteExtras);
  form.LoadForm();
  form.Show();
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  form.cmdChange.DoClick();
  form.cmdRemove.DoClick();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Must select a Waste to change.");
  EXPECT_EQ(bench.desktop.boxes[1].text, "You must select a Waste in order to remove it.");
}

TEST(frmEstExtras, TheTotalsFollowWhenTheScreenIsLeft) {
  ExtrasBench bench;
  bench.desktop.WillUse([](ui::Form& form) { test::Press(form, "Esc"); });
  EstimateWaste(bench.bench);
  EXPECT_EQ(bench.board.totalRefreshes, 1);
}

TEST(frmWOExtra, AnAmountThatIsNoNumberIsToldOnceAndCountsByWhatItBeginsWith) {
  ExtrasBench bench;
  frmWOExtra form(bench.shop, "Estimate Sublet", {}, "No");
  form.Show();
  test::Type(form.Price, "12.5x");
  bench.desktop.WillAnswer(Answer::Ok);
  test::Press(form, "F10");
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "Price: \"12.5x\" is not a number. 12.50 stands in its place.");
  EXPECT_EQ(form.Focus(), &form.Price);
  test::Press(form, "F10");
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(form.CurrentExtra.Price, 1250);
}

}  // namespace
}  // namespace lantos
