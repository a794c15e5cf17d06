#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "frame/SharedFile.h"

namespace lantos {

// Lines as a text file has them.
class LineSource {
 public:
  virtual ~LineSource() = default;
  // The next line without its end; false, and an empty line, when there is none.
  virtual bool Next(std::string& line) = 0;
};

// The lines of an opened file from an offset on. A line ends at CR LF, CR or LF; what stands behind the last end is a
// line if it isn't empty. A NUL is a character like any other. A line longer than any text has throws UnfitFile, which
// says the name.
class TextLineReader : public LineSource {
 public:
  explicit TextLineReader(const SharedFile& file, std::uint64_t offset = 0, std::string_view name = "A text file")
      : file_(file), offset_(offset), name_(name) {}
  bool Next(std::string& line) override;

 private:
  bool Fill();
  int Take();  // the next character, -1 at the end

  const SharedFile& file_;
  std::uint64_t offset_;
  std::string name_;
  std::string block_;
  std::size_t used_ = 0;
};

}  // namespace lantos
