#pragma once

#include <functional>
#include <vector>

#include "estimatedb/EstimateDatabase.h"
#include "screens/OkCancelForm.h"
#include "shop/Shop.h"
#include "trail/TrailDeeds.h"

namespace lantos {

// Who changed what, the newest first: of one estimate, or of the whole shop on a day. One's own last move can be taken
// back here, and the list saved for a spreadsheet.
class frmTrail : public SizedForm {
 public:
  // Takes a deed back and shows what follows from that elsewhere. What keeps it from being taken back, in words, or an
  // empty text.
  using TakeBack = std::function<std::string(const TrailDeed&)>;

  // estimate 0: only the shop's days are to be had.
  frmTrail(Shop& shop, de& database, std::int32_t estimate, TakeBack takeBack);

  ui::Label lblKind{*this, "lblKind", "&Kind"};
  ui::ComboBox cboKind{*this, "cboKind"};
  ui::CheckBox chkWholeShop{*this, "chkWholeShop", "&Whole shop on"};
  ui::DTPicker DTPicker1{*this, "DTPicker1"};
  ui::ListView ListView1{*this, "ListView1"};
  ui::Label lblCount{*this, "lblCount"};
  ui::Button cmdUndo{*this, "cmdUndo", "&Undo my last move"};
  ui::Button cmdExport{*this, "cmdExport", "&Export..."};
  ui::Button cmdClose{*this, "cmdClose", "&Close"};

 private:
  void OnLoad() override;
  void OnActivate() override { ListView1.SetFocus(); }
  void Accept() override { Hide(); }

  void Load();
  void ShowDeeds();
  bool IsShown(const TrailDeed& deed) const;
  void UndoLast();
  void Export();

  Shop& shop_;
  de& database_;
  std::int32_t estimate_;
  TakeBack takeBack_;
  std::vector<TrailDeed> deeds_;
};

}  // namespace lantos
