#pragma once

#include <functional>
#include <string>

#include "board/BoardState.h"
#include "board/CommandPane.h"
#include "board/Contents.h"
#include "contents/notes/EstimateChecklist.h"
#include "estimatedb/EstimateDatabase.h"
#include "records/Customers.h"

namespace lantos {

// The detail view: one estimate in full, and its totals, which are stored nowhere.
class DetailPane : private EstimateOnShow {
 public:
  DetailPane(ui::Form& form, Shop& shop, EstimateDatabase& database, frmInvList& inventoryList, Workorders& workorders,
             BoardState& state, CommandPane& commands);

 private:
  ui::Form& form_;

 public:
  ui::Frame frameDetailView{form_, "frameDetailView"};
  ui::Frame frameCustomer{form_, "frameCustomer", "Customer"};
  ui::Label lblCustName{form_, "lblCustName"};
  ui::Label lblCustSpouse{form_, "lblCustSpouse"};
  ui::Label lblCustAddr{form_, "lblCustAddr"};
  ui::Label lblCustCSZ{form_, "lblCustCSZ"};
  ui::Label lblCustPhoneH{form_, "lblCustPhoneH"};
  ui::Label lblCustPhoneW{form_, "lblCustPhoneW"};
  ui::Label lblCustPhoneO{form_, "lblCustPhoneO"};
  ui::Button cmdCustomerEdit{form_, "cmdCustomerEdit", "C&ustomer..."};
  ui::Frame frameVehicle{form_, "frameVehicle", "Vehicle"};
  ui::Label lblVehYMM{form_, "lblVehYMM"};
  ui::Label lblVehVIN{form_, "lblVehVIN"};
  ui::Label lblVehLic{form_, "lblVehLic"};
  ui::Label lblVehDate{form_, "lblVehDate"};
  ui::Label lblVehMileage{form_, "lblVehMileage"};
  ui::Label lblEngTrans{form_, "lblEngTrans"};
  ui::Button cmdVehicleEdit{form_, "cmdVehicleEdit", "&Vehicle..."};
  ui::Frame frameComments{form_, "frameComments", "Comments"};
  ui::TextBox txtComments{form_, "txtComments"};
  ui::Label lblChanged{form_, "lblChanged"};
  // Digits, since the letters are taken by the menu and the commands.
  ui::Frame frameLabor{form_, "frameLabor", "Labor"};
  ui::ListBox listLabor{form_, "listLabor"};
  ui::Button cmdLaborAdd{form_, "cmdLaborAdd", "&1 Add"};
  ui::Button cmdLaborAddCanned{form_, "cmdLaborAddCanned", "&2 Add Canned"};
  ui::Button cmdLaborChange{form_, "cmdLaborChange", "&3 Change"};
  ui::Button cmdLaborRemove{form_, "cmdLaborRemove", "&4 Remove"};
  ui::Button cmdLaborFollowup{form_, "cmdLaborFollowup", "&5 Followup"};
  ui::Frame frameParts{form_, "frameParts", "Parts"};
  ui::ListBox listParts{form_, "listParts"};
  ui::Button cmdPartAdd{form_, "cmdPartAdd", "&6 Add"};
  ui::Button cmdPartAddNonStock{form_, "cmdPartAddNonStock", "&7 Add Non-stock"};
  ui::Button cmdPartChange{form_, "cmdPartChange", "&8 Change"};
  ui::Button cmdPartRemove{form_, "cmdPartRemove", "&9 Remove"};
  ui::Frame frameTotals{form_, "frameTotals", "Totals"};
  ui::TextBox txtTotalHours{form_, "txtTotalHours"};
  ui::TextBox txtTotalLabor{form_, "txtTotalLabor"};
  ui::TextBox txtTotalParts{form_, "txtTotalParts"};
  ui::TextBox txtTotalSublet{form_, "txtTotalSublet"};
  ui::TextBox txtTotalWaste{form_, "txtTotalWaste"};
  ui::TextBox txtTotalTax{form_, "txtTotalTax"};
  ui::TextBox txtTotalCost{form_, "txtTotalCost"};

  // What the estimate holds, and the commands on it.
  Contents contents;

  // Called when the hours of the current estimate's day have changed; set by whoever shows them.
  std::function<void()> OnHoursChanged;
  // Whether a panel of the week lists an estimate, and so has its hours; set by whoever has the panels.
  std::function<bool(std::size_t weekday, std::int32_t estimate)> IsListed;

  // Nothing is on show then.
  void ClearDetail();
  // Shows CurrentEstimate.
  void ShowEstimateDetail();
  // The estimate on show as somebody else has made it, who is told beside the comments. What is selected stays, and
  // comments that are being typed do, with the other's beside them; where they are left, the person is asked which to
  // store. No box comes up: what is the matter with a file or the database is thrown, and it can be tried again.
  void ShowAnew(const std::string& whoChanged);
  // Of a new estimate there is nothing but its number, customer and vehicle yet.
  void BeginNew(std::int32_t number);
  // An empty word is found out from the current estimate, which may become a No-show in memory.
  void RefreshDetailCaption(const std::string& word);
  void ShowCustomer(const CustomerRecord& record);
  // The customer of the estimate on show as the files have it, and the totals, whose taxes go by the customer.
  void ReadCustomerAgain();
  void ShowVehicle();
  void RefreshTotals() override;
  void ShowTotals();
  void ShowNotesMark();
  // Written every time the field is left, changed or not, but over the mark that another copy has put there since they
  // were shown: then theirs are shown, or the person is asked who has typed others.
  void SaveComments();
  // Before the view is filled anew: a menu doesn't take the focus from the comments, and the database may have refused
  // them when they were left.
  void KeepUnsavedComments();

  // The estimate on show; 0: none.
  std::int32_t DisplayedEstimate() const override { return displayedEstimate_; }
  const CustomerRecord& Customer() const override { return estimateCustomer_; }
  std::array<ui::TextBox*, 7> Totals();

 private:
  void ArrangeBoxes();
  void ShowLines(Strangers strangers);
  void TellChange(const std::string& text);
  void ShowCustomerOnFile();
  std::string CommentsOnFile();
  bool WouldWipeMark(const std::string& stored, const std::string& ours);
  bool WantsOurs(const std::string& stored, const std::string& ours);
  ui::ListBox& LaborList() override { return listLabor; }
  ui::ListBox& PartList() override { return listParts; }
  void AddScheduledHours(Hundredths hours) override;
  void RefreshDay() override { OnHoursChanged(); }
  std::string CommentsOnShow() const override { return txtComments.Text(); }
  std::string CommentsAsStored() const override { return savedComment_; }
  void ShowComments(const std::string& comments) override;
  void StoreComments(const std::string& comments) override;
  de& Data() { return database_.lantosData; }
  Estimate& Current() { return database_.estimates.CurrentEstimate; }

  Shop& shop_;
  EstimateDatabase& database_;
  BoardState& state_;
  CommandPane& commands_;
  std::int32_t displayedEstimate_ = 0;
  std::string savedComment_;
  bool isTheirsTold_ = false;        // of comments that another one has stored while others were typed here
  CustomerRecord estimateCustomer_;  // of the displayed estimate
};

}  // namespace lantos
