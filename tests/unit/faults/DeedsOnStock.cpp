#include "faults/Deed.h"
#include "masters/InventoryShop.h"
#include "masters/KitShop.h"
#include "masters/PartBench.h"
#include "masters/inventory/frmInvAdd.h"
#include "masters/inventory/frmInvPartChange.h"
#include "masters/inventory/frmInvPartDelete.h"

// Parts and kits.
namespace lantos::test {

namespace {

struct OnParts : DeedOnTest<InventoryShop> {
  OnParts() {
    AddPart("AXLE");
    AddPart("PAD-9");
    AddPart("ZINC");
    LoadList();
    inTurn = {"TQINVTAG.DAT"};  // then its master
    isJournaledWhenKilled = true;
  }
  void Settle(Settling) override { FinishRecords(*this); }
  // The list as it is open for keeping the stock.
  void OnList(const std::function<void()>& use) {
    forms["frmInvList"] = [this, use](ui::Form& form) {
      test::Type(list.SearchPart, "PAD-9");
      test::Press(list, "Enter");
      if (Current() == "PAD-9") use();
      Press(form, "Esc");
    };
  }
  void Do() override { list.Ask(); }
};

struct AddOnePart : OnParts {
  ~AddOnePart() override { add.Hide(); }
  void Do() override {
    add.Show();
    test::Type(add.StockNumber, "OIL-1");
    test::Press(add, "Enter");
    add.Hide();
  }
  frmInvAdd add{shop, list};
};

struct RenumberPart : OnParts {
  RenumberPart() {
    OnList([this] { test::Click(list.cmdChange); });
    forms["frmInvPartChange"] = [](ui::Form& form) {
      test::Type(As<frmInvPartChange>(form).txtNewPart, "PAD-10");
      Press(form, "F10");
    };
  }
};

struct DeletePart : OnParts {
  DeletePart() {
    OnList([this] { test::Click(list.cmdDelete); });
    forms["frmInvPartDelete"] = [](ui::Form& form) { test::Click(As<frmInvPartDelete>(form).cmdYes); };
  }
};

struct OnePart : DeedOnTest<PartBench> {
  OnePart() {
    PutParts({Pad(), {"PAD-2", "SHOE", {1, 2, 3, 4}, 5}});
    inTurn = {"TQINVTAG.DAT"};
    isJournaledWhenKilled = true;
  }
  void Settle(Settling) override { FinishRecords(*this); }
  void Do() override { EditPart(shop, rows, {kNoLink, 0}); }
};
struct EditOnePart : OnePart {
  EditOnePart() {
    forms["frmInvEdit"] = [](ui::Form& form) {
      As<frmInvEdit>(form).Location.DoType("BIN 9");
      As<frmInvEdit>(form).QtyInStock.DoType("7");
      Press(form, "F10");
    };
  }
};

struct PriceOnePart : OnePart {
  PriceOnePart() {
    forms["frmInvEdit"] = [](ui::Form& form) {
      auto& part = As<frmInvEdit>(form);
      for (std::size_t level = 0; level < 4; ++level) Type(part.Pricing[level], std::to_string(20 + level));
      Press(form, "F10");
    };
  }
};

struct ChangeKit : DeedOnTest<KitShop> {
  ChangeKit() {
    PutKit({"PLUG(4)", "WIRES"});
    forms["frmInvKit"] = [](ui::Form& form) {
      Press(form, "Ctrl+Down");
      Press(form, "F10");
    };
  }
  void Do() override { EditKit(shop, "TUNEUP"); }
};

template <class Made>
NamedDeed Named(const char* name) {
  return {name, [] { return std::make_unique<Made>(); }};
}

}  // namespace

std::vector<NamedDeed> DeedsOnStock() {
  return {Named<AddOnePart>("part: add"),        Named<EditOnePart>("part: edit"),  Named<PriceOnePart>("part: price"),
          Named<RenumberPart>("part: renumber"), Named<DeletePart>("part: delete"), Named<ChangeKit>("kit")};
}

}  // namespace lantos::test
