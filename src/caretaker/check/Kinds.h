#pragma once

#include <span>
#include <string_view>

#include "caretaker/check/Finding.h"
#include "caretaker/check/ShopView.h"

namespace lantos {

// Each looks at a shop in one way, and tells what it finds; it changes nothing. FileError and DatabaseError of what
// can't be read.
void FindLengths(ShopView& shop, const Tell& tell);
void FindTags(ShopView& shop, const Tell& tell);
void FindCustomerTags(ShopView& shop, const Tell& tell);
void FindPartTags(ShopView& shop, const Tell& tell);
void FindChains(ShopView& shop, const Tell& tell);
void FindEstimateLinks(ShopView& shop, const Tell& tell);
void FindCounters(ShopView& shop, const Tell& tell);
void FindAlternates(ShopView& shop, const Tell& tell);
void FindKits(ShopView& shop, const Tell& tell);
void FindWorkorders(ShopView& shop, const Tell& tell);
void FindNames(ShopView& shop, const Tell& tell);
void FindDates(ShopView& shop, const Tell& tell);
void FindTexts(ShopView& shop, const Tell& tell);
void FindDatabase(ShopView& shop, const Tell& tell);
void FindMailboxes(ShopView& shop, const Tell& tell);
void FindModes(ShopView& shop, const Tell& tell);

enum class Answer { One, None };  // whether a finding may have one right answer

struct Kind {
  std::string_view name;     // of the command line
  std::string_view looksAt;  // for the person, behind "looks at"
  Answer answer;
  void (*find)(ShopView& shop, const Tell& tell);
};

// All of them, in the order in which they are asked and mended.
std::span<const Kind> Kinds();
// Null where none has the name.
const Kind* KindNamed(std::string_view name);

}  // namespace lantos
