#include <sys/stat.h>

#include "caretaker/check/Kinds.h"
#include "caretaker/check/Words.h"

namespace lantos {

namespace {

struct Who {
  const char* words;
  mode_t read, write;
};
constexpr Who kGroup{"the directory's group", S_IRGRP, S_IWGRP};
constexpr Who kOthers{"others", S_IROTH, S_IWOTH};

}  // namespace

// What the directory allows its group and the others they may do with each file in it. Where nobody but its owner
// writes in it, and it isn't marked as shared, the umask tells, and that is nobody's fault.
void FindModes(ShopView& shop, const Tell& tell) {
  const std::filesystem::path directory = PlatformPath(shop.files.DataDir());
  struct stat shared = {};
  if (::stat(directory.c_str(), &shared) != 0) return;
  for (const std::string& name : shop.files.List("*")) {
    struct stat file = {};
    if (::stat((directory / ToUtf8(name)).c_str(), &file) != 0) continue;
    const bool isMarked = (shared.st_mode & S_ISGID) != 0;
    if (isMarked && file.st_gid != shared.st_gid) {
      tell({name, "", "", "it belongs to another group than the directory"});
      continue;
    }
    for (const Who& who : {kGroup, kOthers}) {
      if (!isMarked && (shared.st_mode & who.write) == 0) continue;
      const mode_t wanted = shared.st_mode & (who.read | who.write);
      if ((file.st_mode & wanted) == wanted) continue;
      const bool canRead = (file.st_mode & who.read) != 0;
      tell({name, "", "",
            fmt::format("{} can't {} it, and may {} the directory", who.words, canRead ? "write" : "read",
                        canRead ? "write in" : "use")});
    }
  }
}

}  // namespace lantos
