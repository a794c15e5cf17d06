#pragma once

#include "contents/extras/ExtraLinesForm.h"

namespace lantos {

// The work and goods that were bought outside for the estimate on show.
class frmEstSublets : public ExtraLinesForm {
 public:
  explicit frmEstSublets(Workbench& bench);

  ui::Label lblEstimateNumber{*this, "lblEstimateNumber"};
  ui::Label lblCustName{*this, "lblCustName"};
  ui::ListBox listSublets{*this, "listSublets"};
  ui::Button cmdAdd{*this, "cmdAdd", "&Add"};
  ui::Button cmdChange{*this, "cmdChange", "&Change"};
  ui::Button cmdRemove{*this, "cmdRemove", "&Remove"};
  ui::Button cmdClose{*this, "cmdClose", "C&lose"};

 private:
  void OnLoad() override;
  Recordset& StoredLines() override { return bench_.Data().SubletsForEstimate(bench_.Number()); }
  Recordset& StoredLine(std::int32_t number) override { return bench_.Data().GetSublet(bench_.Number(), number); }
  void AddLine(std::int32_t number, const de::Extra& line) override {
    bench_.Data().AddSublet(bench_.Number(), number, line);
  }
  void DeleteLine(std::int32_t number) override { bench_.Data().DeleteSublet(bench_.Number(), number); }
  std::string_view NumberColumn() const override { return "SubletNumber"; }
  std::optional<ExtraLine> NewLine() override;
};

// The sublets of the estimate on show.
void EstimateSublets(Workbench& bench);

}  // namespace lantos
