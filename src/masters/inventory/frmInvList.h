#pragma once

#include <optional>
#include <string>

#include "masters/inventory/InventoryUpdates.h"
#include "masters/inventory/PartColumns.h"
#include "masters/inventory/PartRows.h"
#include "masters/inventory/PartTable.h"
#include "masters/inventory/TagBlocks.h"
#include "records/inventory/Inventory.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The inventory list: where a part is found, and the keeper of the list in memory. Loaded hidden at the start of the
// run, it stays loaded until the end; its timers serve the list between the person's actions.
class frmInvList : public SizedForm, public PartRows {
 public:
  explicit frmInvList(Shop& shop);
  ~frmInvList() override;

  ui::Label lblSearchPart{*this, "lblSearchPart", "&Part"};
  ui::TextBox SearchPart{*this, "SearchPart"};
  ui::Label lblSearchDesc{*this, "lblSearchDesc", "Descr&iption"};
  ui::TextBox SearchDesc{*this, "SearchDesc"};
  ui::CheckBox cbAutoSearch{*this, "cbAutoSearch", "&Auto-search"};
  ui::Button cmdSearch{*this, "cmdSearch", "Searc&h"};
  ui::Frame frameStocked{*this, "frameStocked", "Show"};
  ui::OptionButton optBoth{*this, "optBoth", "&Both"};
  ui::OptionButton optStk{*this, "optStk", "S&tocked"};
  ui::OptionButton optNonStk{*this, "optNonStk", "&Non-stocked"};
  ui::Grid DataGrid1{*this, "DataGrid1"};
  ui::Label TotalParts{*this, "TotalParts"};
  ui::Label lblMatchParts{*this, "lblMatchParts"};
  ui::Label LoadingLabel{*this, "LoadingLabel", "Loading..."};
  ui::ProgressBar LoadProgress{*this, "LoadProgress"};
  ui::Label lblElapsedTime{*this, "lblElapsedTime"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdView{*this, "cmdView", "&View"};
  ui::Button cmdAdd{*this, "cmdAdd", "A&dd..."};
  ui::Button cmdChange{*this, "cmdChange", "Chan&ge"};
  ui::Button cmdDelete{*this, "cmdDelete", "De&lete"};
  ui::Button cmdClose{*this, "cmdClose", "&Close"};
  ui::Timer AuditTimer{*this, "AuditTimer"};
  ui::Timer UpdTimer{*this, "UpdTimer"};
  ui::Timer ReadTimer{*this, "ReadTimer"};

  // For as long as the person looks for a part: the one that was selected, in the list or in its view. The stock isn't
  // kept meanwhile.
  std::optional<PartAt> Pick(const std::string& caption);

  // Where the stock is kept: what the person wants next, and with which part. Numbers are changed and parts deleted
  // in the list itself.
  enum class Request { None, Select, View, Add };
  enum class Comes { Fresh, Back };  // the person: to look for a part, or from one to go on from its row
  Request Ask(Comes comes = Comes::Fresh);
  const PartAt& Chosen() const { return chosen_; }

  bool IsLoading() const { return blocks_.AreLeft(); }
  // Reads at once what the timer hasn't come to yet. The inventory asks for it.
  void FinishLoading();
  // Tells the other copies what they haven't been told yet, at the end of the run, and hears nothing more.
  void FinishUpdates() { updates_.Finish(); }

  // The row of a part, from its tag in the list. The person's own place in the list stays, as far as it can: the part
  // that is current, the search and what of the list is in sight.
  enum class ListedPart { New, Known };
  void UpdateListRow(Inventory::PartIndex index, ListedPart part);
  // The row behind it is current then, if this one was. The part's place in the list in memory stays.
  void RemoveListRow(Inventory::PartIndex index);
  // The part is current, if the search has it among its hits.
  void GoToPart(Inventory::PartIndex index);
  // How many parts the list has, in so many places at least.
  void ShowTotal(std::size_t places = 7);

  std::optional<PartAt> Before(Inventory::PartIndex part) const override;
  std::optional<PartAt> After(Inventory::PartIndex part) const override;
  void Refresh(Inventory::PartIndex part) override { UpdateListRow(part, ListedPart::Known); }

 private:
  void OnLoad() override;
  void OnActivate() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  // To the inventory's changes of parts.
  void Subscribe();
  void WireSearch();
  void WireRequests();
  void StartLoading();
  void ReadNextBlock();
  void EndLoading();
  // What the other copies have told of.
  InventoryUpdates::List ReceivedParts();
  void ShowReceived();
  void EnableSearch(bool enabled);
  enum class Purpose { Pick, Keep };
  Request ShowFor(Purpose purpose);
  // Leaves the list with the request, or with the part that is current, if it needs one.
  void Leave(Request request);
  bool HasCurrentPart();  // tells that there is none
  void FilterParts();     // the first of the hits is current, unless the part that was is among them
  void GoToHits();
  void SearchTyped();
  void SortBy(const std::string& column);
  void ShowRows();
  void ShowMatches();  // how many, once there was a search
  StockedColumn Stocked() const;

  Shop& shop_;
  Inventory& inventory_;
  PartTable table_;
  TagBlocks blocks_;
  LocalTime loadStarted_;
  Inventory::PartIndex currentPart_ = Inventory::kNoPart;
  Comes comes_ = Comes::Fresh;
  Request request_ = Request::None;
  PartAt chosen_;
  bool rowsMoved_ = false;  // by what was received, since the rows were shown
  InventoryUpdates updates_;
};

}  // namespace lantos
