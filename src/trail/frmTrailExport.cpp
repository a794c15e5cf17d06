#include "trail/frmTrailExport.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>

#include "frame/FileCause.h"
#include "frame/GuardedOpen.h"
#include "frame/PathText.h"
#include "frame/Text.h"
#include "frame/Uninterrupted.h"

namespace lantos {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kPathWidth = 1024;

fs::path Home() {
  const char* home = std::getenv("HOME");
  return home != nullptr ? home : ".";
}

bool WriteAll(int descriptor, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = Uninterrupted([&] { return ::write(descriptor, content.data(), content.size()); });
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return Uninterrupted([&] { return ::fsync(descriptor); }) == 0;
}

// Beside its place first, so that a full disk leaves what was there. What keeps it from being saved; none when it was.
std::optional<FileErrorNumber> Save(const fs::path& path, std::string_view content) {
  std::error_code ignored;
  if (path.has_parent_path() && !fs::is_directory(path.parent_path(), ignored)) return FileErrorNumber::PathNotFound;
  fs::path part = path;
  part += ".part";
  fs::remove(part, ignored);  // of a process that was killed
  const int descriptor = MakeFile(part, O_WRONLY | O_CLOEXEC);
  int error = errno;
  bool isSaved = descriptor >= 0 && WriteAll(descriptor, content);
  if (descriptor >= 0 && !isSaved) error = errno;
  if (descriptor >= 0) ::close(descriptor);
  if (isSaved && ::rename(part.c_str(), path.c_str()) != 0) {
    error = errno;
    isSaved = false;
  }
  if (isSaved) return std::nullopt;
  if (descriptor >= 0) fs::remove(part, ignored);
  return NumberOfErrno(error);
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
  const fs::path path(PathOfText(text));
  std::error_code error;
  if (text.empty() || fs::is_directory(path, error)) {
    return AskAnew("Name the file that the list is to be saved in.");
  }
  if (fs::equivalent(fs::absolute(path).parent_path(), PlatformPath(shop_.environment.files.DataDir()), error)) {
    return AskAnew("\"" + text + "\" is in the shop's data directory, which is for its own files. Name another place.");
  }
  if (fs::exists(path, error) && shop_.desktop.Ask("\"" + text + "\" is there already.\r\rReplace it?", Caption(),
                                                   ui::Buttons::YesNo, ui::Icon::Question) != ui::Answer::Yes) {
    return txtFile.SetFocus();
  }
  if (const auto cause = Save(path, content_)) {
    return AskAnew("\"" + text + "\" can not be saved: " + CauseInWords(*cause) + ".\r\rName another place.");
  }
  SaveAndHide();
}

void frmTrailExport::AskAnew(const std::string& why) {
  shop_.desktop.Tell(why, Caption(), ui::Icon::Exclamation);
  txtFile.SetFocus();
}

}  // namespace lantos
