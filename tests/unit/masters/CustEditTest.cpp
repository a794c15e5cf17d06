#include "MasterShop.h"
#include "records/Customers.h"
#include "screens/EmployeeList.h"

namespace lantos::test {
namespace {

class CustEdit : public MasterShop {
 protected:
  CustEdit() {
    PutCustomers({{5, "SMITH", "JOHN", "", "JANE", "555-1111"}, {6, "ROE", "AL"}, {7, "ACME", ""}});
    MakeCustomerCurrent(6);
  }
  // The edit screen on the current customer, shown.
  bool Edit(const std::function<void(frmCustEdit&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmCustEdit>(shown)); });
    std::unique_ptr<frmCustEdit> window;
    const bool saved = screens.EditCustomer(MasterScreens::Window::New, window);
    window->Unload();
    return saved;
  }
  std::string Masters() const { return directory.Content("TQCSTDAT.DAT"); }
  std::string Tags() const { return directory.Content("TQCSTTAG.DAT"); }
};

TEST_F(CustEdit, TheFieldsAreFilledFromTheRecord) {
  MakeCustomerCurrent(5);
  Edit([](frmCustEdit& form) {
    EXPECT_EQ(form.CustomerNumber.Text(), "000005");
    EXPECT_TRUE(form.CustomerNumber.Locked());
    EXPECT_EQ(form.Date.Text(), "09/30/2003");
    EXPECT_EQ(form.Lastname.Text(), "SMITH");
    EXPECT_EQ(form.Spouse.Text(), "JANE");
    EXPECT_EQ(form.Address.Text(), "1 Main St");
    EXPECT_EQ(form.Home.Text(), "555-1111");
    EXPECT_EQ(form.PricingLevel.Text(), "Resale");
    EXPECT_EQ(form.EmpList.Text().substr(0, 9), "KIM JONES");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    EXPECT_EQ(form.Lastname.MaxLength(), 20U);
    EXPECT_EQ(form.State.MaxLength(), 2U);
    Press(form, "Esc");
  });
}

TEST_F(CustEdit, LookingWritesNothing) {
  const std::string masters = Masters();
  const std::string tags = Tags();
  EXPECT_FALSE(Edit([](frmCustEdit& form) { form.DoClose(); }));
  EXPECT_EQ(Masters(), masters);
  EXPECT_EQ(Tags(), tags);
}

TEST_F(CustEdit, SavingAnUnchangedRecordLeavesEveryByte) {
  const std::string masters = Masters();
  const std::string tags = Tags();
  EXPECT_TRUE(Edit([](frmCustEdit& form) { Press(form, "F10"); }));
  EXPECT_EQ(Masters(), masters);
  EXPECT_EQ(Tags(), tags);
}

struct EditedField {
  const char* name;
  ui::TextBox frmCustEdit::*box;
  std::size_t offset;
  std::size_t width;
};
constexpr EditedField kFields[] = {
    {"Address", &frmCustEdit::Address, 88, 33},  {"City", &frmCustEdit::City, 121, 21},
    {"State", &frmCustEdit::State, 142, 3},      {"Zip", &frmCustEdit::Zip, 145, 11},
    {"Home", &frmCustEdit::Home, 156, 15},       {"Work", &frmCustEdit::Work, 171, 15},
    {"Ext", &frmCustEdit::Ext, 186, 6},          {"Other", &frmCustEdit::Other, 192, 15},
    {"TaxID", &frmCustEdit::TaxID, 213, 21},     {"Comment", &frmCustEdit::Comment, 234, 47},
    {"Lastname", &frmCustEdit::Lastname, 4, 21}, {"Firstname", &frmCustEdit::Firstname, 25, 21},
    {"Spouse", &frmCustEdit::Spouse, 46, 21},    {"SpouseLastname", &frmCustEdit::SpouseLastname, 67, 21}};

TEST_F(CustEdit, EditingOneFieldChangesThatFieldsBytesAlone) {
  for (const EditedField& field : kFields) {
    const std::string before = Masters();
    Edit([&](frmCustEdit& form) {
      (form.*field.box).DoType("Q");
      EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
      form.cmdSave.DoClick();
    });
    std::string expected = before;
    expected.replace(317 + field.offset, field.width, Padded("Q", field.width));
    EXPECT_EQ(Masters(), expected) << field.name;
  }
  EXPECT_EQ(TextAt(Tags(), 96 + 4, 32), "Q,Q");
  EXPECT_EQ(TextAt(Tags(), 96 + 36, 32), "Q,Q");
  EXPECT_EQ(TextAt(Tags(), 96 + 72, 15), "Q");
  EXPECT_EQ(LongAt(Tags(), 96 + 68), 317);
}

TEST_F(CustEdit, BytesBehindTheNulOfAnUntouchedFieldStay) {
  std::string masters = Masters();
  masters.replace(317 + 88, 20, std::string("1 Main St\0old bytes.", 20));
  directory.Put("TQCSTDAT.DAT", masters);
  records.customers.CurrentCustomer = {};
  MakeCustomerCurrent(6);
  Edit([](frmCustEdit& form) {
    EXPECT_EQ(form.Address.Text(), "1 Main St");
    form.Zip.DoType("93701");
    form.cmdSave.DoClick();
  });
  masters.replace(317 + 145, 5, "93701");
  EXPECT_EQ(Masters(), masters);
}

TEST_F(CustEdit, LevelDateAndSalespersonGoToTheirFields) {
  Edit([](frmCustEdit& form) {
    form.PricingLevel.DoSelect(0);
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    form.EmpList.DoSelect(1);
    form.Date.DoType("1/2/2004");
    form.cmdSave.DoClick();
  });
  const std::string master = Masters().substr(317, 317);
  EXPECT_EQ(master.substr(207, 2), std::string("\0\0", 2));
  EXPECT_EQ(LongAt(master, 209), 693974 + 37988);
  EXPECT_EQ(master.substr(281, 32), Padded("LEE WEST", 32));
}

TEST_F(CustEdit, NoneAsTheEmployeeBlanksTheSalesperson) {
  Edit([](frmCustEdit& form) {
    EXPECT_EQ(form.EmpList.List(0), " None");
    form.EmpList.DoSelect(0);
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(Masters().substr(317 + 281, 32), std::string(32, '\0'));
}

TEST_F(CustEdit, ASalespersonWhoIsNotListedIsNotLost) {
  PutEmployees({{3, "LEE WEST", -1}});
  const std::string masters = Masters();
  Edit([](frmCustEdit& form) {
    EXPECT_EQ(EmployeeNameOf(form.EmpList.Text()), "KIM JONES");
    form.Check1.DoClick();
    EXPECT_EQ(EmployeeNameOf(form.EmpList.Text()), "KIM JONES");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(Masters(), masters);
}

TEST_F(CustEdit, AnInvalidDateKeepsTheFocusAndStopsTheSave) {
  const std::string masters = Masters();
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Yes});
  Edit([](frmCustEdit& form) {
    form.MoveFocus(&form.Date);
    form.Date.DoType("13/45/2003");
    EXPECT_FALSE(form.MoveFocus(&form.Lastname));
    Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_TRUE(form.MoveFocus(&form.cmdCancel));
    form.cmdCancel.DoClick();
  });
  EXPECT_EQ(desktop.boxes[0].text, "Invalid date!");
  EXPECT_EQ(desktop.boxes[1].text, "Invalid date!");
  EXPECT_EQ(desktop.boxes[2].text, "Discard changes?");
  EXPECT_EQ(Masters(), masters);
}

TEST_F(CustEdit, ABareSerialInTheDateIsShownAndKept) {
  std::string masters = Masters();
  masters.replace(317 + 209, 4, RawRecord(4).Long(0, 37894).Bytes());
  directory.Put("TQCSTDAT.DAT", masters);
  records.customers.CurrentCustomer = {};
  MakeCustomerCurrent(6);
  Edit([](frmCustEdit& form) {
    EXPECT_EQ(form.Date.Text(), "09/30/2003");
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(Masters(), masters);
}

TEST_F(CustEdit, AChangedScreenAsksBeforeItCloses) {
  desktop.WillAnswer({Answer::No, Answer::No, Answer::Yes});
  Edit([](frmCustEdit& form) {
    form.Zip.DoType("1");
    Press(form, "Esc");
    EXPECT_TRUE(form.Visible());
    form.DoClose();
    EXPECT_TRUE(form.Visible());
    form.DoClose();
  });
  EXPECT_EQ(desktop.boxes[0].text, "Discard changes?");
}

TEST_F(CustEdit, ResetShowsTheRecordAgain) {
  Edit([](frmCustEdit& form) {
    form.Lastname.DoType("X");
    Press(form, "F2");
    EXPECT_EQ(form.Lastname.Text(), "ROE");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "Esc");
  });
}

TEST_F(CustEdit, PreviousAndNextWalkTheTagsAndBeepAtTheEnds) {
  Edit([this](frmCustEdit& form) {
    Press(form, "PgUp");
    EXPECT_EQ(form.Lastname.Text(), "SMITH");
    Press(form, "PgUp");
    EXPECT_EQ(desktop.beeps, 1);
    EXPECT_EQ(form.Lastname.Text(), "SMITH");
    Press(form, "PgDn");
    Press(form, "PgDn");
    EXPECT_EQ(form.Lastname.Text(), "ACME");
    Press(form, "PgDn");
    EXPECT_EQ(desktop.beeps, 2);
    Press(form, "Esc");
  });
}

TEST_F(CustEdit, GoingOnWithChangesAsksToSaveThemFirst) {
  desktop.WillAnswer({Answer::Yes, Answer::No});
  Edit([](frmCustEdit& form) {
    form.Zip.DoType("1");
    form.cmdNext.DoClick();
    EXPECT_EQ(form.Lastname.Text(), "ACME");
    form.Zip.DoType("2");
    form.cmdPrev.DoClick();
    EXPECT_EQ(form.Zip.Text(), "1");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Save changes first?");
  EXPECT_EQ(Masters().substr(317 + 145, 2), std::string("1\0", 2));
  EXPECT_EQ(Masters()[634 + 145], '\0');
}

TEST_F(CustEdit, ALostTagIsAFatalErrorWhenGoingOn) {
  desktop.WillAnswer(Answer::Ok);
  Edit([this](frmCustEdit& form) {
    PutCustomers({{5, "SMITH", "JOHN"}});
    records.customers.LoadCustomerTags();
    form.cmdNext.DoClick();
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "ERROR: Could not locate customer tag record!");
  EXPECT_EQ(desktop.boxes[0].title, "Edit Customer: Fatal Error");
}

TEST_F(CustEdit, GivingUpOnALockedFileKeepsTheScreenAndTheWorkingRecord) {
  const std::string masters = Masters();
  desktop.WillAnswer({Answer::Cancel, Answer::Yes});
  {
    const SharedFile held(directory.Path() / "TQCSTTAG.DAT", Access::ReadWrite, Deny::All);
    EXPECT_FALSE(Edit([](frmCustEdit& form) {
      form.Zip.DoType("1");
      form.cmdSave.DoClick();
      EXPECT_TRUE(form.Visible());
      EXPECT_EQ(form.Zip.Text(), "1");
      Press(form, "Esc");
    }));
  }
  EXPECT_EQ(records.customers.CurrentCustomer.Get(customer::Zip), "");
  EXPECT_EQ(Masters(), masters);
}

TEST_F(CustEdit, TheVehiclesOfTheCustomerOpenByTheirKey) {
  desktop.WillUse([this](ui::Form& shown) {
    desktop.WillUse([](ui::Form& list) {
      EXPECT_EQ(As<frmVehList>(list).CustName.Text(), "ROE, AL");
      Press(list, "Esc");
    });
    Press(shown, "Alt+V");
    Press(shown, "Esc");
  });
  std::unique_ptr<frmCustEdit> window;
  screens.EditCustomer(MasterScreens::Window::New, window);
  window->Unload();
}

TEST_F(CustEdit, AWindowCanServeTwice) {
  std::unique_ptr<frmCustEdit> window;
  desktop.WillUse([](ui::Form& shown) { Press(shown, "Esc"); });
  screens.EditCustomer(MasterScreens::Window::New, window);
  const frmCustEdit* first = window.get();
  MakeCustomerCurrent(5);
  desktop.WillUse([](ui::Form& shown) {
    EXPECT_EQ(As<frmCustEdit>(shown).Lastname.Text(), "SMITH");
    Press(shown, "Esc");
  });
  screens.EditCustomer(MasterScreens::Window::Kept, window);
  EXPECT_EQ(window.get(), first);
  window->Unload();
}

// The employee list.

class EmployeeListTest : public MasterShop {
 protected:
  ui::Form form{desktop, "frmAny", "Any"};
  ui::ComboBox list{form, "EmpList"};
};

TEST_F(EmployeeListTest, NoneStandsFirstAndTheNumberFromCharacter32On) {
  EXPECT_TRUE(FillEmployeeList(shop, list, {}));
  ASSERT_EQ(list.ListCount(), 4);
  EXPECT_EQ(list.List(0), " None");
  EXPECT_EQ(list.List(1), "LEE WEST" + std::string(23, ' ') + "000003");
  EXPECT_EQ(Mid(list.List(2), 32, 6), "000007");
  EXPECT_EQ(EmployeeNameOf(list.List(2)), "KIM JONES");
  EXPECT_EQ(EmployeeNumberOf(list.List(2)), 7);
  EXPECT_EQ(EmployeeNameOf(list.List(0)), "");
  EXPECT_EQ(EmployeeNumberOf(list.List(0)), 0);
}

TEST_F(EmployeeListTest, ActiveOnlyLeavesOutTheTerminated) {
  EXPECT_TRUE(FillEmployeeList(shop, list, {true, false}));
  EXPECT_EQ(list.ListCount(), 2);
}

TEST_F(EmployeeListTest, AnEmptyListIsToldOf) {
  PutEmployees({});
  EXPECT_TRUE(FillEmployeeList(shop, list, {false, true})) << "with None it isn't empty";
  EXPECT_EQ(list.ListCount(), 1);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(FillEmployeeList(shop, list, {false, false}));
  EXPECT_EQ(desktop.boxes[0].text, "There are no employees!");
  EXPECT_EQ(desktop.boxes[0].title, "Load Employee List");
}

TEST_F(EmployeeListTest, AFileThatCanNotBeReadIsToldOf) {
  const SharedFile held(directory.Path() / "TQEMPLOY.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer(Answer::Ok);
  EXPECT_FALSE(FillEmployeeList(shop, list, {}));
  EXPECT_EQ(desktop.boxes[0].text, "Could not access employee master file!");
}

}  // namespace
}  // namespace lantos::test
