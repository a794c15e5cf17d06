#include "masters/inventory/frmInvView.h"

#include "frame/Numbers.h"
#include "records/PriceLevels.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9600;
constexpr ui::Twips kHeight = 6900;

// Of the levels in their order.
constexpr ui::Color kLevelColors[4] = {{0x00, 0x00, 0x00}, {0xFF, 0x00, 0x00}, {0x00, 0xFF, 0x00}, {0x00, 0x00, 0xFF}};

std::string YesOrNo(std::uint8_t flag) { return flag == 1 ? "Yes" : "No"; }

}  // namespace

frmInvView::frmInvView(Shop& shop)
    : OkCancelForm(shop.desktop, shop.keys, "frmInvView", "View Part"),
      shop_(shop),
      inventory_(shop.records.inventory) {
  SetSize(kWidth, kHeight);
  for (std::size_t i = 0; i < cmdGoToAlt.size(); ++i) {
    const std::string place = std::to_string(i + 1);
    cmdGoToAlt[i].SetCaption("Go to &" + place);
    cmdGoToAlt[i].SetToolTip("Go to this part <Alt+" + place + ">");
    cmdGoToAlt[i].OnClick = [this, i] { GoToAlternate(i); };
    LevelColor[i].SetBackColor(kLevelColors[i]);
    lblLevel[i].SetCaption(std::string(kPriceLevelNames[i]));
  }
  UseButtons(cmdSelect, cmdCancel);
  cmdSelect.SetToolTip("Select <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
}

bool frmInvView::ShowPart(Inventory::PartIndex index) {
  const std::optional<Inventory::Part> read = inventory_.Read(index);
  if (!read) return false;
  shown_ = {read->offset, index};
  const InventoryRecord& part = read->master;
  StockNumber.SetCaption(part.Get(inventory::StockNumber));
  Description.SetCaption(part.Get(inventory::Description));
  Department.SetCaption(part.Get(inventory::Department));
  Manufacturer.SetCaption(part.Get(inventory::Manufacturer));
  Location.SetCaption(part.Get(inventory::Location));
  Comment.SetCaption(part.Get(inventory::Comment));
  ShowAlternates(part);
  ShowPrices(part);
  QtyInStock.SetCaption(std::to_string(part.Get(inventory::QtyInStock)));
  ReorderLevel.SetCaption(std::to_string(part.Get(inventory::ReorderLevel)));
  IdealLevel.SetCaption(std::to_string(part.Get(inventory::IdealLevel)));
  IsStocked.SetCaption(YesOrNo(part.Get(inventory::IsStocked)));
  HasACore.SetCaption(YesOrNo(part.Get(inventory::HasACore)));
  CoreCost.SetCaption(FormatHundredths(part.Get(inventory::CoreCost)));
  HasWaste.SetCaption(YesOrNo(part.Get(inventory::HasWaste)));
  DisposalFee.SetCaption(FormatHundredths(part.Get(inventory::DisposalFee)));
  return true;
}

void frmInvView::ShowAlternates(const InventoryRecord& part) {
  inventory_.FinishLoading();  // an alternate may be any part
  for (std::size_t i = 0; i < AltNumber.size(); ++i) {
    const std::string number = part.Get(inventory::AltNumber[i]);
    AltNumber[i].SetCaption(number);
    AltInStock[i].SetCaption(number.empty() ? "" : std::to_string(inventory_.PartInStock(number)));
    cmdGoToAlt[i].SetEnabled(!number.empty());
  }
}

void frmInvView::ShowPrices(const InventoryRecord& part) {
  for (std::size_t i = 0; i < Pricing.size(); ++i) {
    Pricing[i].SetCaption(FormatHundredths(part.Get(inventory::Pricing[i])));
    MarkupPercent[i].SetCaption(FormatTenThousandths(part.Get(inventory::MarkupPercent[i])));
  }
}

void frmInvView::GoToAlternate(std::size_t which) {
  const std::string number = AltNumber[which].Caption();
  const Inventory::PartIndex index = inventory_.FindPart(number);
  if (index == Inventory::kNoPart) {
    return shop_.desktop.Tell("Inventory record does not exist for " + number, Caption());
  }
  // The button may be greyed by what is shown next.
  if (ShowPart(index)) cmdSelect.SetFocus();
}

void frmInvView::Accept() {
  selected_ = shown_;
  Hide();
}

std::optional<PartAt> ViewPart(Shop& shop, Inventory::PartIndex index) {
  frmInvView form(shop);
  if (!form.ShowPart(index)) return std::nullopt;
  form.ShowModal();
  return form.Selected();
}

}  // namespace lantos
