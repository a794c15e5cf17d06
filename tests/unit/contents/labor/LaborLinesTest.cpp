#include "contents/labor/LaborLines.h"

#include <gmock/gmock.h>

#include "contents/labor/LaborBench.h"

namespace lantos {
namespace {

using test::LaborBench;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
using ui::Answer;

// Two lines of labor, 1 and 3.
struct TwoLines : LaborBench {
  TwoLines() {
    Store(1, 100, 6500, "CHECK BRAKES\t\tROAD TEST\t\t\t\t\t");
    Store(3, 50, 3250, "OIL\t\t\t\t\t\t\t");
    labor.LoadLaborList();
  }
  LaborLines& labor = contents.labor;
};

TEST(LaborLines, TheListHasANumberRowAndARowForEachTextThatIsntEmpty) {
  TwoLines bench;
  EXPECT_THAT(bench.Rows(), ElementsAre("1 000004 1.00 65.00 65.00", "0        CHECK BRAKES", "0        ROAD TEST",
                                        "3 000004 0.50 65.00 32.50", "0        OIL"));
  EXPECT_EQ(bench.contents.lines.labor.Lines().at(3).Total, 3250);
}

TEST(LaborLines, AnAddedLineHasTheNumberBehindTheHighestAndTheDayAndTheTotalsFollow) {
  TwoLines bench;
  bench.WillType("2", "wash\n\ndry");
  bench.labor.Add();
  EXPECT_EQ(bench.Stored().back(), "4|WASH\t\tDRY\t\t\t\t\t|200|6500|13000|0");
  EXPECT_THAT(bench.Rows().back(), "0        DRY");
  EXPECT_EQ(bench.board.listLabor.ListIndex(), 5);
  EXPECT_EQ(bench.board.scheduledHours, 200);
  EXPECT_EQ(bench.board.totalRefreshes, 1);
  EXPECT_EQ(bench.board.dayRefreshes, 1);
}

TEST(LaborLines, AScreenThatIsLeftChangesNothing) {
  TwoLines bench;
  const auto before = bench.Stored();
  bench.WillWork([](frmLabor& form) { test::Press(form, "Esc"); });
  bench.labor.Add();
  bench.board.listLabor.DoSelect(0);
  bench.WillWork([](frmLabor& form) { test::Press(form, "Esc"); });
  bench.labor.Change();
  EXPECT_EQ(bench.Stored(), before);
  EXPECT_EQ(bench.board.totalRefreshes, 0);
}

TEST(LaborLines, WithoutEmployeesTheScreenIsntShown) {
  TwoLines bench;
  bench.directory.Put("TQEMPLOY.DAT", "");
  const SharedFile holder(bench.directory / "TQEMPLOY.DAT", Access::Read, Deny::All);
  bench.desktop.WillAnswer(Answer::Ok);
  bench.labor.Add();
  EXPECT_THAT(bench.desktop.forms, IsEmpty());
  EXPECT_EQ(bench.desktop.boxes.at(0).text, "Could not access employee master file!");
}

TEST(LaborLines, AChangedLineKeepsItsNumberAndItsPlace) {
  TwoLines bench;
  bench.board.listLabor.DoSelect(2);
  bench.WillWork([](frmLabor& form) {
    EXPECT_EQ(form.Hours.Text(), "1.00");
    EXPECT_EQ(form.txtDesc.Text(), "CHECK BRAKES\r\nROAD TEST");
    test::Type(form.Hours, "3");
    test::Press(form, "F10");
  });
  bench.labor.Change();
  EXPECT_THAT(bench.Stored(), ElementsAre("1|CHECK BRAKES\tROAD TEST\t\t\t\t\t\t|300|6500|19500|4",
                                          "3|OIL\t\t\t\t\t\t\t|50|6500|3250|4"));
  EXPECT_EQ(bench.Rows().front(), "1 000004 3.00 65.00 195.00");
  EXPECT_EQ(bench.board.listLabor.ListIndex(), 0);
  EXPECT_EQ(bench.board.scheduledHours, 200);
}

TEST(LaborLines, ALineIsRemovedWhicheverOfItsRowsIsSelected) {
  TwoLines bench;
  bench.board.listLabor.DoSelect(2);
  bench.desktop.WillAnswer({Answer::No, Answer::Yes});
  bench.labor.Remove();
  EXPECT_EQ(bench.Rows().size(), 5U);
  bench.labor.Remove();
  EXPECT_EQ(bench.desktop.boxes[1].text, "Remove\r    CHECK BRAKES\rfrom this estimate?");
  EXPECT_THAT(bench.Rows(), ElementsAre("3 000004 0.50 65.00 32.50", "0        OIL"));
  EXPECT_EQ(bench.Stored().size(), 1U);
  EXPECT_EQ(bench.board.scheduledHours, -100);
  EXPECT_EQ(bench.board.totalRefreshes, 1);
}

TEST(LaborLines, ALineWithoutATextCanBeRemovedToo) {
  LaborBench bench;
  bench.Store(1, 100, 6500, "\t\t\t\t\t\t\t");
  bench.Store(2, 100, 6500, "OIL\t\t\t\t\t\t\t");
  bench.contents.labor.LoadLaborList();
  bench.board.listLabor.DoSelect(0);
  bench.desktop.WillAnswer(Answer::Yes);
  bench.contents.labor.Remove();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Remove\r    \rfrom this estimate?");
  EXPECT_THAT(bench.Rows(), ElementsAre("2 000004 1.00 65.00 65.00", "0        OIL"));
}

TEST(LaborLines, ChangeAndRemoveNeedASelection) {
  TwoLines bench;
  bench.desktop.WillAnswer({Answer::Ok, Answer::Ok});
  bench.labor.Change();
  bench.labor.Remove();
  EXPECT_EQ(bench.desktop.boxes[0].text, "Must select a labor item in order to change it.");
  EXPECT_EQ(bench.desktop.boxes[0].title, "Change Labor");
  EXPECT_EQ(bench.desktop.boxes[1].text, "Must select a labor item in order to remove it.");
  EXPECT_EQ(bench.desktop.boxes[1].title, "Remove Labor");
}

TEST(LaborLines, AClearedListCountsForNothingAndItsNumbersStayGiven) {
  TwoLines bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.labor.ClearLaborList();
  EXPECT_THAT(bench.Rows(), IsEmpty());
  EXPECT_EQ(bench.Stored().size(), 2U);
  WoLaborLine line;
  line.Total = 1000;
  line.Desc[0] = "NEW";
  bench.labor.AddLaborLine(line);
  EXPECT_EQ(bench.Rows().front(), "4 000000 0.00 0.00 10.00");
  EXPECT_EQ(bench.Ask("select Price from Waste"), "100") << "of what is seen, not of what is stored";
}

TEST(LaborLines, TheSurchargeOfAClearedListCountsWhatOthersHaveAddedSince) {
  TwoLines bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.labor.ClearLaborList();
  bench.Store(4, 100, 6500, "OF ANOTHER WORKSTATION\t\t\t\t\t\t\t");
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Ask("select Price from Waste"), "650");
}

// With no estimate on show, as between one and the next, nothing is left out.
TEST(LaborLines, AListThatIsClearedForTheNextEstimateLeavesNoneOfItsLinesOut) {
  TwoLines bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.board.number = 0;
  bench.labor.ClearLaborList();
  bench.board.number = 1001;
  bench.contents.surcharge.ApplySurcharge();
  EXPECT_EQ(bench.Ask("select Price from Waste"), "975");
}

TEST(LaborLines, ALineThatOthersHaveChangedCountsOnTheDayAsTheyChangedIt) {
  TwoLines bench;
  bench.database.lantosData.DeleteLabor(1001, 3);
  bench.Store(3, 250, 6500, "TOWING\t\t\t\t\t\t\t");
  bench.board.listLabor.DoSelect(3);
  bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
  bench.labor.Remove();
  EXPECT_EQ(bench.board.scheduledHours, 200);
  EXPECT_EQ(bench.Rows().back(), "0        TOWING");
  EXPECT_EQ(bench.Stored().size(), 2U);
}

TEST(LaborLines, ANumberThatAnotherWorkstationHasTakenIsPassedOverAndItsLineSeen) {
  TwoLines bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.Store(4, 100, 6500, "OF ANOTHER WORKSTATION\t\t\t\t\t\t\t");
  WoLaborLine line;
  line.Desc[0] = "OURS";
  bench.labor.AddLaborLine(line);
  EXPECT_EQ(bench.Stored().back(), "5|OURS\t\t\t\t\t\t\t|0|0|0|0");
  EXPECT_EQ(bench.Rows().at(6), "0        OF ANOTHER WORKSTATION");
  EXPECT_EQ(bench.Rows().back(), "0        OURS");
  EXPECT_EQ(bench.board.listLabor.ListIndex(), 7);
  EXPECT_EQ(bench.board.scheduledHours, 100);
  EXPECT_EQ(bench.Ask("select Price from Waste"), "1625") << "of all that is seen";
}

// By an engine whose transactions don't keep others out.
TEST(LaborLines, ANumberThatIsTakenBetweenTheLookAndTheWriteIsTakenAnew) {
  TwoLines bench;
  int timesTaken = 0;
  bench.Watch([&](std::string_view statement) {
    if (!statement.starts_with("insert into Labors") || ++timesTaken > 2) return;
    throw DatabaseError("UNIQUE constraint failed", DatabaseErrorKind::Duplicate);
  });
  bench.WillType("1", "ours");
  bench.labor.Add();
  EXPECT_EQ(timesTaken, 3);
  EXPECT_EQ(bench.Stored().back(), "4|OURS\t\t\t\t\t\t\t|100|6500|6500|0");
}

TEST(LaborLines, ALineThatCantBeStoredIsNowhere) {
  TwoLines bench;
  bench.Do("create trigger Refuse before insert on Labors begin select raise(abort, 'no'); end");
  const auto before = bench.Rows();
  WoLaborLine line;
  line.Hours = 100;
  line.Desc[0] = "OURS";
  EXPECT_THROW(bench.labor.AddLaborLine(line), DatabaseError);
  EXPECT_EQ(bench.Rows(), before);
  EXPECT_EQ(bench.board.scheduledHours, 0);
}

TEST(LaborLines, ALineThatCantBeRemovedStays) {
  TwoLines bench;
  bench.Do("create trigger Refuse before delete on Labors begin select raise(abort, 'no'); end");
  const auto before = bench.Rows();
  bench.board.listLabor.DoSelect(3);
  bench.desktop.WillAnswer(Answer::Yes);
  EXPECT_THROW(bench.labor.Remove(), DatabaseError);
  EXPECT_EQ(bench.Rows(), before);
  EXPECT_EQ(bench.board.listLabor.ListIndex(), 3);
  EXPECT_EQ(bench.board.scheduledHours, 0);
}

// The day still counts what is no longer seen.
TEST(LaborLines, AClearedListThatComesBackCountsItsHoursOnce) {
  TwoLines bench;
  bench.labor.ClearLaborList();
  WoLaborLine line;
  line.Hours = 200;
  line.Desc[0] = "OURS";
  bench.labor.AddLaborLine(line);
  EXPECT_EQ(bench.board.scheduledHours, 200);
  bench.Do("create trigger Refuse before insert on Labors begin select raise(abort, 'no'); end");
  EXPECT_THROW(bench.labor.AddLaborLine(line), DatabaseError);
  EXPECT_EQ(bench.Rows().size(), 7U) << "all lines are seen again";
  EXPECT_EQ(bench.board.scheduledHours, 200);
}

TEST(LaborLines, AClearedListThatComesBackWithAnotherWorkstationsLineCountsThatOneAndOurs) {
  TwoLines bench;
  bench.labor.ClearLaborList();
  bench.Store(4, 100, 6500, "OF ANOTHER WORKSTATION");
  WoLaborLine line;
  line.Hours = 200;
  line.Desc[0] = "OURS";
  bench.labor.AddLaborLine(line);
  EXPECT_EQ(bench.board.scheduledHours, 300);
}

TEST(LaborLines, AChangeThatIsRefusedLeavesTheLineAndItsScreenUntilItIsStored) {
  TwoLines bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.Do("create trigger Refuse before insert on Labors begin select raise(abort, 'no'); end");
  const auto before = bench.Rows();
  const auto stored = bench.Stored();
  bench.board.listLabor.DoSelect(0);
  bench.desktop.failuresExpected = true;
  bench.WillWork([&](frmLabor& form) {
    test::Type(form.Hours, "2");
    test::Type(form.txtDesc, "changed");
    test::Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.txtDesc.Text(), "changed");
    EXPECT_EQ(bench.Rows(), before);
    EXPECT_EQ(bench.Stored(), stored);
    EXPECT_EQ(bench.board.scheduledHours, 0);
    EXPECT_EQ(bench.Ask("select count(*) from Waste"), "0");
    bench.Do("drop trigger Refuse");
    test::Press(form, "F10");
  });
  bench.labor.Change();
  EXPECT_THAT(bench.desktop.failures, ElementsAre(StartsWith(std::string(WordsOf(DatabaseErrorKind::Refused)))));
  EXPECT_EQ(bench.Stored().front(), "1|CHANGED\t\t\t\t\t\t\t|200|6500|13000|4");
  EXPECT_EQ(bench.board.scheduledHours, 100);
  EXPECT_EQ(bench.Ask("select Price from Waste"), "1625");
}

TEST(LaborLines, WhatIsDroppedBehindARefusalIsNamedAndTheScreenComesBackToTheLine) {
  TwoLines bench;
  bench.Do("create trigger Refuse before insert on Labors begin select raise(abort, 'no'); end");
  bench.board.listLabor.DoSelect(0);
  bench.desktop.failuresExpected = true;
  bench.WillWork([&](frmLabor& form) {
    test::Type(form.txtDesc, "changed");
    test::Press(form, "F10");
    bench.desktop.WillAnswer(Answer::Yes);
    form.Check1.DoClick();  // shows the line anew
    EXPECT_EQ(form.txtDesc.Text(), "CHECK BRAKES\r\nROAD TEST");
    test::Type(form.txtDesc, "once more");
    test::Press(form, "F10");
    bench.desktop.WillAnswer({Answer::Yes, Answer::Ok});
    test::Press(form, "Esc");
  });
  bench.labor.Change();
  EXPECT_EQ(bench.desktop.boxes.back().text, "The labor line \"ONCE MORE\" was not stored.");
  EXPECT_EQ(bench.desktop.boxes.back().title, "Estimate Labor");
  EXPECT_EQ(bench.Rows().at(1), "0        CHECK BRAKES");
  EXPECT_EQ(bench.Stored().size(), 2U);
}

TEST(LaborLines, ALockedDatabaseIsWaitedForOnceATry) {
  TwoLines bench;
  bench.Hold();
  bench.desktop.failuresExpected = true;
  bench.WillWork([&](frmLabor& form) {
    test::Type(form.txtDesc, "ours");
    test::Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    bench.LetGo();
    test::Press(form, "F10");
  });
  bench.labor.Add();
  EXPECT_THAT(bench.desktop.failures, ElementsAre(HasSubstr("locked")));
  EXPECT_EQ(bench.Stored().size(), 3U);
}

TEST(LaborLines, ASurchargeThatIsKeptOutStopsNothing) {
  TwoLines bench;
  SystemRecord& system = bench.records.system.SysRec;
  system.Put(sysrec::labor_surcharge_percent, 100000);
  system.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
  bench.database.lantosData.AddWaste(1001, 1, {"OIL", "", 0, 100, "", "", "", "", "No"});
  bench.desktop.failuresExpected = true;
  WoLaborLine line;
  line.Hours = 100;
  line.Desc[0] = "OURS";
  bench.labor.AddLaborLine(line);
  EXPECT_EQ(bench.desktop.failures.size(), 1U);
  EXPECT_EQ(bench.board.scheduledHours, 100);
  EXPECT_EQ(bench.board.totalRefreshes, 2) << "behind the box, and at the end";
  EXPECT_EQ(bench.Stored().size(), 3U);
}

}  // namespace
}  // namespace lantos
