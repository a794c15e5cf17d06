// Departments, manufacturers and alternates on the edit screen of a part.
#include <gmock/gmock.h>

#include "PartBench.h"
#include "masters/inventory/frmDept.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

class InvEditNames : public PartBench {
 protected:
  InvEditNames() {
    PartImage pad = {"PAD", "BRAKE PAD", {1, 2, 3, 4}};
    pad.manufacturer = "NOBODY";  // in no list
    pad.alternates = {"DISC", "GONE"};
    PartImage disc = {"DISC", "BRAKE DISC", {1, 2, 3, 4}};
    disc.alternates = {"PAD"};
    PutParts({pad, disc, {"DRUM", "BRAKE DRUM", {1, 2, 3, 4}}});
  }
  static std::vector<std::string> RowsOf(const ui::ComboBox& combo) {
    std::vector<std::string> rows;
    for (const ui::ListRow& row : combo.Rows()) rows.push_back(row.text);
    return rows;
  }
  std::string AlternatesOf(std::size_t record) const { return MasterBytes(record).substr(21, 84); }
};

TEST_F(InvEditNames, TheListsHaveNewOnTop) {
  Edit([](frmInvEdit& form) {
    EXPECT_THAT(RowsOf(form.ComboD), ElementsAre("<New>", "BRAKES", "ENGINE"));
    EXPECT_THAT(RowsOf(form.ComboM), ElementsAre("<New>", "BOSCH"));
    EXPECT_EQ(form.ComboM.Text(), "NOBODY");
    Press(form, "Esc");
  });
}

TEST_F(InvEditNames, NewAsksForANameWhichIsChosenThen) {
  Edit([this](frmInvEdit& form) {
    desktop.WillUse([](ui::Form& shown) {
      EXPECT_EQ(shown.Caption(), "Add Manufacturer");
      As<frmDept>(shown).DeptName.DoType("ACME");
      Press(shown, "F10");
    });
    form.MoveFocus(&form.ComboM);
    form.ComboM.DoSelect(0);
    EXPECT_EQ(form.ComboM.Text(), "ACME");
    EXPECT_THAT(RowsOf(form.ComboM), ElementsAre("<New>", "BOSCH", "ACME"));
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    EXPECT_TRUE(form.MoveFocus(&form.Comment));
    Press(form, "F10");
  });
  EXPECT_EQ(TextAt(MasterBytes(0), 165, 21), "ACME");
}

TEST_F(InvEditNames, ANewNameThatComesToNothingLeavesWhatStoodThere) {
  Edit([this](frmInvEdit& form) {
    const auto giveUp = [](ui::Form& shown) { Press(shown, "Esc"); };
    desktop.WillUse(giveUp);
    form.ComboM.DoSelect(0);
    EXPECT_EQ(form.ComboM.Text(), "NOBODY");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close") << "nothing was changed";
    form.MoveFocus(&form.ComboD);
    form.ComboD.DoType("<New>");
    desktop.WillUse(giveUp);
    EXPECT_TRUE(form.MoveFocus(&form.Comment));
    EXPECT_EQ(form.ComboD.Text(), "");
    Drop(form);
  });
}

TEST_F(InvEditNames, ArrowsWalkTheNamesAndTheOpenListAloneHasNew) {
  Edit([this](frmInvEdit& form) {
    form.MoveFocus(&form.ComboD);
    Press(form, "Down");
    EXPECT_EQ(form.ComboD.Text(), "BRAKES") << "nothing stood there";
    Press(form, "Up");
    EXPECT_EQ(form.ComboD.Text(), "BRAKES");
    Press(form, "Down");
    EXPECT_EQ(form.ComboD.Text(), "ENGINE");
    Press(form, "Up");
    EXPECT_EQ(form.ComboD.Text(), "BRAKES");
    Press(form, "Alt+Down");
    Press(form, "Up");
    desktop.WillUse([](ui::Form& shown) {
      EXPECT_EQ(shown.Caption(), "Add Department");
      Press(shown, "Esc");
    });
    Press(form, "Enter");
    EXPECT_EQ(form.ComboD.Text(), "BRAKES");
    Drop(form);
  });
}

TEST_F(InvEditNames, AnUnknownDepartmentIsCorrectedOrPutBack) {
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  Edit([this](frmInvEdit& form) {
    form.MoveFocus(&form.ComboD);
    form.ComboD.DoType("BRAKE");
    EXPECT_FALSE(form.MoveFocus(&form.ComboM));
    EXPECT_EQ(form.ComboD.Text(), "BRAKE");
    EXPECT_TRUE(form.MoveFocus(&form.ComboM));
    EXPECT_EQ(form.ComboD.Text(), "");
    Drop(form);
  });
  const ui::Box& box = desktop.boxes[0];
  EXPECT_EQ(box.text, "Unrecognized department specified!");
  EXPECT_EQ(box.title, "Ingredient - Store Location");
  EXPECT_EQ(box.buttons, ui::Buttons::RetryCancel);
}

TEST_F(InvEditNames, WhatThePartHasNeedsNoListAndAListedNameIsTaken) {
  Edit([](frmInvEdit& form) {
    form.MoveFocus(&form.ComboM);
    EXPECT_TRUE(form.MoveFocus(&form.Comment));
    form.MoveFocus(&form.ComboM);
    form.ComboM.DoType("BOSCH");
    EXPECT_TRUE(form.MoveFocus(&form.Comment));
    Press(form, "F10");
  });
  EXPECT_EQ(TextAt(MasterBytes(0), 165, 21), "BOSCH");
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(InvEditNames, ASaveStopsAtAnUnknownManufacturerWhicheverTheAnswer) {
  const std::string masters = directory.Content("TQINVENT.DAT");
  desktop.WillAnswer({Answer::Retry, Answer::Cancel});
  Edit([this](frmInvEdit& form) {
    form.MoveFocus(&form.ComboM);
    form.ComboM.DoType("bosch");
    Press(form, "F10");
    EXPECT_EQ(form.Focus(), &form.ComboM);
    EXPECT_EQ(form.ComboM.Text(), "bosch");
    Press(form, "F10");
    EXPECT_EQ(form.ComboM.Text(), "NOBODY");
    EXPECT_TRUE(form.Visible());
    Drop(form);
  });
  EXPECT_EQ(desktop.boxes[0].text, "Unrecognized manufacturer specified!");
  EXPECT_EQ(directory.Content("TQINVENT.DAT"), masters);
}

TEST_F(InvEditNames, AnUnknownAlternateIsToldOfWhereItIsTyped) {
  desktop.WillAnswer({Answer::Ok, Answer::Ok});
  Edit([](frmInvEdit& form) {
    form.MoveFocus(&form.AltNumber[2]);
    form.AltNumber[2].DoType("drum");
    EXPECT_FALSE(form.MoveFocus(&form.Comment));
    Press(form, "F10");
    EXPECT_EQ(form.Focus(), &form.AltNumber[2]);
    form.AltNumber[2].DoType(" DRUM ");
    EXPECT_TRUE(form.MoveFocus(&form.Comment));
    Press(form, "F10");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Part drum not found.");
  EXPECT_EQ(desktop.boxes[1].text, "Part drum not found.");
  EXPECT_EQ(AlternatesOf(0), Padded("DISC", 21) + Padded("GONE", 21) + Padded("DRUM", 21) + Padded("", 21));
  EXPECT_EQ(AlternatesOf(2), Padded("PAD", 84));
}

TEST_F(InvEditNames, AnAlternateThatStandsInTheRecordHoldsNobody) {
  Edit([](frmInvEdit& form) {
    form.MoveFocus(&form.AltNumber[1]);
    EXPECT_TRUE(form.MoveFocus(&form.Comment));
    Press(form, "F10");
  });
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(InvEditNames, AChangeInAnAlternateUpdatesTheOtherPartTooAndRemovingItClearsThePointerBack) {
  Edit([](frmInvEdit& form) {
    form.AltNumber[0].DoType("DRUM");
    Press(form, "F10");
  });
  EXPECT_EQ(AlternatesOf(1), Padded("", 84));
  EXPECT_EQ(AlternatesOf(2), Padded("PAD", 84));
  Edit([](frmInvEdit& form) {
    form.AltNumber[0].DoType("");
    Press(form, "F10");
  });
  EXPECT_EQ(AlternatesOf(0), Padded("", 21) + Padded("GONE", 63));
  EXPECT_EQ(AlternatesOf(2), Padded("", 84));
}

TEST_F(InvEditNames, AFullPartIsToldOfAndTheOthersAreServed) {
  PartImage full = {"DISC", "BRAKE DISC", {1, 2, 3, 4}};
  full.alternates = {"A", "B", "C", "D"};
  PutParts({{"PAD", "BRAKE PAD", {1, 2, 3, 4}}, full, {"DRUM", "BRAKE DRUM", {1, 2, 3, 4}}});
  desktop.WillAnswer(Answer::Ok);
  Edit([](frmInvEdit& form) {
    form.AltNumber[0].DoType("DISC");
    form.AltNumber[1].DoType("DRUM");
    Press(form, "F10");
    EXPECT_FALSE(form.Visible());
  });
  EXPECT_EQ(desktop.boxes[0].text, "Too many alternate parts on record for DISC");
  EXPECT_EQ(desktop.boxes[0].title, "Cross Reference Alternate Parts");
  EXPECT_EQ(AlternatesOf(1), Padded("A", 21) + Padded("B", 21) + Padded("C", 21) + Padded("D", 21));
  EXPECT_EQ(AlternatesOf(2), Padded("PAD", 84));
}

TEST_F(InvEditNames, GoToAnAlternateThatIsThereAndStayAtOneThatIsNot) {
  desktop.WillAnswer({Answer::Ok});
  Edit([this](frmInvEdit& form) {
    EXPECT_TRUE(form.cmdGoToAlt[0].Enabled());
    EXPECT_FALSE(form.cmdGoToAlt[2].Enabled());
    form.AltNumber[2].DoType("DRUM");
    EXPECT_TRUE(form.cmdGoToAlt[2].Enabled());
    form.AltNumber[2].DoType(" ");
    EXPECT_FALSE(form.cmdGoToAlt[2].Enabled());
    Press(form, "F2");
    form.cmdGoToAlt[1].DoClick();
    EXPECT_EQ(form.StockNumber.Text(), "PAD");
    form.cmdGoToAlt[0].DoClick();
    EXPECT_EQ(form.StockNumber.Text(), "DISC");
    form.Comment.DoType("X");
    desktop.WillAnswer({Answer::No, Answer::Yes});
    form.cmdGoToAlt[0].DoClick();
    EXPECT_EQ(form.StockNumber.Text(), "DISC");
    form.cmdGoToAlt[0].DoClick();
    EXPECT_EQ(form.StockNumber.Text(), "PAD");
    Press(form, "Esc");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Part GONE not found.");
  EXPECT_EQ(desktop.boxes[1].text, "Discard current changes?");
}

}  // namespace
}  // namespace lantos::test
