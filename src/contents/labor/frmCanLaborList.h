#pragma once

#include <vector>

#include "contents/Workbench.h"
#include "records/CannedLabor.h"
#include "records/EditedLines.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// The shop's standard jobs, to pick one from and to keep. The list is written as a whole when it was changed.
class frmCanLaborList : public SizedForm {
 public:
  explicit frmCanLaborList(Workbench& bench);

  ui::Label lblCode{*this, "lblCode", "C&ode"};
  ui::TextBox txtCode{*this, "txtCode"};
  ui::Label lblDesc{*this, "lblDesc", "Descript&ion"};
  ui::TextBox txtDesc{*this, "txtDesc"};
  ui::Grid DataGrid1{*this, "DataGrid1"};
  ui::ListBox UpdList{*this, "UpdList"};
  ui::Button cmdSelect{*this, "cmdSelect", "&Select"};
  ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
  ui::Button cmdEdit{*this, "cmdEdit", "&Edit"};
  ui::Button cmdDelete{*this, "cmdDelete", "&Delete"};
  ui::Button cmdUpdateRate{*this, "cmdUpdateRate", "Update Rate"};
  ui::Button cmdPrint{*this, "cmdPrint", "&Print"};
  ui::Button cmdClose{*this, "cmdClose", "&Close"};

  bool Picked() const { return picked_; }
  WoLaborLine CurrentLabor;  // of the one picked
  std::string PickedCode;

 private:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override;
  void Cancel() override;

  void Add();
  void Edit();
  void Delete();
  void Print();
  void UpdateRate();
  void UpdateTicked();
  enum class Showing { Grid, RateList };
  void SwitchTo(Showing showing);
  // The entry that was current stays so.
  void FillGrid();
  // The first of the hits is current, unless the entry that was is among them.
  void Search();
  void MakeCurrent(std::size_t entry);
  bool GoToHits(const ui::KeyPress& key);
  void FillRateList();
  bool IsListed(const CannedLabor& entry) const;
  int SelectedEntry();  // -1 when there is none, which has been told
  // False when what another workstation has stored is kept, which is shown then.
  bool SaveIfChanged();

  Workbench& bench_;
  EditedLines file_;
  std::vector<CannedLabor> entries_;
  bool changed_ = false;
  bool picked_ = false;
  Showing showing_ = Showing::Grid;
};

}  // namespace lantos
