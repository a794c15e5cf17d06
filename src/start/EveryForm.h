#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "board/Contents.h"
#include "masters/customers/MasterScreens.h"
#include "ui/Form.h"

namespace lantos {

// What the forms of the program are made on.
struct FormGround {
  Shop& shop;
  EstimateDatabase& database;
  MasterScreens& masters;
  frmInvList& inventoryList;
  Workorders& workorders;
  Contents& contents;
};

// Makes one form. It isn't loaded, and reads no file before it is.
using MakeForm = std::function<std::unique_ptr<ui::Form>(FormGround& ground)>;

// A maker for each form of the program, the main window first; a form with two faces has two.
const std::vector<MakeForm>& EveryForm();

}  // namespace lantos
