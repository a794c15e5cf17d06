#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "masters/inventory/InventoryUpdates.h"
#include "masters/inventory/PartTable.h"
#include "records/inventory/Inventory.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"

namespace lantos {

// The inventory list: where a part is found, and the keeper of the list in memory. Loaded hidden at the start of the
// run, it stays loaded until the end; its timers serve the list between the person's actions.
class frmInvList : public SizedForm {
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

  // For as long as the person looks for a part: the one that was selected.
  struct PickedPart {
    Inventory::PartIndex index = Inventory::kNoPart;
    FileLink master = kNoLink;
  };
  std::optional<PickedPart> Pick(const std::string& caption);
  bool IsLoading() const { return nextBlock_ < blockCount_; }
  // Reads at once what the timer hasn't come to yet. The inventory asks for it.
  void FinishLoading();
  // Tells the other copies what they haven't been told yet, at the end of the run, and hears nothing more.
  void FinishUpdates() { updates_.Finish(); }

 private:
  void OnLoad() override;
  void OnActivate() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;

  // To the inventory's changes of parts.
  void Subscribe();
  void WireSearch();
  void StartLoading();
  void ReadNextBlock();
  void ListTags(const std::vector<InventoryTag>& block);
  void EndLoading();
  // The row of a part, from its tag in the list.
  enum class ListedPart { New, Known };
  void UpdateListRow(Inventory::PartIndex index, ListedPart part);
  // What the other copies have told of.
  InventoryUpdates::List ReceivedParts();
  void ShowReceived();
  void EnableSearch(bool enabled);
  void ShowTotal();
  void FilterParts();  // the first of the hits is current, unless the part that was is among them
  void GoToHits();
  void SearchTyped();
  void SortBy(const std::string& column);
  void ShowRows();
  ui::GridRow RowOf(Inventory::PartIndex part) const;
  bool HasStockedFlag() const;

  Shop& shop_;
  Inventory& inventory_;
  PartTable table_;
  std::filesystem::path tagFile_;
  std::uint64_t blockCount_ = 0;
  std::uint64_t nextBlock_ = 0;
  std::vector<InventoryTag> block_;
  LocalTime loadStarted_;
  Inventory::PartIndex currentPart_ = Inventory::kNoPart;
  std::optional<PickedPart> picked_;
  bool rowsMoved_ = false;  // by what was received, since the rows were shown
  InventoryUpdates updates_;
};

}  // namespace lantos
