#include "trail/frmTrailExport.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "frame/PathText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::size_t kPathWidth = 1024;

std::filesystem::path Home() {
  const char* home = std::getenv("HOME");
  return home != nullptr ? home : ".";
}

// Beside its place first, so that a full disk leaves what was there.
bool Save(const std::filesystem::path& path, const std::string& content) {
  std::filesystem::path part = path;
  part += ".part";
  std::ofstream file(part, std::ios::binary | std::ios::trunc);
  file << content;
  file.close();
  std::error_code error;
  if (file) std::filesystem::rename(part, path, error);
  if (file && !error) return true;
  std::filesystem::remove(part, error);
  return false;
}

}  // namespace

frmTrailExport::frmTrailExport(Shop& shop, std::string content, const std::string& name)
    : OkCancelForm(shop.desktop, shop.keys, "frmTrailExport", "Export the Trail"),
      shop_(shop),
      content_(std::move(content)) {
  SetSize(8000, 1800);
  txtFile.SetMaxLength(kPathWidth);
  txtFile.SetText(TextOfPath(Home() / name));
  txtFile.SetToolTip("Where the list is saved, for a spreadsheet");
  cmdOK.SetToolTip("Save <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  UseButtons(cmdOK, cmdCancel);
}

void frmTrailExport::Accept() {
  const std::string text = Trim(txtFile.Text());
  const std::filesystem::path path(PathOfText(text));
  std::error_code error;
  if (text.empty() || std::filesystem::is_directory(path, error)) {
    shop_.desktop.Tell("Name the file that the list is to be saved in.", Caption(), ui::Icon::Exclamation);
    return txtFile.SetFocus();
  }
  if (std::filesystem::exists(path, error) &&
      shop_.desktop.Ask("\"" + text + "\" is there already.\r\rReplace it?", Caption(), ui::Buttons::YesNo,
                        ui::Icon::Question) != ui::Answer::Yes) {
    return txtFile.SetFocus();
  }
  if (!Save(path, content_)) {
    shop_.desktop.Tell("\"" + text + "\" can't be written: its directory isn't there, is read-only or full.", Caption(),
                       ui::Icon::Exclamation);
    return txtFile.SetFocus();
  }
  SaveAndHide();
}

}  // namespace lantos
