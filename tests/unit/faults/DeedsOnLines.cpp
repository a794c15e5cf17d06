#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/labor/LaborBench.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"
#include "contents/notes/frmWOChklst.h"
#include "contents/parts/PartsBench.h"
#include "faults/DeedOnEstimate.h"

// The lines of an estimate, in their editors.
namespace lantos::test {

namespace {

using ui::Answer;

struct OnLabor : OnEstimate<LaborBench> {
  OnLabor() {
    Store(1, 100, 6500, "CHECK BRAKES\t\tROAD TEST\t\t\t\t\t");
    Store(3, 50, 3250, "OIL\t\t\t\t\t\t\t");
    contents.labor.LoadLaborList();
    forms["frmLabor"] = [](ui::Form& form) {
      auto& labor = dynamic_cast<frmLabor&>(form);
      Type(labor.Hours, "2");
      Type(labor.txtDesc, "wash");
      Press(form, "F10");
    };
  }
};
struct AddLabor : OnLabor {
  void Do() override { contents.labor.Add(); }
};
struct ChangeLabor : OnLabor {
  void Do() override {
    board.listLabor.DoSelect(0);
    contents.labor.Change();
  }
};
struct RemoveLabor : OnLabor {
  RemoveLabor() { answers = {{"Remove\r", Answer::Yes}}; }
  void Do() override {
    board.listLabor.DoSelect(0);
    contents.labor.Remove();
  }
};
// The line and its surcharge in one piece; the line alone where only the surcharge is refused, and the person is told.
struct AddLaborWithSurcharge : AddLabor {
  AddLaborWithSurcharge() {
    records.system.SysRec.Put(sysrec::labor_surcharge_percent, 50000);
    records.system.SysRec.Put(sysrec::surcharge_description, "SHOP SUPPLIES");
    inTurn = {"Lantos.mdb:Labors", "Lantos.mdb:LaborDays"};
  }
};

struct OnPartLines : OnEstimate<PartsBench> {
  OnPartLines() {
    for (const char* number : {"ABC", "PAD-9"}) contents.parts.AddPartLine(Line(number, 2, 100), kNotChosen);
    forms["frmWOPart"] = [](ui::Form& form) {
      auto& part = dynamic_cast<frmWOPart&>(form);
      if (!part.PartNumber.Locked()) Type(part.PartNumber, "XYZ");
      Type(part.Description, "WIPER BLADE");
      Type(part.QuantityUsed, "3");
      for (ui::TextBox* amount : {&part.CostPrice, &part.SalePrice, &part.ListPrice}) Type(*amount, "12.50");
      Press(form, "F10");
    };
  }
  static constexpr PartLines::Choosing kNotChosen = PartLines::Choosing::NoRow;
};
struct AddPartLine : OnPartLines {
  void Do() override { contents.parts.AddNonStock(); }
};
struct MergePartLine : OnPartLines {
  void Do() override { contents.parts.AddPartLine(Line("abc", 2, 150), PartLines::Choosing::ItsRow); }
};
struct ChangePartLine : OnPartLines {
  void Do() override {
    board.listParts.DoSelectRows({0});
    contents.parts.Change();
  }
};
struct RemovePartLine : OnPartLines {
  RemovePartLine() { answers = {{"Are you sure", Answer::Yes}}; }
  void Do() override {
    board.listParts.DoSelectRows({0});
    contents.parts.Remove();
  }
};

// Two lines, and the list of them as it comes up.
template <const ExtrasTable& kTable>
struct OnExtras : OnEstimate<ContentsBench> {
  OnExtras() {
    for (const std::int32_t number : {1, 2}) {
      (database.lantosData.*kTable.add)(1001, number, {"GLASS", "", 1000, 1500, "Pane", "", "", "", "Yes"});
    }
    answers = {{"Remove\r", Answer::Yes}};
    forms["frmSubList"] = [](ui::Form& form) {
      dynamic_cast<ui::ListBox&>(*form.Find("POSubletList")).DoSelect(0);
      Press(form, "F10");
    };
    forms["frmWOExtra"] = [](ui::Form& form) {
      Type(dynamic_cast<frmWOExtra&>(form).Vendor, "PAINTER");
      Press(form, "F10");
    };
  }
  void OnList(ui::Button frmEstExtras::*button) {
    frmEstExtras form(bench, kTable);
    form.LoadForm();
    form.Show();
    form.listLines.DoSelect(0);
    (form.*button).DoClick();
    form.Hide();
  }
};
template <const ExtrasTable& kTable>
struct AddExtra : OnExtras<kTable> {
  void Do() override { this->OnList(&frmEstExtras::cmdAdd); }
};
template <const ExtrasTable& kTable>
struct ChangeExtra : OnExtras<kTable> {
  void Do() override { this->OnList(&frmEstExtras::cmdChange); }
};
template <const ExtrasTable& kTable>
struct RemoveExtra : OnExtras<kTable> {
  void Do() override { this->OnList(&frmEstExtras::cmdRemove); }
};

struct OnNotes : OnEstimate<ContentsBench> {
  OnNotes() {
    for (const std::int32_t number : {1, 2}) {
      database.lantosData.AddNote(1001, number, {"Keys", "in the box", "", "", "", "", "", ""});
    }
    answers = {{"Remove\r", Answer::Yes}};
    forms["frmNotes"] = [](ui::Form& form) {
      Type(dynamic_cast<frmNotes&>(form).txtDesc, "Call first");
      Press(form, "F10");
    };
  }
  void OnList(ui::Button frmEstNotes::*button) {
    frmEstNotes form(bench);
    form.LoadForm();
    form.Show();
    form.listNotes.DoSelect(0);
    (form.*button).DoClick();
    form.Hide();
  }
};
struct AddNote : OnNotes {
  void Do() override { OnList(&frmEstNotes::cmdAdd); }
};
struct ChangeNote : OnNotes {
  void Do() override { OnList(&frmEstNotes::cmdChange); }
};
struct RemoveNote : OnNotes {
  void Do() override { OnList(&frmEstNotes::cmdRemove); }
};

struct TickChecklist : OnEstimate<ContentsBench> {
  TickChecklist() {
    directory.Put("CHECKLST.TXT", "[Engine]\r\nOil, check the stick\r\n  Belts\r\n");
    records.checkList.LoadChecklistFile();
    forms["frmWOChklst"] = [](ui::Form& form) {
      auto& points = dynamic_cast<frmWOChklst&>(form);
      points.List1.DoCheck(0, true);
      points.List2.DoCheck(0, true);
      Press(form, "F10");
    };
  }
  void Do() override { EstimateChecklist(bench); }
};
// What was ticked before goes, and something else comes.
struct ChangeChecklist : TickChecklist {
  ChangeChecklist() {
    database.lantosData.AddChecklistRow(1001, "Belts, , ");
    database.lantosData.AddChecklistRow(1001, "Oil, , ");
  }
};

template <class Made>
NamedDeed Named(const char* name) {
  return {name, [] { return std::make_unique<Made>(); }};
}

}  // namespace

std::vector<NamedDeed> DeedsOnLines() {
  return {Named<AddLabor>("labor: add"),
          Named<AddLaborWithSurcharge>("labor: add with surcharge"),
          Named<ChangeLabor>("labor: change"),
          Named<RemoveLabor>("labor: remove"),
          Named<AddPartLine>("part line: add"),
          Named<MergePartLine>("part line: merge"),
          Named<ChangePartLine>("part line: change"),
          Named<RemovePartLine>("part line: remove"),
          Named<AddExtra<kSubletExtras>>("sublet: add"),
          Named<ChangeExtra<kSubletExtras>>("sublet: change"),
          Named<RemoveExtra<kSubletExtras>>("sublet: remove"),
          Named<AddExtra<kWasteExtras>>("waste: add"),
          Named<ChangeExtra<kWasteExtras>>("waste: change"),
          Named<RemoveExtra<kWasteExtras>>("waste: remove"),
          Named<AddNote>("note: add"),
          Named<ChangeNote>("note: change"),
          Named<RemoveNote>("note: remove"),
          Named<TickChecklist>("checklist: add"),
          Named<ChangeChecklist>("checklist: change")};
}

}  // namespace lantos::test
