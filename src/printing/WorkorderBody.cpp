#include "printing/WorkorderBody.h"

#include "frame/Dates.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "workorders/WorkorderSums.h"

namespace lantos {

namespace {

using ui::LineKind;

constexpr const char* kServiceRule = "________________________";
constexpr const char* kDueBackRule = "______________";
constexpr std::size_t kServiceWidth = 26;  // the rule, and what keeps it apart from the next
constexpr const char* kIndent = "     ";

std::string ShortDate(FileDate date) {
  if (date <= 0) return "";
  const std::string whole = FormatDate(FromFileDate(date));
  return Left(whole, 6) + Right(whole, 2);
}

// The day that the payment of the whole belongs to.
FileDate DayOfPayment(const WoTotals& totals) {
  for (const LongField field : {wototals::DatePaid, wototals::DateClosed}) {
    if (totals.Get(field) > 0) return totals.Get(field);
  }
  return totals.Get(wototals::DateOpen);
}

// "in 90 days on 12/29/2003", as far as it is known; empty when nothing is due. Days go before miles.
std::string WhenDue(const WoLaborLine& labor, const char* on) {
  std::string text;
  if (labor.FollowupDays > 0) {
    text = "in " + std::to_string(labor.FollowupDays) + " days";
  } else if (labor.FollowupMiles > 0) {
    text = "in " + std::to_string(labor.FollowupMiles) + " miles";
  }
  if (labor.FollowupDate <= 0) return text;
  return text + (text.empty() ? "" : " ") + on + FormatDate(FromFileDate(labor.FollowupDate));
}

template <class Texts>
std::vector<std::string> NotBlank(const Texts& texts) {
  std::vector<std::string> kept;
  for (const std::string& text : texts) {
    if (!TrimView(text).empty()) kept.push_back(text);
  }
  return kept;
}

std::vector<std::string> DescriptionLines(const std::string& description) {
  std::vector<std::string> lines;
  for (std::size_t start = 0, end = 0; end != std::string::npos; start = end + 1) {
    end = description.find('\t', start);
    lines.push_back(description.substr(start, end == std::string::npos ? end : end - start));
  }
  return NotBlank(lines);
}

}  // namespace

Cents BalanceOf(const Workorder& order) {
  const bool isPaid = Trim(order.Status) == kWoStatusTexts[static_cast<std::size_t>(WoStatus::Paid)];
  const bool hasSplits = order.AmountDue != order.Totals.Get(wototals::WorkorderTotal);
  return isPaid && !hasSplits ? 0 : order.AmountDue;
}

WorkorderBody::WorkorderBody(const Workorder& order, const PaymentMethodTable& methods)
    : order_(order), methods_(methods) {
  AddParts();
  AddLabor();
  AddExtras(order_.Sublets, "____Sublets____");
  AddExtras(order_.Waste, "____Waste/Misc____");
  AddCredits();
  AddPayments();
  AddNotes();
  AddRecommendations();
  AddDiscount();
}

void WorkorderBody::AddParts() {
  AddGroup(
      order_.Parts, [this] { AddHeading("____Parts____", "", "Price", "List", "Ext."); },
      [this](const WoPartLine& part) {
        const std::int64_t extension = static_cast<std::int64_t>(part.Quantity) * part.Price;
        AddText(part.Description, {part.PartNumber, std::to_string(part.Quantity), FormatHundredths(part.Price),
                                   FormatHundredths(part.List), FormatHundredths(extension)});
      });
}

void WorkorderBody::AddLabor() {
  AddGroup(
      order_.Labor, [this] { AddHeading("____Labor____", "Hours", "Rate", "", "Ext."); },
      [this](const WoLaborLine& labor) {
        AddText(labor.Desc[0], {FormatZeros(labor.Mechanic, 6), FormatHundredths(labor.Hours),
                                FormatHundredths(labor.Rate), "", FormatHundredths(labor.Total)});
        for (std::size_t i = 1; i < labor.Desc.size(); ++i) {
          if (!TrimView(labor.Desc[i]).empty()) AddText(labor.Desc[i]);
        }
        if (const std::string due = WhenDue(labor, "on "); !due.empty()) AddText("Followup " + due);
      });
}

void WorkorderBody::AddExtras(const WoLines<WoExtraLine>& extras, const char* heading) {
  AddGroup(
      extras, [&] { AddHeading(heading, "", "", "", "Amount"); },
      [this](const WoExtraLine& extra) {
        AddText(extra.Vendor, {"", "", "", "", FormatHundredths(extra.Price)});
        for (const std::string& line : DescriptionLines(extra.Description)) AddText(line);
      });
}

void WorkorderBody::AddCredits() {
  AddGroup(
      order_.Credits, [this] { AddHeading("____Credits____", "", "", "", "Amount"); },
      [this](const WoCreditLine& credit) {
        const std::vector<std::string> texts = NotBlank(credit.Text);
        AddText(texts.empty() ? "" : texts[0], {"", "", "", "", FormatHundredths(credit.Amount)});
        for (std::size_t i = 1; i < texts.size(); ++i) AddText(texts[i]);
      });
}

void WorkorderBody::AddPayments() {
  const WoTotals& totals = order_.Totals;
  const std::size_t before = lines_.Rows().size();
  const std::string method = MethodName(totals.Get(wototals::PaymentMethod));
  if (method == kSplitPayment) {
    for (std::size_t row = 0; row < wototals::kSplits; ++row) {
      const Cents amount = totals.Get(wototals::SplitAmount(row));
      if (amount == 0) continue;
      if (lines_.Rows().size() == before) AddHeading("____Payments/Charges____", "", "Date   ", "Type", "Amount");
      AddPayment(ShortDate(totals.Get(wototals::SplitDate(row))), MethodName(totals.Get(wototals::SplitType(row))),
                 amount);
    }
  } else if (Trim(order_.Status) != kWoStatusTexts[static_cast<std::size_t>(WoStatus::Open)]) {
    AddHeading("____Payments/Charges____", "", "Date   ", "Type", "Amount");
    AddPayment(ShortDate(DayOfPayment(totals)), method, totals.Get(wototals::WorkorderTotal));
  }
  AddPayment("", "Balance:", BalanceOf(order_));
}

void WorkorderBody::AddNotes() {
  bool any = false;
  for (const WoNote& note : order_.Notes) {
    for (const std::string& line : NotBlank(note)) {
      if (!any) AddHeading("____Notes____", "", "", "", "");
      any = true;
      lines_.AddRow(LineKind::Across, line);
    }
  }
}

// Within a frame of their own: what the customer is to come back for.
void WorkorderBody::AddRecommendations() {
  const std::size_t first = lines_.Rows().size();
  order_.Labor.ForEach([&](const WoLaborLine& labor) {
    const std::string due = WhenDue(labor, "on or about ");
    if (due.empty()) return;
    if (lines_.Rows().size() == first) {
      lines_.AddRow(LineKind::Heading, LeftJustify("  Service", kServiceWidth) + "  Due Back");
      lines_.AddRow(LineKind::Leading, LeftJustify(kServiceRule, kServiceWidth) + kDueBackRule);
      lines_.AddRow(LineKind::Leading, "____Service Recommendations____");
    }
    const std::vector<std::string> texts = NotBlank(labor.Desc);
    lines_.AddRow(LineKind::Across, "Return vehicle " + due + " for" + (texts.empty() ? "" : " " + texts[0]));
    for (std::size_t i = 1; i < texts.size(); ++i) lines_.AddRow(LineKind::Across, kIndent + texts[i]);
  });
  const std::size_t count = lines_.Rows().size() - first;
  if (count > 0) frames_.push_back({first, count});
}

void WorkorderBody::AddDiscount() {
  if (DiscountOf(order_.Totals) != 0) lines_.AddRow(LineKind::Heading, DiscountText(order_.Totals));
}

template <class Line, class Heading, class Print>
void WorkorderBody::AddGroup(const WoLines<Line>& group, Heading heading, Print print) {
  bool any = false;
  group.ForEach([&](const Line& line) {
    if (!any) heading();
    any = true;
    print(line);
  });
  if (any) AddText(" ");
}

void WorkorderBody::AddHeading(const char* text, const char* quantity, const char* price, const char* list,
                               const char* amount) {
  lines_.AddRow(LineKind::Heading, text, {"", quantity, price, list, amount});
}

void WorkorderBody::AddText(const std::string& text, std::initializer_list<std::string> columns) {
  lines_.AddRow(LineKind::Text, text, columns);
}

void WorkorderBody::AddPayment(const std::string& date, const std::string& type, std::int64_t amount) {
  AddText("", {"", "", date, type, FormatHundredths(amount)});
}

// Of a method that the shop hasn't: nothing.
std::string WorkorderBody::MethodName(std::uint8_t index) const {
  return index < methods_.size() ? Trim(methods_[index]) : "";
}

}  // namespace lantos
