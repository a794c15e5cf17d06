#pragma once

#include "shop/Shop.h"
#include "ui/Controls.h"

namespace lantos {

// Goes through the words of a description or note, and asks about each that neither the dictionary nor the shop knows:
// its makes, models and parts, and what the person has added. What comes out is put into the box, which changes its
// screen by that. Without a dictionary it says so and does nothing.
void SpellCheckText(Shop& shop, ui::TextBox& text);

}  // namespace lantos
