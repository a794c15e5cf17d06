#include "DatabaseFixture.h"
#include "records/Vehicles.h"

namespace lantos::test {
namespace {

using testing::ElementsAre;

Value Number(std::int64_t value) { return value; }
Value Words(const char* text) { return std::string(text); }

Recordset Vehicles() {
  Recordset rows;
  rows.Open(std::vector<std::string>{"Number", "VehMake", "Seen"});
  rows.AddRow({Number(10), Words("ford"), DateValue{37900}});
  rows.AddRow({Number(9), Words("Chevrolet"), Value()});
  rows.AddRow({Number(10), Value(), DateValue{37800}});
  rows.AddRow({Value(), Words("Ford"), DateValue{37900}});
  return rows;
}

TEST(Recordsets, ColumnsAreFoundWithoutRegardToCase) {
  Recordset rows = Vehicles();
  EXPECT_EQ(rows.Text("VEHMAKE"), "ford");
  EXPECT_EQ(rows.Long("number"), 10);
  EXPECT_TRUE(rows.HasColumn("seen"));
  EXPECT_FALSE(rows.HasColumn("See"));
  EXPECT_FALSE(rows.HasColumn(""));
}

TEST(Recordsets, AnUnknownColumnIsAnErrorThatNamesIt) {
  const Recordset rows = Vehicles();
  EXPECT_THAT(ErrorOf([&] { rows.Long("Mileage"); }), testing::HasSubstr("Mileage"));
}

TEST(Recordsets, ARowThatIsNotThereIsAnError) {
  Recordset rows = Vehicles();
  while (!rows.Eof()) rows.MoveNext();
  EXPECT_THAT(ErrorOf([&] { rows.Long("Number"); }), testing::HasSubstr("no current row"));
}

TEST(Recordsets, AClosedOneHasNoRowsAndNoColumns) {
  Recordset rows = Vehicles();
  rows.Close();
  EXPECT_FALSE(rows.IsOpen());
  EXPECT_TRUE(rows.Eof());
  EXPECT_EQ(rows.Count(), 0U);
  EXPECT_TRUE(rows.Columns().empty());
  EXPECT_FALSE(rows.HasColumn("Number"));
  EXPECT_THAT(ErrorOf([&] { rows.Text("Number"); }), testing::HasSubstr("isn't open"));
}

TEST(Recordsets, NullsReadAsZeroEmptyOrTheCallersDate) {
  Recordset rows = Vehicles();
  rows.MoveNext();
  EXPECT_TRUE(rows.IsNull("Seen"));
  EXPECT_EQ(rows.Date("Seen"), 0);
  EXPECT_EQ(rows.Date("Seen", -1), -1);
  rows.MoveNext();
  EXPECT_EQ(rows.Text("VehMake"), "");
  rows.MoveNext();
  EXPECT_EQ(rows.Long("Number"), 0);
  EXPECT_EQ(rows.Number("Number"), 0.0);
}

TEST(Recordsets, FractionsBecomeLongsHalvesToEven) {
  Recordset rows;
  rows.Open(std::vector<std::string>{"A", "B", "C"});
  rows.AddRow({2.5, 3.5, Number(99'999'999'999)});
  EXPECT_EQ(rows.Long("A"), 2);
  EXPECT_EQ(rows.Long("B"), 4);
  EXPECT_EQ(rows.Long("C"), 2147483647);
}

TEST(Recordsets, SortingIsStableWithNullsFirstAndTextWithoutRegardToCase) {
  Recordset rows = Vehicles();
  rows.Sort("VehMake ASC");
  EXPECT_THAT(Dump(rows),
              ElementsAre("10|null|06/28/2003", "9|Chevrolet|null", "10|ford|10/06/2003", "null|Ford|10/06/2003"));
}

TEST(Recordsets, SortingGoesByNumberNotByDigits) {
  Recordset rows = Vehicles();
  rows.MoveNext();
  rows.Sort("Number ASC");
  EXPECT_TRUE(rows.IsNull("Number")) << "the first row is the current one";
  EXPECT_THAT(Dump(rows),
              ElementsAre("null|Ford|10/06/2003", "9|Chevrolet|null", "10|ford|10/06/2003", "10|null|06/28/2003"));
}

TEST(Recordsets, SortingGoesByEachColumnInTurn) {
  Recordset rows = Vehicles();
  rows.Sort("number DESC,  Seen");
  EXPECT_THAT(Dump(rows),
              ElementsAre("10|null|06/28/2003", "10|ford|10/06/2003", "9|Chevrolet|null", "null|Ford|10/06/2003"));
}

TEST(Recordsets, SortingByAnUnknownColumnIsAnError) {
  Recordset rows = Vehicles();
  EXPECT_THROW(rows.Sort("Number ASC, Colour ASC"), DatabaseError);
}

TEST(Recordsets, FilteringKeepsTheOrderAndStartsAtTheFirst) {
  Recordset rows = Vehicles();
  rows.Sort("Number ASC");
  rows.Filter([](const Recordset& row) { return row.Date("Seen") == 37900; });
  EXPECT_EQ(rows.Count(), 2U);
  EXPECT_THAT(Dump(rows), ElementsAre("null|Ford|10/06/2003", "10|ford|10/06/2003"));
  rows.AddRow({Number(1), Words("Audi"), Value()});
  EXPECT_THAT(Dump(rows), ElementsAre("null|Ford|10/06/2003", "10|ford|10/06/2003", "1|Audi|null"));
}

TEST(Recordsets, ARowOfAnotherWidthIsRefused) {
  Recordset rows = Vehicles();
  EXPECT_THROW(rows.AddRow({Number(1)}), DatabaseError);
  Recordset closed;
  EXPECT_THROW(closed.AddRow({}), DatabaseError);
}

}  // namespace
}  // namespace lantos::test
