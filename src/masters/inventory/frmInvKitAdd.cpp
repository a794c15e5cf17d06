#include "masters/inventory/frmInvKitAdd.h"

#include <cmath>

#include "frame/Text.h"
#include "masters/inventory/frmInvList.h"
#include "records/inventory/Inventory.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 7200;
constexpr ui::Twips kHeight = 2700;
constexpr std::size_t kQuantityDigits = 5;
constexpr double kMostOfAPart = 99999;

// The resident list, when there is one and it isn't what the person looks at anyway.
frmInvList* HiddenList(const ui::Desktop& desktop) {
  auto* list = dynamic_cast<frmInvList*>(desktop.FindForm("frmInvList"));
  return list != nullptr && !list->Visible() ? list : nullptr;
}

// What was looked for in the list, and is again at the end: whoever came here from a row of it goes on there.
class KeptSearch {
 public:
  explicit KeptSearch(frmInvList& list)
      : list_(list),
        part_(list.SearchPart.Text()),
        description_(list.SearchDesc.Text()),
        shown_(list.optStk.Value()      ? list.optStk
               : list.optNonStk.Value() ? list.optNonStk
                                        : list.optBoth) {}
  ~KeptSearch() {
    list_.SearchPart.SetText(part_);
    list_.SearchDesc.SetText(description_);
    shown_.SetValue(true);
    list_.cmdSearch.OnClick();
  }
  KeptSearch(const KeptSearch&) = delete;

 private:
  frmInvList& list_;
  std::string part_;
  std::string description_;
  ui::OptionButton& shown_;
};

}  // namespace

frmInvKitAdd::frmInvKitAdd(Shop& shop, const std::string& caption, const KitLineTexts& component)
    : OkCancelForm(shop.desktop, shop.keys, "frmInvKitAdd", caption), shop_(shop), component_(component) {
  SetSize(kWidth, kHeight);
  txtPart.SetMaxLength(inventorykit::kLineUsed);
  txtQuantity.SetMaxLength(kQuantityDigits);
  txtDesc.SetLocked(true);
  txtDesc.SetTabStop(false);
  txtPart.OnChange = [this] { txtDesc.SetText(shop_.records.inventory.PartDescription(Trim(txtPart.Text()))); };
  txtQuantity.OnLostFocus = [this] {
    if (TrimView(txtQuantity.Text()).empty()) txtQuantity.SetText("1");
  };
  numbers_.Add(txtQuantity, "Quantity", NumberFields::Read::Whole);
  cmdFind.OnClick = [this] { ChooseFromList(); };
  cmdFind.SetCausesValidation(false);
  UseButtons(cmdSave, cmdCancel);
  cmdFind.SetToolTip("Choose from the inventory list <F5>");
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
  AskBeforeLosing(cmdCancel, txtPart, txtQuantity);
}

void frmInvKitAdd::OnLoad() {
  shop_.records.inventory.FinishLoading();
  cmdFind.SetEnabled(HiddenList(shop_.desktop) != nullptr);
  txtPart.SetText(component_.partNumber);
  txtQuantity.SetText(component_.quantity);
  MarkUnchanged();
}

void frmInvKitAdd::OnActivate() { (component_.partNumber.empty() ? txtPart : txtQuantity).SetFocus(); }

void frmInvKitAdd::OnKeyDown(ui::KeyPress& key) {
  if (!key.Is("F5")) return OkCancelForm::OnKeyDown(key);
  key.Clear();
  if (cmdFind.IsUsable()) ChooseFromList();
}

void frmInvKitAdd::ChooseFromList() {
  frmInvList* list = HiddenList(shop_.desktop);
  if (list == nullptr) return;
  const KeptSearch search(*list);
  const auto picked = list->Pick(kChoosePartForKit);
  if (!picked) return txtPart.SetFocus();
  txtPart.SetText(shop_.records.inventory.Tag(picked->index).Get(inventorytag::StockNumber));
  txtQuantity.SetFocus();
}

bool frmInvKitAdd::HasPart() {
  const std::string part = Trim(txtPart.Text());
  std::string complaint;
  if (part.empty()) {
    complaint = "Part number is required.";
  } else if (part != component_.partNumber && shop_.records.inventory.FindPart(part) == Inventory::kNoPart) {
    complaint = "Part " + part + " not found.";
  }
  if (complaint.empty()) return true;
  shop_.desktop.Tell(complaint, Caption(), ui::Icon::Exclamation);
  txtPart.SetFocus();
  return false;
}

bool frmInvKitAdd::HasQuantity() {
  if (TrimView(txtQuantity.Text()).empty()) txtQuantity.SetText("1");  // <F10> doesn't leave the field
  if (!numbers_.AreNumbers()) return false;
  const double quantity = ToNumber(txtQuantity.Text());
  if (quantity == std::floor(quantity) && quantity >= 1 && quantity <= kMostOfAPart) return true;
  shop_.desktop.Tell("Quantity must be a whole number from 1 to 99999.", Caption(), ui::Icon::Exclamation);
  txtQuantity.SetFocus();
  return false;
}

void frmInvKitAdd::Accept() {
  if (!HasPart() || !HasQuantity()) return;
  const KitLineTexts typed{Trim(txtPart.Text()),
                           std::to_string(static_cast<std::int32_t>(ToNumber(txtQuantity.Text())))};
  const std::string complaint = WhyNoKitLine(typed);
  if (!complaint.empty()) return shop_.desktop.Tell(complaint, Caption(), ui::Icon::Exclamation);
  component_ = typed;
  SaveAndHide();
}

}  // namespace lantos
