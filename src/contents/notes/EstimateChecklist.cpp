#include "contents/notes/EstimateChecklist.h"

#include "contents/notes/frmWOChklst.h"
#include "frame/Text.h"
#include "records/CheckList.h"

// The checklist of an estimate: the ticked entries of the table, a row each, "name,service,miles".
namespace lantos {

namespace {

std::string OrBlank(const std::string& value) { return value.empty() ? " " : value; }

std::string ChecklistData(const ChecklistItem& item) {
  return item.Name + "," + OrBlank(item.Service) + "," + OrBlank(item.DueBackMiles);
}

// Quotes nothing: a comma in the service text splits it on the way back.
ChecklistItem ParseChecklistData(std::string_view data) {
  ChecklistItem item;
  if (data.starts_with('[')) {
    const std::size_t end = data.find(']');
    item.Name = std::string(data.substr(0, end == std::string_view::npos ? end : end + 1));
    return item;
  }
  if (data.ends_with(',')) data.remove_suffix(1);
  const auto take = [&data] {
    const std::size_t comma = data.find(',');
    const std::string part(data.substr(0, comma));
    data.remove_prefix(comma == std::string_view::npos ? data.size() : comma + 1);
    return part;
  };
  item.Name = take();
  item.Service = Trim(take());
  item.DueBackMiles = Trim(take());
  return item;
}

void SaveEstimateChecklist(Workbench& bench) {
  for (const ChecklistItem& item : bench.shop.records.checkList.items) {
    if (item.Used) bench.Data().AddChecklistRow(bench.Number(), ChecklistData(item));
  }
}

}  // namespace

void LoadEstimateChecklist(Workbench& bench) {
  CheckListTable& table = bench.shop.records.checkList;
  table.ClearCheckListValues();
  std::vector<std::string> rows;
  Recordset& stored = bench.Data().ChecklistForEstimate(bench.Number());
  for (; !stored.Eof(); stored.MoveNext()) rows.push_back(Trim(stored.Text("ChecklistData")));
  stored.Close();
  table.ChecklistLoaded = !rows.empty();
  for (const std::string& row : rows) {
    const ChecklistItem value = ParseChecklistData(row);
    const int index = table.Find(value.Name);
    if (index < 0) {
      bench.shop.desktop.Tell("Couldn't locate " + value.Name + " in checklist.  Item skipped.", "LoadCheckListValues");
      continue;
    }
    ChecklistItem& item = table.items[static_cast<std::size_t>(index)];
    item.Used = true;
    if (item.IsCategory()) continue;
    item.Service = value.Service;
    item.DueBackMiles = value.DueBackMiles;
  }
}

void EstimateChecklist(Workbench& bench) {
  LoadEstimateChecklist(bench);
  frmWOChklst form(bench.shop);
  const auto replace = [&] {
    bench.Data().DeleteChecklist(bench.Number());
    SaveEstimateChecklist(bench);
  };
  form.StoreBy({[&] { bench.Data().Connection().Together(replace); }, [] { return std::string("The checklist"); }});
  form.ShowModal();
}

}  // namespace lantos
