#include "records/TextLineReader.h"

#include <algorithm>
#include <span>

#include "frame/UnfitFile.h"

namespace lantos {

namespace {
constexpr std::size_t kBlock = 8192;
}

bool TextLineReader::Fill() {
  block_.resize(kBlock);
  block_.resize(file_.ReadAt(offset_, std::as_writable_bytes(std::span(block_))));
  offset_ += block_.size();
  used_ = 0;
  return !block_.empty();
}

int TextLineReader::Take() {
  if (used_ == block_.size() && !Fill()) return -1;
  return static_cast<unsigned char>(block_[used_++]);
}

bool TextLineReader::Next(std::string& line) {
  line.clear();
  for (;;) {
    // What the block holds of the line at once, then its end by character.
    const auto begin = block_.begin() + static_cast<std::ptrdiff_t>(used_);
    const auto end = std::find_if(begin, block_.end(), [](char each) { return each == '\r' || each == '\n'; });
    line.append(begin, end);
    if (line.size() > kLongestLine) throw UnfitFile(name_, UnfitFile::Why::LongLine);
    used_ = static_cast<std::size_t>(end - block_.begin());
    const int c = Take();
    if (c < 0) return !line.empty();
    if (c == '\n') return true;
    if (c == '\r') {
      if (Take() != '\n' && used_ > 0) --used_;
      return true;
    }
    line += static_cast<char>(c);  // the first of a new block
  }
}

}  // namespace lantos
