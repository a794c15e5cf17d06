// Parts come, get other numbers and go: the screens, and the bytes of both files.
#include <gmock/gmock.h>

#include "InventoryShop.h"
#include "masters/inventory/frmInvAdd.h"
#include "masters/inventory/frmInvPartChange.h"
#include "masters/inventory/frmInvPartDelete.h"

namespace lantos::test {
namespace {

using ::testing::ElementsAre;

constexpr std::size_t kTag = 128;
constexpr std::size_t kMaster = 344;

class InvAdd : public InventoryShop {
 protected:
  InvAdd() {
    records.system.SysRec.Put(sysrec::markups[1], 100000);
    records.system.SysRec.Put(sysrec::markups[3], 400000);
    AddPart("PAD-9");
    LoadList();
    add.Show();
  }
  ~InvAdd() override { add.Hide(); }
  void Add(std::string_view number) {
    test::Type(add.StockNumber, number);
    test::Press(add, "Enter");
  }

  frmInvAdd add{shop, list};
};

TEST_F(InvAdd, OpensWithItsPromptAndTheBox) {
  EXPECT_EQ(add.Msg.Caption(), "Enter part number to add.");
  EXPECT_EQ(add.Focus(), &add.StockNumber);
  EXPECT_EQ(add.StockNumber.MaxLength(), 20U);
}

TEST_F(InvAdd, ANewPartStandsAtTheEndOfBothFiles) {
  const std::string tags = Tags();
  const std::string masters = Masters();
  Add("  oil-1 ");
  EXPECT_EQ(add.Msg.Caption(), "oil-1 added.");
  EXPECT_EQ(Tags(), tags + RawRecord(kTag).Text(0, "oil-1").Text(21, "oil-1").Long(78, 344).Bytes());
  EXPECT_EQ(Masters(), masters + RawRecord(kMaster)
                                     .Text(0, "oil-1")
                                     .Text(105, "oil-1")
                                     .Long(285, 100000)
                                     .Long(293, 400000)
                                     .Long(336, -1)
                                     .Long(340, -1)
                                     .Bytes());
  EXPECT_EQ(list.TotalParts.Caption(), "2 Total Parts");
  EXPECT_THAT(Numbers(), ElementsAre("oil-1", "PAD-9"));
  EXPECT_EQ(Current(), "oil-1") << "what is done next is done with it";
  EXPECT_TRUE(add.Visible());
  EXPECT_EQ(add.StockNumber.Text(), "");
}

TEST_F(InvAdd, TheMessageFollowsTheWork) {
  std::vector<std::string> said;
  inventory.onBroadcast = [&](const InventoryTag&) { said.push_back(add.Msg.Caption()); };
  Add("OIL-1");
  EXPECT_THAT(said, ElementsAre("Adding OIL-1 to Inventory files.")) << "the other copies are told once";
  inventory.onBroadcast = nullptr;
  desktop.WillAnswer([&](const ui::Box& box) {
    EXPECT_EQ(box.text, "Part\rPAD-9\ralready exists.");
    EXPECT_EQ(add.Msg.Caption(), "Looking for duplicate...");
    return Answer::Ok;
  });
  Add("PAD-9");
  EXPECT_EQ(add.Msg.Caption(), "PAD-9 already exists.");
  EXPECT_EQ(Tags().size(), 2 * kTag);
}

TEST_F(InvAdd, ANumberIsWanted) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  Add("");
  Add("   ");
  EXPECT_EQ(desktop.boxes.at(0).text, "Part number is required.");
  EXPECT_EQ(Tags().size(), kTag);
  EXPECT_EQ(add.Focus(), &add.StockNumber);
}

TEST_F(InvAdd, ANumberInOtherLettersIsAnotherPart) {
  Add("pad-9");
  EXPECT_THAT(Numbers(), ElementsAre("PAD-9", "pad-9"));
}

TEST_F(InvAdd, QuotesAndACoresEndingAreKeptAsTheyAre) {
  Add("3/4\"'S");
  Add("PAD-9/C");
  EXPECT_THAT(Numbers(), ElementsAre("3/4\"'S", "PAD-9", "PAD-9/C"));
  EXPECT_EQ(TextAt(Tags(), kTag, 21), "3/4\"'S");
  EXPECT_EQ(TextAt(Masters(), 2 * kMaster, 21), "PAD-9/C");
  EXPECT_EQ(list.TotalParts.Caption(), "3 Total Parts");
}

TEST_F(InvAdd, APartThatTheListHasNotComeToIsADuplicateAllTheSame) {
  inventory.SizeArrays();
  list.Unload();
  list.LoadForm();
  ASSERT_TRUE(list.IsLoading());
  desktop.WillAnswer(Answer::Ok);
  Add("PAD-9");
  EXPECT_EQ(add.Msg.Caption(), "PAD-9 already exists.");
}

TEST_F(InvAdd, ANumberThatAnotherCopyHasJustAddedIsADuplicate) {
  const std::string masters = Masters();
  directory.Put("TQINVTAG.DAT", Tags() + RawRecord(kTag).Text(0, "OIL-1").Long(78, 344).Bytes());
  desktop.WillAnswer(Answer::Ok);
  Add("OIL-1");
  EXPECT_EQ(desktop.boxes.at(0).text, "Part\rOIL-1\ralready exists.");
  EXPECT_EQ(add.Msg.Caption(), "OIL-1 already exists.");
  EXPECT_EQ(Tags().size(), 2 * kTag);
  EXPECT_EQ(Masters(), masters);
}

class InvPart : public InventoryShop {
 protected:
  InvPart() {
    AddPart("AXLE");
    AddPart("PAD-9", [](Inventory::Part& part) {
      part.tag.Put(inventorytag::Description, "BRAKE PADS");
      part.master.Put(inventory::Description, "BRAKE PADS");
      part.master.Put(inventory::UsageLink, 256);
      part.master.Put(inventory::ReceivingLink, 512);
      part.master.Put(inventory::HasACore, 1);
      part.master.Put(inventory::AltNumber[0], "AXLE");
    });
    AddPart("ZINC");
    LoadList();
  }
  // The list as it is open for keeping the stock, with the part current.
  template <class Use>
  void OnList(std::string_view number, Use use) {
    desktop.WillUse([&, number = std::string(number)](ui::Form&) {
      if (!number.empty()) GoTo(number);
      test::Type(list.SearchPart, "");
      test::Click(list.cmdSearch);
      use();
      test::Press(list, "Esc");
    });
    EXPECT_EQ(list.Ask(), frmInvList::Request::None);
  }
};

TEST_F(InvPart, WithoutAPartNothingIsViewedChangedOrDeleted) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok, Answer::Ok});
  desktop.WillUse([&](ui::Form&) {
    for (ui::Button* button : {&list.cmdSelect, &list.cmdView, &list.cmdChange, &list.cmdDelete}) {
      test::Click(*button);
      EXPECT_TRUE(list.Visible());
      EXPECT_EQ(desktop.boxes.back().text, "No part is selected.");
      EXPECT_EQ(desktop.boxes.back().title, "Inventory List");
    }
    test::Press(list, "Esc");
  });
  EXPECT_EQ(list.Ask(), frmInvList::Request::None);
  EXPECT_EQ(desktop.boxes.size(), 4U);
}

TEST_F(InvPart, TheListHandsOutWhatIsAskedOfIt) {
  const std::vector<std::pair<const char*, frmInvList::Request>> keys = {
      {"F10", frmInvList::Request::Select}, {"F4", frmInvList::Request::View}, {"Insert", frmInvList::Request::Add}};
  for (const auto& [key, request] : keys) {
    desktop.WillUse([&, pressed = key](ui::Form&) {
      GoTo("PAD-9");
      test::Press(list, pressed);
    });
    EXPECT_EQ(list.Ask(), request) << key;
    EXPECT_EQ(list.Chosen().index, 1);
    EXPECT_EQ(list.Chosen().master, 344);
  }
}

TEST_F(InvPart, TheWarningsOfAChangeStandOnItsScreen) {
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) {
      auto& change = As<frmInvPartChange>(form);
      EXPECT_EQ(change.lblPart.Caption(), "PAD-9");
      EXPECT_EQ(change.lblDesc.Caption(), "BRAKE PADS");
      EXPECT_EQ(change.Focus(), &change.txtNewPart);
      EXPECT_EQ(change.lblWarning[0].Caption(),
                "Warning: Changing the part number will \"lose\" all receiving and usage history for the old part "
                "number. This change can not be \"undone\".");
      EXPECT_EQ(change.lblWarning[1].Caption(),
                "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.");
      EXPECT_EQ(change.lblWarning[2].Caption(),
                "WARNING: You must have already removed the \"old\" part number from all POs and Workorders before "
                "changing the part number here.");
      test::Type(change.txtNewPart, "NEW");
      test::Press(change, "Esc");
    });
    test::Click(list.cmdChange);
  });
  EXPECT_EQ(inventory.FindPart("PAD-9"), 1);
}

TEST_F(InvPart, ANewNumberIsWrittenInPlaceAndTheRowGoesWhereItPutsIt) {
  const std::string tags = Tags();
  const std::string masters = Masters();
  int told = 0;
  inventory.onBroadcast = [&](const InventoryTag& tag) {
    ++told;
    EXPECT_EQ(tag.Get(inventorytag::StockNumber), "A-1");
  };
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) {
      test::Type(As<frmInvPartChange>(form).txtNewPart, " A-1");
      test::Press(form, "Enter");
    });
    test::Click(list.cmdChange);
    EXPECT_THAT(Numbers(), ElementsAre("A-1", "AXLE", "ZINC"));
    EXPECT_EQ(Current(), "A-1");
    EXPECT_EQ(list.DataGrid1.RowAt(0).cells.at(0), "A-1") << "its key";
  });
  inventory.onBroadcast = nullptr;
  EXPECT_EQ(told, 1);
  std::string newTags = tags;
  newTags.replace(kTag, 21, Padded("A-1", 21));
  EXPECT_EQ(Tags(), newTags);
  std::string newMasters = masters;
  newMasters.replace(kMaster, 21, Padded("A-1", 21));
  newMasters.replace(kMaster + 336, 8, 8, '\xFF');
  EXPECT_EQ(Masters(), newMasters);
  EXPECT_EQ(inventory.FindPart("PAD-9"), Inventory::kNoPart);
  EXPECT_EQ(inventory.FindPart("A-1"), 1);
}

TEST_F(InvPart, ANumberIsWantedAndNoneThatAnotherPartHas) {
  const std::string masters = Masters();
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok, Answer::Ok});
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) {
      auto& change = As<frmInvPartChange>(form);
      test::Press(change, "F10");
      EXPECT_EQ(desktop.boxes.back().text, "You must supply a new part number, or [Cancel].");
      EXPECT_EQ(change.Focus(), &change.txtNewPart);
      test::Type(change.txtNewPart, "AXLE");
      test::Press(change, "F10");
      EXPECT_EQ(desktop.boxes.back().text, "Part\rAXLE\ralready exists.");
      test::Type(change.txtNewPart, "PAD-9");
      test::Press(change, "F10");
      EXPECT_EQ(desktop.boxes.back().text, "Part\rPAD-9\ralready exists.") << "its history isn't lost for nothing";
      // Another copy has given the number a moment ago.
      directory.Put("TQINVTAG.DAT", Tags() + RawRecord(kTag).Text(0, "NEW-1").Bytes());
      test::Type(change.txtNewPart, "NEW-1");
      test::Press(change, "F10");
      EXPECT_EQ(desktop.boxes.back().text, "Part\rNEW-1\ralready exists.");
      EXPECT_TRUE(change.Visible());
      test::Click(change.cmdCancel);
    });
    test::Click(list.cmdChange);
  });
  EXPECT_EQ(Masters(), masters);
}

TEST_F(InvPart, ADeletionSaysItsWarningsAndEnterIsTheWayBack) {
  const std::string tags = Tags();
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) {
      auto& remove = As<frmInvPartDelete>(form);
      EXPECT_EQ(remove.lblPart.Caption(), "PAD-9");
      EXPECT_EQ(remove.lblDesc.Caption(), "BRAKE PADS");
      EXPECT_EQ(remove.lblWarning[0].Caption(), "Warning: Deleting a part number can not be \"undone\".");
      EXPECT_EQ(remove.lblWarning[1].Caption(),
                "Make sure only one instance of Korvel is running, otherwise, Inventory will not be accurate.");
      EXPECT_EQ(remove.lblQuestion.Caption(), "Are you really sure you wish to do this?");
      EXPECT_EQ(remove.Focus(), &remove.cmdNo);
      test::Press(remove, "Enter");
    });
    test::Click(list.cmdDelete);
    EXPECT_EQ(list.DataGrid1.RowCount(), 3);
  });
  EXPECT_EQ(Tags(), tags);
}

TEST_F(InvPart, ADeletedPartKeepsItsPlaceWithoutANumberInItsTag) {
  const std::string tags = Tags();
  const std::string masters = Masters();
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) { test::Click(As<frmInvPartDelete>(form).cmdYes); });
    test::Click(list.cmdDelete);
    EXPECT_THAT(Numbers(), ElementsAre("AXLE", "ZINC"));
    EXPECT_EQ(Current(), "ZINC");
    EXPECT_EQ(list.TotalParts.Caption(), "      2 Total Parts");
    EXPECT_EQ(list.lblMatchParts.Caption(), "2 Matches    ");
  });
  std::string newTags = tags;
  newTags.replace(kTag, 21, 21, '\0');
  EXPECT_EQ(Tags(), newTags);
  std::string newMasters = masters;
  newMasters[kMaster + 335] = 1;
  EXPECT_EQ(Masters(), newMasters) << "number, usage, receiving and alternates stay";
  EXPECT_EQ(inventory.FindPart("PAD-9"), Inventory::kNoPart);
}

TEST_F(InvPart, APartThatWasSearchedForIsDeletedFromItsHits) {
  list.Show();
  test::Type(list.SearchPart, "PAD-9");
  test::Press(list, "Enter");
  ASSERT_EQ(Current(), "PAD-9");
  desktop.WillUse([&](ui::Form& form) { test::Press(form, "F10"); });
  test::Click(list.cmdDelete);
  EXPECT_EQ(list.DataGrid1.RowCount(), 0);
  EXPECT_EQ(list.lblMatchParts.Caption(), "0 Matches    ");
  EXPECT_EQ(list.TotalParts.Caption(), "      2 Total Parts");
  list.Hide();
}

TEST_F(InvPart, TheHandIsOnTheRowsAfterANumberWasChangedOrAPartDeletedByItsLetter) {
  OnList("AXLE", [&] {
    for (const auto& [letter, leave] : {std::pair{"Alt+G", "Esc"}, {"Alt+L", "Esc"}, {"Alt+L", "F10"}}) {
      desktop.WillUse([key = leave](ui::Form& form) { test::Press(form, key); });
      test::Press(list, letter);
      EXPECT_EQ(list.Focus(), &list.DataGrid1) << letter;
    }
    test::Press(list, "Down");
    EXPECT_EQ(Current(), "ZINC") << "PAD-9 is behind the deleted one";
  });
}

TEST_F(InvPart, BehindADeletedPartTheNextIsCurrent) {
  OnList("AXLE", [&] {
    desktop.WillUse([&](ui::Form& form) { test::Press(form, "F10"); });
    test::Click(list.cmdDelete);
    EXPECT_EQ(Current(), "PAD-9");
  });
}

TEST_F(InvPart, OneThatAnotherCopyHasRenumberedIsNeitherRenumberedNorDeleted) {
  std::string tags = Tags();
  ASSERT_TRUE(inventory.Read(inventory.FindPart("PAD-9"))) << "so that its place is known";
  tags.replace(kTag, 5, "OTHER");
  OnList("PAD-9", [&] {
    directory.Put("TQINVTAG.DAT", tags);
    desktop.WillUse([&](ui::Form& form) {
      desktop.WillAnswer(Answer::Ok);
      test::Press(form, "F10");
      EXPECT_EQ(desktop.boxes.back().text, "Part PAD-9 was deleted or renumbered by another user.");
    });
    test::Click(list.cmdDelete);
  });
  EXPECT_EQ(Tags(), tags);
}

TEST_F(InvPart, TheNumberOfADeletedPartMayBeGivenAnew) {
  ASSERT_EQ(Numbers().size(), 3U);
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) { test::Press(form, "F10"); });
    test::Click(list.cmdDelete);
  });
  frmInvAdd add(shop, list);
  add.Show();
  test::Type(add.StockNumber, "PAD-9");
  test::Press(add, "Enter");
  add.Hide();
  EXPECT_EQ(inventory.FindPart("PAD-9"), 3);
  EXPECT_THAT(Numbers(), ElementsAre("AXLE", "PAD-9", "ZINC"));
}

TEST_F(InvPart, APartThatCannotBeReadStaysAsItIs) {
  const std::string tags = Tags();
  const SharedFile held(directory / "TQINVENT.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer({Answer::Cancel, Answer::Cancel});
  OnList("PAD-9", [&] {
    desktop.WillUse([&](ui::Form& form) {
      test::Click(As<frmInvPartDelete>(form).cmdYes);
      EXPECT_TRUE(form.Visible()) << "it can be tried again";
      test::Press(form, "Esc");
    });
    test::Click(list.cmdDelete);
    desktop.WillUse([&](ui::Form& form) {
      test::Type(As<frmInvPartChange>(form).txtNewPart, "A-1");
      test::Press(form, "Enter");
      EXPECT_TRUE(form.Visible());
      test::Press(form, "Esc");
    });
    test::Click(list.cmdChange);
    EXPECT_EQ(Numbers().size(), 3U);
  });
  EXPECT_EQ(Tags(), tags);
}

}  // namespace
}  // namespace lantos::test
