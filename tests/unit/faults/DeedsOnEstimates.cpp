#include <cstring>

#include "board/BookingBench.h"
#include "board/frmSpecialDays.h"
#include "board/frmStdHours.h"
#include "contents/conversion/HalfDoneBench.h"
#include "contents/labor/LaborBench.h"
#include "contents/labor/RepairCodes.h"
#include "contents/labor/frmCanLabor.h"
#include "contents/labor/frmCanLaborList.h"
#include "contents/labor/frmEstFollowup.h"
#include "contents/labor/frmRepairCode.h"
#include "contents/notes/frmCanNoteList.h"
#include "contents/notes/frmNotes.h"
#include "faults/DeedOnEstimate.h"
#include "masters/vehicles/frmVehList.h"

// Estimates on the board, and what is kept for them; their lines stand in a source of their own.
namespace lantos::test {

namespace {

using ui::Answer;

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
    firstNumber = kNextEstimate;
    inTurn = {"Lantos.mdb:Estimates"};  // the estimate stays where its customer is refused; it is on the board
    isWholeWhenKilled = true;
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

// The estimate gets another customer, then one of that customer's vehicles: two writes, and each is on show at once.
struct OtherCustomer : OnBoard {
  OtherCustomer() {
    directory.Put("TQVEHICL.DAT", VehicleImage(8, "FORD", -1).Text(29, "TAURUS").Text(50, "1998").Bytes());
    directory.Put("TQCSTDAT.DAT", Image()
                                      .Append(CustomerImage(7, "Adams").Text(25, "Beth"))
                                      .Append(CustomerImage(8, "School", 0).Text(25, "City")));
    forms["frmCustSearch"] = [](ui::Form& form) {
      auto& search = dynamic_cast<frmCustSearch&>(form);
      search.Number.DoType("8");
      search.cmdSearch.DoClick();
      if (search.CustList.ListCount() == 0) return;
      search.CustList.DoSelect(0);
      search.cmdSelect.DoClick();
    };
    forms["frmVehList"] = [](ui::Form& form) {
      auto& list = dynamic_cast<frmVehList&>(form);
      list.DataGrid1.DoSelect(0);
      list.cmdSelect.DoClick();
    };
    inTurn = {"Lantos.mdb:Estimates"};
  }
  void Do() override { test::Click(board.detail.cmdCustomerEdit); }
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

// The copy, which is shown and named where what becomes of the estimate that it was made of is refused.
struct CopyEstimate : OnBoard {
  CopyEstimate() {
    gaps = {"TQSYSTEM.DAT"};
    firstNumber = kNextEstimate;
    isWholeWhenKilled = true;
    for (const char* table : {"Estimates", "Labors", "LaborDays", "Parts", "Sublets", "Waste", "Notes", "Checklist"}) {
      inTurn.push_back(std::string("Lantos.mdb:") + table);
    }
  }
};

struct Reschedule : CopyEstimate {
  Reschedule() {
    forms["frmReschedule"] = [](ui::Form& form) { Press(form, "F10"); };
  }
  void Do() override { test::Click(board.commands.cmdReschedule); }
};

struct Comments : OnBoard {
  void Do() override {
    Type(board.detail.txtComments, "Keys are at the desk");
    board.MoveFocus(&board.detail.listLabor);
  }
};

struct Continuation : CopyEstimate {
  Continuation() {
    directory.Put("TQEMPLOY.DAT", "");
    environment.statusOptions.letters[static_cast<std::size_t>(StatusOption::ContinuedAutoSchedule)] = 'Y';
    answers = {{"Automatically continued", Answer::Ok}};
    forms["frmEstStatus"] = [](ui::Form& form) {
      dynamic_cast<ui::OptionButton&>(*form.Find("Option1(5)")).DoClick();
      Press(form, "F10");
    };
    Once("frmContinue", [](ui::Form& form) {
      Type(dynamic_cast<ui::TextBox&>(*form.Find("txtHours")), "1");
      Press(form, "F10");
    });
  }
  void Do() override { test::Click(board.commands.cmdChangeStatus); }
};

struct SpecialDay : OnEstimate<BoardBench> {
  void Do() override {
    frmSpecialDays form(shop, database.lantosData);
    form.Show();
    form.MoveFocus(&form.DTPicker1);
    form.DTPicker1.DoPick(Today() + 7);
    form.MoveFocus(&form.txtHours);
    Type(form.txtHours, "4");
    Type(form.txtComments, "Half a day");
    Press(form, "F10");
    form.Hide();
  }
};
struct StandardHours : OnEstimate<BoardBench> {
  void Do() override {
    frmStdHours form(shop, database.lantosData);
    form.Show();
    Type(form.txtHours[2], "7.5");
    Press(form, "F10");
    form.Hide();
  }
};

// A code is added for the main application on the way to a line of labor, which isn't stored.
struct NewRepairCode : OnEstimate<LaborBench> {
  NewRepairCode() {
    CreateKorvelDatabase(directory / "Korvel.mdb", clock);
    environment.hasKorvelDatabase = true;
    forms["frmRepairCode"] = [](ui::Form& form) {
      auto& code = dynamic_cast<frmRepairCode&>(form);
      Type(code.txtRepairCode, "BRK-1");
      Type(code.txtRepairCodeDesc, "Front brakes");
      Press(form, "F10");
    };
  }
  void Do() override {
    ui::Form screen(desktop, "frmScreen", "Screen");
    ui::ComboBox codes(screen, "lovRepairCode");
    FillRepairCodes(database.korvelData, codes);
    codes.SetListIndex(1);
    EditNewRepairCode(shop, database.korvelData, codes);
  }
};

// A recommendation of an earlier work order becomes a line, and is used up.
struct TakeUpFollowup : OnEstimate<LaborBench> {
  TakeUpFollowup() {
    database.estimates.CurrentEstimate.VehVIN = "1FTEX15N9";
    FollowupRecord record;
    record.Put(followup::Active, 1);
    record.Put(followup::CustomerNumber, 7);
    record.Put(followup::VIN, "1FTEX15N9");
    record.Put(followup::Description, "BELTS");
    record.Put(followup::Hours, 100);
    directory.Put(std::string(kFollowupFile),
                  std::string(reinterpret_cast<const char*>(record.Bytes().data()), FollowupRecord::kLength));
    forms["frmEstFollowup"] = [](ui::Form& form) {
      dynamic_cast<frmEstFollowup&>(form).List1.DoCheck(0, true);
      Press(form, "F10");
    };
    inTurn = {"Lantos.mdb:Labors", "Lantos.mdb:LaborDays"};  // then the file of recommendations
  }
  void Do() override {
    frmEstFollowup form(bench, contents.labor);
    form.ShowModal();
    form.Unload();
  }
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
  bool HasJournal() const override { return true; }
  void Settle(Settling how) override {
    LoadStock();
    records.system.ReadSystem();
    how == Settling::Finish ? Finish() : Undo();
  }
  // Each part left the stock, or is as it was, in tag and master alike. A use that was noted of one that stayed is led
  // to by no master.
  bool IsWholeButForGivenUp(const ShopState& state, const ShopState& before, const ShopState& after) override {
    const std::set<std::string> givenUp = {"TQINVTAG.DAT", "TQINVENT.DAT", "TQUSEHST.DAT", "TQINCTAG.DAT"};
    for (const std::string& name : Differences(state, after)) {
      if (!givenUp.contains(name) || (name == "TQINCTAG.DAT" && !ContentOf(state, name).empty())) return false;
    }
    for (std::size_t part = 0; part < 2; ++part) {
      const bool left = Stock(state, part) == Stock(after, part) && StockOfMaster(state, part) == Stock(after, part);
      const bool stayed = Tag(state, part) == Tag(before, part) && Master(state, part) == Master(before, part);
      if (!left && !stayed) return false;
    }
    return ContentOf(state, "TQUSEHST.DAT").size() <= ContentOf(after, "TQUSEHST.DAT").size();
  }
  static std::string Tag(const ShopState& state, std::size_t part) {
    return state.at("TQINVTAG.DAT").substr(kTagLength * part, kTagLength);
  }
  static std::string Master(const ShopState& state, std::size_t part) {
    return state.at("TQINVENT.DAT").substr(kMasterLength * part, kMasterLength);
  }
  static std::string ContentOf(const ShopState& state, const std::string& name) {
    const auto file = state.find(name);
    return file == state.end() ? "" : file->second;
  }
  static std::int32_t Stock(const ShopState& state, std::size_t part) { return ShortIn(Tag(state, part), kStockInTag); }
  static std::int32_t StockOfMaster(const ShopState& state, std::size_t part) {
    return ShortIn(Master(state, part), kStockInMaster);
  }
  // As the start reads the tags.
  void LoadStock() const {
    const std::string bytes = directory.Content("TQINVTAG.DAT");
    records.inventory.SizeArrays();
    for (std::size_t at = 0; at + InventoryTag::kLength <= bytes.size(); at += InventoryTag::kLength) {
      InventoryTag tag;
      std::memcpy(tag.Bytes().data(), bytes.data() + at, InventoryTag::kLength);
      records.inventory.AppendTag(tag);
    }
  }
};

template <class Made>
NamedDeed Named(const char* name) {
  return {name, [] { return std::make_unique<Made>(); }};
}

}  // namespace

std::vector<NamedDeed> DeedsOnEstimates() {
  return {Named<Book>("booking"),
          Named<Comments>("comments"),
          Named<OtherCustomer>("other customer"),
          Named<SetStatus>("status"),
          Named<Continuation>("continuation"),
          Named<Reschedule>("reschedule"),
          Named<NewRepairCode>("repair code"),
          Named<TakeUpFollowup>("followup"),
          Named<EditCannedLabor>("canned labor"),
          Named<EditCannedNote>("canned note"),
          Named<SpecialDay>("special day"),
          Named<StandardHours>("standard hours"),
          Named<PrintOptionsSaved>("print options"),
          Named<ConvertEstimate>("conversion")};
}

}  // namespace lantos::test
