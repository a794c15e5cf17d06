#pragma once

#include "contents/extras/ExtraLinesForm.h"

namespace lantos {

// The charges for disposal and the like of the estimate on show.
class frmEstWaste : public ExtraLinesForm {
 public:
  explicit frmEstWaste(Workbench& bench);

  ui::Label lblEstimateNumber{*this, "lblEstimateNumber"};
  ui::Label lblCustName{*this, "lblCustName"};
  ui::ListBox listWaste{*this, "listWaste"};
  ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
  ui::Button cmdChange{*this, "cmdChange", "&Change"};
  ui::Button cmdRemove{*this, "cmdRemove", "&Remove"};
  ui::Button cmdClose{*this, "cmdClose", "C&lose"};

 private:
  void OnLoad() override;
  Recordset& StoredLines() override { return bench_.Data().WasteForEstimate(bench_.Number()); }
  Recordset& StoredLine(std::int32_t number) override { return bench_.Data().GetWaste(bench_.Number(), number); }
  void AddLine(std::int32_t number, const de::Extra& line) override {
    bench_.Data().AddWaste(bench_.Number(), number, line);
  }
  void DeleteLine(std::int32_t number) override { bench_.Data().DeleteWaste(bench_.Number(), number); }
  std::string_view NumberColumn() const override { return "WasteNumber"; }
  std::optional<ExtraLine> NewLine() override;
};

// The waste charges of the estimate on show.
void EstimateWaste(Workbench& bench);

}  // namespace lantos
