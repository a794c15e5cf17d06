#include "history/DetailLines.h"

#include <algorithm>
#include <utility>

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "workorders/WorkorderFields.h"
#include "workorders/WorkorderSums.h"

namespace lantos {

namespace {

constexpr const char* kIndent = "     ";
constexpr const char* kCheckIndent = "    ";
constexpr const char* kCheckRule = "______________";
constexpr std::size_t kCheckName = 30;
constexpr std::size_t kMoney = 10;  // "######0.00"
constexpr std::size_t kHours = 7;   // "###0.00"
constexpr std::size_t kQuantity = 6;
constexpr std::size_t kDate = 10;

std::string Money(std::int64_t cents, std::size_t width = kMoney) {
  return RightJustify(FormatHundredths(cents), width);
}

// By bytes, of which each is a character. A longer text stays whole.
std::string Padded(std::string_view text, std::size_t width) { return LeftJustify(text, std::max(text.size(), width)); }

std::string MethodName(const PaymentMethodTable& names, std::uint8_t method) {
  return method < names.size() ? Trim(names[method]) : std::string();
}

std::string DateOrBlank(FileDate date) { return date < 1 ? std::string() : FormatDate(FromFileDate(date)); }

// Groups are opened by their first line.
class Composer {
 public:
  void Begin(const char* heading) { heading_ = heading; }
  void Add(const std::string& line) { Add(line, line); }
  void AddWithCost(const std::string& line, Cents cost) { Add(line, line + " " + Money(cost)); }
  DetailLines Take() { return std::move(lines_); }

 private:
  void Add(std::string line, std::string withCost) {
    if (const char* heading = std::exchange(heading_, nullptr)) Add(heading, heading);
    lines_.plain.push_back(std::move(line));
    lines_.withCost.push_back(std::move(withCost));
  }

  const char* heading_ = nullptr;
  DetailLines lines_;
};

void AddParts(const Workorder& workorder, Composer& lines) {
  lines.Begin("____Parts____");
  workorder.Parts.ForEach([&](const WoPartLine& part) {
    const std::int64_t extension = std::int64_t{part.Quantity} * part.Price;
    lines.AddWithCost(Padded(part.PartNumber, WoPartLine::kNumberWidth - 1) + " " +
                          Padded(part.Description, WoPartLine::kDescriptionWidth - 1) + " " +
                          RightJustify(std::to_string(part.Quantity), kQuantity) + " " + Money(part.Price) + " " +
                          Money(extension),
                      part.Cost);
  });
}

// By miles, by days, or on a day alone. Empty for none.
std::string FollowupOf(const WoLaborLine& labor) {
  const std::string date = DateOrBlank(labor.FollowupDate);
  std::string text = std::string(kIndent) + "Followup ";
  if (labor.FollowupMiles > 0) {
    text += "in " + std::to_string(labor.FollowupMiles) + " miles" + (date.empty() ? "" : " on " + date);
  } else if (labor.FollowupDays > 0) {
    text += "in " + std::to_string(labor.FollowupDays) + " days" + (date.empty() ? "" : "  on " + date);
  } else {
    text = date.empty() ? std::string() : text + "on " + date;
  }
  return text;
}

void AddLabor(const Workorder& workorder, Composer& lines) {
  lines.Begin("____Labor____");
  workorder.Labor.ForEach([&](const WoLaborLine& labor) {
    lines.Add(FormatZeros(labor.Mechanic, 6) + " " + Money(labor.Hours, kHours) + " " + Money(labor.Rate) + " " +
              Money(labor.Total) + "  " + Trim(labor.Desc[0]));
    for (std::size_t i = 1; i < labor.Desc.size(); ++i) {
      if (!TrimView(labor.Desc[i]).empty()) lines.Add(kIndent + labor.Desc[i]);
    }
    if (const std::string followup = FollowupOf(labor); !followup.empty()) lines.Add(followup);
  });
}

// The lines of a text that are joined by their mark, each not blank.
template <class Use>
void ForEachLine(std::string_view text, Use use) {
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(wotext::kLineMark), text.size());
    if (const std::string_view line = TrimView(text.substr(0, end)); !line.empty()) use(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

void AddExtras(const char* heading, const WoLines<WoExtraLine>& extras, Composer& lines) {
  lines.Begin(heading);
  extras.ForEach([&](const WoExtraLine& extra) {
    const std::string_view invoice = TrimView(extra.Vendor) == kSurchargeVendor ? "" : std::string_view(extra.Invoice);
    lines.AddWithCost(Padded(extra.Vendor, WoExtraLine::kVendorWidth - 1) + " " +
                          Padded(invoice, WoExtraLine::kInvoiceWidth - 1) + " " + Money(extra.Price),
                      extra.Cost);
    ForEachLine(extra.Description, [&](std::string_view line) { lines.Add(kIndent + std::string(line)); });
  });
}

void AddCredits(const Workorder& workorder, Composer& lines) {
  lines.Begin("____Credits____");
  workorder.Credits.ForEach([&](const WoCreditLine& credit) {
    lines.Add(Money(credit.Amount));
    for (const std::string& text : credit.Text) {
      if (!TrimView(text).empty()) lines.Add(kIndent + text);
    }
  });
}

void AddPayments(const Workorder& workorder, const PaymentMethodTable& methods, Composer& lines) {
  lines.Begin("____Payments/Charges____");
  const auto add = [&](const std::string& date, const std::string& type, Cents amount) {
    lines.Add(Padded(date, kDate) + "  " + Padded(type, kPaymentMethodWidth) + " " + Money(amount));
  };
  const WoTotals& totals = workorder.Totals;
  const std::string method = MethodName(methods, totals.Get(wototals::PaymentMethod));
  if (method == kSplitPayment) {
    for (std::size_t i = 0; i < wototals::kSplits; ++i) {
      const Cents amount = totals.Get(wototals::SplitAmount(i));
      if (amount == 0) continue;
      add(DateOrBlank(totals.Get(wototals::SplitDate(i))), MethodName(methods, totals.Get(wototals::SplitType(i))),
          amount);
    }
    return;
  }
  // Nothing is paid yet on an open one, unless it says how, and nothing on one that came to nothing.
  const bool isOpen = workorder.Status == kWoStatusTexts[static_cast<std::size_t>(WoStatus::Open)];
  const Cents total = totals.Get(wototals::WorkorderTotal);
  if (method.empty() && (isOpen || total == 0)) return;
  add(isOpen ? std::string() : DateOrBlank(totals.Get(wototals::DatePaid)), method, total);
}

void AddNotes(const Workorder& workorder, Composer& lines) {
  lines.Begin("____Notes____");
  for (const WoNote& note : workorder.Notes) {
    std::size_t used = note.size();
    while (used > 0 && TrimView(note[used - 1]).empty()) --used;
    for (std::size_t i = 0; i < used; ++i) lines.Add(note[i]);
  }
}

void AddCheckList(const CheckListTable& checkList, Composer& lines) {
  lines.Begin("____Checklist____");
  if (!checkList.ChecklistLoaded) return;
  for (const ChecklistItem& item : checkList.items) {
    if (!item.Used) continue;
    if (item.IsCategory()) {
      lines.Add(kCheckRule);
      lines.Add(item.Name);
      continue;
    }
    std::string line = kCheckIndent + Padded(item.Name, kCheckName) + " " + item.Service;
    if (!item.DueBackMiles.empty()) line += "  " + item.DueBackMiles;
    lines.Add(line.substr(0, line.find_last_not_of(' ') + 1));
  }
}

void AddDiscount(const WoTotals& totals, Composer& lines) {
  lines.Begin("____Discount____");
  if (HasDiscount(totals)) lines.Add(DiscountText(totals));
}

}  // namespace

DetailLines ComposeDetail(const Workorder& workorder, const CheckListTable& checkList,
                          const PaymentMethodTable& methods) {
  Composer lines;
  AddParts(workorder, lines);
  AddLabor(workorder, lines);
  AddExtras("____Sublets____", workorder.Sublets, lines);
  AddExtras("____Waste/Misc____", workorder.Waste, lines);
  AddCredits(workorder, lines);
  AddPayments(workorder, methods, lines);
  AddNotes(workorder, lines);
  AddCheckList(checkList, lines);
  AddDiscount(workorder.Totals, lines);
  return lines.Take();
}

}  // namespace lantos
