#include "MasterShop.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

// Customer 5 has the vehicles at 794, 397 and 0, in the order of the chain; the one at 397 is deleted.
class VehList : public MasterShop {
 protected:
  VehList() {
    PutCustomers({{5, "SMITH", "JOHN", "", "", "", "", "", 794}, {6, "ROE", "AL"}});
    PutVehicles({{5, "1999", "HONDA", "CIVIC", "LIC-C", "V3", 300, -1},
                 {5, "2000", "FORD", "F150", "LIC-B", "V2", 20, 0, 86},
                 {5, "2001", "DODGE", "RAM", "LIC-A", "V1", 1000, 397}});
    MakeCustomerCurrent(5);
  }
  using Choice = MasterScreens::VehicleChoice;
  Choice Maintain(const std::vector<std::function<void(frmVehList&)>>& uses) {
    for (const auto& use : uses) desktop.WillUse([use](ui::Form& shown) { use(As<frmVehList>(shown)); });
    return screens.VehicleMaintenance();
  }
  static std::vector<std::string> Column(const frmVehList& list, std::size_t column) {
    std::vector<std::string> texts;
    for (const ui::GridRow& row : list.DataGrid1.Rows()) texts.push_back(row.cells[column]);
    return texts;
  }
  std::string Vehicles() const { return directory.Content("TQVEHICL.DAT"); }
  using Texts = std::vector<std::string>;
};

TEST_F(VehList, TheListHasARowForEachLiveVehicleSortedByVin) {
  const Choice result = Maintain({[](frmVehList& list) {
    EXPECT_EQ(list.CustomerNumber.Text(), "000005");
    EXPECT_EQ(list.CustName.Text(), "SMITH, JOHN");
    EXPECT_EQ(Column(list, 4), (Texts{"V1", "V3"}));
    EXPECT_EQ(list.DataGrid1.Rows()[0].cells, (Texts{"2001", "DODGE", "RAM", "LIC-A", "V1", "1000", "794", "-1", " "}));
    EXPECT_EQ(list.DataGrid1.Rows()[0].data, 794);
    EXPECT_EQ(list.DataGrid1.Columns()[3].name, "License");
    EXPECT_FALSE(list.cmdHistory.Enabled());
    Press(list, "Esc");
  }});
  EXPECT_EQ(result, Choice::None);
}

TEST_F(VehList, ADeletedVehicleIsHiddenUntilItIsAskedForAndShowsAnX) {
  Maintain({[this](frmVehList& list) {
    EXPECT_EQ(list.DataGrid1.RowCount(), 2);
    list.chkShowDeleted.DoClick();
    EXPECT_EQ(Column(list, 4), (Texts{"V1", "V2", "V3"}));
    EXPECT_EQ(Column(list, 8), (Texts{" ", "X", " "}));
    EXPECT_EQ(Setting("frmVehListShowDel"), "True");
    list.DoClose();
  }});
  Maintain({[](frmVehList& list) {
    EXPECT_TRUE(list.chkShowDeleted.Value());
    EXPECT_EQ(list.DataGrid1.RowCount(), 3);
    list.DoClose();
  }});
}

TEST_F(VehList, FiltersNarrowTheListAsTheyAreTyped) {
  Maintain({[](frmVehList& list) {
    list.txtMake.DoType("ho");
    EXPECT_EQ(Column(list, 1), (Texts{"HONDA"}));
    list.txtYear.DoType("2");
    EXPECT_EQ(list.DataGrid1.RowCount(), 0);
    EXPECT_EQ(list.DataGrid1.Row(), -1);
    list.txtMake.DoType("");
    EXPECT_EQ(Column(list, 1), (Texts{"DODGE"}));
    list.txtYear.DoType("");
    list.txtLicense.DoType("*-C");
    EXPECT_EQ(Column(list, 1), (Texts{"HONDA"}));
    list.txtLicense.DoType("");
    list.txtVIN.DoType("v1");
    list.txtModel.DoType("ra%");
    EXPECT_EQ(Column(list, 1), (Texts{"DODGE"}));
    Press(list, "Esc");
  }});
}

TEST_F(VehList, AClickOnTheHeadingSortsAndTheNextOneTurnsTheOrder) {
  Maintain({[this](frmVehList& list) {
    list.DataGrid1.DoHeadClick(3);
    EXPECT_EQ(Column(list, 3), (Texts{"LIC-A", "LIC-C"}));
    EXPECT_EQ(Setting("frmVehListSort"), "License");
    list.DataGrid1.DoHeadClick(3);
    EXPECT_EQ(Column(list, 3), (Texts{"LIC-C", "LIC-A"}));
    EXPECT_EQ(Setting("frmVehListSort"), "License Desc");
    EXPECT_EQ(list.DataGrid1.SortedBy(), "License Desc");
    Press(list, "Esc");
  }});
}

TEST_F(VehList, AFleetShopHasUnitsAndTakesAStoredLicenseSortForOne) {
  settings.Save("frmVehListSort", "License Desc");
  environment.fleetVersion = true;
  Maintain({[](frmVehList& list) {
    EXPECT_EQ(list.lblLicense.Caption(), "Unit #");
    EXPECT_EQ(list.DataGrid1.Columns()[3].name, "Unit");
    EXPECT_EQ(list.DataGrid1.SortedBy(), "Unit Desc");
    EXPECT_EQ(Column(list, 3), (Texts{"LIC-C", "LIC-A"}));
    Press(list, "Esc");
  }});
}

TEST_F(VehList, AStoredUnitSortIsTakenForALicenseElsewhere) {
  settings.Save("frmVehListSort", "Unit");
  Maintain({[](frmVehList& list) {
    EXPECT_EQ(list.DataGrid1.SortedBy(), "License");
    Press(list, "Esc");
  }});
}

TEST_F(VehList, SelectingReadsTheVehicle) {
  const Choice result = Maintain({[](frmVehList& list) {
    list.DataGrid1.DoSelect(1);
    Press(list, "F10");
  }});
  EXPECT_EQ(result, Choice::Selected);
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::VIN), "V3");
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 0);
}

TEST_F(VehList, ClosingLeavesTheWorkingVehicleAndTheFileAsTheyWere) {
  const std::string before = Vehicles();
  records.vehicles.ReadVehicle(397);
  EXPECT_EQ(Maintain({[](frmVehList& list) { Press(list, "Esc"); }}), Choice::None);
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 397);
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::VIN), "V2");
  EXPECT_EQ(Vehicles(), before);
}

TEST_F(VehList, WithoutARowThereIsNothingToDeleteEditOrSelect) {
  MakeCustomerCurrent(6);
  desktop.WillAnswer({Answer::Ok, Answer::Ok, Answer::Ok});
  Maintain({[](frmVehList& list) {
    EXPECT_EQ(list.DataGrid1.RowCount(), 0);
    Press(list, "Ctrl+Delete");
    Press(list, "Enter");
    Press(list, "F10");
    EXPECT_TRUE(list.Visible());
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[0].text, "Must select a vehicle to delete.");
  EXPECT_EQ(desktop.boxes[1].text, "No vehicle selected.");
  EXPECT_EQ(desktop.boxes[2].text, "No vehicle selected.");
}

TEST_F(VehList, DeletingMarksTheRecordAndTouchesNothingElse) {
  std::string expected = Vehicles();
  expected.replace(794 + 4, 4, std::string("\x56\0\0\0", 4));
  desktop.WillAnswer({Answer::Yes, Answer::Ok});
  Maintain({[](frmVehList& list) {
    list.DataGrid1.DoSelect(0);
    list.cmdDelete.DoClick();
    EXPECT_EQ(Column(list, 4), (Texts{"V3"}));
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[0].title, "Delete vehicle");
  EXPECT_EQ(desktop.boxes[0].text, "Delete the 2001 DODGE RAM from this customer?");
  EXPECT_EQ(desktop.boxes[1].title, "Delete vehicle");
  EXPECT_EQ(desktop.boxes[1].text, "Vehicle deleted from this customer.");
  EXPECT_EQ(Vehicles(), expected);
  EXPECT_EQ(LongAt(directory.Content("TQCSTDAT.DAT"), 313), 794);
}

TEST_F(VehList, DeletingTwiceRestores) {
  const std::string before = Vehicles();
  desktop.WillAnswer({Answer::Yes, Answer::Ok, Answer::Yes, Answer::Ok});
  Maintain({[](frmVehList& list) {
    list.chkShowDeleted.DoClick();
    list.DataGrid1.DoSelect(2);
    list.cmdDelete.DoClick();
    EXPECT_EQ(Column(list, 8), (Texts{" ", "X", "X"}));
    list.cmdDelete.DoClick();
    EXPECT_EQ(Column(list, 8), (Texts{" ", "X", " "}));
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[2].title, "Undelete vehicle");
  EXPECT_EQ(desktop.boxes[2].text, "Return the 1999 HONDA CIVIC to this customer?");
  EXPECT_EQ(desktop.boxes[3].text, "Vehicle restored to this customer.");
  EXPECT_EQ(Vehicles(), before);
}

TEST_F(VehList, NoLeavesTheVehicle) {
  const std::string before = Vehicles();
  desktop.WillAnswer(Answer::No);
  Maintain({[](frmVehList& list) {
    list.cmdDelete.DoClick();
    Press(list, "Esc");
  }});
  EXPECT_EQ(Vehicles(), before);
}

TEST_F(VehList, TheToggleGoesByWhatTheRecordHolds) {
  desktop.WillAnswer({Answer::Yes, Answer::Ok});
  Maintain({[this](frmVehList& list) {
    // Another workstation deletes the vehicle while the list shows it as live.
    std::string vehicles = Vehicles();
    vehicles.replace(794 + 4, 4, std::string("\x56\0\0\0", 4));
    directory.Put("TQVEHICL.DAT", vehicles);
    list.cmdDelete.DoClick();
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[1].title, "Delete vehicle");
  EXPECT_EQ(desktop.boxes[1].text, "Vehicle restored to this customer.");
  EXPECT_EQ(LongAt(Vehicles(), 794 + 4), -1);
}

TEST_F(VehList, ADeletedVehicleThatIsHeldElsewhereIsHeldAsDeleted) {
  records.vehicles.ReadVehicle(794);
  desktop.WillAnswer({Answer::Yes, Answer::Ok});
  Maintain({[](frmVehList& list) {
    list.cmdDelete.DoClick();
    Press(list, "Esc");
  }});
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 794);
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::Deleted), kVehicleDeleted);
}

TEST_F(VehList, ANewVehicleBecomesTheFirstOfTheChain) {
  const std::string before = Vehicles();
  desktop.WillUse([](ui::Form& list) { Press(list, "Insert"); });
  desktop.WillUse([](ui::Form& shown) {
    auto& edit = As<frmVehEdit>(shown);
    EXPECT_EQ(edit.CustomerNumber.Text(), "000005");
    EXPECT_EQ(edit.Lastname.Text(), "SMITH");
    EXPECT_EQ(edit.State.Text(), "CA");
    EXPECT_EQ(edit.txtDate.Text(), "");
    EXPECT_EQ(edit.Mileage.Text(), "0");
    edit.Make.DoType("BMW");
    edit.Year.DoType("2003");
    edit.VIN.DoType("V0");
    edit.Mileage.DoType("12,500");
    edit.txtDate.DoType("09/30/2003");
    Press(edit, "F10");
  });
  desktop.WillUse([](ui::Form& list) {
    EXPECT_EQ(Column(As<frmVehList>(list), 4), (Texts{"V0", "V1", "V3"}));
    EXPECT_EQ(As<frmVehList>(list).Chosen(), 1191);
    Press(list, "Esc");
  });
  EXPECT_EQ(screens.VehicleMaintenance(), Choice::None);
  const std::string added = RawRecord(397)
                                .Long(0, 5)
                                .Long(4, -1)
                                .Text(8, "BMW")
                                .Text(50, "2003")
                                .Text(82, "V0")
                                .Text(114, "CA")
                                .Long(377, 12500)
                                .Long(381, 731868)
                                .Long(385, 12500)
                                .Long(389, 731868)
                                .Long(393, 794)
                                .Bytes();
  EXPECT_EQ(Vehicles(), before + added);
  EXPECT_EQ(LongAt(directory.Content("TQCSTDAT.DAT"), 313), 1191);
  EXPECT_EQ(LongAt(directory.Content("TQCSTDAT.DAT"), 317 + 313), -1);
}

TEST_F(VehList, ANewVehicleThatIsNotSavedLeavesNothing) {
  const std::string before = Vehicles();
  records.vehicles.ReadVehicle(0);
  desktop.WillUse([](ui::Form& list) { Press(list, "Insert"); });
  desktop.WillUse([](ui::Form& edit) { Press(edit, "Esc"); });
  desktop.WillUse([](ui::Form& list) { Press(list, "Esc"); });
  screens.VehicleMaintenance();
  EXPECT_EQ(Vehicles(), before);
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 0);
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::VIN), "V3");
}

TEST_F(VehList, ANewVehicleThatIsSavedAgainIsOnFileOnce) {
  desktop.WillUse([](ui::Form& list) { Press(list, "Insert"); });
  desktop.WillUse([this](ui::Form& shown) {
    auto& edit = As<frmVehEdit>(shown);
    edit.Make.DoType("BMW");
    {
      const SharedFile held(directory.Path() / "TQCSTDAT.DAT", Access::ReadWrite, Deny::All);
      desktop.WillAnswer(Answer::Cancel);
      Press(edit, "F10");
    }
    EXPECT_TRUE(edit.Visible());
    edit.Make.DoType("AUDI");
    Press(edit, "F10");
  });
  desktop.WillUse([](ui::Form& shown) {
    EXPECT_EQ(As<frmVehList>(shown).Chosen(), 1191);
    Press(shown, "Esc");
  });
  screens.VehicleMaintenance();
  EXPECT_EQ(Vehicles().size(), 4U * 397);
  EXPECT_EQ(Vehicles().substr(1191 + 8, 5), std::string("AUDI\0", 5));
}

TEST_F(VehList, EditingUpdatesTheRowAndTheFieldAlone) {
  std::string expected = Vehicles();
  expected.replace(29, 21, Padded("DEL SOL", 21));
  desktop.WillUse([](ui::Form& list) {
    As<frmVehList>(list).DataGrid1.DoSelect(1);
    Press(list, "Enter");
  });
  desktop.WillUse([](ui::Form& edit) {
    As<frmVehEdit>(edit).Model.DoType("DEL SOL");
    Press(edit, "F10");
  });
  desktop.WillUse([](ui::Form& list) {
    EXPECT_EQ(Column(As<frmVehList>(list), 2), (Texts{"RAM", "DEL SOL"}));
    EXPECT_EQ(As<frmVehList>(list).DataGrid1.Row(), 1);
    Press(list, "Esc");
  });
  screens.VehicleMaintenance();
  EXPECT_EQ(Vehicles(), expected);
}

TEST_F(VehList, TheHistoryIsThatOfTheSelectedVehicle) {
  Texts asked;
  screens.vehicleHistory = [&](const std::string& vin, const std::string& vehicle) {
    asked = {vin, vehicle};
    return true;
  };
  Maintain({[](frmVehList& list) {
    EXPECT_TRUE(list.cmdHistory.Enabled());
    EXPECT_EQ(list.cmdHistory.ToolTip(), "Generate History Report for Selected");
    list.DataGrid1.DoSelect(1);
    Click(list.cmdHistory);
    EXPECT_TRUE(list.Visible());
    Press(list, "Esc");
  }});
  EXPECT_EQ(asked, (Texts{"V3", "1999 HONDA CIVIC"}));
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(VehList, AVehicleWithoutHistoryIsToldOf) {
  screens.vehicleHistory = [](const std::string&, const std::string&) { return false; };
  desktop.WillAnswer(Answer::Ok);
  Maintain({[](frmVehList& list) {
    Click(list.cmdHistory);
    EXPECT_TRUE(list.Visible());
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[0].title, "Vehicle History by VIN");
  EXPECT_EQ(desktop.boxes[0].text,
            "Vehicle History by VIN report could not be generated.\r"
            "This can be because there is either no VIN or no history in the last three years.");
  EXPECT_EQ(desktop.boxes[0].icon, ui::Icon::Exclamation);
}

TEST_F(VehList, WithoutARowThereIsNoHistory) {
  MakeCustomerCurrent(6);
  screens.vehicleHistory = [](const std::string&, const std::string&) {
    ADD_FAILURE() << "of no vehicle";
    return false;
  };
  desktop.WillAnswer(Answer::Ok);
  Maintain({[](frmVehList& list) {
    Click(list.cmdHistory);
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[0].text, "No vehicle selected.");
}

TEST_F(VehList, AnErrorOnTheWayLeavesTheWorkingVehicleAsItWas) {
  records.vehicles.ReadVehicle(397);
  const SharedFile held(directory.Path() / "TQMAKMOD.DAT", Access::ReadWrite, Deny::All);
  desktop.WillUse([](ui::Form& list) { Press(list, "Enter"); });
  EXPECT_THROW(screens.VehicleMaintenance(), FileError);
  EXPECT_EQ(records.vehicles.CurrentVehicleOffset, 397);
  EXPECT_EQ(records.vehicles.CurrentVehicle.Get(vehicle::VIN), "V2");
}

TEST_F(VehList, AFileThatStaysLockedGivesAnEmptyList) {
  const SharedFile held(directory.Path() / "TQVEHICL.DAT", Access::ReadWrite, Deny::All);
  desktop.WillAnswer(Answer::Cancel);
  Maintain({[](frmVehList& list) {
    EXPECT_EQ(list.DataGrid1.RowCount(), 0);
    Press(list, "Esc");
  }});
  EXPECT_EQ(desktop.boxes[0].title, "OpenVehicleForRead");
}

TEST_F(VehList, AVehicleThatCanNotBeReadIsNotSelected) {
  desktop.WillAnswer(Answer::Ok);
  std::unique_ptr<SharedFile> held;
  const Choice result =
      Maintain({[&](frmVehList& list) {
                  held = std::make_unique<SharedFile>(directory.Path() / "TQVEHICL.DAT", Access::ReadWrite, Deny::All);
                  Press(list, "F10");
                },
                [](frmVehList& list) { Press(list, "Esc"); }});
  EXPECT_EQ(result, Choice::None);
  EXPECT_EQ(desktop.boxes[0].text, "Could not open Vehicle file.");
}

}  // namespace
}  // namespace lantos::test
