#pragma once

#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "contents/ContentsBench.h"
#include "contents/conversion/Conversion.h"
#include "masters/vehicles/frmVehEdit.h"
#include "records/Vehicles.h"
#include "records/inventory/Inventory.h"
#include "records/modEmployees.h"

namespace lantos::test {

// A shop whose estimate 1001, of Beth Adams, is to become work order 5001. Nobody's password is asked for.
struct ConversionBench : ContentsBench {
  ConversionBench() {
    environment.log.Open();
    SystemRecord system;
    system.Put(sysrec::last_workorder_number, 5001);
    system.Put(sysrec::tax_rate_parts, 82500);
    PutRecord("TQSYSTEM.DAT", system);
    records.system.ReadSystem();
    CustomerRecord owner;
    owner.Put(customer::Number, 7);
    owner.Put(customer::Lastname, "Adams");
    owner.Put(customer::Firstname, "Beth");
    owner.Put(customer::pricing_level, 3);
    owner.Put(customer::VLink, kNoLink);
    PutRecord("TQCSTDAT.DAT", owner);
    directory.Put("TQCSTTAG.DAT", std::string("\7\0\0\0Adams,Beth", 14) + std::string(82, '\0'));
    directory.Put("TQEMPLOY.DAT", "");
    directory.Put("TQVEHICL.DAT", "");
    Do("update Estimates set Comments = 'Call first' where EstimateNumber = 1001");
    database.estimates.LoadEstimate(1001);
    board.ShowComments("  Call first ");
    board.store = [this](const std::string& comments) {
      database.lantosData.SetComments(comments, 1001);
      database.estimates.CurrentEstimate.Comments = comments;
    };
  }

  template <std::size_t Length>
  void PutRecord(const std::string& name, const Record<Length>& record) const {
    directory.Put(name, std::string(reinterpret_cast<const char*>(record.Bytes().data()), Length));
  }
  // A part in stock and on the estimate.
  void AddPart(const std::string& number, std::int16_t stock, std::int32_t quantity) {
    Inventory& inventory = records.inventory;
    Inventory::PartIndex index = Inventory::kNoPart;
    inventory.NewInventoryPart(number, index);
    FileLink offset = kNoLink;
    ASSERT_TRUE(inventory.ReadInventory(offset, index));
    inventory.CurrentInvTag.Put(inventorytag::InStock, stock);
    inventory.CurrentInv.Put(inventory::QtyInStock, stock);
    inventory.WriteInventory(offset, index, Inventory::Core::Stays, Inventory::Broadcast::No);
    AddLine(number, quantity);
  }
  void AddLine(const std::string& number, std::int32_t quantity) {
    database.lantosData.AddPartRow(1001, {number, "PART", quantity, 1000, quantity * 1000, 400, 1500});
  }
  void AddNotes(int count) {
    for (int i = 1; i <= count; ++i) {
      database.lantosData.AddNote(1001, i, {"note " + std::to_string(i), "", "", "", "", "", "", ""});
    }
  }
  // The estimate tells of a Ford that no file knows.
  void GiveVehicle() {
    Do("update Estimates set VehYear = '1999', VehMake = 'Ford', VehModel = 'Focus', VehMileage = '100' "
       "where EstimateNumber = 1001");
    database.estimates.LoadEstimate(1001);
  }
  void SetStatus(std::int16_t status) {
    database.lantosData.SetStatus(status, 1001);
    database.estimates.CurrentEstimate.Status = status;
  }
  void SetOption(StatusOption option, char letter) {
    environment.statusOptions.letters[static_cast<std::size_t>(option)] = letter;
  }

  void Convert() { Conversion(bench, workorders).Run(); }
  // The text of the error that ends it.
  std::string Failure() {
    try {
      Convert();
    } catch (const std::exception& error) {
      return error.what();
    }
    ADD_FAILURE() << "nothing failed";
    return "";
  }
  // Yes to the conversion, OK to the work order's number, No to the new status.
  void WillConfirm() { desktop.WillAnswer(ui::Answer::Yes); }
  void WillEndQuietly() { desktop.WillAnswer({ui::Answer::Ok, ui::Answer::No, ui::Answer::Ok}); }

  std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const ui::Box& box : desktop.boxes) titles.push_back(box.title);
    return titles;
  }
  // What the run log has of the conversion, behind the estimate's number.
  std::vector<std::string> LoggedSteps() {
    const std::string all = directory.Content(environment.log.Path().filename().string());
    const std::string mark = "Convert: estimate 001001 to ";
    std::vector<std::string> steps;
    for (std::size_t at = all.find(mark); at != std::string::npos; at = all.find(mark, at)) {
      at += mark.size();
      steps.push_back(all.substr(at, all.find("\r\n", at) - at));
    }
    return steps;
  }
  bool IsThere(const std::string& name) const { return std::filesystem::exists(directory / name); }
  std::int16_t InStock(const std::string& number) const { return records.inventory.PartInStock(number); }
  std::int32_t NextNumber() {
    records.system.ReadSystem();
    return records.system.SysRec.Get(sysrec::last_workorder_number);
  }
  // No number, no stock, no file, no comment.
  void ExpectNothingDone(const std::string& comments = "Call first") {
    EXPECT_EQ(NextNumber(), 5001);
    EXPECT_TRUE(LoggedSteps().empty());
    for (const char* name : {"TQOPENWO.DAT", "TQINCTAG.DAT", "TQUSEHST.DAT", "W0005001.tqa"}) {
      EXPECT_FALSE(IsThere(name)) << name;
    }
    EXPECT_EQ(StoredComments(), comments);
  }
  std::string StoredComments() { return Ask("select Comments from Estimates where EstimateNumber = 1001"); }
};

inline const std::string kWhole = "work order # 005001";

}  // namespace lantos::test
