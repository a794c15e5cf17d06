#include "admin/frmSystemParameters.h"

#include "frame/Text.h"
#include "screens/SaveOptions.h"

namespace lantos {

namespace {

constexpr std::size_t kDescriptionWidth = 64;
constexpr std::size_t kMessageWidth = 78;

struct NamedField {
  const char* name;
  LongField field;
};
constexpr NamedField kTaxRates[] = {{"Parts Tax Rate (%)", sysrec::tax_rate_parts},
                                    {"Labor Tax Rate (%)", sysrec::tax_rate_labor},
                                    {"Sublet Tax Rate (%)", sysrec::tax_rate_sublet},
                                    {"Waste Tax Rate (%)", sysrec::tax_rate_waste}};
constexpr NamedField kMarkups[] = {{"Wholesale markup", sysrec::markups[1]},
                                   {"Resale markup", sysrec::markups[2]},
                                   {"Retail markup", sysrec::markups[3]}};

}  // namespace

frmSystemParameters::frmSystemParameters(Shop& shop)
    : OkCancelForm(shop.desktop, shop.keys, "frmSystemParameters", "System Parameters"), shop_(shop) {
  SetSize(11400, 8700);
  frameLaborSurcharge.Holds(labor_surcharge_percent, optLaborSurcharge[0], optLaborSurcharge[1]);
  framePartsSurcharge.Holds(parts_surcharge_percent, optPartsSurcharge[0], optPartsSurcharge[1]);
  WireSurcharges();
  AddFields();
  hand_msg2.SetSpokenName("Have a Nice Day Message, second line");
  shell_command_line.SetToolTip("Kept for the main application, never run here");
  txtBackupCmd.SetToolTip("Of this workstation; kept for the main application, never run here");
  OKButton.SetToolTip("Continue <F10>");
  CancelButton.SetToolTip("Stop <Esc>");
  UseButtons(OKButton, CancelButton);
  AskBeforeLosing(CancelButton, shop_rate, labor_surcharge_percent, optLaborSurcharge, parts_surcharge_percent,
                  optPartsSurcharge, surcharge_description, surcharge_is_sublet, tax_rate, markups, hand_msg1,
                  hand_msg2, fleet_terms, fleet_late_charge_percent, shell_command_line, txtBackupCmd, cbBackupCmdWait);
}

void frmSystemParameters::WireSurcharges() {
  for (auto* options : {&optLaborSurcharge, &optPartsSurcharge}) {
    (*options)[0].SetCaption("Percent");
    (*options)[1].SetCaption("Dollars");
  }
}

void frmSystemParameters::AddFields() {
  fields_.AddMoney(shop_rate, sysrec::shop_rate, "Default Shop Rate ($/hr)");
  fields_.AddSurcharge(labor_surcharge_percent, optLaborSurcharge[0], optLaborSurcharge[1],
                       sysrec::labor_surcharge_percent, "Labor Surcharge");
  fields_.AddSurcharge(parts_surcharge_percent, optPartsSurcharge[0], optPartsSurcharge[1],
                       sysrec::parts_surcharge_percent, "Parts Surcharge");
  fields_.AddText(surcharge_description, sysrec::surcharge_description, kDescriptionWidth, "Surcharge Description");
  fields_.AddYesNo(surcharge_is_sublet, sysrec::surcharge_is_sublet, "Surcharge is a Sublet");
  for (std::size_t i = 0; i < tax_rate.size(); ++i) {
    fields_.AddRate(tax_rate[i], kTaxRates[i].field, kTaxRates[i].name);
  }
  for (std::size_t i = 0; i < markups.size(); ++i) fields_.AddRate(markups[i], kMarkups[i].field, kMarkups[i].name);
  fields_.AddText(hand_msg1, sysrec::hand_msg1, kMessageWidth, "Have a Nice Day Message");
  fields_.AddText(hand_msg2, sysrec::hand_msg2, kMessageWidth, "Have a Nice Day Message, second line");
  fields_.AddText(fleet_terms, sysrec::fleet_terms, kMessageWidth, "Fleet Statement Terms");
  fields_.AddRate(fleet_late_charge_percent, sysrec::fleet_late_charge_percent, "Fleet Statement Late %");
  fields_.AddText(shell_command_line, sysrec::shell_command_line, kMessageWidth, "Shell Command Line");
}

// Another workstation may have changed the record since this one has read it.
void frmSystemParameters::OnLoad() {
  shop_.records.system.ReadSystem();
  fields_.Show(shop_.records.system.SysRec);
  ProfileFile profile = shop_.environment.Profile();
  WorkstationProfile workstation(profile, shop_.environment.profileSection);
  backupCommand_ = workstation.ReadBackupCmd();
  backupWait_ = workstation.ReadBackupCmdWait();
  txtBackupCmd.SetText(backupCommand_);
  cbBackupCmdWait.SetValue(backupWait_);
  MarkUnchanged();
}

void frmSystemParameters::Accept() {
  if (!fields_.CanBeStored()) return;
  if (!SaveSystem(shop_, "Updating System Parameters", fields_)) return;
  SaveBackup();
  MarkUnchanged();
  SaveAndHide();
}

// What wasn't changed stays where it came from, which may be what all workstations share.
void frmSystemParameters::SaveBackup() {
  ProfileFile profile = shop_.environment.Profile();
  WorkstationProfile workstation(profile, shop_.environment.profileSection);
  const std::string command = Trim(txtBackupCmd.Text());
  const bool wait = cbBackupCmdWait.Value();
  if (command == backupCommand_ && wait == backupWait_) return;
  SaveOptions(shop_.desktop, profile, "the backup command", [&] {
    return workstation.WriteBackup(command != backupCommand_ ? std::optional(command) : std::nullopt,
                                   wait != backupWait_ ? std::optional(wait) : std::nullopt);
  });
}

}  // namespace lantos
