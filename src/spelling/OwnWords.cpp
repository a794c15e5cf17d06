#include "spelling/OwnWords.h"

#include <string_view>

#include "frame/LockedText.h"
#include "frame/Text.h"

namespace lantos {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r";

std::string_view WithoutBlanks(std::string_view line) {
  const std::size_t begin = line.find_first_not_of(kBlanks);
  if (begin == std::string_view::npos) return {};
  return line.substr(begin, line.find_last_not_of(kBlanks) - begin + 1);
}

}  // namespace

WordSet OwnWords::Load() const {
  WordSet words;
  const std::string text = LockedText(file_, LockedText::Purpose::Reading, Links::Followed).Read().value_or("");
  std::string_view rest = text;
  if (rest.starts_with(kByteOrderMark)) rest.remove_prefix(kByteOrderMark.size());
  while (!rest.empty()) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = WithoutBlanks(rest.substr(0, end));
    rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    if (line.size() > 4 * kLongestWord) continue;  // bytes that a character of UTF-8 has at most
    const std::string word = FromUtf8(line);
    if (word.size() <= kLongestWord) words.Add(word);
  }
  return words;
}

bool OwnWords::Add(const std::vector<std::string>& words) {
  if (words.empty()) return true;
  std::error_code noDirectory;
  std::filesystem::create_directories(file_.parent_path(), noDirectory);
  LockedText file(file_, LockedText::Purpose::Editing, Links::Followed);
  std::optional<std::string> text = file.Read();
  if (text) {
    if (!text->empty() && !text->ends_with('\n')) *text += '\n';
    for (const std::string& word : words) *text += ToUtf8(word) + '\n';
    if (file.Replace(*text)) return true;
  }
  failure_ = noDirectory ? FileFailure(NumberOfErrno(noDirectory.value())) : file.Failure();
  return false;
}

}  // namespace lantos
