#include "Target.h"
#include "frame/PathText.h"

namespace lantos::fuzz {

// Only looks: what the bytes name may be any place of the machine.
void Try(std::string_view bytes) {
  static HastyClock clock;
  FileIO files(clock);
  files.SetDataDir(std::string(bytes));
  const std::string path = PlatformPath(files.DataDir()).string();
  Require(path.find('\\') == std::string::npos && path.find("//") == std::string::npos);
  Require(PlatformPath(TextOfPath(path)) == path);
  Refusable([&] {
    See(files.PathOf("Lantos.mdb").string());
    files.IsThere("Lantos.mdb");
    files.Length(bytes);
  });
  // As a name in a directory that is there.
  files.SetDataDir(TheShop().environment.files.DataDir());
  Refusable([&] { files.IsThere(bytes); });
  Refusable([&] { files.List(bytes); });
}

}  // namespace lantos::fuzz
