#pragma once

#include <string>
#include <vector>

#include "help/Guide.h"
#include "screens/OkCancelForm.h"
#include "ui/Browser.h"

namespace lantos {

// The guide, at the page of the screen that it was asked for on. It needs nothing of the shop.
class frmGuide : public SizedForm {
 public:
  // The guide is taken apart when the form is loaded.
  frmGuide(ui::Desktop& desktop, ui::GlobalKeys& keys, UserSettings& settings, std::string screen);

  // The page of a screen; the contents where it has none.
  void ShowPageOf(std::string_view screen);

  ui::Browser page{*this, "page"};
  ui::Button cmdBack{*this, "cmdBack", "&Back"};
  ui::Button cmdContents{*this, "cmdContents", "&Contents"};
  ui::Label lblFind{*this, "lblFind", "&Look for:"};
  ui::TextBox txtFind{*this, "txtFind"};
  ui::Button cmdFind{*this, "cmdFind", "&Find Next"};
  ui::Label lblFound{*this, "lblFound"};
  ui::Button cmdClose{*this, "cmdClose", "Close"};

 private:
  // Where the person was, and which link was followed from there.
  struct Place {
    std::size_t page = 0;
    int link = -1;
  };

  void OnLoad() override;
  void OnKeyDown(ui::KeyPress& key) override;
  void Accept() override { Hide(); }
  void GoTo(std::size_t page);
  void Show(const Place& place);
  void Follow(const std::string& target);
  void GoBack();
  void Find();

  std::string screen_;
  Guide guide_{""};
  std::size_t onShow_ = 0;
  std::vector<Place> way_;
};

}  // namespace lantos
