#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

#include "frame/FileError.h"
#include "frame/PlainWords.h"
#include "frame/ScratchDirectory.h"
#include "spelling/hunspell/HunspellSpeller.h"
#include "spelling/hunspell/SpellerProcess.h"

namespace lantos::test {
namespace {

using testing::Contains;
using testing::ElementsAre;

struct Dictionaries {
  ScratchDirectory directory;

  void Put(const std::string& name, const std::string& text) const {
    std::ofstream(directory / name, std::ios::binary) << text;
  }
  void PutLanguage(const std::string& language, const std::string& set, const std::string& words) const {
    Put(language + ".aff", "SET " + set + "\nTRY abcdefghijklmnopqrstuvwxyz\n");
    Put(language + ".dic", words);
  }
  std::unique_ptr<Speller> Open(const std::vector<std::string>& languages = {"en_US"}) const {
    return OpenDictionary(directory / ".", languages);
  }
};

// The words of the error that opening ends with.
std::string Refusal(const Dictionaries& dictionaries) {
  try {
    dictionaries.Open();
  } catch (const std::exception& error) {
    return WordsFor(error);
  }
  return "none";
}

TEST(Hunspell, KnowsItsWordsInAnyCaseAndSuggestsThem) {
  const Dictionaries dictionaries;
  dictionaries.PutLanguage("en_US", "UTF-8", "3\nbrake\npads\nwon't\n");
  const auto speller = dictionaries.Open();
  ASSERT_TRUE(speller);
  EXPECT_TRUE(speller->Knows("brake"));
  EXPECT_TRUE(speller->Knows("BRAKE"));
  EXPECT_TRUE(speller->Knows("won\x92t"));
  EXPECT_FALSE(speller->Knows("braek"));
  EXPECT_THAT(speller->Suggestions("BRAEK"), Contains("BRAKE"));
}

TEST(Hunspell, IsThereInTheFirstLanguageThatHasADictionary) {
  const Dictionaries dictionaries;
  EXPECT_FALSE(dictionaries.Open({"de_DE", "", "en_US"}));
  dictionaries.PutLanguage("en_US", "UTF-8", "1\nbrake\n");
  EXPECT_TRUE(dictionaries.Open({"de_DE", "", "en_US"})->Knows("brake"));
  dictionaries.PutLanguage("de_DE", "ISO8859-1", "1\nZ\xFCndkerze\n");
  const auto german = dictionaries.Open({"de_DE", "en_US"});
  EXPECT_TRUE(german->Knows("Z\xFCndkerze"));
  EXPECT_FALSE(german->Knows("brake"));
  EXPECT_THAT(german->Suggestions("Z\xFCndkerse"), ElementsAre("Z\xFCndkerze"));
}

TEST(Hunspell, DoesNotKnowWhatItsCharacterSetLacks) {
  const Dictionaries dictionaries;
  dictionaries.PutLanguage("en_US", "microsoft-cp1251", "1\nbrake\n");
  const auto speller = dictionaries.Open();
  EXPECT_TRUE(speller->Knows("brake"));
  EXPECT_FALSE(speller->Knows("caf\xE9"));
  EXPECT_TRUE(speller->Suggestions("caf\xE9").empty());
}

TEST(Hunspell, IsNotAskedAboutWordsWithoutEnd) {
  const Dictionaries dictionaries;
  dictionaries.PutLanguage("en_US", "UTF-8", "1\nbrake\n");
  const auto speller = dictionaries.Open();
  EXPECT_FALSE(speller->Knows(std::string(100'000, 'a')));
  EXPECT_TRUE(speller->Suggestions(std::string(100'000, 'a')).empty());
}

TEST(Hunspell, RefusesWhatIsNoDictionary) {
  const Dictionaries dictionaries;
  dictionaries.PutLanguage("en_US", "UTF-8", "2000000000\nbrake\n");
  EXPECT_THAT(Refusal(dictionaries), testing::HasSubstr("is no dictionary"));
  dictionaries.Put("en_US.dic", "");
  EXPECT_THAT(Refusal(dictionaries), testing::HasSubstr("is no dictionary"));
  dictionaries.PutLanguage("en_US", "no-such-set", "1\nbrake\n");
  EXPECT_THAT(Refusal(dictionaries), testing::HasSubstr("\"no-such-set\", which this computer doesn't know"));
  std::filesystem::remove(dictionaries.directory / "en_US.dic");
  std::filesystem::create_directory(dictionaries.directory / "en_US.dic");
  EXPECT_THROW(dictionaries.Open(), FileError);
}

// As a damaged dictionary ends the library.
class Falling : public Speller {
 public:
  bool Knows(const std::string& word) override {
    if (word == "fall") ::raise(SIGSEGV);
    return word == "known";
  }
  std::vector<std::string> Suggestions(const std::string& word) override {
    return {std::string(5000, 'x'), word + " one", word + " two"};
  }
};

TEST(SpellerProcess, AnswersAsTheSpellerInIt) {
  SpellerProcess speller([] { return std::make_unique<Falling>(); }, "en_US");
  EXPECT_TRUE(speller.Knows("known"));
  EXPECT_FALSE(speller.Knows("other"));
  EXPECT_FALSE(speller.Knows(std::string(100'000, 'a')));
  EXPECT_THAT(speller.Suggestions("a"), ElementsAre("a one", "a two"));  // and none that is no word
}

TEST(SpellerProcess, ThatFallsIsToldOfAndHarmsNobody) {
  SpellerProcess speller([] { return std::make_unique<Falling>(); }, "en_US");
  for (int i = 0; i < 2; ++i) {
    try {
      speller.Knows("fall");
      ADD_FAILURE() << "no error";
    } catch (const WordedError& error) {
      EXPECT_EQ(error.Words(), "The dictionary en_US can't be used: it is damaged. Install it anew.");
    }
  }
  EXPECT_THROW(speller.Suggestions("a"), WordedError);
}

// What it has to say of its failure isn't taken for an answer.
TEST(SpellerProcess, ThatFailsAtAWordIsToldOfToo) {
  class Refusing : public Speller {
   public:
    bool Knows(const std::string&) override { throw std::runtime_error("no memory"); }
    std::vector<std::string> Suggestions(const std::string&) override { throw std::runtime_error("no memory"); }
  };
  const auto open = [] { return std::make_unique<Refusing>(); };
  SpellerProcess asked(open, "en_US");
  EXPECT_THROW(asked.Knows("brake"), WordedError);
  EXPECT_THROW(asked.Knows("brake"), WordedError) << "it is gone";
  SpellerProcess another(open, "en_US");
  EXPECT_THROW(another.Suggestions("brake"), WordedError);
}

TEST(SpellerProcess, KeepsNoFileOpenAndEndsWithItsOwner) {
  const ScratchDirectory directory;
  std::ofstream(directory / "held") << "x";
  const int held = ::open((directory / "held").c_str(), O_RDONLY | O_CLOEXEC);
  pid_t process = 0;
  {
    SpellerProcess speller([] { return std::make_unique<Falling>(); }, "en_US");
    EXPECT_TRUE(speller.Knows("known"));
    process = speller.Process();
    for (const auto& each : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/fd")) {
      EXPECT_EQ(std::filesystem::read_symlink(each).string().find("held"), std::string::npos);
    }
  }
  ::close(held);
  EXPECT_EQ(::kill(process, 0), -1);
}

// The person's language as the environment has it, put back behind the test.
class Language {
 public:
  explicit Language(const char* value) {
    for (const char* name : {"LC_ALL", "LC_MESSAGES"}) ::unsetenv(name);
    ::setenv("LANG", value, 1);
  }
  ~Language() { ::unsetenv("LANG"); }
};

TEST(Hunspell, TakesThePersonsLanguageAndEnglishBehindIt) {
  {
    const Language german("de_DE.UTF-8@euro");
    EXPECT_THAT(LanguagesOfUser(), ElementsAre("de_DE", "en_US"));
  }
  {
    const Language path("../../etc/passwd");
    EXPECT_THAT(LanguagesOfUser(), ElementsAre("", "en_US"));
  }
  EXPECT_THAT(LanguagesOfUser(), ElementsAre("en_US"));
}

}  // namespace
}  // namespace lantos::test
