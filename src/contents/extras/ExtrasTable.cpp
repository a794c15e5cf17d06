#include "contents/extras/ExtrasTable.h"

#include "contents/extras/frmSubList.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

// From a purchase order, or from nothing.
std::optional<ExtraLine> NewSublet(Workbench& bench) {
  frmSubList list(bench);
  list.ShowModal();
  return list.Chosen() ? std::optional(list.CurrentExtra) : std::nullopt;
}

std::optional<ExtraLine> NewWaste(Workbench& bench) {
  ExtraLine line;
  line.Taxable = kWasteExtras.DefaultTax(bench);
  return line;
}

}  // namespace

const ExtrasTable kSubletExtras = {"frmEstSublets", "listSublets",           "Estimate Sublets",
                                   "Sublet",        "Estimate Sublet",       sysrec::tax_rate_sublet,
                                   "SubletNumber",  &de::SubletsForEstimate, &de::GetSublet,
                                   &de::AddSublet,  &de::DeleteSublet,       NewSublet};

const ExtrasTable kWasteExtras = {
    "frmEstWaste", "listWaste",           "Estimate Waste", "Waste",       "Estimate Waste", sysrec::tax_rate_waste,
    "WasteNumber", &de::WasteForEstimate, &de::GetWaste,    &de::AddWaste, &de::DeleteWaste, NewWaste};

}  // namespace lantos
