#include "contents/notes/EstimateChecklist.h"

#include <algorithm>

#include "contents/notes/ChecklistMerge.h"
#include "contents/notes/frmWOChklst.h"
#include "records/CheckList.h"

// The checklist of an estimate: the ticked entries of the table, a row each, "name,service,miles".
namespace lantos {

namespace {

StoredChecklist Stored(Workbench& bench) {
  std::vector<std::string> rows;
  Recordset& stored = bench.Data().ChecklistForEstimate(bench.Number());
  for (; !stored.Eof(); stored.MoveNext()) rows.push_back(stored.Text("ChecklistData"));
  stored.Close();
  return BesideEntries(bench.shop.records.checkList, rows);
}

bool AnyTicked(const std::vector<ChecklistItem>& items) {
  return std::any_of(items.begin(), items.end(), [](const ChecklistItem& item) { return item.Used; });
}

StoredChecklist Load(Workbench& bench, Strangers strangers = Strangers::Told) {
  CheckListTable& table = bench.shop.records.checkList;
  table.ClearCheckListValues();
  StoredChecklist stored = Stored(bench);
  table.items = stored.items;
  table.ChecklistLoaded = AnyTicked(stored.items) || !stored.strangers.empty();
  if (strangers == Strangers::Unsaid) return stored;
  for (const StoredChecklist::Stranger& stranger : stored.strangers) {
    bench.shop.desktop.Tell("Couldn't locate " + stranger.Name() + " in checklist.  Item skipped.",
                            "LoadCheckListValues");
  }
  return stored;
}

void Save(Workbench& bench, const StoredChecklist& loaded, const std::string& title) {
  CheckListTable& table = bench.shop.records.checkList;
  ChecklistMerge merge(loaded, table.items);
  const auto replace = [&] {
    const std::vector<std::string> rows = merge.Merged(Stored(bench));
    bench.Data().DeleteChecklist(bench.Number());
    for (const std::string& row : rows) bench.Data().AddChecklistRow(bench.Number(), row);
  };
  merge.Store(bench.shop.desktop, title, [&] { bench.Data().Connection().Together(replace); });
  if (!merge.HasTakenAny()) return;
  table.items = merge.Items();
  table.ChecklistLoaded = std::any_of(table.items.begin(), table.items.end(),
                                      [](const ChecklistItem& item) { return item.IsCategory() && item.Used; });
}

}  // namespace

void LoadEstimateChecklist(Workbench& bench, Strangers strangers) { Load(bench, strangers); }

void EstimateChecklist(Workbench& bench) {
  const StoredChecklist loaded = Load(bench);
  frmWOChklst form(bench.shop);
  form.StoreBy({[&] { Save(bench, loaded, form.Caption()); }, [] { return std::string("The checklist"); }});
  form.ShowModal();
}

}  // namespace lantos
