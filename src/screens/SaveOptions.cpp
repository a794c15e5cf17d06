#include "screens/SaveOptions.h"

#include "frame/FileCause.h"

namespace lantos {

bool SaveOptions(ui::Desktop& desktop, const ProfileFile& profile, const std::string& what,
                 const std::function<bool()>& save) {
  const std::string file(kOptionsFile);
  while (!save()) {
    const ui::Answer answer = desktop.Ask(InWords(profile.Failure(), file + " can not be written") +
                                              "\rClick Retry to try again, or Cancel to leave " + what + " as before.",
                                          file, ui::Buttons::RetryCancel, ui::Icon::Exclamation);
    if (answer == ui::Answer::Cancel) return false;
  }
  return true;
}

}  // namespace lantos
