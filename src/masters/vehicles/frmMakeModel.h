#pragma once

#include "records/MakesModels.h"
#include "shop/Shop.h"
#include "ui/Form.h"

namespace lantos {

// Maintains the lists of vehicle makes and models. Every addition and deletion is in the file at once.
class frmMakeModel : public ui::Form {
 public:
  explicit frmMakeModel(Shop& shop);

  ui::ListBox listMakes{*this, "listMakes"};
  ui::TextBox txtMake{*this, "txtMake"};
  ui::Button cmdAddMake{*this, "cmdAddMake", "Add &Make"};
  ui::Button cmdDelMake{*this, "cmdDelMake", "Delete Ma&ke"};
  ui::ListBox listModels{*this, "listModels"};
  ui::TextBox txtModel{*this, "txtModel"};
  ui::Button cmdAddModel{*this, "cmdAddModel", "Add M&odel"};
  ui::Button cmdDelModel{*this, "cmdDelModel", "Delete Mo&del"};
  ui::Button cmdClose{*this, "cmdClose", "&Close"};

 protected:
  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;

 private:
  void FillMakes();
  void FillModels();
  void AddMake();
  void AddModel();
  void DeleteMake();
  void DeleteModel();
  void Refuse(const std::string& text);
  bool MayDelete(const std::string& what, const std::string& title);
  std::string MakeName() const { return Trim(txtMake.Text()); }
  std::string ModelName() const { return Trim(txtModel.Text()); }

  Shop& shop_;
};

}  // namespace lantos
