#include "board/frmSpecialDays.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

// Before any special day: lists them all.
constexpr std::string_view kWholeHistory = "11/02/1956";

constexpr std::size_t kHoursPosition = 12;  // 1-based, behind the date and a blank
constexpr std::size_t kHoursWidth = 5;

std::string LineOf(DaySerial date, double hours, std::string_view description) {
  return FormatDate(date) + " " + RightJustify(FormatFixed(hours, 0), kHoursWidth) + " " + Trim(description);
}

struct LineParts {
  std::string hours;
  std::string description;
};
// Hours too long for their columns push the description on, so it is looked for behind them.
LineParts PartsOf(const std::string& line) {
  const std::string padded = Mid(line, kHoursPosition);
  const std::size_t begin = padded.find_first_not_of(' ');
  if (begin == std::string::npos) return {};
  const std::size_t end = std::min(padded.find(' ', begin), padded.size());
  return {padded.substr(begin, end - begin), Trim(padded.substr(end))};
}

}  // namespace

frmSpecialDays::frmSpecialDays(Shop& shop, de& database)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmSpecialDays", "Special Days"),
      shop_(shop),
      database_(database) {
  SetDesignedSize(9000, 6000);
  List1.SetFace(ui::FontFace::FixedPitch);
  List1.SetToolTip("A click puts the day into the fields");
  DTPicker1.SetToolTip("The day whose hours differ");
  txtHours.SetToolTip("Hours of that day; 0 closes it");
  txtComments.SetToolTip("Shows as the day's comment");
  Check1.SetToolTip("List days of the past too");
  cmdSave.SetToolTip("Save <F10>");
  cmdDelete.SetToolTip("Delete the day shown <Delete>");
  cmdCancel.SetToolTip("Close <Esc>");
  UseButtons(cmdSave, cmdCancel);

  DTPicker1.OnChange = [this] { datePicked_ = true; };
  DTPicker1.OnLostFocus = [this] { DateLeft(); };
  txtHours.OnValidate = [this](bool& keepFocus) {
    // An empty box holds no value yet: a person who picked a new date may still turn to another.
    if (Trim(txtHours.Text()).empty() || IsNumeric(txtHours.Text())) return;
    TellHoursMustBeNumeric();
    keepFocus = true;
  };
  List1.OnClick = [this] { EditLine(); };
  Check1.OnClick = [this] { LoadList(); };
  cmdDelete.OnClick = [this] { Delete(); };
  numbers_.Add(txtHours, "Hours", NumberFields::Read::Whole);
  // Not the date: leaving it looks the day up, and alone it could not be saved.
  AskBeforeLosing(cmdCancel, txtHours, txtComments);
}

void frmSpecialDays::OnLoad() {
  SizedForm::OnLoad();
  DTPicker1.SetValue(shop_.environment.Today());
  datePicked_ = false;
  LoadList();
  MarkUnchanged();
}

// In the list alone: in the fields the key belongs to the text.
void frmSpecialDays::OnKeyDown(ui::KeyPress& key) {
  if (!key.Is("Delete") || !List1.HasFocus()) return SizedForm::OnKeyDown(key);
  key.Clear();
  Delete();
}

void frmSpecialDays::LoadList() {
  List1.Clear();
  const std::string from = Check1.Value() ? std::string(kWholeHistory) : FormatDate(shop_.environment.Today());
  Recordset& rows = database_.SpecialDaysTable(from);
  for (; !rows.Eof(); rows.MoveNext()) {
    const DaySerial date = rows.Date("SpecialDate");
    List1.AddItem(LineOf(date, rows.Number("SpecialHours"), rows.Text("SpecialDesc")), date);
  }
  rows.Close();
  ui::SetListExtent(List1);
}

void frmSpecialDays::EditLine() {
  const int row = List1.ListIndex();
  if (row < 0) return;
  const LineParts parts = PartsOf(List1.List(row));
  DTPicker1.SetValue(List1.ItemData(row));
  txtHours.SetText(parts.hours);
  txtComments.SetText(parts.description);
  datePicked_ = false;
  MarkUnchanged();
}

void frmSpecialDays::DateLeft() {
  if (!datePicked_) return;
  datePicked_ = false;
  const DaySerial date = DTPicker1.Value();
  // The click reloads the list with the history.
  if (date < shop_.environment.Today() && !Check1.Value()) Check1.SetValue(true);
  const int row = List1.FindData(date);
  List1.SetListIndex(row);
  if (row >= 0) return;
  txtHours.SetText("");
  txtComments.SetText("");
  MarkUnchanged();
}

void frmSpecialDays::Accept() {
  const DaySerial date = DTPicker1.Value();
  const std::string description = Trim(txtComments.Text());
  if (date == 0 || Trim(txtHours.Text()).empty() || description.empty()) {
    shop_.desktop.Tell("All three fields are required.", Caption());
    return;
  }
  // F10 doesn't leave the field, so it hasn't been validated.
  if (!IsNumeric(txtHours.Text())) {
    TellHoursMustBeNumeric();
    txtHours.SetFocus();
    return;
  }
  const std::int32_t hours = WholeOrOverflow(ToNumber(txtHours.Text()));
  database_.SaveSpecialDay(date, hours, description);
  RemoveLine(date);
  AddLine(date, LineOf(date, hours, description));
  MarkUnchanged();
}

void frmSpecialDays::Delete() {
  const DaySerial date = DTPicker1.Value();
  if (date == 0) return;
  database_.DeleteSpecialDay(date);
  RemoveLine(date);
  MarkUnchanged();
}

void frmSpecialDays::AddLine(DaySerial date, const std::string& line) {
  int row = 0;
  while (row < List1.ListCount() && List1.ItemData(row) < date) ++row;
  List1.InsertItem(row, line, date);
  ui::SetListExtent(List1);
}

void frmSpecialDays::RemoveLine(DaySerial date) {
  const int row = List1.FindData(date);
  if (row >= 0) List1.RemoveItem(row);
}

void frmSpecialDays::TellHoursMustBeNumeric() { shop_.desktop.Tell("Hours must be numeric.", Caption()); }

}  // namespace lantos
