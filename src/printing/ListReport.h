#pragma once

#include <string>

#include "printing/ReportLines.h"
#include "records/modSystem.h"
#include "ui/Report.h"

namespace lantos {

struct AmountHeadings {
  const char* amount1;
  const char* amount2;
  const char* amount3;
};

// A list of the shop on paper, under its title and with the day it was printed. With headings for the amounts it has
// their three columns, else the lines alone.
ui::Report ListReport(const std::string& title, DaySerial today, const SystemRecord& system, const ReportLines& lines,
                      const AmountHeadings* headings = nullptr);

}  // namespace lantos
