#include "contents/labor/frmEstFollowup.h"

#include <algorithm>

#include "frame/Dates.h"
#include "frame/Text.h"
#include "records/LaborText.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 9600;
constexpr ui::Twips kHeight = 4500;

}  // namespace

frmEstFollowup::frmEstFollowup(Workbench& bench, LaborLines& labor)
    : OkCancelForm(bench.shop.desktop, bench.shop.keys, "frmEstFollowup", "Estimate Followups"),
      bench_(bench),
      labor_(labor) {
  SetSize(kWidth, kHeight);
  List1.SetCheckBoxes(true);
  List1.SetFace(ui::FontFace::FixedPitch);
  UseButtons(cmdSave, cmdCancel);
  cmdSave.SetToolTip("Add Followups to WO <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, List1);
}

void frmEstFollowup::OnLoad() {
  const Estimate& estimate = bench_.database.estimates.CurrentEstimate;
  followups_ = bench_.shop.records.followups.OpenFollowups(estimate.CustomerNumber, Trim(estimate.VehVIN),
                                                           Trim(estimate.VehLic));
  for (const Followup& followup : followups_) {
    List1.AddItem(FormatDate(FromFileDate(followup.record.Get(followup::FollowupDate))) + " " +
                  followup.record.Get(followup::Description));
  }
}

void frmEstFollowup::Accept() {
  const auto& rows = List1.Rows();
  if (std::none_of(rows.begin(), rows.end(), [](const ui::ListRow& row) { return row.checked; })) {
    bench_.shop.desktop.Tell("No items were selected.", Caption());
    return;
  }
  Followups::Using file(bench_.shop.environment);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (rows[i].checked) TakeUp(i, file);
  }
  Hide();
}

// A line that stands on the estimate isn't added once more, whatever fails behind it.
void frmEstFollowup::TakeUp(std::size_t row, Followups::Using& file) {
  Followup& followup = followups_[row];
  const FollowupRecord& record = followup.record;
  WoLaborLine line;
  line.Rate = record.Get(followup::Rate);
  const Environment& environment = bench_.shop.environment;
  if (environment.shopOptions.LaborDateOption) line.Date = FormatDate(environment.Today()) + " ";
  line.Mechanic = record.Get(followup::Mechanic);
  line.Hours = record.Get(followup::Hours);
  line.Total = record.Get(followup::Total);
  line.Desc = SplitLaborText(record.Get(followup::Description));
  for (std::string& text : line.Desc) text = Left(text, kLaborLineWidth);
  labor_.AddLaborLine(line);
  List1.SetChecked(static_cast<int>(row), false);
  file.UseUp(followup);
}

void LaborFollowup(Workbench& bench, LaborLines& labor) {
  const ui::Hourglass hourglass(bench.shop.desktop);
  frmEstFollowup form(bench, labor);
  form.ShowModal();
}

}  // namespace lantos
