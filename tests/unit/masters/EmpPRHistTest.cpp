#include <cstdlib>

#include "MasterShop.h"
#include "estimatedb/EstimateDatabase.h"
#include "masters/employees/frmEmpPRHist.h"
#include "payroll/PayImage.h"
#include "records/PayrollBench.h"

namespace lantos::test {
namespace {

// Employee 7 was paid on five Fridays, the last of them in January, and by the week. The shop is in Texas, which takes
// nothing; the second newest has additional withholding.
class EmpPRHist : public MasterShop {
 protected:
  EmpPRHist() {
    directory.Put("TQSYSTEM.DAT", RawRecord(1038).Text(44, "The Shop").Text(130, "TX").Bytes());
    records.system.ReadSystem();
    PutPays({{2005, 12, 16}, {2005, 12, 23}, {2005, 12, 30}, {2006, 1, 6}, {2006, 1, 13}});
    CreateKorvelDatabase(directory / "Korvel.mdb", clock);
    Connect(database, environment);
    environment.hasKorvelDatabase = true;
    Do("insert into EmpPRHist (EmployeeNumber, PayrollDate, AdditionalFederal, AdditionalState, AdditionalLocal) "
       "values (7, '01/06/2006', 1000, 200, 30)");
    Do("insert into EmpPRHist (EmployeeNumber, PayrollDate, AdditionalFederal) values (3, '01/13/2006', 777)");
  }

  void PutPays(const std::vector<CivilDate>& dates) const {
    std::string file;
    for (std::size_t i = 0; i < dates.size(); ++i) {
      PayRecord pay = PayOf({dates[i], 60000 + static_cast<std::int32_t>(i), 2});
      pay.Put(payrecord::Hours, 4000);
      pay.Put(payrecord::NextRecord, static_cast<std::int32_t>(i) * kPayLength - kPayLength);
      if (i == 0) pay.Put(payrecord::NextRecord, -1);
      file.append(reinterpret_cast<const char*>(pay.Bytes().data()), PayRecord::kLength);
    }
    directory.Put("TQPAYROL.DAT", file);
    directory.Put("TQEMPLOY.DAT", PaidEmployees(static_cast<std::int32_t>(file.size()) - kPayLength));
  }
  void Do(const std::string& statement) { database.korvelData.Connection().Run(statement, {}); }
  std::size_t RowsOfHistory() { return database.korvelData.EmpPRHist().Count(); }

  // What a person does on the window, which is left at the end.
  void Use(const std::function<void(frmEmpPRHist&)>& deeds, std::int32_t employee = 7) {
    desktop.WillUse([&deeds](ui::Form& shown) {
      deeds(As<frmEmpPRHist>(shown));
      if (!shown.Visible()) return;
      test::Press(shown, "Esc");
    });
    frmEmpPRHist form(shop, database.korvelData, employee);
    form.ShowModal();
  }
  static std::vector<std::string> Column(const frmEmpPRHist& form, PayColumn column) {
    std::vector<std::string> texts;
    for (const ui::GridRow& row : form.ListView1.Rows()) texts.push_back(row.cells[static_cast<std::size_t>(column)]);
    return texts;
  }
  static std::vector<std::string> Dates(const frmEmpPRHist& form) { return Column(form, PayColumn::Date); }
  static std::vector<std::string> Marks(const frmEmpPRHist& form) { return Column(form, PayColumn::Mark); }
  static void Mark(frmEmpPRHist& form, int row) {
    form.ListView1.DoSelect(row);
    Click(form.cmdDelete);
  }
  std::vector<std::string> PrintedLines() const {
    std::vector<std::string> lines;
    for (const auto& line : desktop.printed.at(0).lines) lines.push_back(line.at(0));
    return lines;
  }
  bool IsPrinted(const std::string& line) const {
    const std::vector<std::string> lines = PrintedLines();
    return std::find(lines.begin(), lines.end(), line) != lines.end();
  }

  EstimateDatabase database{environment, records};
};

using Texts = std::vector<std::string>;

TEST_F(EmpPRHist, ListsTheRecordsFromTheNewestOn) {
  Use([](frmEmpPRHist& form) {
    EXPECT_EQ(form.Caption(), "Employee Payroll History");
    EXPECT_EQ(form.lblEmployee.Caption(), "000007  Carl");
    EXPECT_EQ(Dates(form), (Texts{"01/13/2006", "01/06/2006", "12/30/2005", "12/23/2005", "12/16/2005"}));
    Texts columns;
    for (const ui::GridColumn& column : form.ListView1.Columns()) columns.push_back(column.caption);
    EXPECT_EQ(columns,
              (Texts{"X", "Date", "Hours", "Gross", "FICA", "Medicare", "Futa", "Suta", "Federal", "State", "Local",
                     "Addl Fed", "Addl State", "Addl Local", "Insurance", "Uniform", "Savings", "Net"}));
    EXPECT_TRUE(form.ListView1.Columns()[0].hidden);
    EXPECT_EQ(form.ListView1.Row(), 0);
    EXPECT_EQ(form.Focus(), &form.ListView1);
    EXPECT_EQ(form.MsgLabel.Caption(), "");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    EXPECT_EQ(form.ListView1.Rows()[1].cells,
              (Texts{"", "01/06/2006", "40.00", "600.03", "0.00", "0.00", "0.00", "0.00", "56.25", "0.00", "0.00",
                     "10.00", "2.00", "0.30", "0.00", "0.00", "0.00", "531.48"}));
  });
}

TEST_F(EmpPRHist, ToolTipsAreAsTheyStand) {
  frmEmpPRHist form(shop, database.korvelData, 7);
  EXPECT_EQ(form.cmdDelete.ToolTip(), "Delete Entry <Del>");
  EXPECT_EQ(form.cmdSave.ToolTip(), "Print <Alt+F2>");
  EXPECT_EQ(form.MsgLabel.ToolTip(), "Save deletes what is marked <F10>");
  EXPECT_EQ(form.cmdPrint.ToolTip(), "Print Pay Stub <F1>");
  EXPECT_EQ(form.cmdCancel.ToolTip(), "Close <Esc>");
}

TEST_F(EmpPRHist, WithoutRecordsThereIsNothingToDeleteOrPrint) {
  Use(
      [](frmEmpPRHist& form) {
        EXPECT_EQ(form.ListView1.RowCount(), 0);
        EXPECT_EQ(form.MsgLabel.Caption(), "No payroll records found.");
        EXPECT_FALSE(form.cmdDelete.Enabled());
        EXPECT_FALSE(form.cmdPrint.Enabled());
        for (const char* key : {"F1", "Delete", "Alt+F2"}) Press(form, key);
      },
      3);
}

TEST_F(EmpPRHist, WithoutTheDatabaseNothingIsAdditional) {
  environment.hasKorvelDatabase = false;
  Use([](frmEmpPRHist& form) { EXPECT_EQ(Column(form, PayColumn::AddlFed), Texts(5, "0.00")); });
}

TEST_F(EmpPRHist, WhatHasNoTableIsEmptyAndTold) {
  directory.Put("TQSYSTEM.DAT", RawRecord(1038).Text(130, "OH").Bytes());
  records.system.ReadSystem();
  Use([this](frmEmpPRHist& form) {
    EXPECT_EQ(Column(form, PayColumn::State), Texts(5, ""));
    EXPECT_EQ(Column(form, PayColumn::Net), Texts(5, ""));
    EXPECT_EQ(form.MsgLabel.Caption(),
              "No withholding table: state OH 2005 to 2006; local OH 2005 to 2006. One goes into " +
                  environment.files.DataDir() + "withholding\\<year>.txt.");
  });
}

TEST_F(EmpPRHist, DeleteMarksAndTakesTheMarkBack) {
  Use([](frmEmpPRHist& form) {
    Mark(form, 1);
    EXPECT_EQ(Marks(form), (Texts{"", "X", "", "", ""}));
    EXPECT_EQ(form.ListView1.Row(), 1);
    EXPECT_EQ(form.MsgLabel.Caption(), "X  Deleted when saved: 01/06/2006");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    Press(form, "Delete");
    EXPECT_EQ(Marks(form), Texts(5, ""));
    EXPECT_EQ(form.MsgLabel.Caption(), "");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close") << "there is nothing to discard";
  });
}

TEST_F(EmpPRHist, TheHandIsBackInTheListAfterEachCommand) {
  desktop.WillAnswer(Answer::No);
  Use([](frmEmpPRHist& form) {
    for (const char* command : {"Alt+D", "Alt+D", "Alt+P", "Alt+S"}) {
      form.chkIncludeSSN.SetFocus();
      test::Press(form, command);
      EXPECT_EQ(form.Focus(), &form.ListView1) << command;
    }
  });
}

TEST_F(EmpPRHist, ManyMarksAreCounted) {
  PutPays(std::vector<CivilDate>(7, {2006, 1, 6}));
  desktop.WillAnswer(Answer::Yes);
  Use([](frmEmpPRHist& form) {
    for (int row = 0; row < 7; ++row) Mark(form, row);
    EXPECT_EQ(form.MsgLabel.Caption(),
              "X  Deleted when saved: 01/06/2006, 01/06/2006, 01/06/2006, 01/06/2006, 01/06/2006 and 2 more");
  });
}

TEST_F(EmpPRHist, MarksAreAskedAboutOnTheWayOut) {
  const std::string before = directory.Content("TQPAYROL.DAT");
  desktop.WillAnswer({Answer::No, Answer::No, Answer::Yes});
  Use([](frmEmpPRHist& form) {
    Mark(form, 0);
    Click(form.cmdCancel);
    ASSERT_TRUE(form.Visible());
    form.DoClose();
    ASSERT_TRUE(form.Visible());
  });
  ASSERT_EQ(desktop.boxes.size(), 3U);
  EXPECT_EQ(desktop.boxes[0].text, "Discard changes?");
  EXPECT_EQ(directory.Content("TQPAYROL.DAT"), before);
}

TEST_F(EmpPRHist, SaveDeletesWhatIsMarkedAndListsTheRest) {
  Use([this](frmEmpPRHist& form) {
    Mark(form, 1);
    Mark(form, 2);
    Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(Dates(form), (Texts{"01/13/2006", "12/23/2005", "12/16/2005"}));
    EXPECT_EQ(Marks(form), Texts(3, ""));
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    EXPECT_EQ(RowsOfHistory(), 1U) << "the additional withholding of 01/06/2006 went along";
  });
  const std::string after = directory.Content("TQPAYROL.DAT");
  EXPECT_EQ(LongAt(after, 4 * 303 + 299), 303);
  EXPECT_EQ(LongAt(after, 3 * 303), -1);
  EXPECT_EQ(LongAt(after, 2 * 303), -1);
}

TEST_F(EmpPRHist, DeletingTheNewestMovesTheEmployeesHead) {
  Use([](frmEmpPRHist& form) {
    Mark(form, 0);
    Click(form.cmdSave);
  });
  EXPECT_EQ(LongAt(directory.Content("TQEMPLOY.DAT"), 199 + 195), 3 * 303);
}

TEST_F(EmpPRHist, AllDeletedLeavesAnEmptyList) {
  Use([](frmEmpPRHist& form) {
    for (int row = 0; row < 5; ++row) Mark(form, row);
    Click(form.cmdSave);
    EXPECT_EQ(form.MsgLabel.Caption(), "No payroll records found.");
    EXPECT_FALSE(form.cmdDelete.Enabled());
  });
}

// The row would be taken for that of a payroll that is run again for the day.
TEST_F(EmpPRHist, ARowThatTheDatabaseRefusesToDeleteIsLeftForTheNextSave) {
  desktop.failuresExpected = true;
  Do("create trigger Refuse before delete on EmpPRHist begin select raise(abort, 'no'); end");
  desktop.WillAnswer(Answer::No);
  Use([this](frmEmpPRHist& form) {
    Mark(form, 1);
    Mark(form, 3);
    Click(form.cmdSave);
    EXPECT_EQ(Dates(form), (Texts{"01/13/2006", "12/30/2005", "12/16/2005"}));
    EXPECT_EQ(RowsOfHistory(), 2U);
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel") << "there is something to be done yet";
    Press(form, "Delete");
    Press(form, "Delete");
    Press(form, "Esc");
    EXPECT_TRUE(form.Visible());
    Do("drop trigger Refuse");
    Click(form.cmdSave);
    EXPECT_EQ(RowsOfHistory(), 1U);
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
  });
  EXPECT_EQ(desktop.failures.size(), 1U);
}

TEST_F(EmpPRHist, WithoutTheTablesOfTheDatabaseTheRecordsAreSeenAllTheSame) {
  Do("drop table EmpPRHist");
  Do("drop table EmpPRInfo");
  Use([](frmEmpPRHist& form) {
    EXPECT_EQ(Column(form, PayColumn::Gross).front(), "600.04");
    EXPECT_EQ(Column(form, PayColumn::AddlFed), Texts(5, ""));
    EXPECT_EQ(Column(form, PayColumn::Net), Texts(5, "")) << "it depends on what isn't known";
    EXPECT_EQ(form.MsgLabel.Caption(), "The additional withholding can't be read from Korvel.mdb.");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(EmpPRHist, ADamagedChainIsToldAndListedAsFarAsItGoes) {
  std::string file = directory.Content("TQPAYROL.DAT");
  directory.Put("TQPAYROL.DAT", RawRecord(file.size()).Text(0, file).Long(2 * 303 + 299, 4 * 303).Bytes());
  desktop.WillAnswer(Answer::Ok);
  Use([](frmEmpPRHist& form) { EXPECT_EQ(form.ListView1.RowCount(), 3); });
  EXPECT_EQ(desktop.boxes.at(0).text,
            "The pay records of Carl are damaged: one leads back to the record at 1212, which stands before it.\r"
            "Only those in front of it are listed.");
  EXPECT_EQ(desktop.boxes[0].title, "Employee Payroll History");
}

TEST_F(EmpPRHist, PrintAsksAndPrintsWithoutTheNumber) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Use([this](frmEmpPRHist& form) {
    Press(form, "F1");
    EXPECT_TRUE(desktop.printed.empty());
    Press(form, "Alt+F2");
  });
  EXPECT_EQ(desktop.boxes.at(0).text, "Print pay stub without SSN for Carl?");
  EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::YesNo);
  ASSERT_EQ(desktop.printed.size(), 1U);
  EXPECT_EQ(desktop.printerDialogs, 0);
  EXPECT_TRUE(IsPrinted("Payroll date        : 01/13/2006"));
  EXPECT_FALSE(IsPrinted("SSN                 : "));
  EXPECT_TRUE(IsPrinted("Taxable Gross Pay   : $600.04 [YTD: $1,200.07]")) << "January's alone";
}

TEST_F(EmpPRHist, PrintsWithTheNumber) {
  desktop.WillAnswer(Answer::Yes);
  Use([](frmEmpPRHist& form) {
    form.ListView1.DoSelect(2);
    Click(form.chkIncludeSSN);
    Click(form.cmdPrint);
  });
  EXPECT_EQ(desktop.boxes.at(0).text, "Print pay stub with SSN for Carl?");
  EXPECT_TRUE(IsPrinted("SSN                 : "));
  EXPECT_TRUE(IsPrinted("Taxable Gross Pay   : $600.02 [YTD: $1,800.03]"));
}

TEST_F(EmpPRHist, AMarkedRowIsNotPrinted) {
  desktop.WillAnswer({Answer::Ok, Answer::Yes});
  Use([](frmEmpPRHist& form) {
    Mark(form, 0);
    Click(form.cmdPrint);
  });
  EXPECT_EQ(desktop.boxes.at(0).text, "Can't print pay-stub for deleted item.");
  EXPECT_TRUE(desktop.printed.empty());
}

TEST_F(EmpPRHist, MarkedRowsAreNotInTheYearToDate) {
  desktop.WillAnswer({Answer::Yes, Answer::Yes});
  Use([](frmEmpPRHist& form) {
    Mark(form, 1);
    form.ListView1.DoSelect(0);
    Click(form.cmdPrint);
  });
  EXPECT_TRUE(IsPrinted("Taxable Gross Pay   : $600.04 [YTD: $600.04]"));
}

TEST_F(EmpPRHist, TheNumberIsTickedWhereTheShopHasChosenSo) {
  Do("insert into EmpPRInfo (EmployeeNumber, PrintSSN) values (7, -1)");
  Use([](frmEmpPRHist& form) {
    EXPECT_TRUE(form.chkIncludeSSN.Value());
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
  });
  Use([](frmEmpPRHist& form) { EXPECT_FALSE(form.chkIncludeSSN.Value()); }, 3);
}

TEST_F(EmpPRHist, TheSizeOfTheWindowIsKept) {
  Use([](frmEmpPRHist& form) { form.DoResize(15300, 9000, ui::WindowState::Normal); });
  EXPECT_EQ(Setting("frmEmpPRHistWidth"), "15300");
  EXPECT_EQ(Setting("frmEmpPRHistHeight"), "9000");
  EXPECT_EQ(Setting("frmEmpPRHistState"), "0");
}

TEST_F(EmpPRHist, LookingAndPrintingWriteNothing) {
  const std::string pays = directory.Content("TQPAYROL.DAT");
  const std::string people = directory.Content("TQEMPLOY.DAT");
  desktop.WillAnswer(Answer::Yes);
  Use([](frmEmpPRHist& form) { Click(form.cmdPrint); });
  EXPECT_EQ(directory.Content("TQPAYROL.DAT"), pays);
  EXPECT_EQ(directory.Content("TQEMPLOY.DAT"), people);
  EXPECT_EQ(RowsOfHistory(), 2U);
}

}  // namespace
}  // namespace lantos::test
