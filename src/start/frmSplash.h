#pragma once

#include <string>

#include "ui/Form.h"

namespace lantos {

// "Version 2001.0.0"
std::string VersionText();

// What the person sees while the program starts.
class frmSplash : public ui::Form {
 public:
  explicit frmSplash(ui::Desktop& desktop);

  ui::Label lblTitle{*this, "lblTitle", "Lantos"};
  ui::Label lblPurpose{*this, "lblPurpose", "Appointment Scheduler"};
  ui::Label lblVersion{*this, "lblVersion"};
};

}  // namespace lantos
