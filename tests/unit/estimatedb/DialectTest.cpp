#include "estimatedb/sqlite/SqliteDialect.h"

#include "DatabaseFixture.h"
#include "estimatedb/engine/SqlWords.h"
#include "estimatedb/postgres/PostgresDialect.h"

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

// A table of the server's, with its key.
std::vector<std::string> KeyOf(std::string_view table) {
  if (EqualsIgnoringCase(table, "Labors")) return {"estimatenumber", "labornumber"};
  return table == "T" ? std::vector<std::string>{"id"} : std::vector<std::string>{};
}

std::string OnServer(std::string_view statement) {
  const std::vector<std::string> texts = ToPostgres(statement, KeyOf);
  return texts.size() == 1 ? texts.front() : std::to_string(texts.size()) + " statements";
}

TEST(ServerDialect, PlacesForValuesAreNumbered) {
  EXPECT_EQ(OnServer("insert into T (A, B) values ( ?,? )"), "insert into T (A, B) values ( $1,$2 )");
  EXPECT_EQ(OnServer("update T set A = '?' where B = ?"), "update T set A = '?' where B = $1");
}

TEST(ServerDialect, RowsHaveAnOrderWhereTheStatementLeavesItOpen) {
  EXPECT_EQ(OnServer("select * from T"), "select * from T ORDER BY id");
  EXPECT_EQ(OnServer("T"), "select * from T ORDER BY id");
  EXPECT_EQ(OnServer("SELECT T.* FROM T WHERE (A = ?);"), "SELECT T.* FROM T WHERE (A = $1) ORDER BY id");
  EXPECT_EQ(OnServer("select * from Labors where EstimateNumber = ? order by LaborNumber"),
            "select * from Labors where EstimateNumber = $1 ORDER BY LaborNumber NULLS FIRST, estimatenumber");
  EXPECT_EQ(OnServer("Select * from T order by A asc, B desc"),
            "Select * from T ORDER BY A asc NULLS FIRST, B desc NULLS LAST, id");
  EXPECT_EQ(OnServer("select A, Sum(B) as S from T group by A, C"),
            "select A, Sum(B) as S from T group by A, C ORDER BY A NULLS FIRST, C NULLS FIRST");
  for (const std::string statement : {"select * from Unknown", "SELECT SUM(A) AS S FROM T", "select count(*) from T",
                                      "select * from T, Labors", "INSERT INTO U SELECT * FROM T"}) {
    EXPECT_EQ(OnServer(statement), statement);
  }
}

TEST(ServerDialect, TypesOfNewTablesGetTheServersNames) {
  EXPECT_EQ(OnServer("CREATE TABLE T (A Long DEFAULT 0,B Memo,C Text(20),D Date DEFAULT Date(),E Short,"
                     "CONSTRAINT PrimaryKey PRIMARY KEY (A,B))"),
            "CREATE TABLE T (A integer DEFAULT 0,B text COLLATE \"C\",C varchar COLLATE \"C\",D Date DEFAULT "
            "(coalesce(nullif(pg_catalog.current_setting('lantos.today', true), '')::date, current_date)),E smallint,"
            "PRIMARY KEY (A,B))");
  EXPECT_EQ(OnServer("CREATE TABLE C (EstimateNumber Integer,RecId Counter,CONSTRAINT PrimaryKey PRIMARY KEY "
                     "(EstimateNumber,RecId))"),
            "CREATE TABLE C (EstimateNumber integer,RecId integer GENERATED BY DEFAULT AS IDENTITY PRIMARY KEY,"
            "UNIQUE (EstimateNumber,RecId))");
  EXPECT_EQ(OnServer("CREATE TABLE S (A Date)"),
            "CREATE TABLE S (A Date,lantos_row bigint GENERATED ALWAYS AS IDENTITY)");
  EXPECT_EQ(OnServer("ALTER TABLE T ADD COLUMN A Text(5)"), "ALTER TABLE T ADD COLUMN A varchar COLLATE \"C\"");
  EXPECT_EQ(OnServer("ALTER TABLE T ALTER COLUMN A Memo"), "ALTER TABLE T ALTER COLUMN A TYPE text COLLATE \"C\"");
}

TEST(ServerDialect, ATriggerIsAProcedureThatTakesItsTurnAndItsCall) {
  const std::vector<std::string> texts =
      ToPostgres("CREATE TRIGGER Follow AFTER UPDATE OF A ON T BEGIN DELETE FROM U WHERE A = OLD.A; END", KeyOf);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(
      texts[0],
      "CREATE OR REPLACE FUNCTION Follow() RETURNS trigger LANGUAGE plpgsql SET search_path FROM CURRENT AS $body$ "
      "BEGIN PERFORM" +
          std::string(kTakeTurn.substr(6)) + "; DELETE FROM U WHERE A = OLD.A;  RETURN NULL; END $body$");
  EXPECT_EQ(texts[1], "CREATE TRIGGER Follow AFTER UPDATE OF A ON T FOR EACH ROW EXECUTE FUNCTION Follow()");
}

TEST(ServerDialect, WhatOnlyLooksIsToldFromWhatChanges) {
  for (const char* statement : {"select * from T", " SELECT 1", "Checklist", ""}) EXPECT_FALSE(IsWriting(statement));
  for (const char* statement : {"insert into T values (1)", "Update T set A = 1", "DROP TABLE T"}) {
    EXPECT_TRUE(IsWriting(statement));
  }
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
    ToPostgres(text, KeyOf);
    AsColumnChange(text);
    WithColumnType(text, "N", "A", "B");
    TypeFromDeclaration(text);
  }
}

}  // namespace
}  // namespace lantos::test
