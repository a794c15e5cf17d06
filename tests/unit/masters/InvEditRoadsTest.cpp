// Where the edit screen of a part leads to.
#include "PartBench.h"
#include "masters/inventory/frmInvKit.h"
#include "masters/inventory/frmRecvList.h"
#include "masters/inventory/frmUsageList.h"

namespace lantos::test {
namespace {

class InvEditRoads : public PartBench {
 protected:
  InvEditRoads() { PutParts({Pad(), {"PAD-2", "OTHER PAD", {1, 2, 3, 4}, 5}}); }
};

TEST_F(InvEditRoads, PgDnAndPgUpGoToTheNeighboursAndBeepAtTheEnds) {
  Edit([this](frmInvEdit& form) {
    Press(form, "PgUp");
    EXPECT_EQ(desktop.beeps, 1);
    Press(form, "PgDn");
    EXPECT_EQ(form.StockNumber.Text(), "PAD-2");
    EXPECT_EQ(form.QtyInStock.Text(), "5");
    Press(form, "PgDn");
    EXPECT_EQ(desktop.beeps, 2);
    form.Comment.DoType("second");
    form.MoveFocus(&form.cmdSave);
    Press(form, "F10");
  });
  EXPECT_EQ(MasterBytes(0), MasterImage(Pad()).Bytes());
  EXPECT_EQ(TextAt(MasterBytes(1), 186, 79), "second");
  EXPECT_EQ(rows.refreshed, std::vector<Inventory::PartIndex>{1});
}

TEST_F(InvEditRoads, TheHandStaysInItsFieldWhichIsEnteredAnew) {
  desktop.WillAnswer({Answer::Yes, Answer::Yes});
  Edit([](frmInvEdit& form) {
    form.MoveFocus(&form.QtyInStock);
    Press(form, "PgDn");
    EXPECT_TRUE(form.QtyInStock.HasFocus());
    Press(form, "7");
    EXPECT_EQ(form.QtyInStock.Text(), "7") << "what the part has is marked";
    form.MoveFocus(&form.cmdPrev);
    form.cmdPrev.DoClick();
    EXPECT_TRUE(form.Description.HasFocus());
    Press(form, "X");
    Press(form, "Esc");
  });
}

TEST_F(InvEditRoads, LeavingAChangedPartForItsNeighbourAsks) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  Edit([](frmInvEdit& form) {
    Type(form.Description, "X");
    Press(form, "PgDn");
    EXPECT_EQ(form.StockNumber.Text(), "PAD-1");
    EXPECT_EQ(form.Description.Text(), "X");
    Press(form, "PgDn");
    EXPECT_EQ(form.StockNumber.Text(), "PAD-2");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Discard current changes?");
  EXPECT_EQ(desktop.boxes[0].buttons, ui::Buttons::YesNo);
}

TEST_F(InvEditRoads, ANeighbourThatCanNotBeReadLeavesThePartOnTheScreen) {
  Edit([this](frmInvEdit& form) {
    desktop.WillAnswer(Answer::Cancel);
    {
      const SharedFile held(directory / "TQINVENT.DAT", Access::ReadWrite, Deny::All);
      Press(form, "PgDn");
    }
    EXPECT_EQ(form.StockNumber.Text(), "PAD-1");
    form.Comment.DoType("first");
    Press(form, "F10");
  });
  EXPECT_EQ(TextAt(MasterBytes(0), 186, 79), "first");
}

TEST_F(InvEditRoads, OnlyAKitHasPartsToEdit) {
  Edit([this](frmInvEdit& form) {
    EXPECT_FALSE(form.cmdEditKit.Enabled());
    Press(form, "F4");
    form.MoveFocus(&form.ComboD);
    Press(form, "F4");
    EXPECT_TRUE(form.ComboD.DroppedRow()) << "it is the drop-down's key then";
    Press(form, "Esc");
    form.Location.DoType("KIT:(5.00,6.00)");
    EXPECT_TRUE(form.cmdEditKit.Enabled());
    form.Location.DoType("kit:");
    EXPECT_FALSE(form.cmdEditKit.Enabled());
    Drop(form);
  });
}

TEST_F(InvEditRoads, F4EditsThePartsOfTheKitAndComesBackToThePart) {
  PartImage kit = Pad();
  kit.location = "KIT:";
  PutParts({kit});
  directory.Put("TQINVKIT.DAT", "");
  Edit([this](frmInvEdit& form) {
    desktop.WillUse([](ui::Form& shown) {
      EXPECT_EQ(As<frmInvKit>(shown).txtKitPartNumber.Text(), "PAD-1");
      Press(shown, "Esc");
    });
    Press(form, "F4");
    form.Comment.DoType("a kit");
    Press(form, "F10");
  });
  EXPECT_EQ(TextAt(MasterBytes(0), 186, 79), "a kit");
}

TEST_F(InvEditRoads, UsageAndReceivingAreBlankAndSayWhoShowsThem) {
  desktop.WillUse([this](ui::Form& shown) {
    auto& form = As<frmInvEdit>(shown);
    desktop.WillUse([](ui::Form& list) {
      EXPECT_EQ(list.Caption(), "Usage");
      EXPECT_EQ(As<frmUsageList>(list).lblHeading.Caption(), "Korvel shows the usage of PAD-1.");
      Press(list, "Esc");
    });
    Press(form, "Alt+U");
    desktop.WillUse([](ui::Form& list) {
      EXPECT_EQ(list.Caption(), "Receiving");
      EXPECT_EQ(As<frmRecvList>(list).lblHeading.Caption(), "Korvel shows the receiving of PAD-1.");
      As<frmRecvList>(list).cmdClose.DoClick();
    });
    Press(form, "Alt+R");
    Press(form, "Esc");
  });
  EditPart(shop, rows, {kNoLink, 0});
}

TEST_F(InvEditRoads, AHeadingShowsAnAmpersandOfAPartNumber) {
  const frmUsageList list(shop, "A&B");
  EXPECT_EQ(list.lblHeading.Caption(), "Korvel shows the usage of A&B.");
}

}  // namespace
}  // namespace lantos::test
