#include "admin/frmPrintOptions.h"

#include <cmath>

#include "frame/Text.h"

namespace lantos {

struct frmPrintOptions::Switch {
  ui::CheckBox frmPrintOptions::*box;
  bool PrintOptions::*option;
};
struct frmPrintOptions::Number {
  ui::TextBox frmPrintOptions::*box;
  std::int16_t PrintOptions::*option;
  std::string_view meaning;
  int lowest;
  int highest;
  bool emptyIsZero;
};

const frmPrintOptions::Switch frmPrintOptions::kSwitches[] = {
    {&frmPrintOptions::optCustW, &PrintOptions::PrintCustomerOnWorksheet},
    {&frmPrintOptions::optCommW, &PrintOptions::PrintCommentsOnWorksheet},
    {&frmPrintOptions::optNoteW, &PrintOptions::PrintNotesOnWorksheet},
    {&frmPrintOptions::optVehW, &PrintOptions::PrintVehSummaryOnWorksheet},
    {&frmPrintOptions::optDisclosure, &PrintOptions::PrintDisclosure},
    {&frmPrintOptions::optPreviewWS, &PrintOptions::PreviewWorksheet},
    {&frmPrintOptions::optPreviewEst, &PrintOptions::PreviewEstimate},
    {&frmPrintOptions::optShowDialog, &PrintOptions::ShowPrinterDialog},
    {&frmPrintOptions::optPartOnEst, &PrintOptions::ShowPartNumbersOnEst},
};
const frmPrintOptions::Number frmPrintOptions::kNumbers[] = {
    {&frmPrintOptions::txtVehSummaryYears, &PrintOptions::VehSummaryYears, "Years of history to include", 0, INT16_MAX,
     false},
    {&frmPrintOptions::txtVehSummaryLaborLines, &PrintOptions::VehSummaryLaborLines, "Labor lines to print", 1, 8,
     false},
    {&frmPrintOptions::txtLaborLines, &PrintOptions::BlankLinesPerLabor, "Blank Lines per Labor on WS", 0, INT16_MAX,
     true},
    {&frmPrintOptions::txtPartLines, &PrintOptions::BlankPartLines, "Blank Part lines on Worksheet", 0, INT16_MAX,
     true},
};

frmPrintOptions::frmPrintOptions(Shop& shop)
    : SizedForm(shop.desktop, shop.keys, shop.environment.settings, "frmPrintOptions", "Print Options"), shop_(shop) {
  SetDesignedSize(6300, 6150);
  for (const Number& number : kNumbers) {
    (this->*number.box).SetMaxLength(5);
    numbers_.Add(this->*number.box, std::string(number.meaning), NumberFields::Read::Whole);
  }
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  UseButtons(cmdSave, cmdCancel);
}

void frmPrintOptions::OnLoad() {
  SizedForm::OnLoad();
  const PrintOptions& options = shop_.environment.printOptions;
  for (const Switch& item : kSwitches) (this->*item.box).SetValue(options.*item.option);
  for (const Number& number : kNumbers) (this->*number.box).SetText(std::to_string(options.*number.option));
}

void frmPrintOptions::Accept() {
  PrintOptions options = shop_.environment.printOptions;
  for (const Switch& item : kSwitches) options.*item.option = (this->*item.box).Value();
  for (const Number& number : kNumbers) {
    if (!Take(number, options)) return;
  }
  shop_.environment.printOptions = options;
  ok = true;
  Hide();
}

bool frmPrintOptions::Take(const Number& number, PrintOptions& options) {
  ui::TextBox& box = this->*number.box;
  const std::string text = Trim(box.Text());
  if (text.empty() && number.emptyIsZero) {
    options.*number.option = 0;
    return true;
  }
  const double value = IsNumeric(text) ? ToNumber(text) : -1;
  if (value != std::trunc(value) || value < number.lowest || value > number.highest) {
    shop_.desktop.Tell("\"" + std::string(number.meaning) + "\" must be a whole number from " +
                           std::to_string(number.lowest) + " to " + std::to_string(number.highest) + ".",
                       Caption(), ui::Icon::Exclamation);
    box.SetFocus();
    return false;
  }
  options.*number.option = static_cast<std::int16_t>(value);
  return true;
}

void frmPrintOptions::Cancel() {
  ok = false;
  Hide();
}

}  // namespace lantos
