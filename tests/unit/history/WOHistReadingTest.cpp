// What the browser shows of past work orders, and of those that can't be read.
#include "HistoryShop.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

using WOHistReading = HistoryShop;

TEST_F(WOHistReading, CostsAreShownAndHiddenTogether) {
  AddActive(Order(1));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    const auto isShown = [&](bool costs) {
      EXPECT_EQ(form.WoDetail.Visible(), !costs);
      for (const ui::Control* control : std::initializer_list<const ui::Control*>{
               &form.WoDetailC, &form.lblCost, &form.lblPrice, &form.lblProfit, &form.lblMargin}) {
        EXPECT_EQ(control->Visible(), costs) << control->Name();
      }
    };
    isShown(false);
    form.WoDetail.SetFocus();
    Press(form, "Alt+F4");
    isShown(true);
    EXPECT_TRUE(form.Visible()) << "the key doesn't close the window";
    EXPECT_TRUE(form.WoDetailC.HasFocus());
    EXPECT_EQ(form.lblCost.Caption(), "Cost: 3.10");
    EXPECT_EQ(form.lblPrice.Caption(), "Price: 6.99");
    EXPECT_EQ(form.lblProfit.Caption(), "Profit: 3.89");
    EXPECT_EQ(form.lblMargin.Caption(), "Margin: 0.5565");
    Click(form.cmdToggleCost);
    isShown(false);
  });
}

TEST_F(WOHistReading, AMarginOverAPriceOfNothing) {
  Workorder order = Order(1);
  order.Totals.Put(wototals::Subtotal[0], 0);
  AddActive(order);
  order = Order(2);
  order.Totals = {};
  AddActive(order);
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    EXPECT_EQ(form.lblProfit.Caption(), "Profit: 0.00");
    EXPECT_EQ(form.lblMargin.Caption(), "Margin: 0.0000");
    Click(form.cmdNext);
    EXPECT_EQ(form.lblProfit.Caption(), "Profit: -3.10");
    EXPECT_EQ(form.lblMargin.Caption(), "Margin: none");
  });
}

TEST_F(WOHistReading, ArchivedOnesAreReadFromTheArchive) {
  AddArchived(Order(1, {.part = "OLD"}));
  AddActive(Order(2, {.part = "NEW"}));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    EXPECT_THAT(Lines(form.WoDetail)[1], testing::StartsWith("NEW "));
    Click(form.cmdNext);
    EXPECT_THAT(Lines(form.WoDetail)[1], testing::StartsWith("OLD "));
    Click(form.cmdNext);
    EXPECT_EQ(desktop.beeps, 1);
  });
}

TEST_F(WOHistReading, AMissingTextIsAskedAboutAndTheBrowserGoesOn) {
  AddActive(Order(1));
  AddActive(Order(2));
  std::filesystem::remove(directory / "W0000002.tqa");
  Browse([&](frmWOHist& form) {
    desktop.WillAnswer({ui::Answer::Retry, ui::Answer::Cancel});
    Search(form, form.srchName, "adams");
    ExpectEmpty(form);
    EXPECT_EQ(form.head.workorder_number.Caption(), "2") << "which one it is";
    EXPECT_FALSE(form.cmdPrintWO.Enabled());
    Click(form.cmdNext);
    EXPECT_EQ(form.head.custname.Caption(), "Adams,Beth");
    EXPECT_TRUE(form.cmdPrintWO.Enabled());
    desktop.WillAnswer(ui::Answer::Cancel);
    Click(form.cmdPrev);
    ExpectEmpty(form);
    Press(form, "Alt+F2");
    EXPECT_EQ(desktop.beeps, 1);
  });
  EXPECT_EQ(desktop.boxes.at(0).title, "GetCurrWoRec(W0000002.tqa)");
  EXPECT_TRUE(printed.empty());
}

TEST_F(WOHistReading, AnArchiveWithoutTheTextSaysSoAndTheBrowserGoesOn) {
  AddArchived(Order(1));
  AddArchivedTag(Order(2), 5);
  Browse([&](frmWOHist& form) {
    desktop.WillAnswer({ui::Answer::Ok, ui::Answer::Ok});
    Search(form, form.srchName, "adams");
    ExpectEmpty(form);
    Click(form.cmdNext);
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
  });
  EXPECT_EQ(desktop.boxes.at(0).text, "Possible corrupted tag file - run KRVLCLEN");
  EXPECT_EQ(desktop.boxes.at(1).text, "ArchWO not found = wo = 2");
}

TEST_F(WOHistReading, AHeldArchiveGivenUpLeavesTheDetailEmpty) {
  AddArchived(Order(1));
  const SharedFile held(directory / std::string(kArchiveFile), Access::Read, Deny::All);
  Browse([&](frmWOHist& form) {
    desktop.WillAnswer({ui::Answer::Cancel, ui::Answer::Ok});
    Search(form, form.srchName, "adams");
    ExpectEmpty(form);
  });
  EXPECT_EQ(desktop.boxes.at(0).title, "GetArchWo(TQINVOIC.DAT)");
  EXPECT_EQ(desktop.boxes.at(1).text, "ArchWO not found = wo = 1");
}

TEST_F(WOHistReading, AHeldTagFileGivenUpIsNoSearchWithoutHits) {
  AddActive(Order(1));
  SharedFile held(directory / std::string(kActiveTagFile), Access::Read, Deny::All);
  Browse([&](frmWOHist& form) {
    desktop.WillAnswer(ui::Answer::Cancel);
    Search(form, form.srchName, "adams");
    EXPECT_TRUE(form.srchName.HasFocus());
    EXPECT_FALSE(form.lblSearching.Visible());
    held.Close();
    Press(form, "F10");
    EXPECT_EQ(form.head.workorder_number.Caption(), "1");
  });
  EXPECT_EQ(desktop.boxes.size(), 1u);
}

TEST_F(WOHistReading, EntriesOfTheCheckListThatTheShopHasNotAreToldAtOnce) {
  AddActive(Order(1));
  std::string text = directory.Content("W0000001.tqa");
  text.insert(text.find("[Check List]\r\n") + 14, "Oil, changed,3000\r\nGone,,\r\nLost,,\r\n");
  directory.Put("W0000001.tqa", text);
  records.checkList.items = {{false, "Oil", "", ""}};
  Browse([&](frmWOHist& form) {
    desktop.WillAnswer(ui::Answer::Ok);
    Search(form, form.srchName, "adams");
    EXPECT_THAT(Lines(form.WoDetail), testing::Contains("    Oil                            changed  3000"));
  });
  EXPECT_EQ(desktop.boxes.at(0).text,
            "Couldn't locate Gone in checklist.  Item skipped.\rCouldn't locate Lost in checklist.  Item skipped.");
  EXPECT_FALSE(records.checkList.items[0].Used) << "the current check list is nobody else's";
}

TEST_F(WOHistReading, AFleetShopLooksForUnits) {
  environment.fleetVersion = true;
  AddActive(Order(1));
  Browse([&](frmWOHist& form) {
    EXPECT_EQ(form.lblLic.Caption(), "Unit Number");
    EXPECT_EQ(form.cmdLicense.Caption(), "&Unit");
    EXPECT_EQ(form.cmdLicense.ToolTip(), "<Ctrl+U> This Unit");
    Search(form, form.srchLic, "cab");
    EXPECT_EQ(form.Caption(), "Workorder history by Unit #");
    EXPECT_EQ(form.head.licvin.Caption(), "Unit: CAB 1 VIN: 1FAFP34P0XW000001");
    Press(form, "Ctrl+L");
    Press(form, "Ctrl+N");
    EXPECT_EQ(form.Caption(), "Workorder History by Name");
    Press(form, "Ctrl+U");
    EXPECT_EQ(form.Caption(), "Workorder history by Unit #");
  });
}

TEST_F(WOHistReading, TheShownWorkOrderIsPrinted) {
  AddActive(Order(1));
  AddActive(Order(2));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    Press(form, "Alt+F2");
    Click(form.cmdNext);
    Click(form.cmdPrintWO);
  });
  EXPECT_THAT(printed, ElementsAre(2, 1));
}

TEST_F(WOHistReading, ClosingKeepsTheSizeAndLetsGoOfTheFiles) {
  AddActive(Order(1));
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    form.DoResize(15000, 10500, ui::WindowState::Normal);
  });
  EXPECT_EQ(Setting("frmWOHistWidth"), "15000");
  EXPECT_EQ(Setting("frmWOHistHeight"), "10500");
  EXPECT_EQ(Setting("frmWOHistState"), "0");
  EXPECT_NO_THROW(SharedFile(directory / std::string(kActiveTagFile), Access::Read, Deny::All));
}

TEST_F(WOHistReading, LookingChangesNothing) {
  AddActive(Order(1));
  AddArchived(Order(2));
  const auto bytes = [&] {
    std::string all;
    for (const char* name : {"TQOPENWO.DAT", "TQINCTAG.DAT", "TQINVOIC.DAT", "W0000001.tqa"}) {
      all += directory.Content(name);
    }
    return all;
  };
  const std::string before = bytes();
  Browse([&](frmWOHist& form) {
    Search(form, form.srchName, "adams");
    Click(form.cmdNext);
    Click(form.cmdNext);
  });
  EXPECT_EQ(bytes(), before);
}

}  // namespace
}  // namespace lantos::test
