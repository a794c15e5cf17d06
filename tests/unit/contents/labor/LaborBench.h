#pragma once

#include <string>
#include <vector>

#include "contents/ContentsBench.h"
#include "contents/labor/frmLabor.h"
#include "records/Fixture.h"
#include "records/modSystem.h"

namespace lantos::test {

// A shop of two technicians: Dan (4) and Eve (5), who has left. Its rate is 65.00.
struct LaborBench : ContentsBench {
  LaborBench() {
    directory.Put("TQEMPLOY.DAT", Image()
                                      .Append(EmployeeImage(4, "Dan Ortiz").Integer(155, 1).Long(156, 30000))
                                      .Append(EmployeeImage(5, "Eve Gone").Long(138, 12000)));
    records.system.SysRec.Put(sysrec::shop_rate, 6500);
  }

  void Store(std::int32_t number, Hundredths hours, Cents total, const std::string& text) {
    database.lantosData.AddLabor(1001, number, text, hours, 6500, total, 4);
  }
  // "number|text|hours|rate|total|mechanic" of what lies in the database.
  std::vector<std::string> Stored() {
    std::vector<std::string> rows;
    Recordset& labor = database.lantosData.LaborForEstimate(1001);
    for (; !labor.Eof(); labor.MoveNext()) {
      std::string row = labor.Text("LaborNumber") + "|" + labor.Text("Description");
      for (const char* column : {"LaborHours", "LaborRate", "LaborTotal", "Mechanic"}) row += "|" + labor.Text(column);
      rows.push_back(row);
    }
    labor.Close();
    return rows;
  }
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (const ui::ListRow& row : board.listLabor.Rows()) rows.push_back(std::to_string(row.data) + " " + row.text);
    return rows;
  }
  // What the person does in the labor screen that comes next.
  void WillWork(const std::function<void(frmLabor&)>& work) {
    desktop.WillUse([work](ui::Form& form) { work(dynamic_cast<frmLabor&>(form)); });
  }
  void WillType(const std::string& hours, const std::string& text) {
    WillWork([=](frmLabor& form) {
      Type(form.Hours, hours);
      Type(form.txtDesc, text);
      Press(form, "F10");
    });
  }
};

}  // namespace lantos::test
