#include "start/frmEnterDir.h"

#include <algorithm>
#include <cstdlib>

#include "frame/PathText.h"
#include "frame/Text.h"
#include "start/DataDirectory.h"

namespace lantos {

namespace {

namespace fs = std::filesystem;

// A name with a separator of the rules in it could not be found again.
bool IsAddressable(const fs::path& path) { return path.native().find('\\') == std::string::npos; }

// Sub-directories by name; those whose name begins with a dot stay out. What can't be read has none.
std::vector<fs::path> SubDirectories(const fs::path& path) {
  std::vector<fs::path> found;
  std::error_code error;
  for (fs::directory_iterator at(path, error), end; !error && at != end; at.increment(error)) {
    std::error_code ignored;
    const bool shown = at->is_directory(ignored) && !at->path().filename().string().starts_with('.');
    if (shown && IsAddressable(at->path())) found.push_back(at->path());
  }
  std::sort(found.begin(), found.end());
  return found;
}

// The root of the file system, the person's own directory, and what is mounted in the usual places.
std::vector<fs::path> Drives() {
  std::vector<fs::path> drives = {"/"};
  const char* setting = std::getenv("HOME");
  fs::path home = setting != nullptr ? setting : "";
  if (!home.has_filename()) home = home.parent_path();  // a slash at its end
  std::error_code ignored;
  if (home.is_absolute() && home.has_filename() && fs::is_directory(home, ignored) && IsAddressable(home)) {
    drives.push_back(home);
  }
  for (const char* place : {"/mnt", "/media"}) {
    for (const fs::path& mounted : SubDirectories(place)) drives.push_back(mounted);
  }
  return drives;
}

// What a field with the path in it gives back, since fields hold the page alone.
std::string AsTyped(const std::string& name) { return FromUtf8(ToUtf8(name)); }

// The one directory in the parent that reads like this in a field; the name itself where there is none, or several.
fs::path Meant(const fs::path& parent, const fs::path& name) {
  std::vector<fs::path> alike;
  std::error_code error;
  for (fs::directory_iterator at(parent, error), end; !error && at != end; at.increment(error)) {
    const fs::path found = at->path().filename();
    std::error_code ignored;
    if (AsTyped(TextOfPath(found)) == TextOfPath(name) && at->is_directory(ignored)) alike.push_back(found);
  }
  return parent / (alike.size() == 1 ? alike.front() : name);
}

// A "?" in what a field gives stands for a character beyond the page, unless a directory bears it.
std::string WithoutDoubt(const std::string& typed) {
  std::error_code ignored;
  if (typed.find('?') == std::string::npos || fs::exists(PlatformPath(typed), ignored)) return typed;
  fs::path path;
  for (const fs::path& name : PlatformPath(typed)) {
    const bool isDoubtful = name.native().find('?') != std::string::npos;
    path = isDoubtful ? Meant(path, name) : path / name;
  }
  return TextOfPath(path);
}

}  // namespace

frmEnterDir::frmEnterDir(ui::Desktop& desktop, Environment& environment)
    : OkCancelForm(desktop, ownKeys_, "frmEnterDir", "Enter Data Files Directory"),
      ownKeys_(desktop),
      environment_(environment) {
  SetSize(7200, 6000);
  TextString.SetToolTip("Where the shop's data files are");
  Drive1.SetToolTip("Where to look");
  Dir1.SetToolTip("Double click or Enter goes into the directory");
  cmdOK.SetToolTip("OK <F10>");
  cmdCancel.SetToolTip("Cancel <Esc>");
  UseButtons(cmdOK, cmdCancel);

  Drive1.OnClick = [this] { GoTo(drives_, Drive1.ListIndex()); };
  Dir1.OnClick = [this] {
    if (Dir1.ListIndex() >= 0)
      TextString.SetText(TextOfPath(directories_.at(static_cast<std::size_t>(Dir1.ListIndex()))));
  };
  Dir1.OnDoubleClick = [this] { GoTo(directories_, Dir1.ListIndex()); };
  Dir1.OnKeyDown = [this](ui::KeyPress& key) {
    if (!key.Is("Enter") || Dir1.ListIndex() < 0) return;
    key.Clear();
    GoTo(directories_, Dir1.ListIndex());
  };
}

void frmEnterDir::OnLoad() {
  drives_ = Drives();
  for (const fs::path& drive : drives_) Drive1.AddItem(TextOfPath(drive));
  // The person's own directory where there is one.
  Drive1.SetListIndex(std::min(1, Drive1.ListCount() - 1));
  // What stands there at first isn't a choice of the person's.
  TextString.SetText("");
}

void frmEnterDir::GoTo(const std::vector<fs::path>& places, int row) {
  if (row < 0) return;
  // A copy, for ShowDirectory empties the list that it stands in.
  // NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
  const fs::path path = places.at(static_cast<std::size_t>(row));
  ShowDirectory(path);
  TextString.SetText(TextOfPath(path));
}

void frmEnterDir::ShowDirectory(const fs::path& path) {
  Dir1.Clear();
  directories_.clear();
  if (path.has_relative_path()) {
    directories_.push_back(path.parent_path());
    Dir1.AddItem("..");
  }
  for (const fs::path& directory : SubDirectories(path)) {
    directories_.push_back(directory);
    Dir1.AddItem(TextOfPath(directory.filename()));
  }
}

void frmEnterDir::Accept() {
  answer = WithoutDoubt(Trim(TextString.Text()));
  if (!answer.empty()) {
    // The main application reads the same setting, and expects it to end so.
    if (!answer.ends_with('/')) answer += '/';
    StoreDataDir(environment_, GetDesktop(), answer, "use it this time only");
    environment_.files.SetDataDir(answer);
  }
  Hide();
}

void frmEnterDir::Cancel() {
  answer.clear();
  Hide();
}

}  // namespace lantos
