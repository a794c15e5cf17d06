// What an estimate holds, as it stands in the work order.
#include "workorders/OrderFilling.h"

#include "WorkorderBench.h"

namespace lantos::test {
namespace {

constexpr DaySerial kDay = 37896;  // Thursday, 2 October 2003

class OrderFillingTest : public WorkorderBench {
 protected:
  OrderFillingTest() {
    EmployeeRecord mechanic;
    mechanic.Put(employee::EmpNumber, 4);
    mechanic.Put(employee::Wage, 2450);
    mechanic.Put(employee::WagePeriod, 1);
    mechanic.Put(employee::CommissionPeriod, 1);
    mechanic.Put(employee::Commission, 55000);
    records.employees.SetEmployees({mechanic});
    system.Put(sysrec::tax_rate_parts, 82500);
    system.Put(sysrec::tax_rate_labor, 57500);
    system.Put(sysrec::tax_rate_sublet, 60000);
    system.Put(sysrec::tax_rate_waste, 10000);
  }
  static WoLaborLine Labor(Hundredths hours, Cents total, std::int32_t mechanic = 4) {
    WoLaborLine line;
    line.Mechanic = mechanic;
    line.Hours = hours;
    line.Rate = 8500;
    line.Total = total;
    line.Desc[0] = std::string(70, 'x');
    return line;
  }
  static de::Extra Extra(Cents price, const std::string& taxable) {
    de::Extra line;
    line.VendorName = "Millbrook Machine and Foundry Works";
    line.VendorInvoice = "12345678901";
    line.Cost = price / 2;
    line.Price = price;
    line.Desc1 = "one";
    line.Desc3 = "three";
    line.Taxable = taxable;
    return line;
  }
  Cents Total(LongField field) const { return order.Totals.Get(field); }

  SystemRecord system;
  Workorder order;
  OrderFilling filling{order, records.employees};
};

TEST_F(OrderFillingTest, ACustomerIsTakenWholeAndOneWithoutASalespersonHasNone) {
  CustomerRecord customer;
  customer.Put(customer::Number, 7);
  customer.Put(customer::Comment, "knows the owner");
  filling.TakeCustomer(customer);
  EXPECT_EQ(order.Customer.Get(customer::Comment), "knows the owner");
  EXPECT_EQ(order.Customer.Get(customer::salesperson), "None");
  customer.Put(customer::salesperson, "Zoe Young");
  filling.TakeCustomer(customer);
  EXPECT_TRUE(order.Customer == customer);
}

TEST_F(OrderFillingTest, TheHeaderIsAnOpenRepairOfTheEstimatesDay) {
  CustomerRecord customer;
  customer.Put(customer::pricing_level, 1);
  filling.TakeCustomer(customer);
  filling.TakeHeader(kDay, system);
  EXPECT_EQ(order.Status, "OPEN");
  EXPECT_EQ(order.Type, "Repair");
  EXPECT_EQ(order.Pricing, "Wholesale");
  EXPECT_EQ(Total(wototals::DateOpen), ToFileDate(kDay));
  EXPECT_EQ(Total(wototals::TaxRate[0]), 82500);
  EXPECT_EQ(Total(wototals::TaxRate[1]), 57500);
  EXPECT_EQ(Total(wototals::TaxRate[2]), 60000);
  EXPECT_EQ(Total(wototals::TaxRate[3]), 10000);
}

TEST_F(OrderFillingTest, ACustomerWithATaxNumberIsChargedNone) {
  CustomerRecord customer;
  customer.Put(customer::tax_id_number, "EX-1");
  filling.TakeCustomer(customer);
  filling.TakeHeader(kDay, system);
  for (const LongField rate : wototals::TaxRate) EXPECT_EQ(Total(rate), 0);
}

TEST_F(OrderFillingTest, APriceLevelThatIsNoneIsRetail) {
  for (const std::int16_t level : std::initializer_list<std::int16_t>{-1, 4, 32767}) {
    CustomerRecord customer;
    customer.Put(customer::pricing_level, level);
    filling.TakeCustomer(customer);
    filling.TakeHeader(kDay, system);
    EXPECT_EQ(order.Pricing, "Retail") << level;
  }
}

TEST_F(OrderFillingTest, APartIsCutToItsFieldsAndAddsUp) {
  filling.TakeHeader(kDay, system);
  de::Part part{std::string(25, 'P'), std::string(50, 'd'), 3, 1000, 99, 400, 1500};
  const WoPartLine line = filling.TakePart(part);
  EXPECT_EQ(line.PartNumber, std::string(20, 'P'));
  EXPECT_EQ(line.Description, std::string(38, 'd'));
  EXPECT_EQ(line.Quantity, 3);
  EXPECT_EQ(line.List, 1500);
  EXPECT_EQ(order.Parts[0].PartNumber, line.PartNumber);
  EXPECT_EQ(Total(wototals::Cost[0]), 1200);
  EXPECT_EQ(Total(wototals::Subtotal[0]), 3000) << "by the price, not by the estimate's total";
  EXPECT_EQ(Total(wototals::WorkorderTax), 248);
  EXPECT_EQ(Total(wototals::WorkorderTotal), 3248);
}

TEST_F(OrderFillingTest, AQuantityOrAmountThatNoFieldHoldsIsAnError) {
  EXPECT_THROW(filling.TakePart({"A", "", 40000, 1, 0, 0, 0}), std::overflow_error);
  EXPECT_THROW(filling.TakePart({"A", "", -32769, 1, 0, 0, 0}), std::overflow_error);
  EXPECT_THROW(filling.TakePart({"A", "", 32767, 100000, 0, 0, 0}), std::overflow_error);
  EXPECT_THROW(filling.TakePart({"A", "", 32767, 0, 0, 100000, 0}), std::overflow_error);
}

TEST_F(OrderFillingTest, LaborHasTheDayTheCommissionAndItsCost) {
  filling.TakeHeader(kDay, system);
  filling.TakeLabor(Labor(150, 12750));
  ASSERT_EQ(order.Labor.Size(), 2u);
  const WoLaborLine& line = order.Labor[0];
  EXPECT_EQ(line.Date, "10/02/2003");
  EXPECT_EQ(line.Commission, 55000);
  EXPECT_EQ(line.Desc[0], std::string(63, 'x'));
  EXPECT_EQ(Total(wototals::Cost[1]), 4376);  // 1.5 x (24.50 + 5.5 % of 85.00)
  EXPECT_EQ(Total(wototals::Subtotal[1]), 12750);
  EXPECT_EQ(Total(wototals::WorkorderTax), 733);
}

TEST_F(OrderFillingTest, HoursAppliedEarlierStayBehindAndNoHoursCome) {
  filling.TakeLabor(Labor(-1, 500));
  EXPECT_EQ(order.Labor.Size(), 1u) << "the sentinel";
  EXPECT_EQ(Total(wototals::WorkorderTotal), 0);
  filling.TakeLabor(Labor(0, 500, 0));
  EXPECT_EQ(order.Labor.Size(), 2u);
  EXPECT_EQ(order.Labor[0].Commission, 0);
  EXPECT_EQ(Total(wototals::Cost[1]), 0);
}

TEST_F(OrderFillingTest, SubletsAndWasteAreTotalledAndTaxedAsSublets) {
  filling.TakeHeader(kDay, system);
  filling.TakeSublet(Extra(1000, "Yes"));
  filling.TakeWaste(Extra(2000, "Yes"));
  filling.TakeWaste(Extra(400, "No"));
  EXPECT_EQ(Total(wototals::Subtotal[2]), 3000);
  EXPECT_EQ(Total(wototals::Subtotal[4]), 400);
  EXPECT_EQ(Total(wototals::Subtotal[3]), 0);
  EXPECT_EQ(Total(wototals::Cost[2]), 1500);
  EXPECT_EQ(Total(wototals::Cost[4]), 200);
  EXPECT_EQ(Total(wototals::WorkorderTax), 180);
  EXPECT_EQ(order.Sublets.Size(), 2u);
  EXPECT_EQ(order.Waste.Size(), 3u);
  const WoExtraLine& line = order.Sublets[0];
  EXPECT_EQ(line.Vendor, "Millbrook Machine and Foundry W");
  EXPECT_EQ(line.Invoice, "1234567890");
  EXPECT_EQ(line.Description, "one\t\tthree\t");
  EXPECT_EQ(line.Taxable, 'Y');
}

TEST_F(OrderFillingTest, OnlyACapitalYAtTheBeginningIsTaxable) {
  for (const char* text : {"", "No", "yes", " Yes"}) filling.TakeSublet(Extra(100, text));
  EXPECT_EQ(Total(wototals::Subtotal[2]), 0);
  EXPECT_EQ(Total(wototals::Subtotal[4]), 400);
  EXPECT_EQ(order.Sublets[0].Taxable, ' ');
}

TEST_F(OrderFillingTest, ThirtyNotesFit) {
  for (std::size_t i = 0; i < kMaxNotes; ++i) filling.TakeNote({"note " + std::to_string(i)});
  EXPECT_EQ(order.Notes[29][0], "note 29");
  EXPECT_THROW(filling.TakeNote({"one more"}), std::out_of_range);
}

}  // namespace
}  // namespace lantos::test
