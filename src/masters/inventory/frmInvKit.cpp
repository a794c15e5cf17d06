#include "masters/inventory/frmInvKit.h"

#include <algorithm>

#include "frame/Text.h"
#include "masters/inventory/KitRows.h"
#include "masters/inventory/frmInvKitAdd.h"
#include "records/EditedLines.h"
#include "records/OpenedFile.h"
#include "records/inventory/Inventory.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9000;
constexpr ui::Twips kHeight = 6300;

// The part in the working records, put back at the end: what is looked up from the window may take its place.
class KeptPart {
 public:
  explicit KeptPart(Inventory& inventory)
      : inventory_(inventory),
        tag_(inventory.CurrentInvTag),
        master_(inventory.CurrentInv),
        original_(inventory.OriginalInv) {}
  ~KeptPart() {
    inventory_.CurrentInvTag = tag_;
    inventory_.CurrentInv = master_;
    inventory_.OriginalInv = original_;
  }
  KeptPart(const KeptPart&) = delete;

 private:
  Inventory& inventory_;
  InventoryTag tag_;
  InventoryRecord master_;
  InventoryRecord original_;
};

}  // namespace

frmInvKit::frmInvKit(Shop& shop, std::string_view stockNumber)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmInvKit", "Inventory Kit"),
      shop_(shop),
      stockNumber_(Trim(stockNumber)) {
  SetDesignedSize(kWidth, kHeight);
  lblHeading.SetCaption(kKitHeading);
  for (ui::Control* control : {static_cast<ui::Control*>(&lblHeading), static_cast<ui::Control*>(&List1)}) {
    control->SetFace(ui::FontFace::FixedPitch);
  }
  for (ui::TextBox* box : {&txtKitPartNumber, &txtDesc}) {
    box->SetLocked(true);
    box->SetTabStop(false);
  }
  List1.SetSpokenName("Parts of the kit");
  WireButtons();
}

void frmInvKit::WireButtons() {
  UseButtons(cmdSave, cmdCancel);
  SetDefaultButton(cmdChange);
  cmdAdd.OnClick = [this] { Add(); };
  cmdChange.OnClick = [this] { Change(); };
  cmdDelete.OnClick = [this] { Delete(); };
  cmdMoveUp.OnClick = [this] { Move(Direction::Up); };
  cmdMoveDown.OnClick = [this] { Move(Direction::Down); };
  List1.OnDoubleClick = [this] { Change(); };
  cmdAdd.SetToolTip("Add a part <F5>");
  cmdChange.SetToolTip("Change the selected part <F4>");
  cmdDelete.SetToolTip("Delete the selected part <Delete>");
  cmdMoveUp.SetToolTip("Move the selected part up <Ctrl+Up>");
  cmdMoveDown.SetToolTip("Move the selected part down <Ctrl+Down>");
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
  AskBeforeLosing(cmdCancel);
  AskInsteadOfDropping({.text = "Are you sure you wish to discard updates?"});
}

void frmInvKit::OnLoad() {
  SizedForm::OnLoad();
  shop_.records.inventory.FinishLoading();
  txtKitPartNumber.SetText(stockNumber_);
  txtDesc.SetText(shop_.records.inventory.PartDescription(stockNumber_));
  ReadKit();
}

// A kit that the file hasn't is empty; a file that somebody holds is another matter.
void frmInvKit::ReadKit() {
  OpenedFile file(shop_.environment.openFiles);
  file.TakeOver(shop_.records.kits.OpenKitFile(InventoryKits::Sharing::Shared));
  if (!file.IsOpen()) return;
  shop_.records.kits.FindKit(stockNumber_, read_, file.Handle());
  ShowKit();
}

void frmInvKit::ShowKit() {
  contents_.emplace(read_);
  ShowRows(0);
  MarkUnchanged();
}

std::string frmInvKit::RowText(std::size_t row) const {
  const KitLineTexts& texts = (*contents_)[row];
  return KitRowText(texts.quantity, texts.partNumber, shop_.records.inventory.PartDescription(texts.partNumber));
}

// The row beyond the last one stands for the last.
void frmInvKit::ShowRows(std::size_t selected) {
  List1.Clear();
  for (std::size_t row = 0; row < contents_->Count(); ++row) List1.AddItem(RowText(row));
  List1.SetListIndex(static_cast<int>(std::min(selected + 1, contents_->Count())) - 1);
}

void frmInvKit::OnKeyDown(ui::KeyPress& key) {
  ui::Button* button = key.Is("F5")            ? &cmdAdd
                       : key.Is("F4")          ? &cmdChange
                       : key.Is("Delete")      ? &cmdDelete
                       : key.IsControl("Up")   ? &cmdMoveUp
                       : key.IsControl("Down") ? &cmdMoveDown
                                               : nullptr;
  if (button == nullptr) return SizedForm::OnKeyDown(key);
  key.Clear();
  button->OnClick();
}

void frmInvKit::Tell(const std::string& text) { shop_.desktop.Tell(text, Caption()); }

std::optional<std::size_t> frmInvKit::SelectedFor(const std::string& done, const std::string& toDo) {
  if (contents_->Count() == 0) {
    Tell("There are no parts which can be " + done + "!");
  } else if (List1.ListIndex() < 0) {
    Tell("You must select a part to " + toDo + ".");
  } else {
    return static_cast<std::size_t>(List1.ListIndex());
  }
  return std::nullopt;
}

void frmInvKit::Add() {
  if (contents_->IsFull()) {
    return Tell("A kit has room for " + std::to_string(inventorykit::kLineCount) + " parts, and this one is full.");
  }
  frmInvKitAdd form(shop_, kChoosePartForKit, {"", "1"});
  form.ShowModal();
  List1.SetFocus();
  if (!form.Saved()) return;
  contents_->Add(form.Component());
  MarkChanged();
  ShowRows(contents_->Count());
}

void frmInvKit::Change() {
  const auto row = SelectedFor("changed", "change");
  if (!row) return;
  frmInvKitAdd form(shop_, "Change Part of Kit", (*contents_)[*row]);
  form.ShowModal();
  List1.SetFocus();
  if (!form.Saved()) return;
  contents_->Change(*row, form.Component());
  MarkChanged();
  ShowRows(*row);
}

void frmInvKit::Delete() {
  const auto row = SelectedFor("deleted", "delete");
  if (!row) return;
  contents_->Remove(*row);
  MarkChanged();
  ShowRows(*row);
  List1.SetFocus();
}

void frmInvKit::Move(Direction direction) {
  const auto row = SelectedFor("moved", "move");
  if (!row) return;
  const bool up = direction == Direction::Up;
  if (*row == (up ? 0 : contents_->Count() - 1)) {
    return Tell(up ? "Part is already at the top of the list!" : "Part is already at the bottom of the list!");
  }
  const std::size_t other = up ? *row - 1 : *row + 1;
  contents_->Swap(*row, other);
  MarkChanged();
  ShowRows(other);
}

// What could not be written has been told, and stays on the screen.
void frmInvKit::Accept() {
  using Saving = InventoryKits::Saving;
  const InventoryKitRecord kit = contents_->RecordOf(stockNumber_);
  for (;;) {
    const Saving saving = shop_.records.kits.SaveKitUnlessChanged(kit, read_);
    if (saving == Saving::Stored) break;
    if (saving == Saving::NotOpened) return;
    if (!WantsToOverwrite(shop_.desktop, "this kit (" + std::string(kKitFile) + ")", Caption())) return ShowKit();
  }
  MarkUnchanged();
  Hide();
}

void EditKit(Shop& shop, std::string_view stockNumber) {
  const KeptPart part(shop.records.inventory);
  frmInvKit form(shop, stockNumber);
  form.LoadForm();
  if (form.HasContents()) form.ShowModal();
}

}  // namespace lantos
