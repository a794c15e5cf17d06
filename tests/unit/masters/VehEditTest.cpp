#include "MasterShop.h"
#include "masters/vehicles/frmMakeModel.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/MakesModels.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

std::string MakeRecord(const std::string& name, std::int32_t prev, std::int32_t next) {
  return RawRecord(29).Text(0, name).Long(21, prev).Long(25, next).Bytes();
}

class VehEdit : public MasterShop {
 protected:
  VehEdit() {
    PutCustomers({{5, "SMITH", "JOHN", "", "", "", "", "", 0}});
    PutVehicles({{5, "1999", "HONDA", "CIVIC", "LIC", "V3", 300}});
    directory.Put("TQMAKMOD.DAT", MakeRecord("FORD", -1, -1) + MakeRecord("HONDA", -1, 58) +
                                      MakeRecord("CIVIC", 29, 87) + MakeRecord("ACCORD", 58, -1));
    MakeCustomerCurrent(5);
    records.vehicles.ReadVehicle(0);
  }
  // The screen on the working record, as it is after the use.
  bool Edit(const std::function<void(frmVehEdit&)>& use) {
    desktop.WillUse([use](ui::Form& shown) { use(As<frmVehEdit>(shown)); });
    frmVehEdit form(shop, records.vehicles.CurrentVehicle, "Edit Vehicle");
    form.ShowModal();
    const bool saved = form.Saved();
    form.Unload();
    return saved;
  }
  const VehicleRecord& Current() const { return records.vehicles.CurrentVehicle; }
  std::string Content() const { return directory.Content("TQMAKMOD.DAT"); }
};

TEST_F(VehEdit, SavingAnUnchangedVehicleLeavesEveryByteAndWritesNothing) {
  const VehicleRecord before = Current();
  EXPECT_TRUE(Edit([](frmVehEdit& form) { Press(form, "F10"); }));
  EXPECT_EQ(Current(), before);
}

TEST_F(VehEdit, ABlankMileageIsSavedAsZeroWithoutAMessage) {
  EXPECT_TRUE(Edit([](frmVehEdit& form) {
    form.Mileage.DoType("");
    form.cmdSave.DoClick();
    EXPECT_EQ(form.Mileage.Text(), "0");
  }));
  EXPECT_EQ(Current().Get(vehicle::Mileage), 0);
  EXPECT_EQ(Current().Get(vehicle::FirstMileage), 0);
  EXPECT_EQ(Current().Get(vehicle::FirstDate), 0);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(VehEdit, AMileageThatIsNoNumberStopsTheSave) {
  for (const char* text : {"12x", "99999999999"}) {
    desktop.WillAnswer({Answer::Ok, Answer::Yes});
    EXPECT_FALSE(Edit([&](frmVehEdit& form) {
      form.Mileage.DoType(text);
      form.cmdSave.DoClick();
      EXPECT_TRUE(form.Visible());
      Press(form, "Esc");
    }));
    EXPECT_EQ(desktop.boxes[0].text, "Invalid mileage - must be numeric.");
  }
  EXPECT_EQ(Current().Get(vehicle::Mileage), 300);
}

TEST_F(VehEdit, AnInvalidDateIsToldOfWhenTheFieldIsLeft) {
  desktop.WillAnswer(Answer::Ok);
  EXPECT_TRUE(Edit([](frmVehEdit& form) {
    form.MoveFocus(&form.txtDate);
    form.txtDate.DoType("2/30/2003");
    EXPECT_FALSE(form.MoveFocus(&form.VIN));
    EXPECT_TRUE(form.txtDate.HasFocus());
    form.txtDate.DoType("2/28/04");
    EXPECT_TRUE(form.MoveFocus(&form.VIN));
    EXPECT_EQ(form.txtDate.Text(), "02/28/2004");
    form.cmdSave.DoClick();
  }));
  EXPECT_EQ(desktop.boxes[0].text, "Invalid date!");
  EXPECT_EQ(Current().Get(vehicle::Date), 693974 + 38045);
}

TEST_F(VehEdit, AnEmptyDateIsNoDate) {
  EXPECT_TRUE(Edit([](frmVehEdit& form) {
    form.MoveFocus(&form.txtDate);
    form.txtDate.DoType("");
    EXPECT_TRUE(form.MoveFocus(&form.VIN));
    form.cmdSave.DoClick();
  }));
  EXPECT_EQ(Current().Get(vehicle::Date), 0);
}

TEST_F(VehEdit, TheFirstMileageStaysOnceItIsKnown) {
  Edit([](frmVehEdit& form) {
    form.Mileage.DoType("5000");
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(Current().Get(vehicle::Mileage), 5000);
  EXPECT_EQ(Current().Get(vehicle::FirstMileage), 300);
}

TEST_F(VehEdit, TheCommentsAreFourAndTextsAreTrimmed) {
  Edit([](frmVehEdit& form) {
    form.VComment[3].DoType("  tow hitch ");
    form.Year.DoType("123456");
    form.cmdSave.DoClick();
  });
  EXPECT_EQ(Current().Get(vehicle::VComment[3]), "tow hitch");
  EXPECT_EQ(Current().Get(vehicle::Year), "12345");
}

TEST_F(VehEdit, TheModelsAreThoseOfTheMake) {
  Edit([](frmVehEdit& form) {
    EXPECT_EQ(form.Make.ListCount(), 2);
    ASSERT_EQ(form.Model.ListCount(), 2);
    EXPECT_EQ(form.Model.List(0), "CIVIC");
    EXPECT_EQ(form.Model.ListIndex(), 0);
    form.Make.DoSelect(0);
    EXPECT_EQ(form.Make.Text(), "FORD");
    EXPECT_EQ(form.Model.ListCount(), 0);
    EXPECT_EQ(form.Model.Text(), "CIVIC");
    EXPECT_EQ(form.cmdCancel.Caption(), "Cancel");
    form.Make.DoType("HONDA");
    EXPECT_EQ(form.Model.ListCount(), 2);
    form.Model.DoSelect(1);
    Press(form, "F10");
  });
  EXPECT_EQ(Current().Get(vehicle::Make), "HONDA");
  EXPECT_EQ(Current().Get(vehicle::Model), "ACCORD");
}

TEST_F(VehEdit, InsertOnMakeOrModelOpensTheirListsAndTheNewOnesAreThere) {
  Edit([this](frmVehEdit& form) {
    form.MoveFocus(&form.VIN);
    Press(form, "Insert");
    form.MoveFocus(&form.Make);
    desktop.WillUse([](ui::Form& shown) {
      As<frmMakeModel>(shown).txtMake.DoType("SAAB");
      As<frmMakeModel>(shown).cmdAddMake.DoClick();
      Press(shown, "Esc");
    });
    Press(form, "Insert");
    EXPECT_EQ(form.Make.ListCount(), 3);
    EXPECT_EQ(form.Make.Text(), "HONDA");
    EXPECT_EQ(form.cmdCancel.Caption(), "Close");
    form.MoveFocus(&form.Model);
    desktop.WillUse([](ui::Form& shown) { Press(shown, "Esc"); });
    Press(form, "Insert");
    Press(form, "Esc");
  });
}

TEST_F(VehEdit, AFleetShopHasUnitNumbers) {
  environment.fleetVersion = true;
  const frmVehEdit form(shop, records.vehicles.CurrentVehicle, "Edit Vehicle");
  EXPECT_EQ(form.lblLicense.Caption(), "Unit Number");
}

TEST_F(VehEdit, AChangedScreenAsksBeforeItCloses) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  EXPECT_FALSE(Edit([](frmVehEdit& form) {
    form.VIN.DoType("NEW");
    form.DoClose();
    EXPECT_TRUE(form.Visible());
    Press(form, "F2");
    EXPECT_EQ(form.VIN.Text(), "V3");
    form.VIN.DoType("NEW");
    form.DoClose();
  }));
  EXPECT_EQ(desktop.boxes[0].text, "Discard changes?");
  EXPECT_EQ(Current().Get(vehicle::VIN), "V3");
}

// Makes and models.

class MakeModel : public VehEdit {
 protected:
  MakeModel() {
    records.makes.LoadMakes();
    form.LoadForm();
  }
  ~MakeModel() override { form.Unload(); }
  void Refused(ui::Button& button, const std::string& make, const std::string& model, const std::string& text) {
    const std::string before = Content();
    form.txtMake.SetText(make);
    form.txtModel.SetText(model);
    desktop.WillAnswer(Answer::Ok);
    button.DoClick();
    EXPECT_EQ(desktop.boxes.back().text, text);
    EXPECT_EQ(Content(), before);
  }
  frmMakeModel form{shop};
};

TEST_F(MakeModel, AMakeIsAddedAtTheEnd) {
  const std::string before = Content();
  form.txtMake.DoType(" SAAB ");
  form.cmdAddMake.DoClick();
  EXPECT_EQ(Content(), before + MakeRecord("SAAB", -1, -1));
  EXPECT_EQ(form.listMakes.List(2), "SAAB");
}

TEST_F(MakeModel, EnterAddsWhatIsTypedAndDeleteRemovesWhatIsChosen) {
  const int before = form.listMakes.ListCount();
  form.Show();
  test::Type(form.txtMake, "SAAB");
  test::Press(form, "Enter");
  EXPECT_EQ(form.listMakes.ListCount(), before + 1);
  form.MoveFocus(&form.listMakes);
  form.listMakes.DoSelect(before);
  desktop.WillAnswer(ui::Answer::Yes);
  test::Press(form, "Delete");
  EXPECT_EQ(desktop.boxes.back().title, "Delete Make");
  EXPECT_EQ(form.listMakes.ListCount(), before);
}

TEST_F(MakeModel, AModelBecomesTheFirstOfItsMake) {
  std::string expected = Content();
  expected.replace(29, 29, MakeRecord("HONDA", -1, 116));
  form.listMakes.DoSelect(1);
  EXPECT_EQ(form.listModels.ListCount(), 2);
  form.txtModel.DoType("FIT");
  form.cmdAddModel.DoClick();
  EXPECT_EQ(Content(), expected + MakeRecord("FIT", 29, 58));
  EXPECT_EQ(form.listModels.ListCount(), 3);
}

TEST_F(MakeModel, WhatCanNotBeAddedIsRefused) {
  Refused(form.cmdAddMake, " ", "", "Can not add a blank Make");
  Refused(form.cmdAddMake, "HONDA", "", "HONDA is already a known Make - can not add again.");
  Refused(form.cmdAddModel, "", "FIT", "Can not add a Model to a blank Make.");
  Refused(form.cmdAddModel, "HONDA", " ", "Can not add a blank Model.");
  Refused(form.cmdAddModel, "honda", "FIT", "Make is invalid; can not add Model.");
  Refused(form.cmdAddModel, "HONDA", "CIVIC", "Make and Model already exists; Can not add.");
}

TEST_F(MakeModel, WhatCanNotBeDeletedIsRefused) {
  Refused(form.cmdDelMake, "", "", "No Make specified - can not delete.");
  Refused(form.cmdDelMake, "SAAB", "", "Invalid Make specified - can not delete.");
  Refused(form.cmdDelModel, "", "CIVIC", "No Make specified - can not delete.");
  Refused(form.cmdDelModel, "SAAB", "CIVIC", "Invalid Make specified - can not delete.");
  Refused(form.cmdDelModel, "HONDA", "", "No Model specified - can not delete.");
  Refused(form.cmdDelModel, "HONDA", "FIT", "Invalid Model specified - can not delete.");
}

TEST_F(MakeModel, AMakeThatStillHasModelsCanNotBeDeleted) {
  Refused(form.cmdDelMake, "HONDA", "", "Must delete all associated Models before deleting Make.");
}

TEST_F(MakeModel, AMakeIsDeletedAfterTheQuestion) {
  desktop.WillAnswer({Answer::No, Answer::Yes});
  form.listMakes.DoSelect(0);
  form.cmdDelMake.DoClick();
  EXPECT_EQ(form.listMakes.ListCount(), 2);
  form.cmdDelMake.DoClick();
  EXPECT_EQ(desktop.boxes[1].title, "Delete Make");
  EXPECT_EQ(desktop.boxes[1].text, "Are you sure you wish to delete\rMake: FORD\rThis action can not be undone.");
  EXPECT_EQ(Content().substr(0, 29), MakeRecord("", -1, -1));
  EXPECT_EQ(form.listMakes.ListCount(), 1);
}

TEST_F(MakeModel, AModelIsDeletedAfterTheQuestionAndItsNeighboursAreJoined) {
  desktop.WillAnswer(Answer::Yes);
  form.listMakes.DoSelect(1);
  form.listModels.DoSelect(0);
  EXPECT_EQ(form.txtModel.Text(), "CIVIC");
  form.cmdDelModel.DoClick();
  EXPECT_EQ(desktop.boxes[0].title, "Delete Model");
  EXPECT_EQ(desktop.boxes[0].text,
            "Are you sure you wish to delete\rMake: HONDA\rModel: CIVIC\rThis action can not be undone.");
  EXPECT_EQ(Content(), MakeRecord("FORD", -1, -1) + MakeRecord("HONDA", -1, 87) + MakeRecord("", -1, -1) +
                           MakeRecord("ACCORD", 29, -1));
  EXPECT_EQ(form.listModels.ListCount(), 1);
}

}  // namespace
}  // namespace lantos::test
