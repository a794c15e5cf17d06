#include "board/frmStdHours.h"

#include "frame/Numbers.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::array<const char*, 8> kColumns = {"SunHours", "MonHours", "TueHours", "WedHours",
                                                 "ThuHours", "FriHours", "SatHours", "FudgeFactor"};
constexpr std::array<const char*, 8> kCaptions = {"Sunday",   "Monday", "Tuesday",  "Wednesday",
                                                  "Thursday", "Friday", "Saturday", "Fudge factor (%)"};
// Word for word as people at the counter know them, slips included.
constexpr std::array<const char*, 3> kHelp = {
    "Standard hours are the total \"mechanic\" hours for each day of the week.  For example, if you have 2 mechanics "
    "each working 8 hours on a particular day of the week, then the standard hours for that day would be 16.  "
    "Similarly, if you have 3 mechanics working 8 hours each, and 2 more mechanics working 4 hours each, then the "
    "total for that day would be 32.  Enter 0 for the days the shop is normally closed.",
    "The fudge factor is a whole percentage value used to determine when the totals are \"close enough\".  For "
    "example: if the day has 40 mechanic hours available and the fudge factor is set to 10%, then scheduled hours "
    "anywhere from 36 to 44 hours would be considered \"full\" or \"good\", 35 or less hours would be \"under\", and "
    "45 or more hours would be \"over\".",
    "Note: You can use the menu option Maintenance>System>Special Days to record exceptions to the standard hours.  "
    "The Spedial Days option is used to indicate days when the shop is closed (eg: holidays), or days when hte "
    "standard hours are changed because mechanic(s) are not available (eg: vacations)."};

}  // namespace

frmStdHours::frmStdHours(Shop& shop, de& database)
    : OkCancelForm(shop.desktop, shop.keys, "frmStdHours", "Standard Hours"), database_(database) {
  SetSize(9600, 6600);
  for (std::size_t i = 0; i < kCaptions.size(); ++i) lblHours[i].SetCaption(kCaptions[i]);
  for (std::size_t i = 0; i < kFudgeFactor; ++i) txtHours[i].SetToolTip("Mechanic hours of the whole shop");
  txtHours[kFudgeFactor].SetToolTip("Whole percentage by which a good day may differ");
  for (std::size_t i = 0; i < kHelp.size(); ++i) lblHelp[i].SetCaption(kHelp[i]);
  cmdOK.SetToolTip("Select highlighted part <F10>");
  cmdCancel.SetToolTip("Close <Esc>");
  UseButtons(cmdOK, cmdCancel);
  for (std::size_t i = 0; i < kCaptions.size(); ++i) numbers_.Add(txtHours[i], kCaptions[i], NumberFields::Read::Whole);
  AskBeforeLosing(cmdCancel, txtHours);
}

void frmStdHours::OnLoad() {
  Recordset& row = database_.GetStdHours();
  for (std::size_t i = 0; i < kColumns.size(); ++i) txtHours[i].SetText(FormatFixed(row.Number(kColumns[i]), 0));
  row.Close();
  MarkUnchanged();
}

// All are read before any is written: one that doesn't fit leaves them as they were. What is no number, red as long as
// it stands there, is 0.
void frmStdHours::Accept() {
  const auto whole = [](const ui::TextBox& box) {
    return IsNumeric(box.Text()) ? WholeOrOverflow(ToNumber(box.Text())) : 0;
  };
  std::array<std::int32_t, kFudgeFactor> hours{};
  for (std::size_t i = 0; i < hours.size(); ++i) hours[i] = whole(txtHours[i]);
  database_.UpdateStdHours(hours, whole(txtHours[kFudgeFactor]));
  Hide();
}

}  // namespace lantos
