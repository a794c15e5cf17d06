#pragma once

#include "records/modSystem.h"
#include "shop/Shop.h"
#include "ui/Report.h"
#include "workorders/Workorders.h"

namespace lantos {

// The paper of a work order, which the customer pays on. Each group of lines is left out when it has none.
class WorkorderReport {
 public:
  WorkorderReport(Environment& environment, const SystemRecord& system) : environment_(environment), system_(system) {}

  // A disclaimer that isn't there is told on the paper; one that can't be read is a FileError.
  ui::Report Make(const Workorder& order) const;

 private:
  void SetLabels(ui::Report& report, const Workorder& order) const;
  static void SetTotals(ui::Report& report, const Workorder& order);
  std::string Disclaimer() const;

  Environment& environment_;
  const SystemRecord& system_;
};

// Which of the main application's styles of a printed work order this is.
constexpr int WorkorderPrintStyle() { return 3; }

// Shows the current one of these work orders as that paper, to be printed from there. Nothing of it is changed.
void PrintWorkorder(Shop& shop, const Workorders& workorders);

}  // namespace lantos
