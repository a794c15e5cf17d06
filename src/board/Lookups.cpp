#include "board/Lookups.h"

#include "board/frmFind.h"
#include "contents/labor/frmTechHours.h"
#include "frame/Numbers.h"

namespace lantos {

bool ShowEstimate(const BoardParts& parts, Board& board, std::int32_t number, const std::string& title) {
  modEstimates& estimates = parts.database.estimates;
  board.Choose(number);
  if (estimates.CurrentEstimate.EstimateNumber != number) {
    parts.shop.desktop.Tell("Estimate " + FormatZeros(number, 6) + " is no longer there.", title,
                            ui::Icon::Exclamation);
    return false;
  }
  board.LoadWeek(estimates.CurrentEstimate.SchedDate);
  // As it is at the end of the load, which may have waited for a customer file.
  estimates.LoadEstimate(number);
  parts.commands.cmdDetailView.OnClick();
  parts.detail.listLabor.SetFocus();
  return true;
}

void FindEstimate(const BoardParts& parts, Board& board) {
  MasterScreens masters(parts.shop);
  frmFind form(parts.shop, parts.database, masters);
  form.ShowModal();
  form.Unload();
  if (form.Chosen()) ShowEstimate(parts, board, *form.Chosen(), "Find");
}

void LookAtTechHours(const BoardParts& parts) {
  frmTechHours form(parts.shop, parts.database.lantosData, frmTechHours::Purpose::Look, parts.state.dayOnShow);
  form.ShowModal();
  form.Unload();
}

}  // namespace lantos
