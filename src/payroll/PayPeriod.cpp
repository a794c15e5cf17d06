#include "payroll/PayPeriod.h"

#include <algorithm>

namespace lantos {

namespace {

template <class Matches>
const PayPeriod* Find(Matches matches) {
  const auto* found = std::find_if(std::begin(kPayPeriods), std::end(kPayPeriods), matches);
  return found == std::end(kPayPeriods) ? nullptr : found;
}

}  // namespace

const PayPeriod* FindPayPeriod(std::uint8_t code) {
  return Find([code](const PayPeriod& period) { return period.code == code; });
}

const PayPeriod* FindPayPeriod(std::string_view inFile) {
  return Find([inFile](const PayPeriod& period) { return period.inFile == inFile; });
}

PayKind PayKindOf(const PayRecord& record) {
  if (record.Get(payrecord::WagePeriod) > 0) return PayKind::Hourly;
  if (record.Get(payrecord::SalaryPeriod) > 0) return PayKind::Salaried;
  if (record.Get(payrecord::CommissionPeriod) > 0) return PayKind::Commission;
  return PayKind::None;
}

std::uint8_t PayPeriodOf(const PayRecord& record) {
  switch (PayKindOf(record)) {
    case PayKind::Hourly:
      return record.Get(payrecord::WagePeriod);
    case PayKind::Salaried:
      return record.Get(payrecord::SalaryPeriod);
    case PayKind::Commission:
      return record.Get(payrecord::CommissionPeriod);
    case PayKind::None:
      break;
  }
  return 0;
}

const PayPeriod* OnlyPayPeriodOf(const PayRecord& record) {
  const std::uint8_t code = PayPeriodOf(record);
  for (const ByteField field : {payrecord::WagePeriod, payrecord::SalaryPeriod, payrecord::CommissionPeriod}) {
    const std::uint8_t other = record.Get(field);
    if (other > 0 && other != code) return nullptr;
  }
  return FindPayPeriod(code);
}

}  // namespace lantos
