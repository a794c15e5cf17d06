#include "masters/employees/frmEmpPRHist.h"

#include <algorithm>

#include "frame/Numbers.h"
#include "payroll/PayStub.h"
#include "printing/PayStubPaper.h"
#include "records/modSystem.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 15180;
constexpr ui::Twips kHeight = 6600;
constexpr std::size_t kDatesTold = 5;
constexpr std::string_view kAdditionalUnread = "The additional withholding can't be read from Korvel.mdb.";

std::vector<ui::GridColumn> Columns() {
  std::vector<ui::GridColumn> columns;
  for (std::size_t i = 0; i < kPayColumnCount; ++i) {
    const auto column = static_cast<PayColumn>(i);
    const std::string name(kPayColumnNames[i]);
    const bool isText = column == PayColumn::Mark || column == PayColumn::Date;
    columns.push_back({name, name, !isText, column == PayColumn::Mark});
  }
  return columns;
}

}  // namespace

frmEmpPRHist::frmEmpPRHist(Shop& shop, de2& korvel, std::int32_t employee)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmEmpPRHist", "Employee Payroll History"),
      shop_(shop),
      korvel_(korvel),
      number_(employee) {
  SetDesignedSize(kWidth, kHeight);
  ListView1.SetColumns(Columns());
  ListView1.SetSpokenName("Pay records");
  cmdPrint.SetToolTip("Print Pay Stub <F1>");
  cmdDelete.SetToolTip("Delete Entry <Del>");
  cmdSave.SetToolTip("Print <Alt+F2>");
  MsgLabel.SetToolTip("Save deletes what is marked <F10>");  // the button's own tip tells another key
  cmdCancel.SetToolTip("Close <Esc>");
  UseButtons(cmdSave, cmdCancel);
  // The one that asks before it does anything.
  SetDefaultButton(cmdPrint);
  cmdPrint.OnClick = [this] {
    Print();
    ListView1.SetFocus();
  };
  cmdDelete.OnClick = [this] {
    ToggleMark();
    ListView1.SetFocus();
  };
  AskBeforeLosing(cmdCancel);
}

void frmEmpPRHist::OnLoad() {
  SizedForm::OnLoad();
  LoadNumberChoice();
  Load();
}

// What the shop has chosen for the employee's stubs.
void frmEmpPRHist::LoadNumberChoice() {
  if (!shop_.environment.hasKorvelDatabase) return;
  try {
    chkIncludeSSN.SetValue(korvel_.PRInfoOf(number_).PrintSSN);
  } catch (const DatabaseError& error) {
    shop_.environment.log.Write(error.what());
  }
}

// Nothing when the database can't be read: the records are worth seeing all the same.
std::optional<AdditionalByDate> frmEmpPRHist::LoadAdditional() {
  if (!shop_.environment.hasKorvelDatabase) return AdditionalByDate();
  try {
    return LoadAdditionalWithholding(korvel_, number_);
  } catch (const DatabaseError& error) {
    shop_.environment.log.Write(error.what());
    return std::nullopt;
  }
}

void frmEmpPRHist::OnKeyDown(ui::KeyPress& key) {
  SizedForm::OnKeyDown(key);
  ui::Button* button = nullptr;
  // The second is the one that the tool tip of the Save button tells.
  if (key.Is("F1") || key.IsAlt("F2")) button = &cmdPrint;
  if (key.Is("Delete")) button = &cmdDelete;
  if (button == nullptr) return;
  key.Clear();
  Press(*button);
}

void frmEmpPRHist::Press(ui::Button& button) {
  if (button.IsUsable()) button.OnClick();
}

void frmEmpPRHist::Load() {
  const PayChain chain = shop_.records.payroll.Load(number_);
  const EmployeeRecord* record = shop_.records.employees.Find(number_);
  employee_ = record == nullptr ? EmployeeRecord() : *record;
  const std::string name = employee_.Get(employee::Name);
  lblEmployee.SetCaption(FormatZeros(number_, 6) + "  " + name);
  LoadRows(chain);
  ShowRows(rows_.empty() ? -1 : 0);
  cmdDelete.SetEnabled(!rows_.empty());
  cmdPrint.SetEnabled(!rows_.empty());
  FollowMarks();
  if (chain.damage.empty()) return;
  shop_.desktop.Tell(
      "The pay records of " + name + " are damaged: " + chain.damage + "\rOnly those in front of it are listed.",
      Caption(), ui::Icon::Exclamation);
}

void frmEmpPRHist::LoadRows(const PayChain& chain) {
  entries_ = chain.entries;
  rows_.clear();
  const std::optional<AdditionalByDate> additional = LoadAdditional();
  WithholdingTables tables(shop_.environment);
  const std::string state = shop_.records.system.SysRec.Get(sysrec::company_state);
  for (const PayEntry& entry : entries_) {
    const std::string date = TextOfPayDate(entry.record.Get(payrecord::PayrollDate));
    AdditionalWithholding beyond{.isKnown = additional.has_value()};
    if (additional && additional->contains(date)) beyond = additional->at(date);
    rows_.push_back(MakePayRow(entry.record, tables.Work(state, entry.record), beyond));
  }
  missing_ = tables.Missing();
  if (!additional) missing_ += (missing_.empty() ? "" : "\n") + std::string(kAdditionalUnread);
}

void frmEmpPRHist::ShowRows(int current) {
  std::vector<ui::GridRow> shown;
  for (const PayRow& row : rows_) {
    shown.push_back({{row.cells.begin(), row.cells.end()}, static_cast<std::int32_t>(shown.size())});
  }
  ListView1.SetRows(std::move(shown));
  if (current >= 0) ListView1.SetRow(current);
  ShowMessage();
}

// The marks stand in a column that nobody sees, so they are told here.
void frmEmpPRHist::ShowMessage() {
  std::string text = rows_.empty() ? "No payroll records found." : MarkedDates();
  if (!text.empty() && !missing_.empty()) text += "\n";
  MsgLabel.SetCaption(text + missing_);
}

std::string frmEmpPRHist::MarkedDates() const {
  std::string dates;
  std::size_t count = 0;
  for (const PayRow& row : rows_) {
    if (!row.IsMarked() || ++count > kDatesTold) continue;
    dates += (dates.empty() ? "" : ", ") + row[PayColumn::Date];
  }
  if (count == 0) return "";
  if (count > kDatesTold) dates += " and " + std::to_string(count - kDatesTold) + " more";
  return "X  Deleted when saved: " + dates;
}

std::optional<std::size_t> frmEmpPRHist::CurrentRow() const {
  if (ListView1.Row() < 0) return std::nullopt;
  return static_cast<std::size_t>(ListView1.Rows()[static_cast<std::size_t>(ListView1.Row())].data);
}

void frmEmpPRHist::ToggleMark() {
  const std::optional<std::size_t> row = CurrentRow();
  if (!row) return;
  rows_[*row][PayColumn::Mark] = rows_[*row].IsMarked() ? "" : "X";
  ShowRows(ListView1.Row());
  FollowMarks();
}

// What a save would have to do.
void frmEmpPRHist::FollowMarks() {
  const bool isAny = std::any_of(rows_.begin(), rows_.end(), [](const PayRow& each) { return each.IsMarked(); });
  if (isAny || !additionalToGo_.empty()) {
    MarkChanged();
  } else {
    MarkUnchanged();
  }
}

// Whatever a save came to, the list is what the file has then.
void frmEmpPRHist::Accept() {
  std::vector<PayEntry> marked;
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].IsMarked()) marked.push_back(entries_[i]);
  }
  std::exception_ptr failure = DeleteAdditional();
  try {
    shop_.records.payroll.Remove(number_, marked, [this, &failure](const PayEntry& entry) {
      additionalToGo_.push_back(TextOfPayDate(entry.record.Get(payrecord::PayrollDate)));
      if (!failure) failure = DeleteAdditional();
    });
  } catch (...) {
    failure = std::current_exception();
  }
  Load();
  ListView1.SetFocus();
  if (failure) std::rethrow_exception(failure);
}

// A row that stayed would be taken for that of a payroll that is run again for its day, so what a save can't delete is
// left for the next.
std::exception_ptr frmEmpPRHist::DeleteAdditional() {
  if (!shop_.environment.hasKorvelDatabase) additionalToGo_.clear();
  try {
    for (; !additionalToGo_.empty(); additionalToGo_.pop_back()) korvel_.DeletePRHist(number_, additionalToGo_.back());
  } catch (const DatabaseError&) {
    return std::current_exception();
  }
  return nullptr;
}

void frmEmpPRHist::Print() {
  const std::optional<std::size_t> row = CurrentRow();
  if (!row) return;
  if (rows_[*row].IsMarked()) {
    return shop_.desktop.Tell("Can't print pay-stub for deleted item.", Caption(), ui::Icon::Exclamation);
  }
  const std::string with = chkIncludeSSN.Value() ? "with" : "without";
  const std::string question = "Print pay stub " + with + " SSN for " + employee_.Get(employee::Name) + "?";
  if (shop_.desktop.Ask(question, Caption(), ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) return;
  PrintRow(rows_[*row], entries_[*row].record);
}

void frmEmpPRHist::PrintRow(const PayRow& row, const PayRecord& pay) {
  const std::string company = shop_.records.system.SysRec.Get(sysrec::company_name);
  PrintPayStub(shop_.desktop, ComposePayStub({company, shop_.environment.Today(), employee_, pay, rows_, row,
                                              chkIncludeSSN.Value() ? StubNumber::Shown : StubNumber::Left}));
}

}  // namespace lantos
