#include "contents/extras/frmEstWaste.h"
#include "records/modSystem.h"

namespace lantos {

frmEstWaste::frmEstWaste(Workbench& bench)
    : ExtraLinesForm(bench, {"frmEstWaste", "Waste", "Estimate Waste", sysrec::tax_rate_waste}) {
  UseList(listWaste);
  UseCommands(cmdAdd, cmdChange, cmdRemove, cmdClose);
}

void frmEstWaste::OnLoad() {
  ShowHeader(lblEstimateNumber, lblCustName);
  ExtraLinesForm::OnLoad();
}

std::optional<ExtraLine> frmEstWaste::NewLine() {
  ExtraLine line;
  line.Taxable = DefaultTax();
  return line;
}

void EstimateWaste(Workbench& bench) {
  if (bench.Number() == 0) {
    bench.shop.desktop.Tell("Must first select an estimate.", "Estimate Waste");
    return;
  }
  frmEstWaste form(bench);
  form.ShowModal();
  bench.estimate.RefreshTotals();
}

}  // namespace lantos
