#include "board/frmEstStatus.h"

#include "frame/Numbers.h"

namespace lantos {

frmEstStatus::frmEstStatus(Shop& shop, EstimateDatabase& database, ContinueEstimate continueEstimate)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmEstStatus", "Change Status"),
      shop_(shop),
      database_(database),
      continueEstimate_(std::move(continueEstimate)) {
  SetDesignedSize(12000, 3930);
  for (std::size_t i = 0; i < kStatusCount; ++i) Option1[i].SetCaption(std::string(kStatusDescriptions[i].meaning));
  cmdOK.SetToolTip("OK <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  UseButtons(cmdOK, cmdCancel);
}

void frmEstStatus::OnLoad() {
  SizedForm::OnLoad();
  Estimate& estimate = database_.estimates.CurrentEstimate;
  SetCaption("Change Status - Est. # " + FormatZeros(estimate.EstimateNumber, 6));
  // Asked for its effect: a Scheduled one of an earlier day becomes a No-show in memory.
  database_.estimates.StatusText(estimate.Status, estimate.SchedDate);
  Option1[kRescheduled].SetEnabled(CanReschedule(shop_.environment.statusOptions));
  if (estimate.Status < 0 || estimate.Status >= static_cast<std::int16_t>(kStatusCount)) return;
  ui::OptionButton& current = Option1[static_cast<std::size_t>(estimate.Status)];
  current.SetValue(true);
  current.SetFocus();
}

void frmEstStatus::Accept() {
  for (std::size_t i = 0; i < kStatusCount; ++i) {
    if (!Option1[i].Value()) continue;
    const auto status = static_cast<std::int16_t>(i);
    if (ChangeStatusByHand(shop_, database_, continueEstimate_, status) == ChangeResult::Changed) Hide();
    return;
  }
}

}  // namespace lantos
