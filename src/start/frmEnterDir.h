#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "frame/Environment.h"
#include "screens/OkCancelForm.h"

namespace lantos {

// Asks for the directory of the data files. OK makes it DataDir and stores it for the main application at once, so
// that the answer survives even when the directory turns out to be the wrong one.
class frmEnterDir : public OkCancelForm {
 public:
  frmEnterDir(ui::Desktop& desktop, Environment& environment);

  // With "/" at its end, as it was stored; empty when nothing was chosen.
  std::string answer;

  ui::Label lblDirectory{*this, "lblDirectory", "&Directory?"};
  ui::TextBox TextString{*this, "TextString"};
  ui::ComboBox Drive1{*this, "Drive1"};
  ui::ListBox Dir1{*this, "Dir1"};
  ui::Button cmdOK{*this, "cmdOK", "&OK"};
  ui::Button cmdCancel{*this, "cmdCancel", "&Cancel"};

 private:
  void OnLoad() override;
  void Accept() override;
  void Cancel() override;
  void GoTo(const std::vector<std::filesystem::path>& places, int row);
  void ShowDirectory(const std::filesystem::path& path);

  ui::GlobalKeys ownKeys_;  // nothing but the screen itself is there yet
  Environment& environment_;
  std::vector<std::filesystem::path> drives_;       // by row of Drive1
  std::vector<std::filesystem::path> directories_;  // by row of Dir1
};

}  // namespace lantos
