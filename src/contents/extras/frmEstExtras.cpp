#include "contents/extras/frmEstExtras.h"

#include "contents/Changing.h"
#include "contents/LineNumbers.h"
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

LineValues ValuesOf(const ExtraLine& line) {
  LineValues values = {{"Vendor", line.Vendor},
                       {"Invoice", line.Invoice},
                       {"Cost", FormatHundredths(line.Cost)},
                       {"Price", FormatHundredths(line.Price)},
                       {"Taxable", line.Taxable}};
  AddTexts(values, "Description", line.Desc);
  return values;
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

frmEstExtras::frmEstExtras(Workbench& bench, const ExtrasTable& table)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, table.form, table.caption),
      listLines(*this, table.list),
      bench_(bench),
      table_(table),
      lines_(listLines, RowsOf) {
  SetDesignedSize(kWidth, kHeight);
  listLines.SetFace(ui::FontFace::FixedPitch);
  listLines.OnDoubleClick = [this] { Change(); };
  WireCommands();
}

void frmEstExtras::WireCommands() {
  UseButtons(cmdClose, cmdClose);
  SetDefaultButton(cmdChange);
  cmdAdd.OnClick = [this] { Add(); };
  cmdChange.OnClick = [this] { Change(); };
  cmdRemove.OnClick = [this] { Remove(); };
  listLines.SetToolTip("Back to the estimate <F10>");
  listLines.SetSpokenName(Caption());
  cmdAdd.SetToolTip("Add <Insert>");
  cmdChange.SetToolTip("Change <Enter>");
  cmdRemove.SetToolTip("Remove <Delete>");
  cmdClose.SetToolTip("Close <Esc>");
}

void frmEstExtras::OnLoad() {
  ShowHeader();
  SizedForm::OnLoad();
  LoadLines();
}

void frmEstExtras::ShowHeader() {
  const CustomerRecord& customer = bench_.estimate.Customer();
  lblEstimateNumber.SetCaption(FormatZeros(bench_.Number(), 6));
  lblCustName.SetCaption(customer.Get(customer::Firstname) + " " + customer.Get(customer::Lastname));
}

void frmEstExtras::LoadLines() {
  const std::optional<std::int32_t> selected = lines_.Selected();
  Recordset& stored = (bench_.Data().*table_.stored)(bench_.Number());
  std::map<std::int32_t, ExtraLine> lines;
  for (; !stored.Eof(); stored.MoveNext()) lines.insert_or_assign(stored.Long(table_.numberColumn), ReadExtra(stored));
  stored.Close();
  lines_.StartAnew();
  for (const auto& [number, line] : lines) lines_.Put(number, line);
  if (lines_.Lines().empty()) return;
  lines_.Select(selected && lines_.Contains(*selected) ? *selected : lines_.Lines().begin()->first);
}

void frmEstExtras::OnKeyDown(ui::KeyPress& key) {
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

// The editor stays until its line is stored, and is gone before that can be seen.
void frmEstExtras::EditAndStore(const std::string& caption, const ExtraLine& line, Replaced* replaced) {
  std::optional<std::int32_t> stored;
  ExtraLine edited;
  {
    frmWOExtra editor(bench_.shop, caption, line, table_.DefaultTax(bench_));
    const auto store = [&] {
      stored = replaced != nullptr ? StoreInPlace(editor.CurrentExtra, *replaced) : Store(editor.CurrentExtra);
    };
    editor.StoreBy({store, [&] { return NameOf(editor.CurrentExtra); }});
    editor.ShowModal();
    edited = editor.CurrentExtra;
  }
  if (!stored) return;
  const auto show = [&] {
    lines_.Put(*stored, edited);
    lines_.Select(*stored);
    listLines.SetFocus();
  };
  if (!lines_.IsBehindUnseen(*stored)) return show();
  ShowStored(
      NameOf(edited), [this] { LoadLines(); }, show);
}

std::string frmEstExtras::NameOf(const ExtraLine& line) const {
  return "The " + ToLower(table_.noun) + " \"" + line.Vendor + "\"";
}

std::optional<std::int32_t> frmEstExtras::StoreInPlace(const ExtraLine& line, Replaced& replaced) {
  const auto store = [&] { Store(line, &replaced); };
  const bool isStored = replaced.line.Store(bench_.shop.desktop, "Change " + std::string(table_.noun), ValuesOf(line),
                                            {store, [this] { LoadLines(); }});
  return isStored ? std::optional(replaced.number) : std::nullopt;
}

std::int32_t frmEstExtras::Store(const ExtraLine& line, Replaced* replaced) {
  de& data = bench_.Data();
  std::int32_t stored = 0;
  const auto write = [&] {
    if (replaced != nullptr) {
      stored = replaced->number;
      replaced->line.Expect(ValuesStored(stored));
      (data.*table_.remove)(bench_.Number(), stored);
    } else {
      stored = NumberForNewLine((data.*table_.stored)(bench_.Number()), table_.numberColumn, lines_.NextNumber());
    }
    (data.*table_.add)(bench_.Number(), stored, RowOf(line));
  };
  StoreOrReload([&] { TakeNumberAndStore([&] { data.Connection().Together(write); }); }, [this] { LoadLines(); });
  return stored;
}

std::optional<LineValues> frmEstExtras::ValuesStored(std::int32_t number) {
  return StoredValues((bench_.Data().*table_.storedLine)(bench_.Number(), number),
                      [](const Recordset&) { return true; },
                      [](const Recordset& row) { return ValuesOf(ReadExtra(row)); });
}

void frmEstExtras::Add() {
  if (const auto line = table_.newLine(bench_)) EditAndStore(table_.editorCaption, *line);
}

void frmEstExtras::Change() {
  ui::Desktop& desktop = bench_.shop.desktop;
  const std::string noun = table_.noun;
  const std::optional<std::int32_t> number = lines_.Selected();
  if (!number) return desktop.Tell("Must select a " + noun + " to change.", "Change " + noun);
  Recordset& stored = (bench_.Data().*table_.storedLine)(bench_.Number(), *number);
  if (stored.Eof()) {
    desktop.Tell(noun + " information not found in database.", "Change " + noun);
    return LoadLines();
  }
  const ExtraLine line = ReadExtra(stored);
  stored.Close();
  if (ValuesOf(line) != ValuesOf(lines_[*number])) LoadLines();
  if (line.Vendor == kSurchargeVendor) {
    return desktop.Tell("This is a system-generated value.\rIt can only be removed, not changed.",
                        "Can not edit SURCHARGE.");
  }
  Replaced replaced{*number, ListedLine(ValuesOf(line))};
  EditAndStore("Change " + noun, line, &replaced);
}

void frmEstExtras::Remove() {
  ui::Desktop& desktop = bench_.shop.desktop;
  const std::string noun = table_.noun;
  const std::optional<std::int32_t> number = lines_.Selected();
  if (!number) return desktop.Tell("You must select a " + noun + " in order to remove it.", "Remove " + noun);
  if (desktop.Ask("Remove\r    " + RowsOf(lines_[*number]).front() + "\rfrom this estimate?", "Remove " + noun,
                  ui::Buttons::YesNo) != ui::Answer::Yes) {
    return;
  }
  ListedLine listed(ValuesOf(lines_[*number]));
  const auto remove = [&] {
    listed.Expect(ValuesStored(*number));
    (bench_.Data().*table_.remove)(bench_.Number(), *number);
  };
  const auto reload = [this] { LoadLines(); };
  const auto transaction = [&] { StoreOrReload([&] { bench_.Data().Connection().Together(remove); }, reload); };
  if (!RemoveAsListed(desktop, "Remove " + noun, NameOf(lines_[*number]) + " was", {transaction, reload})) return;
  lines_.Remove(*number);
  listLines.SetFocus();
}

namespace {

void ShowExtras(Workbench& bench, const ExtrasTable& table) {
  frmEstExtras form(bench, table);
  form.ShowModal();
  bench.estimate.RefreshTotals();
}

}  // namespace

void EstimateSublets(Workbench& bench) { ShowExtras(bench, kSubletExtras); }

void EstimateWaste(Workbench& bench) { ShowExtras(bench, kWasteExtras); }

}  // namespace lantos
