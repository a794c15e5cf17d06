#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "history/WorkorderHead.h"
#include "records/CheckList.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"
#include "workorders/WorkorderSearch.h"

namespace lantos {

// The browser of past work orders: what was done, for whom, and what it cost. It looks for a name, a VIN or a licence
// number, shows the newest work order that has it, and steps from hit to hit. Nothing is ever changed by it.
class frmWOHist : public SizedForm {
 public:
  // Prints the work order that is current there.
  using Print = std::function<void(const Workorders& workorders)>;
  frmWOHist(Shop& shop, Print print);

  ui::Label lblName{*this, "lblName", "Lastname,Firstname"};
  ui::TextBox srchName{*this, "srchName"};
  ui::Label lblVIN{*this, "lblVIN", "VIN #"};
  ui::TextBox srchVIN{*this, "srchVIN"};
  ui::Label lblLic{*this, "lblLic", "License #"};
  ui::TextBox srchLic{*this, "srchLic"};
  ui::Button cmdSearch{*this, "cmdSearch", "&Search"};
  ui::Label lblSearching{*this, "lblSearching", "Searching..."};
  ui::Button cmdCancelSearch{*this, "cmdCancelSearch", "Cancel Search"};
  WorkorderHead head{*this};
  ui::Label done{*this, "done"};
  ui::ListBox WoDetail{*this, "WoDetail"};
  ui::ListBox WoDetailC{*this, "WoDetailC"};
  ui::Label lblCost{*this, "lblCost"};
  ui::Label lblPrice{*this, "lblPrice"};
  ui::Label lblProfit{*this, "lblProfit"};
  ui::Label lblMargin{*this, "lblMargin"};
  // Ahead of the buttons that share a letter with them and have keys of their own.
  ui::Button cmdFirst{*this, "cmdFirst", "<< &First <<"};
  ui::Button cmdPrev{*this, "cmdPrev", "< &Prev <"};
  ui::Button cmdNext{*this, "cmdNext", "> &Next >"};
  ui::Button cmdLast{*this, "cmdLast", ">> &Last >>"};
  ui::Button cmdName{*this, "cmdName", "&Name"};
  ui::Button cmdVIN{*this, "cmdVIN", "&VIN"};
  ui::Button cmdLicense{*this, "cmdLicense", "&Lic."};
  ui::Button cmdToggleCost{*this, "cmdToggleCost", "Toggle Cost"};
  ui::Button cmdPrintWO{*this, "cmdPrintWO", "Print W.O."};
  ui::Button cmdCancel{*this, "cmdCancel", "Close"};

 private:
  enum class Mode { Criteria, Browsing };
  enum class Costs { Hidden, Shown };

  void WireButtons();
  void SetToolTips();
  void NameTheLicense();
  void OnUnload(bool& refuse) override;
  void OnKeyDown(ui::KeyPress& key) override;
  const ui::Button* ButtonOf(const ui::KeyPress& key) const;
  void Accept() override;  // the search's button, in both its states
  void Cancel() override;

  // Whether the person may do what in the mode at hand; to be called wherever that changes.
  void ShowState();
  void EnterCriteria();
  void SearchTyped();
  void SearchShown(SearchCriterion::Kind kind);
  void Begin(const SearchCriterion& criterion);
  WorkorderSearch::Outcome SearchOn();
  std::string TitleOf(SearchCriterion::Kind kind) const;
  ui::TextBox& FieldOf(SearchCriterion::Kind kind);

  void GoTo(std::size_t hit);
  void GoOn();
  void GoBack();
  std::int32_t NumberOf(const WorkorderSearch::Hit& hit) const;
  bool Read(const WorkorderSearch::Hit& hit);
  void ShowWorkorder();
  void ClearWorkorderOnShow();
  void ShowPlace();
  void ToggleCost();
  void ShowCosts();

  Shop& shop_;
  Print print_;
  // A work order and a check list of its own: the current ones stay as they are.
  CheckListTable checkList_;
  Workorders workorders_;
  WorkorderSearch search_;
  Mode mode_ = Mode::Criteria;
  Costs costs_ = Costs::Hidden;
  std::optional<std::size_t> current_;  // of the hits
  bool hasDetail_ = false;              // the hit on show could be read
  bool searching_ = false;
  bool stopped_ = false;  // by the person
  std::vector<std::string> unknownEntries_;
};

// Shows the browser until the person closes it.
void BrowseWorkorders(Shop& shop, frmWOHist::Print print);

}  // namespace lantos
