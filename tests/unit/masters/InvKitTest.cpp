// What a kit consists of, on its screen.
#include <gmock/gmock.h>

#include "KitShop.h"

namespace lantos::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class InvKit : public KitShop {};

TEST_F(InvKit, ShowsEachLineWithQuantityNumberAndDescriptionAndPassesOverBlankOnes) {
  PutKit({"PLUG(4)", "", "WIRES", "GONE()", "CAP(X)"});
  Edit([](frmInvKit& form) {
    EXPECT_EQ(form.txtKitPartNumber.Text(), "TUNEUP");
    EXPECT_EQ(form.txtDesc.Text(), "TUNE-UP KIT");
    EXPECT_TRUE(form.txtKitPartNumber.Locked() && form.txtDesc.Locked());
    EXPECT_EQ(form.lblHeading.Caption(), "  Qty   Part Number          Description");
    EXPECT_THAT(Rows(form), ElementsAre("    4   PLUG                 SPARK PLUG",      //
                                        "    1   WIRES                IGNITION WIRES",  //
                                        "    1   GONE                 ",                //
                                        "    X   CAP                  DISTRIBUTOR CAP"));
    EXPECT_EQ(form.List1.ListIndex(), 0);
    EXPECT_TRUE(form.List1.HasFocus());
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"PLUG(4)", "", "WIRES", "GONE()", "CAP(X)"}).Bytes()) << "nothing was saved";
}

TEST_F(InvKit, TheWorkingRecordsStayAsTheyAre) {
  FileLink offset = kNoLink;
  ASSERT_TRUE(inventory.ReadInventory(offset, inventory.FindPart("TUNEUP")));
  inventory.CurrentInv.Put(inventory::Comment, "being edited");
  const InventoryTag tag = inventory.CurrentInvTag;
  const InventoryRecord master = inventory.CurrentInv;
  const InventoryRecord original = inventory.OriginalInv;
  PutKit({"PLUG(4)"});
  Edit([this](frmInvKit& form) {
    desktop.WillUse([this](ui::Form& add) {
      // As a look at a part of the list does it.
      FileLink other = kNoLink;
      EXPECT_TRUE(inventory.ReadInventory(other, inventory.FindPart("CAP")));
      Press(add, "Esc");
    });
    Press(form, "F5");
    EXPECT_EQ(inventory.CurrentInv.Get(inventory::StockNumber), "CAP");
  });
  EXPECT_EQ(inventory.CurrentInvTag, tag);
  EXPECT_EQ(inventory.CurrentInv, master);
  EXPECT_EQ(inventory.OriginalInv, original);
}

TEST_F(InvKit, AKitThatTheFileHasNotIsEmptyAndEachButtonSaysSo) {
  desktop.otherwise = [](const ui::Box&) { return Answer::Ok; };
  Edit([this](frmInvKit& form) {
    EXPECT_THAT(Rows(form), IsEmpty());
    const auto told = [&](std::string_view key) {
      Press(form, key);
      return LastBox();
    };
    EXPECT_EQ(told("F4"), "There are no parts which can be changed!");
    EXPECT_EQ(told("Delete"), "There are no parts which can be deleted!");
    EXPECT_EQ(told("Ctrl+Up"), "There are no parts which can be moved!");
    EXPECT_EQ(told("Ctrl+Down"), "There are no parts which can be moved!");
    EXPECT_EQ(desktop.boxes.back().title, "Inventory Kit");
  });
  EXPECT_EQ(desktop.boxes.size(), 4U) << "and nothing has changed";
}

TEST_F(InvKit, WithoutASelectedPartEachButtonAsksForOne) {
  PutKit({"PLUG"});
  desktop.otherwise = [](const ui::Box&) { return Answer::Ok; };
  Edit([this](frmInvKit& form) {
    form.List1.DoSelect(-1);
    const auto told = [&](ui::Button& button) {
      Click(button);
      return LastBox();
    };
    EXPECT_EQ(told(form.cmdChange), "You must select a part to change.");
    EXPECT_EQ(told(form.cmdDelete), "You must select a part to delete.");
    EXPECT_EQ(told(form.cmdMoveUp), "You must select a part to move.");
    EXPECT_EQ(told(form.cmdMoveDown), "You must select a part to move.");
  });
}

TEST_F(InvKit, APartMovesUpAndDownAndNotBeyondTheEnds) {
  PutKit({"PLUG(4)", "WIRES", "CAP"});
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  Edit([this](frmInvKit& form) {
    Click(form.cmdMoveUp);
    EXPECT_EQ(LastBox(), "Part is already at the top of the list!");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close") << "nothing has changed";
    Press(form, "Ctrl+Down");
    Press(form, "Ctrl+Down");
    EXPECT_EQ(form.List1.ListIndex(), 2) << "the selection goes with the part";
    Press(form, "Ctrl+Down");
    EXPECT_EQ(LastBox(), "Part is already at the bottom of the list!");
    Press(form, "Ctrl+Up");
    EXPECT_EQ(form.List1.ListIndex(), 1);
    Press(form, "F10");
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"WIRES", "PLUG(4)", "CAP"}).Bytes());
}

TEST_F(InvKit, ADeletedPartGivesItsRowToTheNextAndTheLinesMoveUp) {
  PutKit({"PLUG(4)", "WIRES", "CAP"});
  Edit([](frmInvKit& form) {
    form.List1.DoSelect(1);
    Press(form, "Delete");
    EXPECT_EQ(form.List1.ListIndex(), 1);
    EXPECT_EQ(form.List1.List(1), "    1   CAP                  DISTRIBUTOR CAP");
    Press(form, "Delete");
    EXPECT_EQ(form.List1.ListIndex(), 0) << "the last one that is left";
    Press(form, "F10");
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"PLUG(4)"}).Bytes());
}

TEST_F(InvKit, TheHandIsInTheListAfterAPartWasDeletedByItsLetter) {
  PutKit({"PLUG(4)", "WIRES", "CAP"});
  desktop.WillAnswer(Answer::Yes);
  Edit([](frmInvKit& form) {
    Press(form, "Alt+D");
    EXPECT_TRUE(form.List1.HasFocus());
    Press(form, "Down");
    EXPECT_EQ(form.List1.ListIndex(), 1);
  });
}

TEST_F(InvKit, AKitWithoutPartsIsStoredWithBlankLines) {
  PutKit({"PLUG(4)"});
  Edit([](frmInvKit& form) {
    Press(form, "Delete");
    EXPECT_EQ(form.List1.ListIndex(), -1);
    Click(form.cmdSave);
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP").Bytes());
}

TEST_F(InvKit, AComponentOfOneIsStoredWithoutParenthesesAndReadsBackAsOne) {
  Edit([this](frmInvKit& form) {
    WillType("PLUG", "1");
    Press(form, "F5");
    WillType("WIRES", "02");
    Press(form, "F5");
    EXPECT_EQ(form.List1.ListIndex(), 1) << "the new part is selected";
    Press(form, "F10");
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"PLUG", "WIRES(2)"}).Bytes());
  Edit([](frmInvKit& form) {
    EXPECT_THAT(Rows(form), ElementsAre("    1   PLUG                 SPARK PLUG",  //
                                        "    2   WIRES                IGNITION WIRES"));
  });
}

TEST_F(InvKit, OneKitAmongOthersIsWrittenOverAndANewOneGoesToTheEnd) {
  const std::string before = KitImage("A", {"PLUG"}).Bytes();
  const std::string behind = KitImage("Z", {"CAP(9)"}).Bytes();
  directory.Put("TQINVKIT.DAT", before + KitImage("TUNEUP", {"PLUG(4)"}).Bytes() + behind);
  Edit([](frmInvKit& form) {
    Press(form, "Delete");
    Press(form, "F10");
  });
  EXPECT_EQ(KitFile(), before + KitImage("TUNEUP").Bytes() + behind);
  directory.Put("TQINVKIT.DAT", before);
  Edit([&](frmInvKit& form) {
    // Another copy has added a kit since this one was read.
    directory.Put("TQINVKIT.DAT", before + behind);
    WillType("CAP", "3");
    Press(form, "F5");
    Press(form, "F10");
  });
  EXPECT_EQ(KitFile(), before + behind + KitImage("TUNEUP", {"CAP(3)"}).Bytes());
}

TEST_F(InvKit, AFiftyFirstPartIsRefusedWhenItIsToBeAddedAndTheFiftyFillTheRecord) {
  std::vector<std::string> lines;
  for (int i = 1; i < 50; ++i) lines.push_back("P" + std::to_string(i) + "(2)");
  PutKit(lines);
  desktop.WillAnswer(Answer::Ok);
  Edit([this](frmInvKit& form) {
    WillType("CAP", "1");
    Press(form, "F5");
    EXPECT_EQ(form.List1.ListCount(), 50);
    Press(form, "F5");
    EXPECT_EQ(LastBox(), "A kit has room for 50 parts, and this one is full.");
    Press(form, "F10");
  });
  lines.emplace_back("CAP");
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", lines).Bytes());
  EXPECT_EQ(KitFile().substr(21 + 39 * 49), Padded("CAP", 39));
}

TEST_F(InvKit, AChangedPartStaysInItsRow) {
  PutKit({"PLUG(4)", "GONE(2)", "CAP"});
  Edit([this](frmInvKit& form) {
    form.List1.DoSelect(1);
    desktop.WillUse([](ui::Form& each) {
      auto& change = As<frmInvKitAdd>(each);
      EXPECT_EQ(change.Caption(), "Change Part of Kit");
      EXPECT_EQ(change.txtPart.Text(), "GONE") << "it needn't be on file, being there";
      EXPECT_EQ(change.txtQuantity.Text(), "2");
      EXPECT_TRUE(change.txtQuantity.HasFocus());
      Type(change.txtQuantity, "3");
      Click(change.cmdSave);
    });
    Press(form, "Enter");
    EXPECT_EQ(form.List1.List(1), "    3   GONE                 ");
    EXPECT_EQ(form.List1.ListIndex(), 1);
    WillType("WIRES", "1");
    form.List1.DoDoubleClick();
    WillType("PLUG", "6");
    form.List1.DoSelect(0);
    Press(form, "F4");
    Press(form, "F10");
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"PLUG(6)", "WIRES", "CAP"}).Bytes());
}

TEST_F(InvKit, ChangesAreAskedAboutOnEveryWayOut) {
  PutKit({"PLUG(4)", "CAP"});
  desktop.WillAnswer({Answer::No, Answer::No, Answer::No, Answer::Yes});
  Edit([this](frmInvKit& form) {
    Press(form, "Delete");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    Press(form, "Esc");
    EXPECT_EQ(LastBox(), "Are you sure you wish to discard updates?");
    EXPECT_EQ(desktop.boxes.back().buttons, ui::Buttons::YesNo);
    Click(form.cmdCancel);
    form.DoClose();
    EXPECT_TRUE(form.Visible());
    Press(form, "Esc");
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"PLUG(4)", "CAP"}).Bytes());
}

TEST_F(InvKit, AddingThatWasCancelledChangesNothing) {
  PutKit({"PLUG(4)"});
  Edit([this](frmInvKit& form) {
    desktop.WillUse([](ui::Form& add) { Press(add, "Esc"); });
    Press(form, "F5");
    EXPECT_EQ(form.List1.ListCount(), 1);
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
  });
}

TEST_F(InvKit, AHeldFileIsNoEmptyKitThatASaveWouldWrite) {
  PutKit({"PLUG(4)"});
  desktop.WillAnswer(Answer::Ok);
  const SharedFile held(directory / "TQINVKIT.DAT", Access::ReadWrite, Deny::All);
  EditKit(shop, "TUNEUP");
  EXPECT_EQ(LastBox(), "Could not open TQINVKIT.DAT for shared access.");
  EXPECT_THAT(desktop.forms, IsEmpty());
}

TEST_F(InvKit, ASaveThatFindsTheFileHeldLosesNothingAndCanBeTriedAgain) {
  PutKit({"PLUG(4)", "CAP"});
  desktop.WillAnswer(Answer::Ok);
  Edit([this](frmInvKit& form) {
    Press(form, "Delete");
    {
      const SharedFile held(directory / "TQINVKIT.DAT", Access::Read, Deny::None);
      Press(form, "F10");
    }
    EXPECT_EQ(LastBox(), "Could not open TQINVKIT.DAT for exclusive access.");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    Press(form, "F10");
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(KitFile(), KitImage("TUNEUP", {"CAP"}).Bytes());
}

TEST_F(InvKit, AKitThatAnotherWorkstationHasStoredIsOverwrittenOnlyIfThePersonWants) {
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    PutKit({"PLUG(4)", "CAP"});
    desktop.WillAnswer(answer);
    Edit([&](frmInvKit& form) {
      Press(form, "Delete");
      PutKit({"PLUG(4)", "CAP", "WIRES"});
      Press(form, "F10");
      EXPECT_EQ(LastBox(),
                "Somebody else has changed this kit (TQINVKIT.DAT) meanwhile.\r\rDo you want to store yours in its "
                "place?\rNo keeps what is stored, and shows it here.");
      EXPECT_EQ(form.Visible(), answer == Answer::No);
      if (answer == Answer::Yes) return;
      EXPECT_EQ(Rows(form).size(), 3U);
      EXPECT_EQ(form.cmdCancel.Caption(), "Close") << "nothing is left to be stored";
    });
    EXPECT_EQ(KitFile(), answer == Answer::No ? KitImage("TUNEUP", {"PLUG(4)", "CAP", "WIRES"}).Bytes()
                                              : KitImage("TUNEUP", {"CAP"}).Bytes());
  }
}

TEST_F(InvKit, TheScreenKeepsItsSize) {
  Edit([](frmInvKit& form) { form.DoResize(12000, 8000, ui::WindowState::Normal); });
  EXPECT_EQ(Setting("frmInvKitWidth"), "12000");
  EXPECT_EQ(Setting("frmInvKitHeight"), "8000");
}

}  // namespace
}  // namespace lantos::test
