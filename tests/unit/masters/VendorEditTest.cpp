#include "VendorShop.h"

namespace lantos::test {
namespace {

class VendorEdit : public VendorShop {
 protected:
  VendorEdit() { records.vendors.LoadVendors(); }
  // On the first vendor of the list, which has all that aren't deleted.
  bool Show(frmVendorEdit::Purpose purpose, const std::function<void(frmVendorEdit&)>& use) {
    WillEdit(use);
    records.vendors.MakeCurrent(0);
    frmVendorEdit form(shop, purpose, {0, 2, 3}, 0);
    form.ShowModal();
    const bool saved = form.Saved();
    form.Unload();
    return saved;
  }
  bool Edit(const std::function<void(frmVendorEdit&)>& use) { return Show(frmVendorEdit::Purpose::Edit, use); }
};

TEST_F(VendorEdit, ShowsEveryField) {
  Edit([](frmVendorEdit& form) {
    EXPECT_EQ(form.VendorName.Text(), "Alpha Glass");
    EXPECT_EQ(form.Contact.Text(), "Ann Adams");
    EXPECT_EQ(form.Address.Text(), "1 Pane Street");
    EXPECT_EQ(form.City.Text(), "Dayton");
    EXPECT_EQ(form.State.Text(), "OH");
    EXPECT_EQ(form.Zip.Text(), "45402");
    EXPECT_EQ(form.Phone1.Text(), "937-555-0101");
    EXPECT_EQ(form.Phone1Ext.Text(), "11");
    EXPECT_EQ(form.Phone2.Text(), "937-555-0102");
    EXPECT_EQ(form.Phone3.Text(), "937-555-0103");
    EXPECT_EQ(form.TaxIdNumber.Text(), "31-1");
    EXPECT_TRUE(form.VendorName.HasFocus());
    Press(form, "Esc");
  });
}

TEST_F(VendorEdit, EachBoxHoldsOneCharacterLessThanItsField) {
  Edit([](frmVendorEdit& form) {
    const std::vector<std::pair<ui::TextBox*, std::size_t>> lengths = {
        {&form.VendorName, 31}, {&form.Contact, 31}, {&form.Address, 32},    {&form.City, 20},
        {&form.State, 2},       {&form.Zip, 10},     {&form.Phone1, 14},     {&form.Phone1Ext, 5},
        {&form.Phone2, 14},     {&form.Phone3, 14},  {&form.TaxIdNumber, 20}};
    for (const auto& [box, length] : lengths) EXPECT_EQ(box->MaxLength(), length) << box->Name();
    Press(form, "Esc");
  });
}

TEST_F(VendorEdit, SavesEveryFieldToTheFile) {
  EXPECT_TRUE(Edit([](frmVendorEdit& form) {
    Type(form.VendorName, "  Omega ");
    Type(form.Contact, "c");
    Type(form.Address, "a");
    Type(form.City, "i");
    Type(form.State, "CA");
    Type(form.Zip, "z");
    Type(form.Phone1, "1");
    Type(form.Phone1Ext, "x");
    Type(form.Phone2, "2");
    Type(form.Phone3, "3");
    Type(form.TaxIdNumber, "t");
    Press(form, "F10");
  }));
  const Image expected = VendorImage("Omega", "i", "CA").Text(32, "c").Text(64, "a").Text(121, "z").Text(132, "1");
  EXPECT_EQ(RecordAt(0), Image(expected).Text(147, "x").Text(153, "2").Text(168, "3").Text(183, "t").Bytes());
  EXPECT_EQ(RecordAt(2), Gamma());
}

TEST_F(VendorEdit, TheNextVendorsFieldIsEnteredAnew) {
  Edit([](frmVendorEdit& form) {
    form.MoveFocus(&form.Contact);
    Press(form, "PgDn");
    EXPECT_TRUE(form.Contact.HasFocus());
    form.MoveFocus(&form.VendorName);
    Press(form, "PgUp");
    Press(form, "X");
    EXPECT_EQ(form.VendorName.Text().size(), 1U) << "the name was marked";
    form.MoveFocus(&form.cmdNext);
    form.cmdReset.DoClick();
    form.cmdNext.DoClick();
    EXPECT_TRUE(form.cmdNext.HasFocus()) << "it may be pressed again";
    Press(form, "Esc");
  });
}

TEST_F(VendorEdit, SavingAnUnchangedVendorLeavesEveryByte) {
  const std::string before = File();
  EXPECT_TRUE(Edit([](frmVendorEdit& form) {
    Press(form, "PgDn");
    Press(form, "F10");
  }));
  EXPECT_EQ(File(), before) << "what is old behind a NUL stays too";
}

TEST_F(VendorEdit, AVendorWithoutANameIsNotSaved) {
  desktop.WillAnswer({Answer::Ok, Answer::Yes});
  EXPECT_FALSE(Edit([](frmVendorEdit& form) {
    Type(form.VendorName, "  ");
    Type(form.Contact, "c");
    Press(form, "F10");
    EXPECT_TRUE(form.VendorName.HasFocus());
    Press(form, "Esc");
  }));
  EXPECT_EQ(desktop.boxes[0].text, "A vendor must have a name.");
  EXPECT_EQ(RecordAt(0), Alpha().Bytes());
}

TEST_F(VendorEdit, TheCloseButtonBecomesCancelWithTheFirstChangeAndAsks) {
  desktop.WillAnswer({Answer::No, Answer::No, Answer::Yes});
  EXPECT_FALSE(Edit([](frmVendorEdit& form) {
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Type(form.Zip, "9");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    form.cmdCancel.DoClick();
    EXPECT_TRUE(form.Visible());
    form.DoClose();
    EXPECT_TRUE(form.Visible());
    Press(form, "Esc");
    EXPECT_FALSE(form.Visible());
  }));
  for (const ui::Box& box : desktop.boxes) {
    EXPECT_EQ(box.text, "Discard changes?");
    EXPECT_EQ(box.title, "Edit Vendor");
    EXPECT_EQ(box.buttons, ui::Buttons::YesNo);
  }
  EXPECT_EQ(RecordAt(0), Alpha().Bytes());
}

TEST_F(VendorEdit, ResetShowsTheRecordAgain) {
  Edit([](frmVendorEdit& form) {
    Type(form.City, "Xenia");
    Press(form, "F2");
    EXPECT_EQ(form.City.Text(), "Dayton");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "Esc");
  });
}

TEST_F(VendorEdit, GoesFromRowToRowAndBeepsAtTheEnds) {
  Edit([this](frmVendorEdit& form) {
    Press(form, "PgUp");
    EXPECT_EQ(desktop.beeps, 1);
    form.cmdNext.DoClick();
    EXPECT_EQ(form.VendorName.Text(), "Gamma Towing") << "the deleted one isn't in the list";
    EXPECT_EQ(form.Index(), 2U);
    Press(form, "PgDn");
    EXPECT_EQ(form.VendorName.Text(), "Delta Paint");
    Press(form, "PgDn");
    EXPECT_EQ(desktop.beeps, 2);
    EXPECT_EQ(form.Index(), 3U);
    form.cmdPrev.DoClick();
    EXPECT_EQ(form.Index(), 2U);
    Press(form, "Esc");
  });
}

TEST_F(VendorEdit, GoingOnWithChangesAsksFirst) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Edit([](frmVendorEdit& form) {
    Type(form.City, "Xenia");
    Press(form, "PgDn");
    EXPECT_EQ(form.City.Text(), "Xenia");
    EXPECT_EQ(form.Index(), 0U);
    form.cmdNext.DoClick();
    EXPECT_EQ(form.VendorName.Text(), "Gamma Towing");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "PgUp");
    EXPECT_EQ(form.City.Text(), "Dayton");
    Press(form, "Esc");
  });
  for (const ui::Box& box : desktop.boxes) {
    EXPECT_EQ(box.text, "Discard current changes?");
    EXPECT_EQ(box.title, "Edit Vendor");
    EXPECT_EQ(box.buttons, ui::Buttons::YesNo);
  }
}

TEST_F(VendorEdit, AtTheEndOfTheListItAsksAsElsewhereAndNoLosesNothing) {
  Edit([this](frmVendorEdit& form) {
    Type(form.City, "Xenia");
    desktop.WillAnswer(ui::Answer::No);
    Press(form, "PgUp");
    EXPECT_EQ(desktop.boxes.back().text, "Discard current changes?");
    EXPECT_EQ(form.City.Text(), "Xenia");
    Press(form, "F10");
  });
  EXPECT_EQ(TextAt(RecordAt(0), 97, 21), "Xenia");
}

TEST_F(VendorEdit, TheVendorThatIsOnShowIsTheOneThatIsSaved) {
  EXPECT_TRUE(Edit([](frmVendorEdit& form) {
    Press(form, "PgDn");
    Press(form, "PgDn");
    Type(form.State, "NY");
    form.cmdSave.DoClick();
    EXPECT_EQ(form.Index(), 3U);
  }));
  EXPECT_EQ(RecordAt(3), VendorImage("Delta Paint", "", "NY").Bytes());
  EXPECT_EQ(RecordAt(0), Alpha().Bytes());
}

TEST_F(VendorEdit, PassesOverVendorsThatOthersHaveDeleted) {
  Edit([this](frmVendorEdit& form) {
    Replace(2, std::string(204, '\0'));
    Press(form, "PgDn");
    EXPECT_EQ(form.VendorName.Text(), "Delta Paint");
    Press(form, "PgUp");
    EXPECT_EQ(form.VendorName.Text(), "Alpha Glass");
    Replace(3, std::string(204, '\0'));
    Press(form, "PgDn");
    EXPECT_EQ(form.VendorName.Text(), "Alpha Glass") << "there is none to go to";
    EXPECT_EQ(desktop.beeps, 1);
    Press(form, "F10");
  });
  EXPECT_EQ(RecordAt(0), Alpha().Bytes());
}

TEST_F(VendorEdit, ToViewCanOnlyBeReadAndStepped) {
  EXPECT_FALSE(Show(frmVendorEdit::Purpose::View, [](frmVendorEdit& form) {
    EXPECT_EQ(form.Caption(), "Vendor View");
    for (const ui::Control* control : form.Controls()) {
      const auto* box = dynamic_cast<const ui::TextBox*>(control);
      EXPECT_TRUE(box == nullptr || box->Locked()) << control->Name();
    }
    EXPECT_FALSE(form.cmdSave.Visible());
    EXPECT_FALSE(form.cmdReset.Visible());
    Press(form, "X");
    EXPECT_EQ(form.VendorName.Text(), "Alpha Glass");
    Press(form, "F10");
    Press(form, "F2");
    Press(form, "PgDn");
    EXPECT_EQ(form.VendorName.Text(), "Gamma Towing");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "Enter");
    EXPECT_FALSE(form.Visible());
  }));
}

TEST_F(VendorEdit, ASaveWaitsOnTheScreenForTheFile) {
  std::optional<SharedFile> other;
  desktop.WillAnswer([&](const ui::Box&) {
    other.reset();
    return Answer::Ok;
  });
  EXPECT_TRUE(Edit([&](frmVendorEdit& form) {
    Type(form.State, "NY");
    other.emplace(directory / "TQVENDOR.DAT", Access::ReadWrite, Deny::All);
    Press(form, "F10");
  }));
  EXPECT_EQ(OnlyBox().title, "SaveVendor Error 70: Permission denied");
  EXPECT_EQ(TextAt(RecordAt(0), 118, 3), "NY");
}

class VendorAdd : public VendorShop {
 protected:
  VendorAdd() { records.vendors.LoadVendors(); }
  std::optional<std::size_t> Add(const std::function<void(frmVendorAdd&)>& use) {
    WillAdd(use);
    frmVendorAdd form(shop);
    form.ShowModal();
    form.Unload();
    return form.Added();
  }
};

TEST_F(VendorAdd, AddsANewNameAndCloses) {
  EXPECT_EQ(Add([](frmVendorAdd& form) {
              EXPECT_EQ(form.Msg.Caption(), "Enter vendor to add.");
              EXPECT_EQ(form.VendorName.MaxLength(), 31U);
              Type(form.VendorName, " Epsilon ");
              Press(form, "Enter");
              EXPECT_FALSE(form.Visible());
            }),
            4U);
  EXPECT_EQ(RecordAt(4), VendorImage("Epsilon", "Fresno", "CA").Bytes());
}

TEST_F(VendorAdd, ANameThatIsThereIsFoundWithoutRegardToCase) {
  const std::string before = File();
  EXPECT_EQ(Add([this](frmVendorAdd& form) {
              Type(form.VendorName, "GAMMA towing");
              form.cmdOK.DoClick();
              EXPECT_EQ(form.Msg.Caption(), "GAMMA towing already exists.");
              EXPECT_TRUE(form.VendorName.HasFocus());
              EXPECT_EQ(desktop.beeps, 1);
              Press(form, "Esc");
              EXPECT_FALSE(form.Visible()) << "there is nothing to lose";
            }),
            std::nullopt);
  EXPECT_EQ(File(), before);
}

TEST_F(VendorAdd, ANameThatAnotherUserHasAddedIsFoundToo) {
  directory.Put("TQVENDOR.DAT", File() + VendorImage("Epsilon").Bytes());
  const std::string before = File();
  EXPECT_EQ(Add([](frmVendorAdd& form) {
              Type(form.VendorName, "epsilon");
              Press(form, "F10");
              EXPECT_EQ(form.Msg.Caption(), "epsilon already exists.");
              Press(form, "Esc");
            }),
            std::nullopt);
  EXPECT_EQ(File(), before);
}

TEST_F(VendorAdd, WithoutANameNothingIsAdded) {
  const std::string before = File();
  EXPECT_EQ(Add([this](frmVendorAdd& form) {
              Press(form, "F10");
              EXPECT_EQ(form.Msg.Caption(), "Enter vendor to add.");
              EXPECT_EQ(desktop.beeps, 1);
              Press(form, "Esc");
            }),
            std::nullopt);
  EXPECT_EQ(File(), before);
}

TEST_F(VendorAdd, SaysWhatItDoesWhileItWaits) {
  std::optional<SharedFile> other;
  std::string message;
  frmVendorAdd* shown = nullptr;
  desktop.WillAnswer([&](const ui::Box&) {
    message = shown->Msg.Caption();
    other.reset();
    return Answer::Ok;
  });
  Add([&](frmVendorAdd& form) {
    shown = &form;
    Type(form.VendorName, "Epsilon");
    other.emplace(directory / "TQVENDOR.DAT", Access::ReadWrite, Deny::All);
    Press(form, "F10");
  });
  EXPECT_EQ(message, "Looking for duplicate...");
  EXPECT_EQ(RecordAt(4), VendorImage("Epsilon", "Fresno", "CA").Bytes());
}

TEST_F(VendorAdd, AsksBeforeATypedNameIsLost) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Add([](frmVendorAdd& form) {
    Type(form.VendorName, "Epsilon");
    Press(form, "Esc");
    EXPECT_TRUE(form.Visible());
    form.cmdCancel.DoClick();
  });
  EXPECT_EQ(desktop.boxes[0].text, "Discard changes?");
}

}  // namespace
}  // namespace lantos::test
