#include "ui/Mnemonic.h"

#include "frame/Text.h"

namespace lantos::ui {

char MnemonicOf(std::string_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != '&') continue;
    if (caption[i + 1] != '&') return ToUpper(caption[i + 1]);
    ++i;
  }
  return '\0';
}

std::string WithoutMnemonic(std::string_view caption) {
  std::string plain;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    plain += caption[i];
  }
  return plain;
}

}  // namespace lantos::ui
