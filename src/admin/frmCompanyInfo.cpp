#include "admin/frmCompanyInfo.h"

#include "frame/Text.h"

namespace lantos {

frmCompanyInfo::frmCompanyInfo(Shop& shop)
    : OkCancelForm(shop.desktop, shop.keys, "frmCompanyInfo", "Company Info"), shop_(shop) {
  SetSize(9000, 6000);
  company_name.OnValidate = [this](bool& keepFocus) { keepFocus = !MayNameStand(); };
  OKButton.SetToolTip("Continue <F10>");
  CancelButton.SetToolTip("Stop <Esc>");
  UseButtons(OKButton, CancelButton);
  AddFields();
}

void frmCompanyInfo::AddFields() {
  const struct {
    ui::TextBox& box;
    TextField field;
    std::size_t width;
    const char* name;
  } fields[] = {
      {company_name, sysrec::company_name, 31, "Company Name"},
      {extra_company_name, sysrec::extra_company_name, 41, "Extra Company Info"},
      {company_address, sysrec::company_address, 32, "Company Address"},
      {company_city, sysrec::company_city, 20, "Company City"},
      {company_state, sysrec::company_state, 2, "Company State"},
      {company_zip, sysrec::company_zip, 10, "Company Zip"},
      {company_phone1, sysrec::company_phone1, 14, "Company Phone 1"},
      {company_phone2, sysrec::company_phone2, 14, "Company Phone 2"},
      {state_reg_number, sysrec::state_reg_number, 20, "State Regulation #"},
      {fed_id_number, sysrec::fed_id_number, 20, "Federal ID Number"},
      {state_id_number, sysrec::state_id_number, 20, "State ID Number"},
      {local_id_number, sysrec::local_id_number, 20, "Local ID Number"},
  };
  for (const auto& each : fields) {
    fields_.AddText(each.box, each.field, each.width, each.name);
    AskBeforeLosing(CancelButton, each.box);
  }
}

// Another workstation may have changed the record since this one has read it.
void frmCompanyInfo::OnLoad() {
  shop_.records.system.ReadSystem();
  fields_.Show(shop_.records.system.SysRec);
  savedName_ = company_name.Text();
  MarkUnchanged();
}

bool frmCompanyInfo::MayNameStand() {
  if (!Contains(company_name.Text(), ">")) return true;
  const ui::Answer answer =
      shop_.desktop.Ask("Company name is invalid.\rClick Retry to re-enter; click Cancel to revert to saved value.",
                        Caption(), ui::Buttons::RetryCancel);
  if (answer == ui::Answer::Retry) return false;
  company_name.SetText(savedName_);
  return true;
}

// F10 doesn't leave the name, so it hasn't been looked at.
void frmCompanyInfo::Accept() {
  if (!MayNameStand()) return company_name.SetFocus();
  if (!SaveSystem(shop_, "Updating Company Info", fields_)) return;
  MarkUnchanged();
  SaveAndHide();
}

}  // namespace lantos
