#include "records/Statements.h"

#include <span>

#include "frame/ReplaceContent.h"
#include "frame/Text.h"
#include "records/OpenedFile.h"
#include "records/TextLines.h"

namespace lantos {

namespace {

template <class Shape>
std::string ReadLines(Environment& environment, std::string_view name, Shape shape) {
  const auto lines = ReadTextLines(environment, name, Deny::None);
  if (!lines) throw FileError(FileErrorNumber::FileNotFound, std::string(name));
  std::string text;
  for (const std::string& line : *lines) text += (&line == &lines->front() ? "" : "\r\n") + shape(line);
  return text;
}

}  // namespace

std::string ReadStatement(Environment& environment, std::string_view name) {
  return ReadLines(environment, name, [](const std::string& line) { return line.substr(0, line.find('\0')); });
}

std::string ReadTrimmedStatement(Environment& environment, std::string_view name) {
  return ReadLines(environment, name, TrimNull);
}

void WriteStatement(Environment& environment, std::string_view name, std::string_view text) {
  OpenedFile file(environment.openFiles, name, Access::ReadWrite, Deny::All);
  ReplaceContent(*file, std::as_bytes(std::span(text)));
}

}  // namespace lantos
