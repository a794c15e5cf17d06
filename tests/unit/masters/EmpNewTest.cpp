#include "EmployeeShop.h"
#include "masters/employees/NewEmployee.h"

namespace lantos::test {
namespace {

using EmpNew = EmployeeShop;

TEST_F(EmpNew, ANewEmployeeHasTheNextNumberAndIsChosen) {
  Maintain([this](frmEmpMaint& form) {
    EXPECT_EQ(form.cmdNew.ToolTip(), "Add New Employee <Ins>");
    WillName([](frmEmpNew& name) {
      EXPECT_EQ(name.Caption(), "New Employee");
      EXPECT_FALSE(name.txtOriginal.Visible());
      EXPECT_FALSE(name.lblOriginal.Visible());
      EXPECT_EQ(name.EmpName.MaxLength(), 31U);
      EXPECT_TRUE(name.EmpName.HasFocus());
      Type(name.EmpName, " Mia North ");
      Press(name, "F10");
    });
    Press(form, "Insert");
    EXPECT_EQ(form.EmpList.Text(), "Mia North");
    EXPECT_EQ(form.EmpNumber.Text(), "000014");
    EXPECT_TRUE(form.SocSecNum.HasFocus());
    EXPECT_EQ(form.DateHired.Text(), "");
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Mia North", "Pat Old", "Zoe Young"}));
    Press(form, "Esc");
  });
  EXPECT_EQ(File().substr(4 * kLength), EmployeeImage(14, "Mia North").Long(195, -1).Bytes());
  EXPECT_EQ(LongAt(directory.Content("TQSYSTEM.DAT"), 16), 15);
}

TEST_F(EmpNew, ARenamedEmployeeStandsWhereTheNewNameBelongs) {
  Maintain([this](frmEmpMaint& form) {
    EXPECT_EQ(form.cmdRename.ToolTip(), "Rename this employee.");
    Choose(form.EmpList, "Zoe Young");
    WillName([](frmEmpNew& name) {
      EXPECT_EQ(name.Caption(), "Change Employee Name");
      EXPECT_EQ(name.txtOriginal.Text(), "Zoe Young");
      EXPECT_TRUE(name.txtOriginal.Locked());
      EXPECT_EQ(name.lblOriginal.Caption(), "Original Name");
      EXPECT_EQ(name.lblEmpName.Caption(), "&New Employee Name");
      Type(name.EmpName, "Aaa Young");
      Press(name, "F10");
    });
    Click(form.cmdRename);
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Aaa Young", "Abe Lee", "bert Wood", "Pat Old"}));
    EXPECT_EQ(form.EmpList.ListIndex(), 1);
    EXPECT_EQ(form.EmpNumber.Text(), "000012");
    Press(form, "Esc");
  });
  Image expected = Zoe();
  expected.Text(4, "Aaa Young");
  EXPECT_EQ(File(), expected.Bytes() + Pat().Bytes() + Bert().Bytes() + Abe().Bytes());
}

TEST_F(EmpNew, ARenameLeavesWhatOthersStoredMeanwhile) {
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    WillName([this](frmEmpNew& name) {
      Type(name.EmpName, "Zoe Youngest");
      Change(0, [](Image& record) { record.Text(108, "97331").Long(195, 909); });
      Press(name, "F10");
    });
    Click(form.cmdRename);
    EXPECT_EQ(form.EmpZip.Text(), "97331");
    Press(form, "Esc");
  });
  Image expected = Zoe();
  expected.Text(4, "Zoe Youngest").Text(108, "97331").Long(195, 909);
  EXPECT_EQ(File().substr(0, kLength), expected.Bytes());
}

TEST_F(EmpNew, ANameThatIsEmptyIsRefusedAndOneTypedIsNotLostInSilence) {
  const std::string before = File();
  desktop.WillAnswer({Answer::Ok, Answer::No, Answer::Yes});
  Maintain([this](frmEmpMaint& form) {
    WillName([](frmEmpNew& name) {
      Type(name.EmpName, "  ");
      Press(name, "F10");
      EXPECT_TRUE(name.EmpName.HasFocus());
      Type(name.EmpName, "Mia");
      Press(name, "Esc");
      EXPECT_TRUE(name.Visible());
      Press(name, "Esc");
    });
    Press(form, "Insert");
    EXPECT_EQ(form.EmpList.Text(), " None");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "An employee must have a name.");
  EXPECT_EQ(desktop.boxes[1].text, "Discard changes?");
  EXPECT_EQ(File(), before);
  EXPECT_EQ(LongAt(directory.Content("TQSYSTEM.DAT"), 16), 14) << "no number was taken";
}

TEST_F(EmpNew, ChangesThatArePendingAreAskedAboutFirst) {
  desktop.WillAnswer({Answer::No, Answer::No, Answer::Yes});
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Type(form.EmpCity, "Nowhere");
    Press(form, "Insert");
    Click(form.cmdRename);
    EXPECT_EQ(form.EmpCity.Text(), "Nowhere");
    WillName([](frmEmpNew& name) { Press(name, "Esc"); });
    Press(form, "Insert");
    EXPECT_EQ(form.EmpCity.Text(), "") << "what was given up isn't shown any more";
    Press(form, "Esc");
  });
  for (const ui::Box& box : desktop.boxes) EXPECT_EQ(box.text, "Discard changes?");
}

TEST_F(EmpNew, ARenamedEmployeeWhoIsGoneIsToldOf) {
  desktop.WillAnswer(Answer::Ok);
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    WillName([this](frmEmpNew& name) {
      Remove(3);
      Type(name.EmpName, "Abel");
      Press(name, "F10");
    });
    Click(form.cmdRename);
    EXPECT_EQ(form.EmpList.Text(), " None");
    Press(form, "Esc");
  });
  EXPECT_EQ(LastBox().text, "This employee has been deleted by another user.");
}

TEST_F(EmpNew, AHeldFileLeavesTheNameOnItsScreen) {
  desktop.failuresExpected = true;
  desktop.WillAnswer(Answer::Yes);
  Maintain([this](frmEmpMaint& form) {
    WillName([this](frmEmpNew& name) {
      Type(name.EmpName, "Mia");
      const SharedFile other(directory / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
      Press(name, "F10");
      EXPECT_EQ(name.EmpName.Text(), "Mia");
      EXPECT_TRUE(name.Visible());
      Press(name, "Esc");
    });
    Press(form, "Insert");
    Press(form, "Esc");
  });
  EXPECT_EQ(File().size(), 4 * kLength);
}

TEST_F(EmpNew, ANumberThatIsTakenOrNobodysIsPassedOver) {
  directory.Put("TQSYSTEM.DAT", RawRecord(1038).Long(16, -1).Bytes());
  EXPECT_EQ(AddNewEmployee(records, "A"), 1);
  EXPECT_EQ(AddNewEmployee(records, "B"), 2);
  EXPECT_EQ(AddNewEmployee(records, "C"), 4) << "3 is Bert's";
}

TEST_F(EmpNew, DeletingAsksAndClosesUp) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Maintain([this](frmEmpMaint& form) {
    Choose(form.EmpList, "Pat Old");
    Click(form.cmdDelete);
    EXPECT_EQ(File().size(), 4 * kLength);
    EXPECT_EQ(form.EmpList.Text(), "Pat Old");
    Click(form.cmdDelete);
    EXPECT_EQ(NamesIn(form.EmpList), (Names{" None", "Abe Lee", "bert Wood", "Zoe Young"}));
    EXPECT_EQ(form.EmpList.Text(), " None");
    EXPECT_EQ(form.DateTerminated.Text(), "");
    EXPECT_TRUE(form.EmpList.HasFocus());
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text,
            "Are you sure you wish to delete this employee?\rThis action can not be \"un-done\"!");
  EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::YesNo);
  EXPECT_EQ(File(), Zoe().Bytes() + Bert().Bytes() + Abe().Bytes());
}

TEST_F(EmpNew, AnEmployeeWithPayRecordsIsNotDeleted) {
  const std::string before = File();
  desktop.WillAnswer(Answer::Ok);
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Zoe Young");
    Click(form.cmdDelete);
    EXPECT_EQ(form.EmpList.Text(), "Zoe Young");
    Press(form, "Esc");
  });
  EXPECT_EQ(LastBox().text, "Can not delete - this employee has P/R info on file.");
  EXPECT_EQ(File(), before);
}

TEST_F(EmpNew, APayrollThatIsRunDuringTheQuestionKeepsItsEmployee) {
  desktop.WillAnswer([this](const ui::Box&) {
    Change(3, [](Image& record) { record.Long(195, 0); });
    return Answer::Yes;
  });
  desktop.WillAnswer(Answer::Ok);
  Maintain([](frmEmpMaint& form) {
    Choose(form.EmpList, "Abe Lee");
    Click(form.cmdDelete);
    EXPECT_EQ(form.EmpList.Text(), "Abe Lee");
    Press(form, "Esc");
  });
  EXPECT_EQ(LastBox().text, "Can not delete - this employee has P/R info on file.");
  EXPECT_EQ(File().size(), 4 * kLength);
}

}  // namespace
}  // namespace lantos::test
