#include "spelling/hunspell/HunspellSpeller.h"

#include <fcntl.h>
#include <iconv.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <hunspell.hxx>
#include <optional>
#include <string_view>

#include "frame/GuardedOpen.h"
#include "frame/PathText.h"
#include "frame/PlainWords.h"
#include "frame/Text.h"
#include "frame/UnfitFile.h"
#include "frame/Uninterrupted.h"
#include "spelling/hunspell/SpellerProcess.h"

namespace lantos {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLastResort = "en_US";
// What is longer is no word, and would be thought about for long.
constexpr std::size_t kLongestAsked = 64;
constexpr std::size_t kLongestCorrected = 32;

// From one character set to another, a word at a time.
class Conversion {
 public:
  Conversion(const std::string& to, const std::string& from) : handle_(iconv_open(to.c_str(), from.c_str())) {}
  ~Conversion() {
    if (IsThere()) iconv_close(handle_);
  }
  Conversion(const Conversion&) = delete;

  bool IsThere() const { return handle_ != Handle(-1); }
  // Nothing when the other set lacks a character of it.
  std::optional<std::string> operator()(std::string_view text) {
    std::string bytes(text);
    iconv(handle_, nullptr, nullptr, nullptr, nullptr);
    char* in = bytes.data();
    std::size_t left = bytes.size();
    std::array<char, 512> room{};
    char* out = room.data();
    std::size_t free = room.size();
    if (iconv(handle_, &in, &left, &out, &free) != 0) return std::nullopt;
    return std::string(room.data(), room.size() - free);
  }

 private:
  using Handle = iconv_t;
  Handle handle_;
};

// As the platform calls the character sets that a dictionary names.
std::string PlatformName(std::string_view dictionarySet) {
  constexpr std::string_view kVendorsOwn = "microsoft-";
  if (dictionarySet.starts_with(kVendorsOwn)) dictionarySet.remove_prefix(kVendorsOwn.size());
  return std::string(dictionarySet);
}

class HunspellSpeller : public Speller {
 public:
  explicit HunspellSpeller(const fs::path& stem)
      : dictionary_((stem.string() + ".aff").c_str(), (stem.string() + ".dic").c_str()),
        toDictionary_(PlatformName(dictionary_.get_dict_encoding()), "CP1252"),
        fromDictionary_("CP1252", PlatformName(dictionary_.get_dict_encoding())) {
    if (toDictionary_.IsThere() && fromDictionary_.IsThere()) return;
    throw WordedError("character set " + dictionary_.get_dict_encoding() + " of " + stem.string(),
                      "The dictionary " + TextOfPath(stem) + " is in the character set \"" +
                          dictionary_.get_dict_encoding() + "\", which this computer doesn't know.");
  }

  bool Knows(const std::string& word) override {
    if (word.size() > kLongestAsked) return false;
    const std::optional<std::string> asked = toDictionary_(WithPlainApostrophes(word));
    return asked && dictionary_.spell(*asked);
  }

  std::vector<std::string> Suggestions(const std::string& word) override {
    std::vector<std::string> words;
    if (word.size() > kLongestCorrected) return words;
    const std::optional<std::string> asked = toDictionary_(WithPlainApostrophes(word));
    if (!asked) return words;
    for (const std::string& suggestion : dictionary_.suggest(*asked)) {
      if (std::optional<std::string> shown = fromDictionary_(suggestion)) words.push_back(std::move(*shown));
    }
    return words;
  }

 private:
  static std::string WithPlainApostrophes(std::string word) {
    std::replace(word.begin(), word.end(), '\x92', '\'');
    return word;
  }

  Hunspell dictionary_;
  Conversion toDictionary_;
  Conversion fromDictionary_;
};

// A descriptor that is closed.
class OpenedToLook {
 public:
  explicit OpenedToLook(const fs::path& path) : descriptor_(OpenExistingFile(path, O_RDONLY, Links::Followed)) {
    if (descriptor_ >= 0) return;
    const int errorNumber = errno;
    RefuseUnfit(errorNumber, path);
    ThrowFileError(errorNumber, "opening " + path.string());
  }
  ~OpenedToLook() { ::close(descriptor_); }
  OpenedToLook(const OpenedToLook&) = delete;
  int Descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

// The library takes memory for as many words as the first line of the list says.
void RefuseFalseCount(const fs::path& path, int descriptor, std::uint64_t length) {
  std::array<char, 64> begin{};
  const ssize_t count = Uninterrupted([&] { return ::pread(descriptor, begin.data(), begin.size() - 1, 0); });
  if (count < 0) ThrowFileError(errno, "reading " + path.string());
  std::string_view line(begin.data(), static_cast<std::size_t>(count));
  if (line.starts_with("\xEF\xBB\xBF")) line.remove_prefix(3);
  const double words = Val(line.substr(0, line.find_first_of("\r\n")));
  if (words >= 1 && words <= static_cast<double>(length)) return;
  throw WordedError("false count of words in " + path.string(),
                    TextOfPath(path) + " is no dictionary: it doesn't begin with the count of its words.");
}

// Throws unless it is a file of a dictionary's size.
void Examine(const fs::path& path) {
  const OpenedToLook file(path);
  struct stat status = {};
  if (::fstat(file.Descriptor(), &status) != 0) ThrowFileError(errno, "looking at " + path.string());
  const auto length = static_cast<std::uint64_t>(status.st_size);
  RefuseTooLong(path, length, kLongestTextFile);
  if (path.extension() == ".dic") RefuseFalseCount(path, file.Descriptor(), length);
}

// A language as it may be the name of a file: without a character set or a variant, and with nothing but letters.
std::string LanguageIn(std::string_view locale) {
  locale = locale.substr(0, locale.find_first_of(".@"));
  const auto isPlain = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
  return std::all_of(locale.begin(), locale.end(), isPlain) ? std::string(locale) : std::string();
}

}  // namespace

std::vector<std::string> LanguagesOfUser() {
  std::vector<std::string> languages;
  for (const char* value : {std::getenv("LC_ALL"), std::getenv("LC_MESSAGES"), std::getenv("LANG")}) {
    if (value == nullptr || *value == '\0') continue;
    languages.push_back(LanguageIn(value));
    break;  // the first that is set is the one that holds
  }
  languages.emplace_back(kLastResort);
  return languages;
}

std::unique_ptr<Speller> OpenDictionary(const fs::path& folder, const std::vector<std::string>& languages) {
  for (const std::string& language : languages) {
    if (language.empty()) continue;
    const fs::path affixes = folder / (language + ".aff");
    const fs::path words = folder / (language + ".dic");
    std::error_code failed;
    if (!fs::exists(affixes, failed) || !fs::exists(words, failed)) continue;
    Examine(affixes);
    Examine(words);
    const fs::path stem = folder / language;
    return std::make_unique<SpellerProcess>([stem] { return std::make_unique<HunspellSpeller>(stem); },
                                            TextOfPath(stem));
  }
  return nullptr;
}

}  // namespace lantos
