#pragma once

#include "frame/Environment.h"
#include "shopmaker/SampleVisitLines.h"
#include "workorders/OrderFilling.h"

namespace lantos::sample {

// Turns planned visits into whole work orders, always the same one for a visit: filled as a conversion fills it, then
// brought to where the visit stands by now.
class PastOrders {
 public:
  PastOrders(const SampleShop& shop, const ShopOptions& options, modEmployees& employees)
      : shop_(shop), methods_(options.PaymentMethodNames), employees_(employees), crew_(shop), lines_(shop, crew_) {}

  void Make(const SampleWorkorder& order, Workorder& workorder);

 private:
  VehicleRecord VehicleThen(const SampleWorkorder& order) const;
  void PutProgress(Random& random, const SampleWorkorder& order, Workorder& workorder) const;
  void PutDiscount(Random& random, const SampleWorkorder& order, Workorder& workorder) const;
  static void TakeLines(const SampleEstimate& from, OrderFilling& filling);
  void RecommendService(Random& random, const SampleWorkorder& order, Workorder& workorder) const;
  static void AddCredit(Random& random, Workorder& workorder);
  void PutPayment(Random& random, const SampleWorkorder& order, Workorder& workorder) const;
  void PutSplit(WoTotals& totals, std::size_t row, std::string_view method, Cents amount, DaySerial day) const;
  std::uint8_t MethodIndex(std::string_view name) const;

  const SampleShop& shop_;
  const PaymentMethodTable methods_;
  modEmployees& employees_;
  const Crew crew_;
  const VisitLines lines_;
};

}  // namespace lantos::sample
