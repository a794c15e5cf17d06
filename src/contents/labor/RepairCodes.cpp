#include "contents/labor/RepairCodes.h"

#include "contents/labor/frmRepairCode.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kNewMark = "<New>";

std::string LineOf(std::string_view code, std::string_view description) {
  return LeftJustify(code, kRepairCodeWidth) + " " + std::string(description);
}

}  // namespace

void FillRepairCodes(de2& database, ui::ComboBox& list) {
  list.Clear();
  list.AddItem("N/A");
  list.AddItem("<New> Add a new repair code");
  Recordset& codes = database.RepairCodes();
  for (; !codes.Eof(); codes.MoveNext()) {
    list.AddItem(LineOf(codes.Text("RepairCode"), codes.Text("RepairCodeDesc")));
  }
  codes.Close();
  list.SetListIndex(0);
}

void EditNewRepairCode(Shop& shop, de2& database, ui::ComboBox& list) {
  if (!list.Text().starts_with(kNewMark)) return;
  frmRepairCode form(shop, database);
  form.ShowModal();
  FillRepairCodes(database, list);
  for (int row = 0; form.Saved() && row < list.ListCount(); ++row) {
    if (Trim(Left(list.List(row), kRepairCodeWidth)) == Left(form.Code(), kRepairCodeWidth)) list.SetListIndex(row);
  }
}

}  // namespace lantos
