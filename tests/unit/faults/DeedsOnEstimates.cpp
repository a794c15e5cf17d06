#include "board/BookingBench.h"
#include "contents/conversion/HalfDoneBench.h"
#include "contents/extras/frmEstExtras.h"
#include "contents/extras/frmWOExtra.h"
#include "contents/labor/LaborBench.h"
#include "contents/labor/frmCanLabor.h"
#include "contents/labor/frmCanLaborList.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmCanNoteList.h"
#include "contents/notes/frmEstNotes.h"
#include "contents/notes/frmNotes.h"
#include "contents/notes/frmWOChklst.h"
#include "contents/parts/PartsBench.h"
#include "faults/Deed.h"

// Estimates: on the board, and in their editors.
namespace lantos::test {

namespace {

using ui::Answer;

template <class Bench>
struct OnEstimate : DeedOn<Bench> {
  EstimateDatabase* Database() override { return &this->database; }
};

struct Book : OnEstimate<BookingBench> {
  Book() {
    Start();
    answers = {{"Is this an Estimate Only?", Answer::No}};
    forms["frmCustSearch"] = [](ui::Form& form) {
      auto& search = dynamic_cast<frmCustSearch&>(form);
      search.Number.DoType("7");
      search.cmdSearch.DoClick();
      if (search.CustList.ListCount() == 0) return;
      search.CustList.DoSelect(0);
      search.cmdSelect.DoClick();
    };
    forms["frmVehList"] = [](ui::Form& form) { Press(form, "Esc"); };
    gaps = {"TQSYSTEM.DAT"};
    inTurn = {"Lantos.mdb:Estimates"};  // the estimate, then its customer; it is on the board
  }
  void Do() override { test::Click(board.commands.cmdNewEstimate); }
};

// An estimate of today with something of everything, chosen.
struct OnBoard : OnEstimate<BookingBench> {
  OnBoard() {
    Fill(900, 7);
    Show(900);
  }
};

struct SetStatus : OnBoard {
  SetStatus() {
    forms["frmEstStatus"] = [](ui::Form& form) {
      dynamic_cast<ui::OptionButton&>(*form.Find("Option1(4)")).DoClick();
      Press(form, "F10");
    };
  }
  void Do() override { test::Click(board.commands.cmdChangeStatus); }
};

struct Reschedule : OnBoard {
  Reschedule() {
    forms["frmReschedule"] = [](ui::Form& form) { Press(form, "F10"); };
    gaps = {"TQSYSTEM.DAT"};
    // The copy, line by line, which is shown and named; then what becomes of the estimate that it was made of.
    for (const char* table : {"Estimates", "Labors", "Parts", "Sublets", "Waste", "Notes", "Checklist"}) {
      inTurn.push_back(std::string("Lantos.mdb:") + table);
    }
  }
  void Do() override { test::Click(board.commands.cmdReschedule); }
};

struct PrintOptionsSaved : OnEstimate<BoardBench> {
  PrintOptionsSaved() {
    Start();
    forms["frmPrintOptions"] = [](ui::Form& form) {
      dynamic_cast<ui::CheckBox&>(*form.Find("optDisclosure")).DoClick();
      Press(form, "F10");
    };
  }
  void Do() override { board.FindMenu("mnuPrintOptions")->DoClick(); }
};

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

struct AddPartLine : OnEstimate<PartsBench> {
  void Do() override { contents.parts.AddPartLine(Line("abc", 2, 100), PartLines::Choosing::ItsRow); }
};

template <const ExtrasTable& kTable>
struct AddExtra : OnEstimate<ContentsBench> {
  AddExtra() {
    forms["frmSubList"] = [](ui::Form& form) {
      dynamic_cast<ui::ListBox&>(*form.Find("POSubletList")).DoSelect(0);
      Press(form, "F10");
    };
    forms["frmWOExtra"] = [](ui::Form& form) {
      Type(dynamic_cast<frmWOExtra&>(form).Vendor, "GLASS");
      Press(form, "F10");
    };
  }
  void Do() override {
    frmEstExtras form(bench, kTable);
    form.LoadForm();
    form.Show();
    form.cmdAdd.DoClick();
    form.Hide();
  }
};

struct AddNote : OnEstimate<ContentsBench> {
  AddNote() {
    forms["frmNotes"] = [](ui::Form& form) {
      Type(dynamic_cast<frmNotes&>(form).txtDesc, "Call first");
      Press(form, "F10");
    };
  }
  void Do() override {
    frmEstNotes form(bench);
    form.LoadForm();
    form.Show();
    form.cmdAdd.DoClick();
    form.Hide();
  }
};

// The list is written when it is left.
struct EditCannedLabor : OnEstimate<LaborBench> {
  EditCannedLabor() {
    directory.Put("TQCANLAB.DAT",
                  CannedLaborLine(Job("LOF  OIL")) + "\r\n" + CannedLaborLine(Job("TIRE ROTATE")) + "\r\n");
    inTurn = {"TQLABKIT.DAT"};  // the kit of the code, then the list
    forms["frmCanLaborList"] = [](ui::Form& form) {
      auto& list = dynamic_cast<frmCanLaborList&>(form);
      list.DataGrid1.DoSelect(0);
      list.cmdEdit.DoClick();
      Press(form, "Esc");
    };
    forms["frmCanLabor"] = [](ui::Form& form) {
      Type(dynamic_cast<frmCanLabor&>(form).txtDesc, "oil and filter");
      Press(form, "F10");
    };
  }
  static CannedLabor Job(const std::string& text) {
    CannedLabor entry;
    entry.Desc[0] = text;
    return entry;
  }
  void Do() override {
    frmCanLaborList form(bench);
    form.ShowModal();
    form.Unload();
  }
};

struct EditCannedNote : OnEstimate<ContentsBench> {
  EditCannedNote() {
    directory.Put("TQCANNOT.DAT", "Call\r\nKeys are in the box\r\n");
    forms["frmCanNoteList"] = [](ui::Form& form) {
      dynamic_cast<frmCanNoteList&>(form).cmdEdit.DoClick();
      Press(form, "Esc");
    };
    forms["frmNotes"] = [](ui::Form& form) {
      Type(dynamic_cast<frmNotes&>(form).txtDesc, "Call before the work is begun");
      Press(form, "F10");
    };
  }
  void Do() override {
    frmCanNoteList form(shop);
    form.ShowModal();
    form.Unload();
  }
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

struct ConvertEstimate : OnEstimate<HalfDoneBench> {
  ConvertEstimate() {
    answers = {{"This function will convert", Answer::Yes},
               {"Change status to", Answer::No},
               {"Estimate status is still", Answer::Ok},
               {"Estimate # 001001 is now", Answer::Ok},
               {"Parts which might need", Answer::Ok}};
    gaps = {"TQSYSTEM.DAT"};
    // The person is told at which step it ended, or what it went on without; its journal says the same to the next.
    inTurn = {"TQINVTAG.DAT", "TQINVENT.DAT", "TQUSEHST.DAT",        "TQOPENWO.DAT",
              "TQINCTAG.DAT", "W0005001.tqa", "Lantos.mdb:Estimates"};
  }
  void Do() override { Convert(); }
};

template <class Made>
NamedDeed Named(const char* name) {
  return {name, [] { return std::make_unique<Made>(); }};
}

}  // namespace

std::vector<NamedDeed> DeedsOnEstimates() {
  return {Named<Book>("booking"),
          Named<SetStatus>("status"),
          Named<Reschedule>("reschedule"),
          Named<AddLabor>("labor: add"),
          Named<ChangeLabor>("labor: change"),
          Named<RemoveLabor>("labor: remove"),
          Named<AddPartLine>("part line"),
          Named<AddExtra<kSubletExtras>>("sublet"),
          Named<AddExtra<kWasteExtras>>("waste"),
          Named<AddNote>("note"),
          Named<EditCannedLabor>("canned labor"),
          Named<EditCannedNote>("canned note"),
          Named<TickChecklist>("checklist"),
          Named<PrintOptionsSaved>("print options"),
          Named<ConvertEstimate>("conversion")};
}

}  // namespace lantos::test
