#include "EmployeeShop.h"

namespace lantos::test {
namespace {

using EmpMaint = EmployeeShop;

TEST_F(EmpMaint, TheListHasNobodyFirstThenTheNamesInTheirOrder) {
  Maintain([](frmEmpMaint& form) {
    EXPECT_EQ(form.Caption(), "Employee Maintenance");
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Pat Old", "Zoe Young"}));
    EXPECT_EQ(form.EmpList.Text(), " None");
    EXPECT_EQ(form.EmpNumber.Text(), "");
    EXPECT_EQ(form.NumExemptions.Text(), "");
    EXPECT_EQ(form.MaritalStatus.ListIndex(), -1);
    Press(form, "Esc");
  });
}

TEST_F(EmpMaint, ActiveOnlyHidesWhoHasLeftAndOffShowsThem) {
  Maintain([](frmEmpMaint& form) {
    Click(form.Check1);
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Zoe Young"}));
    Click(form.Check1);
    EXPECT_EQ(form.EmpList.FindText("Pat Old"), 3);
    Press(form, "Esc");
  });
}

TEST_F(EmpMaint, ShowsEveryFieldOfWhoIsChosen) {
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    EXPECT_EQ(form.EmpNumber.Text(), "000012");
    EXPECT_TRUE(form.EmpNumber.Locked());
    EXPECT_EQ(form.SocSecNum.Text(), "000-00-0012");
    EXPECT_EQ(form.EmpAddr.Text(), "1 Mill Lane");
    EXPECT_EQ(form.EmpCity.Text(), "Springfield");
    EXPECT_EQ(form.EmpState.Text(), "OH");
    EXPECT_EQ(form.EmpZip.Text(), "45501");
    EXPECT_EQ(form.EmpPhone.Text(), "937-555-0912");
    EXPECT_EQ(form.MaritalStatus.Text(), "Married");
    EXPECT_EQ(form.NumExemptions.Text(), "2");
    EXPECT_EQ(form.FICAExempt.Text(), "No");
    EXPECT_EQ(form.DateHired.Text(), "07/24/1998");
    EXPECT_EQ(form.DateTerminated.Text(), "") << "-1 is blank";
    Choose(form.EmpList, "Pat Old");
    EXPECT_EQ(form.DateHired.Text(), "");
    EXPECT_EQ(form.DateTerminated.Text(), "05/15/2001");
    EXPECT_EQ(form.cmdDelete.ToolTip(), "Delete this employee.");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Choose(form.EmpList, " None");
    EXPECT_EQ(form.DateTerminated.Text(), "");
    EXPECT_EQ(form.EmpNumber.Text(), "");
    Press(form, "Esc");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(EmpMaint, EachBoxHoldsWhatItsFieldDoes) {
  Maintain([](frmEmpMaint& form) {
    const std::vector<std::pair<ui::TextBox*, std::size_t>> lengths = {
        {&form.SocSecNum, 14},    {&form.EmpAddr, 32},   {&form.EmpCity, 20},
        {&form.EmpState, 2},      {&form.EmpZip, 10},    {&form.EmpPhone, 14},
        {&form.NumExemptions, 3}, {&form.DateHired, 10}, {&form.DateTerminated, 10}};
    for (const auto& [box, length] : lengths) EXPECT_EQ(box->MaxLength(), length) << box->Name();
    Press(form, "Esc");
  });
}

TEST_F(EmpMaint, EveryFieldIsSavedAndEveryOtherByteStays) {
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    Type(form.SocSecNum, "1");
    Type(form.EmpAddr, "2 Mill Lane");
    Type(form.EmpCity, "C");
    Type(form.EmpState, "NY");
    Type(form.EmpZip, "3");
    Type(form.EmpPhone, " 4 ");
    Choose(form.MaritalStatus, "Single");
    Type(form.NumExemptions, "255");
    Choose(form.FICAExempt, "Yes");
    Type(form.DateHired, "");
    Type(form.DateTerminated, "2/29/00");
    Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    EXPECT_EQ(form.EmpList.Text(), "Zoe Young");
    EXPECT_EQ(form.DateTerminated.Text(), "02/29/2000");
    EXPECT_EQ(form.EmpPhone.Text(), "4");
    Press(form, "Esc");
  });
  Image expected = Zoe();
  const auto text = [&](std::size_t offset, const std::string& bytes, std::size_t width) {
    expected.Text(offset, Padded(bytes, width));
  };
  text(36, "1", 15);
  text(51, "2 Mill Lane", 33);
  text(84, "C", 21);
  text(105, "NY", 3);
  text(108, "3", 11);
  text(119, "4", 15);
  expected.Long(134, -1).Long(138, 693974 + 36585).Text(142, std::string("\0\xFF\1", 3));
  EXPECT_EQ(File(), expected.Bytes() + Pat().Bytes() + Bert().Bytes() + Abe().Bytes());
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(EmpMaint, SavingWithoutAChangeLeavesEveryByte) {
  Change(0, [](Image& record) { record.Text(60, "old").Text(142, std::string("\x4D\2\x59", 3)); });
  const std::string before = File();
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    EXPECT_EQ(form.MaritalStatus.ListIndex(), -1) << "a code that is none of the two";
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_EQ(File(), before);
}

TEST_F(EmpMaint, WhatOthersStoredMeanwhileStays) {
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    Type(form.EmpZip, "97331");
    Change(0, [](Image& record) {
      record.Long(145, 2000).Long(195, 909).Text(119, "541-555-0000").Long(134, 731868).Text(142, std::string(1, 0));
    });
    Press(form, "F10");
    EXPECT_EQ(form.EmpPhone.Text(), "541-555-0000");
    EXPECT_EQ(form.DateHired.Text(), "09/30/2003");
    EXPECT_EQ(form.MaritalStatus.Text(), "Single");
    Press(form, "Esc");
  });
  Image expected = Zoe();
  expected.Text(108, "97331").Long(145, 2000).Long(195, 909).Text(119, "541-555-0000").Long(134, 731868);
  expected.Text(142, std::string(1, 0));
  EXPECT_EQ(File().substr(0, kLength), expected.Bytes());
}

TEST_F(EmpMaint, ABadDateIsRefusedAndKeepsTheFocus) {
  for (const char* bad : {"02/30/2001", "2/29/2001", "13/1/2001", "yesterday", "12/30/1899"}) {
    desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Yes});
    Maintain([bad](frmEmpMaint& form) {
      Choose(form.EmpList, "Zoe Young");
      for (ui::TextBox* date : {&form.DateHired, &form.DateTerminated}) {
        if (!date->HasFocus()) EXPECT_TRUE(form.MoveFocus(date)) << bad;
        date->DoType(bad);
        EXPECT_FALSE(form.MoveFocus(&form.EmpZip));
        EXPECT_TRUE(date->HasFocus());
        EXPECT_EQ(date->Text(), std::string(bad).substr(0, 10));
        date->DoType("");
      }
      Press(form, "Esc");
    });
    EXPECT_EQ(desktop.boxes.size(), 3U);
    EXPECT_EQ(desktop.boxes[0].text, "Invalid Date");
    EXPECT_EQ(desktop.boxes[0].title, "Employee Maintenance");
    desktop.boxes.clear();
  }
}

TEST_F(EmpMaint, AGoodDateIsRewrittenWhenItsBoxIsLeft) {
  const std::vector<std::pair<const char*, const char*>> dates = {
      {"2/29/2000", "02/29/2000"},  {"9/5/29", "09/05/2029"}, {"9/5/30", "09/05/1930"},
      {"2003-09-30", "09/30/2003"}, {"9-30", "09/30/2003"},   {"", ""}};
  desktop.WillAnswer(Answer::Yes);
  Maintain([&](frmEmpMaint& form) {
    Choose(form.EmpList, "bert Wood");
    for (const auto& [typed, shown] : dates) {
      Type(form.DateHired, typed);
      EXPECT_TRUE(form.MoveFocus(&form.EmpZip)) << typed;
      EXPECT_EQ(form.DateHired.Text(), shown);
    }
    Press(form, "Esc");
  });
}

TEST_F(EmpMaint, TheSaveKeyRefusesABadDateToo) {
  const std::string before = File();
  desktop.WillAnswer({Answer::Ok, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Type(form.DateTerminated, "02/30/2001");
    Press(form, "F10");
    EXPECT_TRUE(form.DateTerminated.HasFocus());
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Invalid Date");
  EXPECT_EQ(File(), before);
}

TEST_F(EmpMaint, ExemptionsAreAWholeNumberThatAByteHolds) {
  const std::string before = File();
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Type(form.NumExemptions, "256");
    Press(form, "F10");
    Type(form.NumExemptions, "two");
    Press(form, "F10");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Exemptions: \"256\" can't be stored. It must be from 0 to 255.");
  EXPECT_EQ(desktop.boxes[1].text, "Exemptions: \"two\" is not a number.");
  EXPECT_EQ(File(), before);
}

TEST_F(EmpMaint, WithNobodyChosenEachCommandSaysSo) {
  const std::string before = File();
  for (int i = 0; i < 4; ++i) desktop.WillAnswer(Answer::Ok);
  Maintain([](frmEmpMaint& form) {
    Press(form, "F10");
    Click(form.cmdRename);
    Press(form, "F6");
    Click(form.cmdDelete);
    Press(form, "Esc");
  });
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(desktop.boxes[i].text, "No employee selected!");
  EXPECT_EQ(desktop.boxes[3].text, "No employee selected - can not delete.");
  EXPECT_EQ(File(), before);
}

TEST_F(EmpMaint, AnotherChoiceAsksBeforeChangesAreLost) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    Type(form.EmpCity, "Nowhere");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    EXPECT_EQ(form.cmdCancel.ToolTip(), "Close/Cancel <Esc>");
    Choose(form.EmpList, "Abe Lee");
    EXPECT_EQ(form.EmpList.Text(), "Zoe Young");
    EXPECT_EQ(form.EmpCity.Text(), "Nowhere");
    Choose(form.EmpList, "Abe Lee");
    EXPECT_EQ(form.EmpNumber.Text(), "000007");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Discard changes?");
  EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::YesNo);
}

TEST_F(EmpMaint, LeavingAsksBeforeChangesAreLost) {
  desktop.WillAnswer({Answer::No, Answer::No, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Choose(form.FICAExempt, "Yes");
    form.cmdCancel.DoClick();
    EXPECT_TRUE(form.Visible());
    form.DoClose();
    EXPECT_TRUE(form.Visible());
    Press(form, "Esc");
    EXPECT_FALSE(form.Visible());
  });
  for (const ui::Box& box : desktop.boxes) EXPECT_EQ(box.text, "Discard changes?");
}

TEST_F(EmpMaint, WhoeverTheFilterTakesOffIsLeftButNotWithoutAsking) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Type(form.EmpCity, "Kept");
    Click(form.Check1);
    EXPECT_EQ(form.EmpCity.Text(), "Kept") << "who stays in the list stays on the screen";
    EXPECT_EQ(form.EmpList.Text(), "Abe Lee");
    Click(form.Check1);
    Press(form, "F10");
    Choose(form.EmpList, "Pat Old");
    Type(form.EmpCity, "Lost");
    Click(form.Check1);
    EXPECT_FALSE(form.Check1.Value());
    EXPECT_EQ(form.EmpCity.Text(), "Lost");
    Click(form.Check1);
    EXPECT_EQ(form.EmpList.Text(), " None");
    EXPECT_EQ(form.EmpCity.Text(), "");
    Press(form, "Esc");
  });
}

TEST_F(EmpMaint, WhoIsSavedAsGoneLeavesTheListOfTheActive) {
  Maintain([](frmEmpMaint& form) {
    Click(form.Check1);
    Choose(form.EmpList, "Abe Lee");
    Type(form.DateTerminated, "9/29/2003");
    Press(form, "F10");
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "bert Wood", "Zoe Young"}));
    EXPECT_EQ(form.EmpList.Text(), " None");
    Press(form, "Esc");
  });
  EXPECT_EQ(LongAt(File(), 3 * kLength + 138), 731867);
}

TEST_F(EmpMaint, PayIsOpenedForWhoIsChosen) {
  Maintain([this](frmEmpMaint& form) {
    EXPECT_EQ(form.cmdPRInfo.ToolTip(), "View/Edit Payroll Info <F7>");
    EXPECT_EQ(form.cmdPayroll.ToolTip(), "View/Edit Payroll <F6>");
    Choose(form.EmpList, "Zoe Young");
    desktop.WillUse([](ui::Form& shown) {
      EXPECT_EQ(As<frmEmpPRInfo>(shown).EmpList.Text(), "Zoe Young");
      Press(shown, "Esc");
    });
    Press(form, "F7");
    Press(form, "Esc");
  });
}

TEST_F(EmpMaint, AnEmployeeWhoIsGoneIsToldOfAndLeavesTheList) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok});
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Type(form.EmpCity, "Nowhere");
    Remove(3);
    Press(form, "F10");
    EXPECT_EQ(form.EmpList.Text(), " None");
    EXPECT_EQ(form.EmpCity.Text(), "");
    EXPECT_EQ(form.EmpList.FindText("Abe Lee"), -1);
    Remove(2);
    Choose(form.EmpList, "bert Wood");
    EXPECT_EQ(form.EmpList.Text(), " None");
    EXPECT_EQ(form.EmpNumber.Text(), "");
    Choose(form.EmpList, "Pat Old");
    Remove(1);
    Click(form.cmdDelete);
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Zoe Young"}));
    Press(form, "Esc");
  });
  for (const ui::Box& box : desktop.boxes) EXPECT_EQ(box.text, "This employee has been deleted by another user.");
  EXPECT_EQ(File(), Zoe().Bytes());
}

TEST_F(EmpMaint, AHeldFileEndsTheSaveAndLeavesWhatWasTyped) {
  const std::string before = File();
  desktop.failuresExpected = true;
  desktop.WillAnswer(Answer::Yes);
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Type(form.EmpCity, "Dayton");
    {
      const SharedFile other(directory / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
      Press(form, "F10");
    }
    EXPECT_EQ(form.EmpCity.Text(), "Dayton");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    Press(form, "Esc");
  });
  EXPECT_EQ(File(), before);
}

TEST_F(EmpMaint, AFileThatIsHeldForAMomentLetsWhatWasReadLastBeLookedAt) {
  Maintain([this](frmEmpMaint& form) {
    {
      const SharedFile other(directory / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
      Choose(form.EmpList, "Zoe Young");
      EXPECT_EQ(form.EmpAddr.Text(), "1 Mill Lane");
    }
    Change(0, [](Image& record) { record.Text(51, "9 Mill Lane"); });
    Choose(form.EmpList, "Abe Lee");
    Choose(form.EmpList, "Zoe Young");
    EXPECT_EQ(form.EmpAddr.Text(), "9 Mill Lane") << "as the file has it when it can be had";
    Press(form, "Esc");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(EmpMaint, AFileThatStaysHeldKeepsTheScreenFromOpening) {
  const SharedFile other(directory / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
  frmEmpMaint form(shop, database.korvelData);
  EXPECT_THROW(form.ShowModal(), FileError);
  EXPECT_FALSE(form.Visible());
}

TEST_F(EmpMaint, ARecordThatIsDroppedAndASecondOfANumberAreNotListed) {
  directory.Put("TQEMPLOY.DAT",
                File() + EmployeeImage(-1, "Dropped").Bytes() + EmployeeImage(7, "Abe's double").Bytes());
  Maintain([](frmEmpMaint& form) {
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Pat Old", "Zoe Young"}));
    Press(form, "Esc");
  });
}

}  // namespace
}  // namespace lantos::test
