#pragma once

#include <string>
#include <string_view>

namespace lantos::ui {

// A caption has "&" before the letter that is underlined; "&&" is a plain one.

// The letter as a capital, or NUL when the caption has none.
char MnemonicOf(std::string_view caption);
// As people read it.
std::string WithoutMnemonic(std::string_view caption);

}  // namespace lantos::ui
