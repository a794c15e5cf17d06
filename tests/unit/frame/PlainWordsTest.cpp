#include "frame/PlainWords.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <system_error>

#include "frame/FileError.h"

namespace lantos {
namespace {

TEST(PlainWords, AreToldInPlaceOfTheTextWhereThereAreSome) {
  const WordedError worded("constraint failed: insert into", "It is there already.");
  const std::exception& error = worded;
  EXPECT_EQ(WordsFor(error), "It is there already.");
  EXPECT_STREQ(error.what(), "constraint failed: insert into");
  EXPECT_EQ(WordsFor(std::runtime_error("Overflow")), "Overflow");
}

TEST(PlainWords, NeverHaveThePlatformsOwnReason) {
  try {
    ThrowFileError(EAGAIN, "opening /shop/TQPARTS.DAT");
  } catch (const FileError& error) {
    EXPECT_EQ(WordsFor(error), "Error 70: Permission denied (opening /shop/TQPARTS.DAT)");
    EXPECT_THAT(error.what(), testing::HasSubstr(std::strerror(EAGAIN)));
  }
  try {
    static_cast<void>(std::filesystem::file_size("/nowhere/TQPARTS.DAT"));
    ADD_FAILURE() << "is there";
  } catch (const std::filesystem::filesystem_error& error) {
    EXPECT_EQ(WordsFor(error), "A file or directory can't be used: /nowhere/TQPARTS.DAT. The run log has the reason.");
  }
  EXPECT_EQ(WordsFor(std::system_error(EIO, std::generic_category())),
            "The system refused what was asked for. The run log has the reason.");
  EXPECT_EQ(WordsFor(std::bad_alloc()), "There isn't memory enough for that.");
}

}  // namespace
}  // namespace lantos
