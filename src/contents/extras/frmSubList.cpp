#include "contents/extras/frmSubList.h"

#include <algorithm>

#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9600;
constexpr ui::Twips kHeight = 4800;
constexpr std::size_t kVendorShown = 10;
constexpr std::size_t kInvoiceShown = 10;
constexpr std::size_t kPriceWidth = 10;
constexpr std::size_t kDescriptionLine = 64;

std::string RowOf(const OrderedSublet& sublet) {
  return FormatZeros(sublet.orderNumber, 6) + " " + LeftJustify(sublet.vendor, kVendorShown) + " " +
         LeftJustify(sublet.invoice, std::max(kInvoiceShown, sublet.invoice.size())) + " " +
         RightJustify(FormatHundredths(sublet.price), kPriceWidth) + " " + sublet.description;
}

}  // namespace

frmSubList::frmSubList(Workbench& bench)
    : OkCancelForm(bench.shop.desktop, bench.shop.keys, "frmSubList", "Select Sublet"), bench_(bench) {
  SetSize(kWidth, kHeight);
  POSubletList.SetFace(ui::FontFace::FixedPitch);
  POSubletList.OnDoubleClick = [this] { Accept(); };
  UseButtons(cmdSelect, cmdCancel);
  cmdSelect.SetToolTip("Select <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
}

void frmSubList::OnLoad() {
  POSubletList.AddItem("New Sublet (No Purchase Order)");
  sublets_ = bench_.shop.records.orders.GetOpenPOSublets();
  for (const OrderedSublet& sublet : sublets_) POSubletList.AddItem(RowOf(sublet));
}

void frmSubList::Accept() {
  const int row = POSubletList.ListIndex();
  if (row < 0) {
    bench_.shop.desktop.Tell("You must select an item first.", Caption());
    return;
  }
  CurrentExtra = {};
  CurrentExtra.Taxable = DefaultTaxable(bench_.System().Get(sysrec::tax_rate_sublet));
  if (row > 0) {
    const OrderedSublet& sublet = sublets_[static_cast<std::size_t>(row) - 1];
    CurrentExtra.Vendor = sublet.vendor;
    CurrentExtra.Invoice = sublet.invoice;
    CurrentExtra.Cost = sublet.cost;
    CurrentExtra.Price = sublet.price;
    CurrentExtra.Desc[0] = Left(sublet.description, kDescriptionLine);
  }
  chosen_ = true;
  Hide();
}

}  // namespace lantos
