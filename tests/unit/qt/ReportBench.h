#pragma once

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <string>
#include <vector>

#include "frame/ScratchDirectory.h"
#include "frame/Text.h"
#include "ui/Report.h"

// A bill to print, and what is read from its PDF.
namespace lantos::test {

// What printers this computer has is none of the tests' business.
inline const bool withoutPrinters = qputenv("CUPS_SERVER", "/none");

inline constexpr std::size_t kWide = 62;  // characters of the first column

// A bill as a repair shop writes it.
inline ui::Report MakeBill(std::size_t lines) {
  ui::Report report;
  report.title = "Bill of Mar\355a L\363pez";
  ui::ReportDesign& design = report.design;
  design.name = "rptBill";
  design.caption = "Bill";
  design.headerHeight = 100;
  design.footerHeight = 62;
  design.characters = kWide;
  design.columns = {{"Text", 0, 0.74, ui::Align::Left, "Description"},
                    {"Hours", 0.75, 0.1, ui::Align::Right, "Hours"},
                    {"Amount", 0.86, 0.14, ui::Align::Right, "Amount"}};
  design.labels = {
      {"lblShop", ui::Band::PageHeader, 0, 0, 0.6, 14, ui::Align::Left, true, false, "Main Street Motors"},
      {"lblAddress", ui::Band::PageHeader, 0, 20, 0.6, 9, ui::Align::Left, false, false, "12 Main Street\rSpringfield"},
      {"", ui::Band::PageHeader, 0.6, 0, 0.4, 14, ui::Align::Right, true, false, "BILL"},
      {"lblCustomer", ui::Band::PageHeader, 0.01, 56, 0.5, 9, ui::Align::Left, false, false,
       "Mar\355a L\363pez\r\n4 Elm Road\r\nSpringfield"},
      {"lblRemark", ui::Band::PageHeader, 0, 100, 1, 8, ui::Align::Left, false, true, "Parts are sold as they are."},
      {"", ui::Band::ReportFooter, 0.66, 10, 0.18, 9, ui::Align::Left, false, false, "Labor\nParts\nTotal"},
      {"lblTotals", ui::Band::ReportFooter, 0.84, 10, 0.15, 9, ui::Align::Right, true, false, "120.00\n80.50\n200.50"},
      {"lblTerms", ui::Band::ReportFooter, 0, 62, 1, 8, ui::Align::Left, false, true,
       "Payment is due at once.\nThank you."}};
  design.boxes = {{ui::Band::PageHeader, 0, 52, 0.52, 42},
                  {ui::Band::PageHeader, 0, 48, 1, 0},
                  {ui::Band::ReportFooter, 0.65, 6, 0.35, 46}};
  for (std::size_t i = 0; i < lines; ++i) {
    report.lines.push_back(
        {fmt::format("{:<20}item {:03}", "REPLACE", i + 1), fmt::format("{}.5", i % 12), fmt::format("{}.00", i * 37)});
  }
  return report;
}

inline std::size_t PagesOf(const ui::Report& report) { return LayOut(report).pages.size(); }

// As many lines as make that many pages.
inline ui::Report MakeBillOfPages(std::size_t pages) {
  std::size_t lines = 0;
  while (PagesOf(MakeBill(lines)) < pages) lines += 10;
  return MakeBill(lines);
}

// The text on each page as it is laid out, read by a program of its own.
inline std::vector<std::string> TextsOf(const std::filesystem::path& pdf) {
  QProcess reader;
  reader.start("pdftotext", {"-layout", "-enc", "UTF-8", QString::fromStdString(pdf.string()), "-"});
  EXPECT_TRUE(reader.waitForFinished());
  EXPECT_EQ(reader.exitCode(), 0);
  std::vector<std::string> pages;
  std::string text = reader.readAllStandardOutput().toStdString();
  for (std::size_t end = text.find('\f'); end != std::string::npos; end = text.find('\f')) {
    pages.push_back(text.substr(0, end));
    text.erase(0, end + 1);
  }
  return pages;
}

inline bool CanReadPdf() { return !QStandardPaths::findExecutable("pdftotext").isEmpty(); }

inline std::size_t CountOf(const std::string& what, const std::string& text) {
  std::size_t count = 0;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) ++count;
  return count;
}

// A page's object says so; the node above the pages is of the type Pages.
inline std::size_t PagesOfPdf(const ScratchDirectory& directory, const std::filesystem::path& pdf) {
  const std::string content = directory.Content(pdf.filename().string());
  return CountOf("/Type /Page", content) - CountOf("/Type /Pages", content);
}

// The column of the page's text where that word begins in each line that has it.
inline std::vector<std::size_t> PlacesOf(const std::string& word, const std::string& page) {
  std::vector<std::size_t> places;
  for (const std::string& line : ui::LinesOf(page)) {
    if (line.find(word) != std::string::npos) places.push_back(line.find(word));
  }
  return places;
}

}  // namespace lantos::test
