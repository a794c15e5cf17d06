#include "board/ShowTrail.h"

#include "board/Lookups.h"
#include "trail/TrailUndo.h"
#include "trail/frmTrail.h"

namespace lantos {

namespace {

// With the estimate on show, so that the surcharge follows in the same transaction.
std::string PutLineBack(const BoardParts& parts, Board& board, const TrailDeed& deed) {
  if (!ShowEstimate(parts, board, deed.estimate, "Undo")) return "The estimate is no longer there.";
  std::string since;
  Surcharge& surcharge = parts.detail.contents.surcharge;
  const Surcharge::Refusal refusal = surcharge.StoreWithSurcharge(
      [&] { since = Undo(parts.database.lantosData, deed, parts.shop.environment.Today()); });
  if (since.empty()) ShowEstimate(parts, board, deed.estimate, "Undo");
  surcharge.TellRefusal(refusal);
  return since;
}

std::string TakeBack(const BoardParts& parts, Board& board, const TrailDeed& deed) {
  if (deed.kind == TrailDeed::Kind::Removal) return PutLineBack(parts, board, deed);
  const std::string since = Undo(parts.database.lantosData, deed, parts.shop.environment.Today());
  modEstimates& estimates = parts.database.estimates;
  if (const std::int32_t current = estimates.CurrentEstimate.EstimateNumber; current != 0) board.Choose(current);
  const bool isInDetail = parts.detail.DisplayedEstimate() != 0;
  board.LoadWeek(parts.state.dayOnShow);
  if (isInDetail) parts.detail.ShowEstimateDetail();
  return since;
}

}  // namespace

void ShowTrail(const BoardParts& parts, Board& board) {
  parts.detail.KeepUnsavedComments();
  const std::int32_t current = parts.database.estimates.CurrentEstimate.EstimateNumber;
  frmTrail form(parts.shop, parts.database.lantosData, current,
                [&](const TrailDeed& deed) { return TakeBack(parts, board, deed); });
  form.ShowModal();
  form.Unload();
}

}  // namespace lantos
