#include "trail/frmTrail.h"

#include <fmt/format.h>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "trail/TrailExport.h"
#include "trail/TrailUndo.h"
#include "trail/frmTrailExport.h"

namespace lantos {

namespace {

constexpr const char* kUndoTitle = "Undo";
constexpr int kEverything = 0;  // row of cboKind; the kinds follow

std::string CaptionFor(std::int32_t estimate) {
  return estimate == 0 ? "Trail" : "Trail - Est. # " + FormatZeros(estimate, 6);
}

std::string CountOf(std::size_t changes) {
  if (changes == 0) return "Nothing was changed.";
  return changes == 1 ? "1 change" : fmt::format("{} changes, the newest first", changes);
}

ui::GridRow RowOf(const TrailDeed& deed, DaySerial today, std::size_t index) {
  const std::string estimate = deed.estimate == 0 ? "" : FormatZeros(deed.estimate, 6);
  return {{WhenOf(deed, today), deed.author.workstation, deed.words, estimate, deed.author.user},
          static_cast<std::int32_t>(index)};
}

}  // namespace

frmTrail::frmTrail(Shop& shop, de& database, std::int32_t estimate, TakeBack takeBack)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmTrail", CaptionFor(estimate)),
      shop_(shop),
      database_(database),
      estimate_(estimate),
      takeBack_(std::move(takeBack)) {
  SetDesignedSize(12000, 7200);
  ListView1.SetColumns(
      {{"When", "When"}, {"At", "At"}, {"Change", "Change"}, {"Estimate", "Estimate"}, {"User", "User"}});
  ListView1.SetSpokenName("Changes");
  cboKind.AddItem("Everything");
  for (std::size_t i = 0; i < kTrailKinds; ++i) cboKind.AddItem(std::string(WordOf(static_cast<TrailKind>(i))));
  cboKind.SetListIndex(kEverything);
  cboKind.SetToolTip("Changes of one kind alone");
  chkWholeShop.SetToolTip("All estimates that were changed on that day");
  DTPicker1.SetToolTip("The day of the changes");
  cmdUndo.SetToolTip("Take back your own last move, status or removal");
  cmdExport.SetToolTip("Save the list for a spreadsheet");
  cmdClose.SetToolTip("Done <F10>, close <Esc>");
  UseButtons(cmdClose, cmdClose);

  cboKind.OnClick = [this] { ShowDeeds(); };
  chkWholeShop.OnClick = [this] { Load(); };
  DTPicker1.OnChange = [this] {
    if (chkWholeShop.Value()) Load();
  };
  cmdUndo.OnClick = [this] { UndoLast(); };
  cmdExport.OnClick = [this] { Export(); };
}

void frmTrail::OnLoad() {
  SizedForm::OnLoad();
  DTPicker1.SetValue(shop_.environment.Today());
  chkWholeShop.SetEnabled(estimate_ != 0);
  if (estimate_ == 0) {
    chkWholeShop.SetValue(true);
  } else {
    Load();
  }
}

void frmTrail::Load() {
  DTPicker1.SetEnabled(chkWholeShop.Value());
  deeds_ =
      DeedsOf(chkWholeShop.Value() ? TrailOfDay(database_, DTPicker1.Value()) : TrailOfEstimate(database_, estimate_));
  ShowDeeds();
}

bool frmTrail::IsShown(const TrailDeed& deed) const {
  const int row = cboKind.ListIndex();
  return row <= kEverything || deed.about == static_cast<TrailKind>(row - 1);
}

void frmTrail::ShowDeeds() {
  std::vector<ui::GridRow> rows;
  for (std::size_t i = 0; i < deeds_.size(); ++i) {
    if (IsShown(deeds_[i])) rows.push_back(RowOf(deeds_[i], shop_.environment.Today(), i));
  }
  lblCount.SetCaption(CountOf(rows.size()));
  cmdExport.SetEnabled(!rows.empty());
  const Trail* trail = database_.KeptTrail();
  cmdUndo.SetEnabled(trail != nullptr && LastToUndo(deeds_, trail->Author()).has_value());
  ListView1.SetRows(std::move(rows));
  if (ListView1.RowCount() > 0) ListView1.SetRow(0);
}

void frmTrail::UndoLast() {
  const std::optional<TrailDeed> deed = LastToUndo(deeds_, database_.KeptTrail()->Author());
  if (!deed) return;
  std::string question =
      "Take this back?\r\rEst. # " + FormatZeros(deed->estimate, 6) + "\r" + Sentence(*deed, shop_.environment.Today());
  if (const std::int32_t copy = CopyMadeBy(database_, *deed); copy != 0) {
    question += "\r\rThe copy that was made, Est. # " + FormatZeros(copy, 6) + ", becomes \"Cancelled\".";
  }
  if (shop_.desktop.Ask(question, kUndoTitle, ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes) {
    const std::string since = takeBack_(*deed);
    if (!since.empty()) {
      shop_.desktop.Tell("This can't be taken back any more:\r\r" + since, kUndoTitle, ui::Icon::Exclamation);
    }
    Load();
  }
  ListView1.SetFocus();
}

void frmTrail::Export() {
  std::vector<TrailDeed> shown;
  for (const TrailDeed& deed : deeds_) {
    if (IsShown(deed)) shown.push_back(deed);
  }
  const std::string subject =
      chkWholeShop.Value() ? FormatIsoDate(DTPicker1.Value()) : "estimate " + std::to_string(estimate_);
  frmTrailExport form(shop_, TrailAsCsv(shown), "Lantos trail " + subject + ".csv");
  form.ShowModal();
  form.Unload();
  ListView1.SetFocus();
}

}  // namespace lantos
