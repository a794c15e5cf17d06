#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "frame/Options.h"
#include "printing/ReportLines.h"
#include "workorders/Workorder.h"

namespace lantos {

// What is still to be paid. A work order that was paid in one piece has nothing left; else it is the amount due.
Cents BalanceOf(const Workorder& order);

// The lines of a work order's paper. Beside each text stand the number of the part or technician, the quantity or the
// hours, the price or rate, the list price, and what it comes to.
class WorkorderBody {
 public:
  WorkorderBody(const Workorder& order, const PaymentMethodTable& methods);

  const ReportLines& Lines() const { return lines_; }
  const std::vector<ui::LineFrame>& Frames() const { return frames_; }

 private:
  void AddParts();
  void AddLabor();
  void AddExtras(const WoLines<WoExtraLine>& extras, const char* heading);
  void AddCredits();
  void AddPayments();
  void AddNotes();
  void AddRecommendations();
  void AddDiscount();

  template <class Line, class Heading, class Print>
  void AddGroup(const WoLines<Line>& group, Heading heading, Print print);
  void AddHeading(const char* text, const char* quantity, const char* price, const char* list, const char* amount);
  void AddText(const std::string& text, std::initializer_list<std::string> columns = {});
  void AddPayment(const std::string& date, const std::string& type, std::int64_t amount);
  std::string MethodName(std::uint8_t index) const;

  const Workorder& order_;
  const PaymentMethodTable& methods_;
  ReportLines lines_{ReportLines::Amounts::Five};
  std::vector<ui::LineFrame> frames_;
};

}  // namespace lantos
