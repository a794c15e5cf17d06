#include "contents/extras/ExtraLinesForm.h"

#include <algorithm>

#include "contents/extras/frmWOExtra.h"
#include "frame/Numbers.h"
#include "frame/Text.h"
#include "records/Customers.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8700;
constexpr ui::Twips kHeight = 5400;
constexpr std::string_view kFirstText = "--> ";
constexpr std::string_view kOtherText = "    ";

ExtraLine ReadExtra(const Recordset& row) {
  ExtraLine line;
  line.Vendor = Trim(row.Text("VendorName"));
  line.Invoice = Trim(row.Text("VendorInvoice"));
  line.Cost = row.Long("Cost");
  line.Price = row.Long("Price");
  for (std::size_t i = 0; i < line.Desc.size(); ++i) line.Desc[i] = Trim(row.Text("Desc" + std::to_string(i + 1)));
  line.Taxable = Trim(row.Text("Taxable"));
  return line;
}

de::Extra RowOf(const ExtraLine& line) {
  return {line.Vendor,  line.Invoice, line.Cost,    line.Price,  line.Desc[0],
          line.Desc[1], line.Desc[2], line.Desc[3], line.Taxable};
}

// The number row, then one row for each text that isn't empty.
std::vector<std::string> RowsOf(const ExtraLine& line) {
  std::vector<std::string> rows = {line.Vendor + (line.Invoice.empty() ? "" : " (" + line.Invoice + ")") + " " +
                                   FormatHundredths(line.Cost) + " " + FormatHundredths(line.Price)};
  for (const std::string& text : line.Desc) {
    if (!text.empty()) rows.push_back(std::string(rows.size() == 1 ? kFirstText : kOtherText) + text);
  }
  return rows;
}

}  // namespace

ExtraLinesForm::ExtraLinesForm(Workbench& bench, const Words& words)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, words.form,
                std::string("Estimate ") + words.noun + (words.noun == std::string_view("Sublet") ? "s" : "")),
      bench_(bench),
      words_(words) {
  SetDesignedSize(kWidth, kHeight);
}

void ExtraLinesForm::UseList(ui::ListBox& list) {
  list_ = &list;
  list.SetFace(ui::FontFace::FixedPitch);
  list.OnDoubleClick = [this] { Change(); };
}

void ExtraLinesForm::UseCommands(ui::Button& add, ui::Button& change, ui::Button& remove, ui::Button& close) {
  UseButtons(close, close);
  SetDefaultButton(change);
  add.OnClick = [this] { Add(); };
  change.OnClick = [this] { Change(); };
  remove.OnClick = [this] { Remove(); };
  add.SetToolTip("Add <Insert>");
  change.SetToolTip("Change <Enter>");
  remove.SetToolTip("Remove <Delete>");
  close.SetToolTip("Close <Esc>");
}

void ExtraLinesForm::ShowHeader(ui::Label& number, ui::Label& name) {
  const CustomerRecord& customer = bench_.estimate.Customer();
  number.SetCaption(FormatZeros(bench_.Number(), 6));
  name.SetCaption(customer.Get(customer::Firstname) + " " + customer.Get(customer::Lastname));
}

void ExtraLinesForm::OnLoad() {
  SizedForm::OnLoad();
  Recordset& stored = StoredLines();
  for (; !stored.Eof(); stored.MoveNext()) {
    const std::int32_t number = stored.Long(NumberColumn());
    lines_[number] = ReadExtra(stored);
    lastLineNumber_ = std::max(lastLineNumber_, number);
  }
  stored.Close();
  ShowLines(lines_.empty() ? 0 : lines_.begin()->first);
}

void ExtraLinesForm::OnKeyDown(ui::KeyPress& key) {
  if (key.Is("Insert")) {
    key.Clear();
    Add();
  } else if (key.Is("Delete")) {
    key.Clear();
    Remove();
  } else {
    SizedForm::OnKeyDown(key);
  }
}

void ExtraLinesForm::ShowLines(std::int32_t selected) {
  list_->Clear();
  for (const auto& [number, line] : lines_) {
    const int numberRow = list_->ListCount();
    for (std::string& row : RowsOf(line)) {
      list_->AddItem(std::move(row), list_->ListCount() == numberRow ? number : 0);
    }
  }
  if (const int row = selected == 0 ? -1 : list_->FindData(selected); row >= 0) list_->SetListIndex(row);
}

int ExtraLinesForm::SelectedNumberRow() const {
  int row = list_->ListIndex();
  while (row > 0 && list_->ItemData(row) == 0) --row;
  return row;
}

void ExtraLinesForm::Store(std::int32_t number, const ExtraLine& line) {
  bench_.Data().Connection().Together([&] {
    if (lines_.contains(number)) DeleteLine(number);
    AddLine(number, RowOf(line));
  });
  lines_[number] = line;
  lastLineNumber_ = std::max(lastLineNumber_, number);
  ShowLines(number);
  list_->SetFocus();
}

void ExtraLinesForm::Add() {
  const std::optional<ExtraLine> line = NewLine();
  if (!line) return;
  frmWOExtra editor(bench_.shop, words_.editorCaption, *line, DefaultTax());
  editor.ShowModal();
  if (editor.Saved()) Store(lastLineNumber_ + 1, editor.CurrentExtra);
}

void ExtraLinesForm::Change() {
  ui::Desktop& desktop = bench_.shop.desktop;
  const std::string noun = words_.noun;
  const int row = SelectedNumberRow();
  if (row < 0) return desktop.Tell("Must select a " + noun + " to change.", "Change " + noun);
  const std::int32_t number = list_->ItemData(row);
  Recordset& stored = StoredLine(number);
  if (stored.Eof()) return desktop.Tell(noun + " information not found in database.", "Change " + noun);
  const ExtraLine line = ReadExtra(stored);
  stored.Close();
  if (line.Vendor == kSurchargeVendor) {
    return desktop.Tell("This is a system-generated value.\rIt can only be removed, not changed.",
                        "Can not edit SURCHARGE.");
  }
  frmWOExtra editor(bench_.shop, "Change " + noun, line, DefaultTax());
  editor.ShowModal();
  if (editor.Saved()) Store(number, editor.CurrentExtra);
}

void ExtraLinesForm::Remove() {
  ui::Desktop& desktop = bench_.shop.desktop;
  const std::string noun = words_.noun;
  const int row = SelectedNumberRow();
  if (row < 0) return desktop.Tell("You must select a " + noun + " in order to remove it.", "Remove " + noun);
  const std::int32_t number = list_->ItemData(row);
  if (desktop.Ask("Remove\r    " + list_->List(row) + "\rfrom this estimate?", "Remove " + noun, ui::Buttons::YesNo) !=
      ui::Answer::Yes) {
    return;
  }
  DeleteLine(number);
  lines_.erase(number);
  ShowLines(0);
  list_->SetFocus();
}

}  // namespace lantos
