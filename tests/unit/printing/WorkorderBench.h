#pragma once

#include <initializer_list>

#include "frame/Dates.h"
#include "printing/PrintingBench.h"
#include "printing/WorkorderReport.h"

namespace lantos::test {

// Work order 4711 of today, open and empty, in a shop with a disclaimer.
class WorkorderOnPaper : public testing::Test, protected TestShop {
 protected:
  WorkorderOnPaper() {
    directory.Put("DISCLAIM.TXT", "As is.");
    order.WorkorderNumber = 4711;
    order.Status = "OPEN";
    order.Type = "Repair";
    order.Totals.Put(wototals::DateOpen, ToFileDate(Today()));
  }

  ui::Report Make() { return WorkorderReport(environment, records.system.SysRec).Make(order); }
  Rows Lines() { return Make().lines; }
  // Without the balance, which is the last of a paper without notes, recommendations and discount.
  Rows LinesAheadOfBalance() {
    Rows lines = Lines();
    EXPECT_EQ(lines.back()[4], "Balance:");
    lines.pop_back();
    return lines;
  }
  void SetTotal(Cents total) {
    order.Totals.Put(wototals::WorkorderTotal, total);
    order.AmountDue = total;
  }
  void SetMethod(std::string_view name) { order.Totals.Put(wototals::PaymentMethod, IndexOf(name)); }
  void AddSplit(std::size_t row, std::string_view type, Cents amount, DaySerial day) {
    order.Totals.Put(wototals::SplitType(row), IndexOf(type));
    order.Totals.Put(wototals::SplitAmount(row), amount);
    order.Totals.Put(wototals::SplitDate(row), day == 0 ? 0 : ToFileDate(day));
    order.AmountDue -= amount;
  }
  static WoLaborLine Labor(std::initializer_list<std::string> lines) {
    WoLaborLine labor;
    std::copy(lines.begin(), lines.end(), labor.Desc.begin());
    return labor;
  }
  static std::vector<std::string> TextRow(const std::string& text) { return {text, "", "", "", "", ""}; }
  static std::vector<std::string> Balance(const std::string& amount) { return {"", "", "", "", "Balance:", amount}; }

  Workorders workorders{environment, desktop, records};
  Workorder& order = workorders.Current;

 private:
  std::uint8_t IndexOf(std::string_view name) const {
    const PaymentMethodTable& names = environment.shopOptions.PaymentMethodNames;
    return static_cast<std::uint8_t>(std::find(names.begin(), names.end(), name) - names.begin());
  }
};

}  // namespace lantos::test
