#include "masters/vehicles/frmMakeModel.h"
#include "records/MakesModels.h"

namespace lantos {

frmMakeModel::frmMakeModel(Shop& shop) : Form(shop.desktop, "frmMakeModel", "Makes and Models"), shop_(shop) {
  SetSize(8100, 6000);
  listMakes.SetSpokenName("Makes");
  txtMake.SetSpokenName("Make");
  listModels.SetSpokenName("Models of the make");
  txtModel.SetSpokenName("Model");
  txtMake.SetMaxLength(makemodel::Name.width - 1);
  txtModel.SetMaxLength(makemodel::Name.width - 1);
  cmdAddMake.SetToolTip("Add the make <Enter>");
  cmdDelMake.SetToolTip("Delete the make chosen in the list <Delete>");
  cmdAddModel.SetToolTip("Add the model to the make <Enter>");
  cmdDelModel.SetToolTip("Delete the model chosen in the list <Delete>");
  cmdClose.SetToolTip("Close <Esc>");
  cmdAddMake.OnClick = [this] { AddMake(); };
  cmdAddModel.OnClick = [this] { AddModel(); };
  cmdDelMake.OnClick = [this] { DeleteMake(); };
  cmdDelModel.OnClick = [this] { DeleteModel(); };
  cmdClose.OnClick = [this] { Hide(); };
  SetCancelButton(cmdClose);
  listMakes.OnClick = [this] {
    if (listMakes.ListIndex() < 0) return;
    txtMake.SetText(listMakes.List(listMakes.ListIndex()));
    txtModel.SetText("");
  };
  listModels.OnClick = [this] {
    if (listModels.ListIndex() >= 0) txtModel.SetText(listModels.List(listModels.ListIndex()));
  };
  txtMake.OnChange = [this] { FillModels(); };
}

void frmMakeModel::OnLoad() { FillMakes(); }

void frmMakeModel::OnKeyDown(ui::KeyPress& key) {
  if (shop_.keys.HandleGlobalKeys(key, *this)) return;
  const ui::Button* button = key.Is("Esc")                               ? &cmdClose
                             : key.Is("Delete") && listMakes.HasFocus()  ? &cmdDelMake
                             : key.Is("Delete") && listModels.HasFocus() ? &cmdDelModel
                             : key.Is("Enter") && txtMake.HasFocus()     ? &cmdAddMake
                             : key.Is("Enter") && txtModel.HasFocus()    ? &cmdAddModel
                                                                         : nullptr;
  if (button == nullptr) return;
  key.Clear();
  button->OnClick();
}

void frmMakeModel::FillMakes() {
  listMakes.Clear();
  for (const lantos::Make& make : shop_.records.makes.Makes()) listMakes.AddItem(make.Name);
  FillModels();
}

void frmMakeModel::FillModels() {
  listModels.Clear();
  const std::string make = MakeName();
  for (const lantos::Model& model : shop_.records.makes.Models()) {
    if (model.Make == make) listModels.AddItem(model.Name);
  }
}

void frmMakeModel::Refuse(const std::string& text) { shop_.desktop.Tell(text, Caption(), ui::Icon::Exclamation); }

void frmMakeModel::AddMake() {
  const std::string make = MakeName();
  if (make.empty()) return Refuse("Can not add a blank Make");
  if (shop_.records.makes.HasMake(make)) return Refuse(make + " is already a known Make - can not add again.");
  shop_.records.makes.AddMake(make);
  FillMakes();
}

void frmMakeModel::AddModel() {
  MakesModels& makes = shop_.records.makes;
  const std::string make = MakeName();
  const std::string model = ModelName();
  if (make.empty()) return Refuse("Can not add a Model to a blank Make.");
  if (model.empty()) return Refuse("Can not add a blank Model.");
  if (!makes.HasMake(make)) return Refuse("Make is invalid; can not add Model.");
  if (makes.HasModel(make, model)) return Refuse("Make and Model already exists; Can not add.");
  makes.AddModel(make, model);
  FillModels();
}

bool frmMakeModel::MayDelete(const std::string& what, const std::string& title) {
  return shop_.desktop.Ask("Are you sure you wish to delete\r" + what + "\rThis action can not be undone.", title,
                           ui::Buttons::YesNo, ui::Icon::Question) == ui::Answer::Yes;
}

void frmMakeModel::DeleteMake() {
  MakesModels& makes = shop_.records.makes;
  const std::string make = MakeName();
  if (make.empty()) return Refuse("No Make specified - can not delete.");
  if (!makes.HasMake(make)) return Refuse("Invalid Make specified - can not delete.");
  if (makes.HasModels(make)) return Refuse("Must delete all associated Models before deleting Make.");
  if (!MayDelete("Make: " + make, "Delete Make")) return;
  makes.DeleteMake(make);
  makes.LoadMakes();
  txtMake.SetText("");
  FillMakes();
}

void frmMakeModel::DeleteModel() {
  MakesModels& makes = shop_.records.makes;
  const std::string make = MakeName();
  const std::string model = ModelName();
  if (make.empty()) return Refuse("No Make specified - can not delete.");
  if (!makes.HasMake(make)) return Refuse("Invalid Make specified - can not delete.");
  if (model.empty()) return Refuse("No Model specified - can not delete.");
  if (!makes.HasModel(make, model)) return Refuse("Invalid Model specified - can not delete.");
  if (!MayDelete("Make: " + make + "\rModel: " + model, "Delete Model")) return;
  makes.DeleteModel(make, model);
  makes.LoadMakes();
  txtModel.SetText("");
  FillModels();
}

}  // namespace lantos
