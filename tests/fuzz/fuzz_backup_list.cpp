#include "Target.h"
#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/Manifest.h"
#include "frame/FileIO.h"

namespace lantos::fuzz {

// What is taken names files of the directory alone, and says the same when it is written and read again.
void Try(std::string_view bytes) {
  try {
    const Manifest manifest = ReadManifest(bytes);
    for (const BackedFile& file : manifest.files) Require(IsPlainName(file.name));
    Require(ReadManifest(TextOf(manifest)) == manifest);
    See(manifest.madeAt);
  } catch (const BackupError& refusal) {
    See(refusal.what());
  }
}

}  // namespace lantos::fuzz
