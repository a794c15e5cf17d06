#include "caretaker/backup/LeftOvers.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <map>
#include <optional>
#include <system_error>

#include "caretaker/backup/PlainFile.h"
#include "frame/NetworkMount.h"

namespace lantos {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kFreeLetters = 6;  // of mkdtemp

// The archive that a scratch folder of this name belongs to.
std::optional<std::string_view> ArchiveOf(std::string_view name) {
  for (const std::string_view mark : {kCopiesMark, kVerifyMark}) {
    const std::size_t end = mark.size() + 1 + kFreeLetters;
    if (name.size() <= end) continue;
    const std::string_view letters = name.substr(name.size() - kFreeLetters);
    const bool isOne = name.substr(name.size() - end, mark.size() + 1) == std::string(mark) + "-";
    const auto isFree = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) != 0; };
    if (isOne && std::all_of(letters.begin(), letters.end(), isFree)) return name.substr(0, name.size() - end);
  }
  return {};
}

}  // namespace

std::vector<fs::path> ClearLeftOvers(const fs::path& folder, const std::function<bool(std::string_view)>& isMeant) {
  std::vector<fs::path> cleared;
  if (IsOnNetworkMount(folder)) return cleared;
  std::error_code ignored;
  std::map<std::string, std::vector<fs::path>> found;  // by archive
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
    const std::string name = entry.path().filename().string();
    const auto archive = ArchiveOf(name);
    const bool isFolder = entry.is_directory(ignored) && !entry.is_symlink(ignored);
    if (archive && isFolder && isMeant(*archive)) found[std::string(*archive)].push_back(entry.path());
  }
  for (auto& [archive, folders] : found) {
    std::copy_if(folders.begin(), folders.end(), std::back_inserter(cleared), RemoveIfDead);
    // Whoever makes it has a folder beside it.
    const fs::path begun = folder / (archive + kBegunEnding);
    const bool isAnyLeft =
        std::any_of(folders.begin(), folders.end(), [&](const fs::path& each) { return fs::exists(each, ignored); });
    if (!isAnyLeft && fs::remove(begun, ignored)) cleared.push_back(begun);
  }
  return cleared;
}

}  // namespace lantos
