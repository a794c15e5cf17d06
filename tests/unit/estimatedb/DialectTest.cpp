#include "estimatedb/sqlite/Dialect.h"

#include "DatabaseFixture.h"
#include "estimatedb/sqlite/SqlWords.h"

namespace lantos::test {
namespace {

TEST(Dialect, OrdinaryStatementsPassUnchanged) {
  for (const Command& command : kLantosCommands) {
    const std::string name(command.name);
    if (name == "CloneEstimate" || name == "UpdateQuery" || name == "ChecklistTable") continue;
    if (name.starts_with("Create")) continue;
    EXPECT_EQ(ToSqlite(command.statement), command.statement);
  }
}

TEST(Dialect, ATablesBareNameOpensTheWholeTable) {
  EXPECT_EQ(ToSqlite("Checklist"), "select * from Checklist");
  EXPECT_EQ(ToSqlite(" FollowUps "), "select * from FollowUps");
}

TEST(Dialect, AnUpdateOfTwoTablesTakesTheSecondOneFrom) {
  EXPECT_EQ(ToSqlite("UPDATE T AS n, S AS o SET n.A = o.A, n.B = o.B WHERE o.Id = ? AND n.Id = ?"),
            "UPDATE T AS n SET A = o.A, B = o.B FROM S AS o WHERE o.Id = ? AND n.Id = ?");
  EXPECT_EQ(ToSqlite("update T set A = 1, B = 2 where C in (1, 2)"), "update T set A = 1, B = 2 where C in (1, 2)");
}

TEST(Dialect, ADateInDoubleQuotesIsADate) {
  EXPECT_EQ(ToSqlite("Update Estimates set SchedDate = \"01/02/2003\" where SchedDate is NULL"),
            "Update Estimates set SchedDate = '2003-01-02' where SchedDate is NULL");
}

TEST(Dialect, OtherTextInDoubleQuotesIsText) {
  EXPECT_EQ(ToSqlite("select * from T where A = \"O'Neil \"\"x\"\"\" and B = '\"01/02/2003\"'"),
            "select * from T where A = 'O''Neil \"x\"' and B = '\"01/02/2003\"'");
  EXPECT_EQ(ToSqlite("select \"99/99/2003\""), "select '99/99/2003'");
}

TEST(Dialect, TypesOfNewTablesGetSqlitesNames) {
  EXPECT_EQ(ToSqlite("CREATE TABLE T (A Long DEFAULT 0,B Memo,C Text(20),D Date DEFAULT Date(),E Short,"
                     "CONSTRAINT PrimaryKey PRIMARY KEY (A,B))"),
            "CREATE TABLE T (A INTEGER DEFAULT 0,B LongText,C Text(20),D Date DEFAULT (date('now','localtime')),"
            "E SMALLINT,CONSTRAINT PrimaryKey PRIMARY KEY (A,B))");
}

TEST(Dialect, ACounterIsTheKeyAndTheNamedKeyOnlyUnique) {
  EXPECT_EQ(ToSqlite("CREATE TABLE C (EstimateNumber Integer,RecId Counter,ChecklistData Text(255),"
                     "CONSTRAINT PrimaryKey PRIMARY KEY (EstimateNumber,RecId))"),
            "CREATE TABLE C (EstimateNumber INTEGER,RecId INTEGER PRIMARY KEY AUTOINCREMENT,ChecklistData Text(255),"
            "CONSTRAINT PrimaryKey UNIQUE (EstimateNumber,RecId))");
}

TEST(Dialect, TypesOfAddedColumnsGetSqlitesNames) {
  EXPECT_EQ(ToSqlite("ALTER TABLE Estimates ADD COLUMN VehYear Text(5)"),
            "ALTER TABLE Estimates ADD COLUMN VehYear Text(5)");
  EXPECT_EQ(ToSqlite("ALTER TABLE T ADD COLUMN A Memo"), "ALTER TABLE T ADD COLUMN A LongText");
}

TEST(Dialect, AColumnsChangeIsToldFromOtherStatements) {
  const auto change = AsColumnChange("alter table Labors Alter Column Description Memo");
  ASSERT_TRUE(change);
  EXPECT_EQ(change->table, "Labors");
  EXPECT_EQ(change->column, "Description");
  EXPECT_EQ(change->type, "LongText");
  EXPECT_EQ(AsColumnChange("ALTER TABLE T ALTER COLUMN A Text(20)")->type, "Text(20)");
  EXPECT_FALSE(AsColumnChange("ALTER TABLE Labors ADD COLUMN Description Memo"));
  EXPECT_FALSE(AsColumnChange("select * from Labors"));
  EXPECT_FALSE(AsColumnChange(""));
}

TEST(Dialect, AColumnsTypeIsReplacedWhereverItStands) {
  const std::string table =
      "CREATE TABLE Old (A Long, -- Note Text(9)\n \"Note\" Text(255) NOT NULL DEFAULT 'a,b', C Text(3),\n"
      " CONSTRAINT k PRIMARY KEY (A, Note))";
  EXPECT_EQ(WithColumnType(table, "New", "NOTE", "LongText"),
            "CREATE TABLE \"New\" (A Long, -- Note Text(9)\n \"Note\" LongText NOT NULL DEFAULT 'a,b', C Text(3),\n"
            " CONSTRAINT k PRIMARY KEY (A, Note))");
  EXPECT_EQ(WithColumnType("CREATE TABLE T (Note)", "N", "Note", "LongText"), "CREATE TABLE \"N\" (Note LongText )");
  EXPECT_EQ(WithColumnType(table, "New", "PRIMARY", "LongText"), std::nullopt);
  EXPECT_EQ(WithColumnType(table, "New", "B", "LongText"), std::nullopt);
}

TEST(Dialect, ATextWithAWidthIsShortAndOneWithoutIsLong) {
  EXPECT_EQ(TypeFromDeclaration("Text(20)"), ColumnType::ShortText);
  EXPECT_EQ(TypeFromDeclaration("VARCHAR(255)"), ColumnType::ShortText);
  EXPECT_EQ(TypeFromDeclaration("TEXT"), ColumnType::LongText);
  EXPECT_EQ(TypeFromDeclaration("LongText"), ColumnType::LongText);
  EXPECT_EQ(TypeFromDeclaration("memo"), ColumnType::LongText);
  EXPECT_EQ(TypeFromDeclaration("DATE"), ColumnType::Date);
  EXPECT_EQ(TypeFromDeclaration("DateTime"), ColumnType::Date);
  EXPECT_EQ(TypeFromDeclaration("INTEGER"), ColumnType::Other);
  EXPECT_EQ(TypeFromDeclaration(""), ColumnType::Other);
}

TEST(Dialect, DamagedStatementsAreCutWithoutHarm) {
  for (const std::string_view text :
       {"'open", "\"open", "[open", "/* open", "-- open", "\"", "'", "UPDATE", "UPDATE T AS n,", "UPDATE a, b SET",
        "CREATE TABLE", "CREATE TABLE T (A Counter, PRIMARY", "CREATE TABLE T (A Date DEFAULT",
        "ALTER TABLE T ADD COLUMN", ""}) {
    std::string whole;
    for (const Word& word : CutIntoWords(text)) whole += word.text;
    EXPECT_EQ(whole, text);
    ToSqlite(text);
    AsColumnChange(text);
    WithColumnType(text, "N", "A", "B");
    TypeFromDeclaration(text);
  }
}

}  // namespace
}  // namespace lantos::test
