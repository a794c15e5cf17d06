#include "board/DoubtfulFiles.h"

namespace lantos {

namespace {

constexpr int kSoon = 1;  // milliseconds
constexpr int kBehindTheBox = 250;
// Of changes that other copies are told of: nobody has stored anything there.
constexpr std::string_view kMailbox = ".$$$";

}  // namespace

DoubtfulFiles::DoubtfulFiles(Shop& shop, ui::Timer& timer) : shop_(shop), timer_(timer) {
  timer_.OnTimer = [this] {
    // A routine may have files and turns of its own behind a box.
    shop_.desktop.IsAsking() ? timer_.SetInterval(kBehindTheBox) : Tell();
  };
  shop_.environment.openFiles.whenDoubtful = [this](const std::string& name, const FileFailure& failure) {
    if (name.ends_with(kMailbox)) return;
    untold_.insert_or_assign(name, failure);
    timer_.SetInterval(kSoon);
  };
}

DoubtfulFiles::~DoubtfulFiles() { shop_.environment.openFiles.whenDoubtful = nullptr; }

void DoubtfulFiles::Tell() {
  timer_.SetInterval(0);
  while (!untold_.empty()) {
    const auto file = untold_.extract(untold_.begin());
    shop_.desktop.Tell(
        InWords(file.mapped(), "What was just stored in " + file.key() + " may be lost") + "\rLook at it again.",
        file.key(), ui::Icon::Exclamation);
  }
}

}  // namespace lantos
