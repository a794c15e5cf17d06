#include "board/DayLines.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/LaborText.h"

namespace lantos {

namespace {

constexpr std::string_view kUnknownCustomer = "CUSTOMER,UNKNOWN";
constexpr std::size_t kNameWidth = 32;
constexpr std::size_t kPhonesWidth = 40;
constexpr std::size_t kVehicleWidth = 32;
constexpr std::size_t kHoursWidth = 7;
const std::string kIndent(7, ' ');

// A lone home or other phone keeps the blank of the joint in front of it; the next joint trims it away.
std::string Phones(const CustomerRecord& customer) {
  std::string phones;
  const std::string work = customer.Get(customer::WorkPhone);
  const std::string extension = customer.Get(customer::WorkExt);
  if (!work.empty()) phones = "W:" + work + (extension.empty() ? "" : "x" + extension);
  const std::string home = customer.Get(customer::HomePhone);
  if (!home.empty()) phones = Trim(phones) + " H:" + home;
  const std::string other = customer.Get(customer::OtherPhone);
  if (!other.empty()) phones = Trim(phones) + " O:" + other;
  return phones;
}

}  // namespace

std::string ListedName(const CustomerRecord* customer) {
  if (customer == nullptr) return std::string(kUnknownCustomer);
  std::string name(customer->View(customer::Lastname));
  name += ',';
  name += customer->View(customer::Firstname);
  return Left(name, kNameWidth);
}

std::string MainLine(const Estimate& estimate, const CustomerRecord* customer) {
  const std::string phones = customer == nullptr ? "" : Phones(*customer);
  const std::string vehicle = estimate.VehYear + " " + estimate.VehMake + " " + estimate.VehModel;
  return FormatZeros(estimate.EstimateNumber, 6) + " " + LeftJustify(ListedName(customer), kNameWidth) + " " +
         LeftJustify(phones, kPhonesWidth) + " " + LeftJustify(vehicle, kVehicleWidth) + " " +
         RightJustify(FormatHundredths(estimate.TotalHours), kHoursWidth);
}

std::string CommentLine(const Estimate& estimate) {
  const std::string comments = Trim(estimate.Comments);
  return comments.empty() ? "" : " ----> " + comments;
}

std::string StatusLine(const Estimate& estimate, std::string_view word) {
  return kIndent + "Created on " + FormatDate(estimate.CreateDate) + ", Scheduled for " +
         FormatDate(estimate.SchedDate) + ", Status = " + std::string(word);
}

std::string LaborLine(const Recordset& labor) {
  const std::string description = labor.IsNull("Description") ? "<No description>" : labor.Text("Description");
  return kIndent + FormatZeros(labor.Long("Mechanic"), 6) + " " + FormatHundredths(labor.Long("LaborHours")) + " " +
         FormatHundredths(labor.Long("LaborRate")) + " " + FormatHundredths(labor.Long("LaborTotal")) + " " +
         SplitLaborText(description).front();
}

}  // namespace lantos
