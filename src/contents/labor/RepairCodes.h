#pragma once

#include "estimatedb/de.h"
#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos {

inline constexpr std::size_t kRepairCodeWidth = 6;

// "N/A", the entry for a new code, then the codes of the main application's database in order.
void FillRepairCodes(de2& database, ui::ComboBox& list);
// When the entry for a new code is the current one: asks for it, fills the list anew and selects it.
void EditNewRepairCode(Shop& shop, de2& database, ui::ComboBox& list);

}  // namespace lantos
