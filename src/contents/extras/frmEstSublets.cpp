#include "contents/extras/frmEstSublets.h"

#include "contents/extras/frmSubList.h"
#include "records/modSystem.h"

namespace lantos {

frmEstSublets::frmEstSublets(Workbench& bench)
    : ExtraLinesForm(bench, {"frmEstSublets", "Sublet", "Estimate Sublet", sysrec::tax_rate_sublet}) {
  UseList(listSublets);
  UseCommands(cmdAdd, cmdChange, cmdRemove, cmdClose);
}

void frmEstSublets::OnLoad() {
  ShowHeader(lblEstimateNumber, lblCustName);
  ExtraLinesForm::OnLoad();
}

// From a purchase order, or from nothing.
std::optional<ExtraLine> frmEstSublets::NewLine() {
  frmSubList list(bench_);
  list.ShowModal();
  return list.Chosen() ? std::optional(list.CurrentExtra) : std::nullopt;
}

void EstimateSublets(Workbench& bench) {
  if (bench.Number() == 0) {
    bench.shop.desktop.Tell("Must first select an estimate.", "Estimate Sublets");
    return;
  }
  frmEstSublets form(bench);
  form.ShowModal();
  bench.estimate.RefreshTotals();
}

}  // namespace lantos
