#pragma once

#include <string>
#include <string_view>

#include "frame/Clock.h"
#include "ui/Form.h"

namespace lantos {

// "Version 2001.0.0"
std::string VersionText();

// Thrown where the person has stopped the start.
struct StartStopped {};

// The works of a start that are told of, one by one.
inline constexpr int kWorksOfAStart = 11;

// What the person sees while the program starts. A start that takes long says what it is at and how far it is, and can
// be stopped, between two works and within a work that waits.
class frmSplash : public ui::Form {
 public:
  frmSplash(ui::Desktop& desktop, Clock& clock);

  // A work begins, told in a few words. Throws StartStopped.
  void Next(std::string_view work);
  // The work takes its time. Throws StartStopped.
  void Meanwhile();

  ui::Label lblTitle{*this, "lblTitle", "Lantos"};
  ui::Label lblPurpose{*this, "lblPurpose", "Appointment Scheduler"};
  ui::Label lblVersion{*this, "lblVersion"};
  ui::Label lblWork{*this, "lblWork"};
  ui::ProgressBar StartProgress{*this, "StartProgress"};
  ui::Button cmdStop{*this, "cmdStop", "&Stop"};

 private:
  void OnQueryClose(bool& refuse) override;

  Clock& clock_;
  LocalTime begun_;
  int done_ = -1;
  bool stopped_ = false;
};

}  // namespace lantos
