#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ui/Form.h"

namespace lantos {

// The page of all keys, in Markdown (UTF-8, lines ended by "\n"): first those of every list, text and calendar, then
// those of each form, read off the form itself: mnemonics of its captions and labels, its default and cancel button,
// and what tool tips name in angle brackets, as "Save <F10>".
std::string KeyPage(const std::vector<std::unique_ptr<ui::Form>>& forms);

// A key that a form or one of its controls tells of.
struct ToldKey {
  std::string key;   // "F10", "Alt+S"
  std::string what;  // "Save"
};
// In the order of the controls; a key may be told of twice.
std::vector<ToldKey> KeysOf(const ui::Form& form);

}  // namespace lantos
