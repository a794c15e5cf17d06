#include "board/frmMain.h"
#include "contents/conversion/Conversion.h"
#include "contents/extras/frmEstSublets.h"
#include "contents/extras/frmEstWaste.h"
#include "contents/labor/LaborAddCanned.h"
#include "contents/labor/frmEstFollowup.h"
#include "contents/notes/EstimateChecklist.h"
#include "contents/notes/frmEstNotes.h"
#include "frame/Text.h"
#include "records/Followups.h"

// The commands on what an estimate holds, and what their editors see of the board.
namespace lantos {

void frmMain::WireLines() {
  // Commands that add need an estimate to add to; the others say themselves what is missing.
  const auto adding = [this](const char* title, std::function<void()> add) {
    return [this, title, add = std::move(add)] {
      CheckDayRollover();
      if (HasEstimateOnShow(title)) add();
    };
  };
  const auto working = [this](std::function<void()> work) {
    return [this, work = std::move(work)] {
      CheckDayRollover();
      work();
    };
  };
  LaborLines& labor = contents_.labor;
  PartLines& parts = contents_.parts;
  Workbench& bench = contents_.bench;
  cmdLaborAdd.OnClick = adding("Add Labor", [&labor] { labor.Add(); });
  cmdLaborAddCanned.OnClick = adding("Add Canned Labor", [&] { LaborAddCanned(bench, labor, parts); });
  cmdLaborChange.OnClick = working([&labor] { labor.Change(); });
  cmdLaborRemove.OnClick = working([&labor] { labor.Remove(); });
  cmdLaborFollowup.OnClick = adding("Followups", [&] { LaborFollowup(bench, labor); });
  cmdPartAdd.OnClick = adding("Add Part", [&parts] { parts.Add(); });
  cmdPartAddNonStock.OnClick = adding("Add Non-Stocked Part", [&parts] { parts.AddNonStock(); });
  cmdPartChange.OnClick = working([&parts] { parts.Change(); });
  cmdPartRemove.OnClick = working([&parts] { parts.Remove(); });
  cmdEstimateSublets.OnClick = working([&bench] { EstimateSublets(bench); });
  cmdEstimateWaste.OnClick = working([&bench] { EstimateWaste(bench); });
  cmdEstimateNotes.OnClick = working([this] {
    EstimateNotes(contents_.bench);
    if (displayedEstimate_ != 0) ShowNotesMark();
  });
  cmdConvert.OnClick = [this] { ConvertClick(); };
  cmdEstimateChecklist.OnClick = working([&bench] { EstimateChecklist(bench); });
}

void frmMain::ConvertClick() {
  CheckDayRollover();
  if (!HasEstimateOnShow("Convert to WO")) return;
  Run([this] {
    const ui::Hourglass hourglass(shop_.desktop);
    Conversion(contents_.bench, contents_.workorders).Run();
  });
  // What it has changed is shown however it ended.
  LoadWeek(Current().SchedDate);
  ShowEstimateDetail();
}

void frmMain::StoreComments(const std::string& comments) {
  txtComments.SetText(comments);
  Data().SetComments(comments, displayedEstimate_);
  savedComment_ = Trim(comments);
  Current().Comments = comments;
}

void frmMain::AddScheduledHours(Hundredths hours) {
  if (modEstimates::CountsTowardDay(Current().Status)) capacity_.ScheduledHours[selectedDayIndex_] += hours;
}

}  // namespace lantos
