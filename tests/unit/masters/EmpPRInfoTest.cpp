#include "EmployeeShop.h"
#include "estimatedb/DatabaseFixture.h"

namespace lantos::test {
namespace {

class EmpPRInfo : public EmployeeShop {
 protected:
  std::vector<std::string> Rows() const {
    return PlainRows(directory / "Korvel.mdb", "select * from EmpPRInfo order by EmployeeNumber");
  }
};

using Lines = std::vector<std::string>;

TEST_F(EmpPRInfo, ShowsEveryFieldOfWhoIsChosen) {
  Plain(directory / "Korvel.mdb", "insert into EmpPRInfo values (12, 1000, 250, 5, 1)");
  KeepPay(12, [](frmEmpPRInfo& form) {
    EXPECT_EQ(form.Caption(), "Employee Payroll Info");
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Pat Old", "Zoe Young"}));
    EXPECT_EQ(form.EmpList.Text(), "Zoe Young");
    EXPECT_EQ(form.SocSecNum.Text(), "000-00-0012");
    EXPECT_EQ(form.EmpAddr.Text(), "1 Mill Lane");
    EXPECT_EQ(form.EmpCityStateZip.Text(), "Springfield, OH 45501");
    for (const ui::TextBox* box : {&form.SocSecNum, &form.EmpAddr, &form.EmpCityStateZip}) EXPECT_TRUE(box->Locked());
    EXPECT_EQ(form.Wage.Text(), "18.75");
    EXPECT_EQ(form.WagePeriod.Text(), "Weekly");
    EXPECT_EQ(form.OvertimeExempt.Text(), "Yes");
    EXPECT_EQ(form.OvertimeExempt.ToolTip(), "If Yes, then overtime will not be calculated.");
    EXPECT_EQ(form.Salary.Text(), "0.00");
    EXPECT_EQ(form.SalaryPeriod.Text(), "None");
    EXPECT_EQ(form.Commission.Text(), "12.5000");
    EXPECT_EQ(form.CommissionPeriod.Text(), "Two-weekly");
    EXPECT_EQ(form.Insurance.Text(), "25.50");
    EXPECT_EQ(form.Savings.Text(), "10.00");
    EXPECT_EQ(form.Uniform.Text(), "7.25");
    EXPECT_EQ(form.AddlFed.Text(), "10.00");
    EXPECT_EQ(form.AddlState.Text(), "2.50");
    EXPECT_EQ(form.AddlLocal.Text(), "0.05");
    EXPECT_EQ(form.PrintSSN.Text(), "Yes");
    EXPECT_EQ(form.cmdPayroll.ToolTip(), "View/Edit Payroll <F6>");
    Choose(form.EmpList, "Abe Lee");
    EXPECT_EQ(form.AddlFed.Text(), "0.00");
    EXPECT_EQ(form.PrintSSN.Text(), "No");
    EXPECT_EQ(form.EmpCityStateZip.Text(), "");
    Choose(form.EmpList, " None");
    EXPECT_EQ(form.Wage.Text(), "");
    EXPECT_EQ(form.AddlFed.Text(), "");
    EXPECT_EQ(form.WagePeriod.ListIndex(), -1);
    EXPECT_EQ(form.PrintSSN.ListIndex(), -1);
    Press(form, "Esc");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(EmpPRInfo, AnAmountThatASaveHasWrittenAnewIsMarked) {
  KeepPay(12, [](frmEmpPRInfo& form) {
    Type(form.Wage, "5");
    Press(form, "F10");
    EXPECT_TRUE(form.Wage.HasFocus());
    EXPECT_EQ(form.Wage.Text(), "5.00");
    form.Wage.TypeCharacter('6');
    EXPECT_EQ(form.Wage.Text(), "6");
    Press(form, "F10");
    Press(form, "Esc");
  });
}

TEST_F(EmpPRInfo, EachAmountHoldsTwelveCharacters) {
  KeepPay(12, [](frmEmpPRInfo& form) {
    for (const ui::TextBox* box : {&form.Wage, &form.Salary, &form.Commission, &form.Insurance, &form.Savings,
                                   &form.Uniform, &form.AddlFed, &form.AddlState, &form.AddlLocal}) {
      EXPECT_EQ(box->MaxLength(), 12U) << box->Name();
    }
    Press(form, "Esc");
  });
}

TEST_F(EmpPRInfo, EveryFieldIsSavedAndEveryOtherByteStays) {
  KeepPay(7, [](frmEmpPRInfo& form) {
    Type(form.Wage, "21.5");
    Choose(form.WagePeriod, "Weekly");
    Choose(form.OvertimeExempt, "Yes");
    Type(form.Salary, "-21474836.48");
    Choose(form.SalaryPeriod, "Daily");
    Type(form.Commission, "12.5");
    Choose(form.CommissionPeriod, "Monthly");
    Type(form.Insurance, "1");
    Type(form.Savings, ".02");
    Type(form.Uniform, "21474836.47");
    Type(form.AddlFed, "10");
    Type(form.AddlState, "20.2");
    Type(form.AddlLocal, "30.33");
    Choose(form.PrintSSN, "Yes");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    Press(form, "F10");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    EXPECT_EQ(form.Commission.Text(), "12.5000");
    EXPECT_EQ(form.Wage.Text(), "21.50");
    EXPECT_EQ(form.AddlState.Text(), "20.20");
    Press(form, "Esc");
  });
  Image expected = Abe();
  expected.Long(145, 2150).Text(149, "\1").Long(150, std::numeric_limits<std::int32_t>::min()).Text(154, "\10");
  expected.Text(155, "\4").Long(156, 125000).Long(160, 100).Text(164, "\1").Long(165, 2);
  expected.Long(173, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(File(), Zoe().Bytes() + Pat().Bytes() + Bert().Bytes() + expected.Bytes());
  EXPECT_EQ(Rows(), (Lines{"7|1000|2020|3033|1"}));
}

TEST_F(EmpPRInfo, ABlankAmountStoresZero) {
  KeepPay(12, [](frmEmpPRInfo& form) {
    for (ui::TextBox* box : {&form.Wage, &form.Commission, &form.Insurance, &form.Savings, &form.Uniform}) {
      Type(*box, "");
    }
    Press(form, "F10");
    EXPECT_EQ(form.Wage.Text(), "0.00");
    EXPECT_EQ(form.Commission.Text(), "0.0000");
    Press(form, "Esc");
  });
  Image expected = Zoe();
  for (const std::size_t offset : {145U, 156U, 160U, 165U, 173U}) expected.Long(offset, 0);
  EXPECT_EQ(File().substr(0, kLength), expected.Bytes());
  EXPECT_EQ(Rows(), (Lines{"12|0|0|0|0"})) << "the row is there from the first saving on";
}

TEST_F(EmpPRInfo, AmountsAreRoundedHalvesToEven) {
  const std::vector<std::pair<const char*, std::int32_t>> amounts = {
      {"0.005", 0}, {"0.015", 2}, {"0.575", 58}, {"1.005", 100}, {"-0.025", -2}, {"2.675", 268}, {"0.0051", 1}};
  for (const auto& [typed, stored] : amounts) {
    KeepPay(12, [text = typed](frmEmpPRInfo& form) {
      Type(form.Wage, text);
      Press(form, "F10");
      Press(form, "Esc");
    });
    EXPECT_EQ(LongAt(File(), 145), stored) << typed;
  }
  KeepPay(12, [](frmEmpPRInfo& form) {
    Type(form.Commission, "0.00005");
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_EQ(LongAt(File(), 156), 0);
}

TEST_F(EmpPRInfo, WhatIsNoNumberOrTooLargeIsRefused) {
  const std::string before = File();
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok, Answer::Yes});
  KeepPay(12, [](frmEmpPRInfo& form) {
    Type(form.Wage, "abc");
    Press(form, "F10");
    EXPECT_TRUE(form.Wage.HasFocus());
    Type(form.Wage, "21474836.48");
    Press(form, "F10");
    Type(form.Wage, "1");
    Type(form.AddlLocal, "1,000.00");
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Wage ($/hour): \"abc\" is not a number.");
  EXPECT_EQ(desktop.boxes[1].text,
            "Wage ($/hour): \"21474836.48\" can't be stored. It must be from -21474836.48 to 21474836.47.");
  EXPECT_EQ(desktop.boxes[2].text, "Additional local withholding: \"1,000.00\" is not a number.");
  EXPECT_EQ(File(), before);
}

TEST_F(EmpPRInfo, WithNobodyChosenNothingIsSavedOrOpened) {
  const std::string before = File();
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  KeepPay(kNoEmployeeNumber, [](frmEmpPRInfo& form) {
    EXPECT_EQ(form.EmpList.Text(), " None");
    Press(form, "F10");
    Press(form, "F6");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "No employee selected.\rMust select an employee first.");
  EXPECT_EQ(File(), before);
  EXPECT_TRUE(Rows().empty());
}

TEST_F(EmpPRInfo, AnotherChoiceAndLeavingAskBeforeChangesAreLost) {
  desktop.WillAnswer({Answer::No, Answer::Yes, Answer::No, Answer::Yes});
  KeepPay(12, [](frmEmpPRInfo& form) {
    Choose(form.PrintSSN, "Yes");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    Choose(form.EmpList, "Abe Lee");
    EXPECT_EQ(form.EmpList.Text(), "Zoe Young");
    EXPECT_EQ(form.PrintSSN.Text(), "Yes");
    Choose(form.EmpList, "Abe Lee");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Choose(form.SalaryPeriod, "Yearly");
    Press(form, "Esc");
    EXPECT_TRUE(form.Visible());
    Press(form, "Esc");
  });
  for (const ui::Box& box : desktop.boxes) EXPECT_EQ(box.text, "Discard changes?");
}

TEST_F(EmpPRInfo, ActiveOnlyHidesWhoHasLeft) {
  KeepPay(9, [](frmEmpPRInfo& form) {
    EXPECT_EQ(form.EmpList.Text(), "Pat Old");
    Click(form.Check1);
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Zoe Young"}));
    EXPECT_EQ(form.EmpList.Text(), " None");
    Press(form, "Esc");
  });
}

TEST_F(EmpPRInfo, WhatOthersStoredMeanwhileStays) {
  Plain(directory / "Korvel.mdb", "insert into EmpPRInfo values (12, 1000, 250, 5, 1)");
  KeepPay(12, [this](frmEmpPRInfo& form) {
    Type(form.Wage, "20");
    Type(form.AddlState, "3");
    Change(0, [](Image& record) { record.Text(51, "9 Mill Lane").Long(160, 1).Text(154, "\3").Long(195, 909); });
    Plain(directory / "Korvel.mdb", "update EmpPRInfo set AdditionalFederal = 7777, PrintSSN = 0");
    Press(form, "F10");
    EXPECT_EQ(form.Insurance.Text(), "0.01");
    EXPECT_EQ(form.SalaryPeriod.Text(), "Twice a month");
    EXPECT_EQ(form.AddlFed.Text(), "77.77");
    Press(form, "Esc");
  });
  Image expected = Zoe();
  expected.Long(145, 2000).Text(51, "9 Mill Lane").Long(160, 1).Text(154, "\3").Long(195, 909);
  EXPECT_EQ(File().substr(0, kLength), expected.Bytes());
  EXPECT_EQ(Rows(), (Lines{"12|7777|300|5|0"}));
}

TEST_F(EmpPRInfo, APeriodThatTheTableHasNotStaysUntilItIsChosen) {
  Change(0, [](Image& record) { record.Text(149, "\x63"); });
  KeepPay(12, [](frmEmpPRInfo& form) {
    EXPECT_EQ(form.WagePeriod.ListIndex(), -1);
    Type(form.Savings, "3");
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_EQ(File()[149], '\x63');
}

TEST_F(EmpPRInfo, WithoutTheDatabaseTheAdditionalTakesNoInputAndTheRestIsSaved) {
  environment.hasKorvelDatabase = false;
  std::filesystem::remove(directory / "Korvel.mdb");
  KeepPay(12, [](frmEmpPRInfo& form) {
    for (const ui::TextBox* box : {&form.AddlFed, &form.AddlState, &form.AddlLocal}) {
      EXPECT_FALSE(box->IsUsable()) << box->Name();
      EXPECT_EQ(box->Text(), "");
    }
    EXPECT_FALSE(form.PrintSSN.IsUsable());
    Type(form.Wage, "20");
    Press(form, "F10");
    EXPECT_EQ(form.Wage.Text(), "20.00");
    Press(form, "Esc");
  });
  EXPECT_EQ(LongAt(File(), 145), 2000);
  EXPECT_FALSE(std::filesystem::exists(directory / "Korvel.mdb"));
}

TEST_F(EmpPRInfo, ADatabaseThatCanNotBeReadIsToldOfOnceAndTakenForNone) {
  directory.Put("Korvel.mdb", "nothing that a database is");
  desktop.WillAnswer(Answer::Ok);
  KeepPay(12, [](frmEmpPRInfo& form) {
    EXPECT_FALSE(form.AddlFed.IsUsable());
    EXPECT_EQ(form.Insurance.Text(), "25.50");
    Choose(form.EmpList, "Abe Lee");
    Type(form.Wage, "20");
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_NE(LastBox().text.find("\rThe additional withholding can't be shown."), std::string::npos);
  EXPECT_EQ(LongAt(File(), 3 * kLength + 145), 2000);
}

TEST_F(EmpPRInfo, AnEmployeeWhoIsGoneIsToldOf) {
  desktop.WillAnswer(Answer::Ok);
  KeepPay(7, [this](frmEmpPRInfo& form) {
    Type(form.Wage, "20");
    Remove(3);
    Press(form, "F10");
    EXPECT_EQ(form.EmpList.Text(), " None");
    EXPECT_EQ(form.Wage.Text(), "");
    Press(form, "Esc");
  });
  EXPECT_EQ(LastBox().text, "This employee has been deleted by another user.");
  EXPECT_TRUE(Rows().empty());
}

}  // namespace
}  // namespace lantos::test
