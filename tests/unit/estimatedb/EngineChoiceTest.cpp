#include "estimatedb/EngineChoice.h"

#include "DatabaseFixture.h"

namespace lantos::test {
namespace {

using namespace std::string_literals;
using testing::AllOf;
using testing::HasSubstr;

class ChoiceOfEngine : public DatabaseTest {};

TEST_F(ChoiceOfEngine, ANewFileHoldsADatabaseThatOpensLater) {
  CreateDatabaseFile(PathOf("New.mdb"), clock)->Run("CREATE TABLE Seen (Number Long)", {});
  const std::unique_ptr<Engine> engine = OpenDatabase(PathOf("New.mdb"), clock);
  engine->Insert("Seen", {"Number"}, {std::int64_t{7}});
  EXPECT_EQ(engine->Run("select * from Seen", {}).Long("Number"), 7);
}

TEST_F(ChoiceOfEngine, AFileThatIsThereIsNotMadeAnew) {
  const std::string before = BytesOf("Lantos.mdb");
  EXPECT_THAT(ErrorOf([&] { CreateDatabaseFile(Path(), clock); }), HasSubstr("is there already"));
  EXPECT_EQ(BytesOf("Lantos.mdb"), before);
}

TEST_F(ChoiceOfEngine, AFileThatNoEngineIsForIsRefusedUntouched) {
  for (const std::string& bytes : {""s, "\0\1\0\0Standard Jet DB\0\1\0\0\0"s, "[ini]"s}) {
    Put("Other.mdb", bytes);
    EXPECT_THAT(ErrorOf([&] { OpenDatabase(PathOf("Other.mdb"), clock); }),
                AllOf(HasSubstr("Other.mdb"), HasSubstr("left as it is")));
    EXPECT_EQ(BytesOf("Other.mdb"), bytes);
  }
}

TEST_F(ChoiceOfEngine, AFileThatIsNotThereIsNotMade) {
  EXPECT_THAT(ErrorOf([&] { OpenDatabase(PathOf("None.mdb"), clock); }), HasSubstr("None.mdb"));
  EXPECT_FALSE(std::filesystem::exists(PathOf("None.mdb")));
}

}  // namespace
}  // namespace lantos::test
