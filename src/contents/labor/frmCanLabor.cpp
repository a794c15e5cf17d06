#include "contents/labor/frmCanLabor.h"

#include "contents/AmountFields.h"
#include "records/LaborText.h"
#include "records/inventory/InventoryKits.h"

namespace lantos {

namespace {

constexpr ui::Twips kWidth = 8700;
constexpr ui::Twips kHeight = 5700;
constexpr const char* kNoKit = " None";

}  // namespace

frmCanLabor::frmCanLabor(Workbench& bench, Mode mode, const CannedLabor& entry)
    : SizedForm(bench.shop.desktop, bench.shop.keys, bench.shop.environment.settings, "frmCanLabor",
                mode == Mode::Add ? "Add Canned Labor Item" : "Edit Canned Labor Item"),
      Entry(entry),
      bench_(bench) {
  SetDesignedSize(kWidth, kHeight);
  cmdSave.SetCaption(mode == Mode::Add ? "Add" : "Save");
  txtCode.SetMaxLength(kLaborCodeWidth);
  txtCode.SetUpperCase(true);
  txtDesc.SetMultiLine(true);
  txtDesc.SetFace(ui::FontFace::FixedPitch);
  WireAmounts();
  UseButtons(cmdSave, cmdCancel);
  cmdSave.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  AskBeforeLosing(cmdCancel, txtCode, Hours, ShopRate, TotalLabor, txtDesc, Combo1);
}

void frmCanLabor::WireAmounts() {
  for (ui::TextBox* box : {&Hours, &ShopRate}) {
    box->OnLostFocus = [this] { TotalLabor.SetText(FormatFixed(Val(Hours.Text()) * Val(ShopRate.Text()), 2)); };
  }
  numbers_.Add(Hours, "Hours");
  numbers_.Add(ShopRate, "Rate");
  numbers_.Add(TotalLabor, "Total");
  for (ui::TextBox* box : {&Hours, &ShopRate}) numbers_.TakeOnLeaving(*box);
  numbers_.FormatOnLeaving(TotalLabor);
  numbers_.TakeOnSaving(TotalLabor);
  EnterMovesThrough({&txtCode, &Hours, &ShopRate, &TotalLabor, &txtDesc});
}

void frmCanLabor::OnLoad() {
  SizedForm::OnLoad();
  txtCode.SetText(Entry.Code());
  Hours.SetText(FormatHundredths(Entry.Hours));
  ShopRate.SetText(FormatHundredths(Entry.Rate));
  TotalLabor.SetText(FormatHundredths(Entry.Total));
  LaborText lines = Entry.Desc;
  lines[0] = Entry.FirstLine();
  txtDesc.SetText(TextOfLabor(lines));
  FillKits();
  MarkUnchanged();
}

// A kit that isn't listed, since the file hasn't it or is held by another, stays with its code until another is chosen.
void frmCanLabor::FillKits() {
  Combo1.AddItem(kNoKit);
  for (std::string& number : bench_.shop.records.kits.KitNumbers()) Combo1.AddItem(std::move(number));
  const std::string kit = Entry.Code().empty() ? std::string() : KitOnFile(Entry.Code());
  if (Trim(kit).empty() || Trim(kit) == Trim(kNoKit)) return Combo1.SetListIndex(0);
  const int row = Combo1.FindText(kit);
  Combo1.SetListIndex(row < 0 ? Combo1.AddItem(kit) : row);
}

// Saving stores the kit again, so it is to be the one that another workstation may have chosen meanwhile. While
// somebody has the file, the one that was read last is shown.
std::string frmCanLabor::KitOnFile(const std::string& code) {
  LaborKits& kits = bench_.shop.records.laborKits;
  kits.LoadOnce();
  try {
    kits.Load();
  } catch (const FileError& error) {
    bench_.shop.environment.log.Write(error.what());
  }
  return kits.KitOf(code);
}

void frmCanLabor::Accept() {
  if (!numbers_.AreNumbers()) return;
  const LaborText lines = FlowDescription(txtDesc.Text()).lines;
  const std::string code = Trim(txtCode.Text());
  CannedLabor changed;
  changed.Hours = CentsIn(Hours);
  changed.Rate = CentsIn(ShopRate);
  changed.Total = CentsIn(TotalLabor);
  changed.Desc = lines;
  changed.Desc[0] = LeftJustify(code, kLaborCodeWidth) + lines[0];
  // Behind all that may not fit.
  bench_.shop.records.laborKits.Save(code, Trim(Combo1.Text()));
  Entry = changed;
  SaveAndHide();
}

}  // namespace lantos
