#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "payroll/PayRows.h"
#include "records/modEmployees.h"

namespace lantos {

enum class StubNumber { Left, Shown };  // the social security number: left out, or there

// What a stub is composed of. The figures are those of the list, to the letter.
struct PayStub {
  std::string_view company;
  DaySerial today;
  const EmployeeRecord& employee;
  const PayRecord& pay;
  const std::vector<PayRow>& rows;  // all of the list
  const PayRow& row;                // the one that is printed
  StubNumber number;
};

struct StubLine {
  std::string text;
  std::string atRightEdge = {};
  bool operator==(const StubLine&) const = default;
};
std::vector<StubLine> ComposePayStub(const PayStub& stub);

// "###,##0.00" of an amount in "0.00"; an empty one stays empty.
std::string WithThousands(std::string_view amount);

}  // namespace lantos
