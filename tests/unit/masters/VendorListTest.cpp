#include "VendorShop.h"

namespace lantos::test {
namespace {

class VendorList : public VendorShop {};

TEST_F(VendorList, HasARowForEachVendorWithANameInTheOrderOfTheFile) {
  Maintain([](frmVendorList& list) {
    EXPECT_EQ(list.Caption(), "Vendor List");
    EXPECT_EQ(NamesIn(list), (Names{"Alpha Glass", "Gamma Towing", "Delta Paint"}));
    EXPECT_EQ(list.VendorList.ItemData(1), 2) << "the place in the file";
    EXPECT_EQ(list.VendorList.ListIndex(), -1);
    EXPECT_EQ(list.DefaultButton(), &list.cmdEdit);
    Press(list, "Esc");
  });
}

TEST_F(VendorList, IsEmptyWithoutAFile) {
  directory.Put("TQVENDOR.DAT", "");
  Maintain([](frmVendorList& list) {
    EXPECT_EQ(NamesIn(list), Names{});
    list.DoClose();
  });
}

TEST_F(VendorList, ToViewHasNothingThatChanges) {
  View([](frmVendorList& list) {
    EXPECT_EQ(list.Caption(), "View Vendors");
    for (const ui::Button* button : {&list.cmdEdit, &list.cmdNew, &list.cmdDelete}) EXPECT_FALSE(button->Visible());
    EXPECT_EQ(list.DefaultButton(), &list.cmdSelect);
    list.VendorList.DoSelect(0);
    Press(list, "Insert");
    Press(list, "Delete");
    Press(list, "Esc");
  });
  EXPECT_EQ(RecordAt(0), Alpha().Bytes());
}

TEST_F(VendorList, SelectingShowsTheVendorAndItsNeighbours) {
  View([this](frmVendorList& list) {
    for (const auto& select : {std::function<void()>([&] { Press(list, "F10"); }),
                               {[&] { list.cmdSelect.DoClick(); }},
                               {[&] { list.VendorList.DoDoubleClick(); }},
                               {[&] { Press(list, "Enter"); }}}) {
      WillEdit([](frmVendorEdit& form) {
        EXPECT_EQ(form.Caption(), "Vendor View");
        EXPECT_EQ(form.VendorName.Text(), "Alpha Glass");
        Press(form, "PgDn");
        EXPECT_EQ(form.VendorName.Text(), "Gamma Towing");
        Press(form, "Esc");
      });
      list.VendorList.DoSelect(0);
      select();
      EXPECT_EQ(list.VendorList.ListIndex(), 1) << "the vendor that was seen last";
    }
    Press(list, "Esc");
  });
}

TEST_F(VendorList, EveryCommandNeedsAVendor) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok});
  Maintain([](frmVendorList& list) {
    list.cmdDelete.DoClick();
    list.cmdEdit.DoClick();
    list.cmdSelect.DoClick();
    Press(list, "Esc");
  });
  ASSERT_EQ(desktop.boxes.size(), 3U);
  for (const ui::Box& box : desktop.boxes) {
    EXPECT_EQ(box.text, "No vendor selected.");
    EXPECT_EQ(box.title, "Vendor List");
    EXPECT_EQ(box.icon, ui::Icon::Exclamation);
  }
}

TEST_F(VendorList, DeletingAsksAndTheRowGoes) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  const std::string before = File();
  Maintain([&](frmVendorList& list) {
    list.VendorList.DoSelect(1);
    list.cmdDelete.DoClick();
    EXPECT_EQ(File(), before);
    EXPECT_EQ(list.VendorList.ListIndex(), 1);
    Press(list, "Delete");
    EXPECT_EQ(NamesIn(list), (Names{"Alpha Glass", "Delta Paint"}));
    EXPECT_EQ(list.VendorList.ListIndex(), 1) << "the row behind it";
    EXPECT_TRUE(list.VendorList.HasFocus());
    Press(list, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Deleting vendor\rGamma Towing\rAre you sure?");
  EXPECT_EQ(desktop.boxes[0].title, "Vendor List");
  EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::YesNo);
  EXPECT_EQ(desktop.boxes[0].icon, ui::Icon::Question);
  EXPECT_EQ(File(), Alpha().Bytes() + std::string(408, '\0') + Delta());
}

TEST_F(VendorList, BehindTheLastVendorTheOneBeforeItIsSelectedAndNoneWhereAllAreGone) {
  desktop.WillAnswer({Answer::Yes, Answer::Yes, Answer::Yes});
  Maintain([](frmVendorList& list) {
    list.VendorList.DoSelect(2);
    for (const int selected : {1, 0, -1}) {
      Press(list, "Delete");
      EXPECT_EQ(list.VendorList.ListIndex(), selected);
    }
    Press(list, "Esc");
  });
}

TEST_F(VendorList, TheHandIsInTheListAfterEachCommandHoweverItWasGiven) {
  desktop.WillAnswer(Answer::Yes);
  Maintain([this](frmVendorList& list) {
    list.VendorList.DoSelect(0);
    const auto leave = [](ui::Form& form) { Press(form, "Esc"); };
    for (const char* key : {"Alt+E", "Alt+S", "Alt+N"}) {
      desktop.WillUse(leave);
      Press(list, key);
      EXPECT_TRUE(list.VendorList.HasFocus()) << key;
    }
    Press(list, "Alt+D");
    EXPECT_TRUE(list.VendorList.HasFocus());
    Press(list, "Esc");
  });
}

TEST_F(VendorList, ADeletedVendorsRowIsAbsentAtTheNextLoadAndTheOthersKeepTheirNumbers) {
  desktop.WillAnswer(Answer::Yes);
  Maintain([](frmVendorList& list) {
    list.VendorList.DoSelect(0);
    Press(list, "Delete");
    Press(list, "Esc");
  });
  Maintain([](frmVendorList& list) {
    EXPECT_EQ(NamesIn(list), (Names{"Gamma Towing", "Delta Paint"}));
    EXPECT_EQ(list.VendorList.ItemData(0), 2);
    EXPECT_EQ(list.VendorList.ItemData(1), 3);
    Press(list, "Esc");
  });
}

TEST_F(VendorList, ASavedVendorHasItsRowRenewed) {
  Maintain([this](frmVendorList& list) {
    WillEdit([](frmVendorEdit& form) {
      EXPECT_EQ(form.Caption(), "Edit Vendor");
      Type(form.VendorName, "Gamma Recovery");
      Press(form, "F10");
    });
    list.VendorList.DoSelect(1);
    Press(list, "Enter");
    EXPECT_EQ(NamesIn(list), (Names{"Alpha Glass", "Gamma Recovery", "Delta Paint"}));
    EXPECT_EQ(list.VendorList.ListIndex(), 1);
    Press(list, "Esc");
  });
  EXPECT_EQ(RecordAt(2), VendorImage("Gamma Recovery").Text(45, "left over").Bytes())
      << "other fields are as they were";
}

TEST_F(VendorList, ANewVendorHasARowAtTheEndAndIsSelected) {
  Maintain([this](frmVendorList& list) {
    WillAdd([](frmVendorAdd& form) {
      Type(form.VendorName, "Epsilon Tires");
      Press(form, "F10");
    });
    Press(list, "Insert");
    EXPECT_EQ(NamesIn(list), (Names{"Alpha Glass", "Gamma Towing", "Delta Paint", "Epsilon Tires"}));
    EXPECT_EQ(list.VendorList.ListIndex(), 3);
    EXPECT_TRUE(list.VendorList.HasFocus());
    Press(list, "Esc");
  });
  EXPECT_EQ(RecordAt(4), VendorImage("Epsilon Tires", "Fresno", "CA").Bytes());
}

TEST_F(VendorList, WhatOthersHaveChangedIsThereWhenItIsOpenedAgain) {
  Maintain([](frmVendorList& list) { Press(list, "Esc"); });
  directory.Put("TQVENDOR.DAT", File() + VendorImage("Zeta").Bytes());
  Replace(2, std::string(204, '\0'));
  Replace(1, VendorImage("Back Again").Bytes());
  Maintain([](frmVendorList& list) {
    EXPECT_EQ(NamesIn(list), (Names{"Alpha Glass", "Back Again", "Delta Paint", "Zeta"}));
    Press(list, "Esc");
  });
}

TEST_F(VendorList, OpenedAgainWhileTheFileIsHeldShowsWhatItHadAndAsksNobody) {
  Maintain([](frmVendorList& list) { Press(list, "Esc"); });
  const SharedFile other(directory / "TQVENDOR.DAT", Access::ReadWrite, Deny::All);
  Maintain([](frmVendorList& list) {
    EXPECT_EQ(NamesIn(list).size(), 3U);
    Press(list, "Esc");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(VendorList, TheFirstLoadWaitsForTheFile) {
  std::optional<SharedFile> other(std::in_place, directory / "TQVENDOR.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer([&](const ui::Box&) {
    other.reset();
    return Answer::Ok;
  });
  View([](frmVendorList& list) {
    EXPECT_EQ(NamesIn(list).size(), 3U);
    Press(list, "Esc");
  });
  EXPECT_EQ(OnlyBox().title, "LoadVendors Error 70: Permission denied");
}

TEST_F(VendorList, AVendorThatAnotherUserHasDeletedIsToldAndItsRowGoes) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  Maintain([this](frmVendorList& list) {
    Replace(2, std::string(204, '\0'));
    list.VendorList.DoSelect(1);
    Press(list, "Enter");
    EXPECT_EQ(NamesIn(list), (Names{"Alpha Glass", "Delta Paint"}));
    Replace(0, std::string(204, '\0'));
    list.VendorList.DoSelect(0);
    Press(list, "Delete");
    EXPECT_EQ(NamesIn(list), Names{"Delta Paint"});
    Press(list, "Esc");
  });
  for (const ui::Box& box : desktop.boxes) EXPECT_EQ(box.text, "This vendor has been deleted by another user.");
}

TEST_F(VendorList, TheKeyOfTheVendorListOnlyBeepsHere) {
  keys.openVendorList = [] { ADD_FAILURE() << "a vendor list over the vendor list"; };
  Maintain([this](frmVendorList& list) {
    Press(list, "Ctrl+Alt+V");
    EXPECT_EQ(desktop.beeps, 1);
    Press(list, "Esc");
  });
}

}  // namespace
}  // namespace lantos::test
