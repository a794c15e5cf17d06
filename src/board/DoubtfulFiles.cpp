#include "board/DoubtfulFiles.h"

namespace lantos {

namespace {

constexpr int kSoon = 1;  // milliseconds

}  // namespace

DoubtfulFiles::DoubtfulFiles(Shop& shop, ui::Timer& timer) : shop_(shop), timer_(timer) {
  timer_.OnTimer = [this] { Tell(); };
  shop_.environment.openFiles.whenDoubtful = [this](const std::string& name, const FileFailure& failure) {
    untold_.insert_or_assign(name, failure);
    timer_.SetInterval(kSoon);
  };
}

DoubtfulFiles::~DoubtfulFiles() { shop_.environment.openFiles.whenDoubtful = nullptr; }

void DoubtfulFiles::Tell() {
  timer_.SetInterval(0);
  while (!untold_.empty()) {
    const auto file = untold_.extract(untold_.begin());
    shop_.desktop.Tell(InWords(file.mapped(), "What was just stored in " + file.key() + " may be lost") +
                           "\rLook at it again, and store it once more if it isn't there.",
                       file.key(), ui::Icon::Exclamation);
  }
}

}  // namespace lantos
