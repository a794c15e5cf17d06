// The edit screen of a part: what it shows, and what it stores.
#include "PartBench.h"

namespace lantos::test {
namespace {

class InvEdit : public PartBench {
 protected:
  InvEdit() { PutParts({Pad(), {"PAD-2", "OTHER PAD", {1, 2, 3, 4}, 5}}); }
};

TEST_F(InvEdit, ShowsEveryFieldInItsForm) {
  std::string masters = directory.Content("TQINVENT.DAT");
  masters.replace(144, 6, "BRAKES").replace(186, 7, "comment").replace(297, 1, "\1").replace(324, 1, "\1");
  masters.replace(325, 4, std::string("\x2C\1\0\0", 4)).replace(329, 2, std::string("\3\0", 2));
  masters.replace(333, 2, std::string("\x14\0", 2));
  directory.Put("TQINVENT.DAT", masters);
  Edit([](frmInvEdit& form) {
    EXPECT_EQ(form.Caption(), "Edit Part");
    EXPECT_EQ(form.Focus(), &form.Description);
    EXPECT_EQ(form.StockNumber.Text(), "PAD-1");
    EXPECT_TRUE(form.StockNumber.Locked());
    EXPECT_EQ(form.Description.Text(), "BRAKE PAD");
    EXPECT_EQ(form.ComboD.Text(), "BRAKES");
    EXPECT_EQ(form.ComboM.Text(), "BOSCH");
    EXPECT_EQ(form.Pricing[0].Text(), "10.00");
    EXPECT_EQ(form.Pricing[3].Text(), "19.99");
    EXPECT_EQ(form.MarkupPercent[1].Text(), "25.0000");
    EXPECT_EQ(form.MarkupPercent[3].Text(), "99.9000");
    EXPECT_TRUE(form.IsStocked.Value());
    EXPECT_FALSE(form.HasACore.Value());
    EXPECT_EQ(form.CoreCost.Text(), "0.00");
    EXPECT_TRUE(form.HasWaste.Value());
    EXPECT_EQ(form.DisposalFee.Text(), "3.00");
    EXPECT_EQ(form.Location.Text(), "SHELF 3");
    EXPECT_EQ(form.Comment.Text(), "comment");
    EXPECT_EQ(form.ReorderLevel.Text(), "3");
    EXPECT_EQ(form.QtyInStock.Text(), "12");
    EXPECT_EQ(form.IdealLevel.Text(), "20");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    Press(form, "Esc");
  });
}

TEST_F(InvEdit, EveryFieldIsStoredAtItsPlace) {
  Edit([](frmInvEdit& form) {
    Type(form.Description, "PAD, FRONT");
    form.ComboD.DoSelect(2);
    form.ComboM.DoType("");
    for (std::size_t i = 0; i < 4; ++i) {
      form.Pricing[i].DoType(std::to_string(i + 20) + ".5");
      form.MarkupPercent[i].DoType(std::to_string(i) + ".12345");
    }
    form.IsStocked.DoClick();
    form.CoreCost.DoType("7");
    form.HasWaste.DoClick();
    form.DisposalFee.DoType("-1.25");
    form.Location.DoType("BIN 9");
    form.Comment.DoType("  soft ");
    form.ReorderLevel.DoType("2");
    form.QtyInStock.DoType("-3");
    form.IdealLevel.DoType("32767");
    Press(form, "F10");
    EXPECT_FALSE(form.Visible());
  });
  PartImage stored = {"PAD-1", "PAD, FRONT", {2050, 2150, 2250, 2350}, -3};
  stored.markups = {1234, 11234, 21234, 31234};  // 0.12345 goes to the even digit
  stored.coreCost = 700;
  stored.location = "BIN 9";
  EXPECT_EQ(TagBytes(0), TagImage(stored, 0).Text(82, "\1").Bytes());
  EXPECT_EQ(MasterBytes(0), MasterImage(stored)
                                .Text(144, "ENGINE")
                                .Text(186, "soft")
                                .Text(297, "\1")
                                .Text(324, "\1")
                                .Long(325, -125)
                                .Integer(329, 2)
                                .Integer(333, 32767)
                                .Bytes());
  EXPECT_EQ(rows.refreshed, std::vector<Inventory::PartIndex>{0});
  EXPECT_EQ(inventory.PartInStock("PAD-1"), -3);
}

TEST_F(InvEdit, SavingAnUnchangedPartLeavesEveryByte) {
  const std::string tags = directory.Content("TQINVTAG.DAT");
  const std::string masters = directory.Content("TQINVENT.DAT");
  Edit([](frmInvEdit& form) { Press(form, "F10"); });
  EXPECT_EQ(directory.Content("TQINVTAG.DAT"), tags);
  EXPECT_EQ(directory.Content("TQINVENT.DAT"), masters);
}

TEST_F(InvEdit, ACostOfTenWithAMarkupOfTwentyFiveRecalculatesToTwelveFifty) {
  Edit([this](frmInvEdit& form) {
    form.Pricing[0].DoType("10.00");
    for (std::size_t i = 0; i < 4; ++i) form.MarkupPercent[i].DoType("25.0000");
    form.MarkupPercent[3].DoType("33.335");
    form.cmdRecalc.DoClick();
    EXPECT_EQ(form.Pricing[0].Text(), "10.00");
    EXPECT_EQ(form.Pricing[1].Text(), "12.50");
    EXPECT_EQ(form.Pricing[2].Text(), "12.50");
    EXPECT_EQ(form.Pricing[3].Text(), "13.33");
    EXPECT_EQ(form.Focus(), &form.ReorderLevel);
    Drop(form);
  });
}

TEST_F(InvEdit, NothingIsRecalculatedFromWhatIsNoNumber) {
  desktop.WillAnswer(Answer::Ok);
  Edit([this](frmInvEdit& form) {
    form.MarkupPercent[2].DoType("1O");
    form.cmdRecalc.DoClick();
    EXPECT_EQ(form.Pricing[1].Text(), "12.50");
    EXPECT_EQ(form.Focus(), &form.MarkupPercent[2]);
    Drop(form);
  });
  EXPECT_EQ(desktop.boxes[0].text, "Resale markup: \"1O\" is not a number.");
}

TEST_F(InvEdit, ASaveWithAPriceOfZeroAsksFirstAndCancelLeavesTheRecordUnsaved) {
  const std::string masters = directory.Content("TQINVENT.DAT");
  desktop.WillAnswer(Answer::Cancel);
  Edit([this](frmInvEdit& form) {
    form.Pricing[1].DoType("0.004");
    form.Pricing[3].DoType("");
    Press(form, "F10");
    EXPECT_EQ(form.Focus(), &form.Pricing[1]) << "the lowest level";
    EXPECT_EQ(directory.Content("TQINVENT.DAT").substr(265, 16), MasterImage(Pad()).Bytes().substr(265, 16));
    desktop.WillAnswer(Answer::Ok);
    Press(form, "F10");
    EXPECT_FALSE(form.Visible());
  });
  const ui::Box& box = desktop.boxes[0];
  EXPECT_EQ(box.text, "One or more of the pricing values is missing.\rClick OK to continue, or CANCEL to correct.");
  EXPECT_EQ(box.buttons, ui::Buttons::OkCancel);
  EXPECT_EQ(box.defaultButton, 1U);
  EXPECT_EQ(LongAt(MasterBytes(0), 269), 0);
  EXPECT_EQ(LongAt(MasterBytes(0), 277), 0);
}

TEST_F(InvEdit, WhatAFieldCanNotHoldIsToldAndNotWrapped) {
  const std::string masters = directory.Content("TQINVENT.DAT");
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok, Answer::Ok});
  Edit([this](frmInvEdit& form) {
    form.QtyInStock.DoType("32768");
    Press(form, "F10");
    EXPECT_EQ(form.Focus(), &form.QtyInStock);
    form.QtyInStock.DoType("-32768");
    form.MarkupPercent[0].DoType("214748.3648");
    Press(form, "F10");
    EXPECT_EQ(form.Focus(), &form.MarkupPercent[0]);
    form.MarkupPercent[0].DoType("1");
    form.Pricing[2].DoType("21474836.48");
    Press(form, "F10");
    form.Pricing[2].DoType("ten");
    Press(form, "F10");
    EXPECT_EQ(form.Focus(), &form.Pricing[2]);
    Drop(form);
  });
  EXPECT_EQ(desktop.boxes[0].text, "Quantity in stock: \"32768\" can't be stored. It must be from -32768 to 32767.");
  EXPECT_EQ(desktop.boxes[1].text,
            "Cost markup: \"214748.3648\" can't be stored. It must be from -214748.3648 to 214748.3647.");
  EXPECT_EQ(desktop.boxes[2].text,
            "Resale: \"21474836.48\" can't be stored. It must be from -21474836.48 to 21474836.47.");
  EXPECT_EQ(desktop.boxes[3].text, "Resale: \"ten\" is not a number.");
  EXPECT_EQ(directory.Content("TQINVENT.DAT"), masters);
}

TEST_F(InvEdit, ACoreIsMadeOnlyWhenItWasJustTurnedOn) {
  Edit([](frmInvEdit& form) {
    form.HasACore.DoClick();
    form.CoreCost.DoType("5.00");
    Press(form, "F10");
  });
  ASSERT_EQ(inventory.Count(), 3);
  EXPECT_EQ(inventory.PartPrices("PAD-1/C").byLevel[0], 500);
  Edit([](frmInvEdit& form) {
    form.CoreCost.DoType("6.00");
    Press(form, "F10");
  });
  EXPECT_EQ(inventory.PartPrices("PAD-1/C").byLevel[0], 500);
  Edit([](frmInvEdit& form) {
    form.HasACore.DoClick();
    Press(form, "F10");
  });
  EXPECT_EQ(inventory.Count(), 3);
  EXPECT_EQ(MasterBytes(0)[319], '\0');
}

TEST_F(InvEdit, ANumberWithoutRoomForItsCoreIsToldOf) {
  PartImage part = Pad();
  part.number = std::string(20, 'L');
  PutParts({part});
  desktop.WillAnswer(Answer::Ok);
  Edit([](frmInvEdit& form) {
    form.HasACore.DoClick();
    Press(form, "F10");
  });
  EXPECT_EQ(desktop.boxes[0].text, "Part " + part.number +
                                       " is saved, but its number is too long for a core part: there is no room for "
                                       "\"/C\".");
  EXPECT_EQ(inventory.Count(), 1);
  EXPECT_EQ(MasterBytes(0)[319], '\1');
}

TEST_F(InvEdit, ResetShowsThePartAgainAndCancelAsksBeforeChangesAreLost) {
  desktop.WillAnswer(Answer::No);
  Edit([this](frmInvEdit& form) {
    Type(form.Description, "X");
    form.HasACore.DoClick();
    form.Pricing[0].DoType("1");
    Press(form, "F2");
    EXPECT_EQ(form.Description.Text(), "BRAKE PAD");
    EXPECT_FALSE(form.HasACore.Value());
    EXPECT_EQ(form.Pricing[0].Text(), "10.00");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    form.Comment.DoType("X");
    Press(form, "Esc");
    EXPECT_TRUE(form.Visible());
    Drop(form);
  });
  EXPECT_EQ(desktop.boxes[0].text, "Discard changes?");
}

TEST_F(InvEdit, EachFieldCountsAsAChange) {
  Edit([](frmInvEdit& form) {
    const auto expectChange = [&](const std::function<void()>& change) {
      change();
      EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
      Press(form, "F2");
      EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    };
    for (ui::TextBox* box :
         {&form.Description, &form.Location, &form.Comment, &form.CoreCost, &form.DisposalFee, &form.ReorderLevel,
          &form.QtyInStock, &form.IdealLevel, &form.Pricing[3], &form.MarkupPercent[0], &form.AltNumber[2]}) {
      expectChange([&] { box->DoType("1"); });
    }
    for (ui::CheckBox* box : {&form.IsStocked, &form.HasACore, &form.HasWaste}) expectChange([&] { box->DoClick(); });
    expectChange([&] { form.ComboD.DoSelect(1); });
    expectChange([&] { form.ComboM.DoType("B"); });
    Press(form, "Esc");
  });
}

TEST_F(InvEdit, StockThatWasSoldWhileTheScreenWasOpenStaysSoldUnlessTheCountThatWasTypedIsWanted) {
  const auto sell = [this](std::int16_t left) {
    PartImage sold = Pad();
    sold.inStock = left;
    directory.Put("TQINVTAG.DAT", TagImage(sold, 0).Bytes() + TagBytes(1));
    directory.Put("TQINVENT.DAT", MasterImage(sold).Long(336, 76).Bytes() + MasterBytes(1));
    InventoryTag told = inventory.Tag(0);  // as the other copy's message has it
    told.Put(inventorytag::InStock, left);
    inventory.ReplaceTag(0, told);
  };
  Edit([&](frmInvEdit& form) {
    sell(7);
    form.Comment.DoType("new");
    EXPECT_EQ(form.QtyInStock.Text(), "12") << "what is being typed isn't touched";
    Press(form, "F10");
  });
  PartImage stored = Pad();
  stored.inStock = 7;
  EXPECT_EQ(TagBytes(0), TagImage(stored, 0).Bytes());
  EXPECT_EQ(MasterBytes(0), MasterImage(stored).Text(186, "new").Long(336, 76).Bytes());
  Edit([&](frmInvEdit& form) {
    sell(6);
    form.QtyInStock.DoType("20");
    desktop.WillAnswer(Answer::Cancel);
    Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(desktop.boxes.back().text,
              "Somebody else has changed this meanwhile:\r\rQuantity in stock: \"6\" is stored, \"20\" is yours\r\r"
              "Do you want to store yours?\rNo keeps what is stored, CANCEL goes back.");
    desktop.WillAnswer(Answer::Yes);
    Press(form, "F10");
  });
  stored.inStock = 20;
  EXPECT_EQ(TagBytes(0), TagImage(stored, 0).Bytes());
  EXPECT_EQ(LongAt(MasterBytes(0), 336), 76);
}

TEST_F(InvEdit, APartDeletedByAnotherUserIsNotBroughtBack) {
  desktop.WillAnswer(Answer::Ok);
  Edit([this](frmInvEdit& form) {
    directory.Put("TQINVENT.DAT", MasterImage(Pad()).Text(335, "\1").Bytes() + MasterBytes(1));
    form.Comment.DoType("new");
    Press(form, "F10");
    EXPECT_TRUE(form.Visible());
    Drop(form);
  });
  EXPECT_EQ(desktop.boxes[0].text, "Part PAD-1 was deleted by another user.");
  EXPECT_EQ(MasterBytes(0), MasterImage(Pad()).Text(335, "\1").Bytes());
}

TEST_F(InvEdit, APartThatCanNotBeReadIsNotShown) {
  desktop.WillAnswer(Answer::Cancel);
  const SharedFile held(directory / "TQINVENT.DAT", Access::ReadWrite, Deny::All);
  EditPart(shop, rows, {kNoLink, 0});
  EXPECT_EQ(desktop.boxes[0].title, "ReadInventory");
}

}  // namespace
}  // namespace lantos::test
