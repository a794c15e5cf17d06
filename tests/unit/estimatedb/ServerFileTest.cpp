#include "estimatedb/postgres/ServerFile.h"

#include "DatabaseFixture.h"

namespace lantos::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kFirstLine = "Lantos database server\n";

ServerPlace Parsed(const std::string& lines) { return ParseServerFile(kFirstLine + lines, "/shop/Lantos.mdb"); }

std::string RefusalOfLines(const std::string& lines) {
  return ErrorOf([&] { Parsed(lines); });
}

TEST(ServerFiles, NameServerAndSchema) {
  const ServerPlace place = Parsed("server = postgresql://db.example:5433/lantos\nschema = north\n");
  EXPECT_EQ(place.server, "postgresql://db.example:5433/lantos");
  EXPECT_EQ(place.schema, "north");
  EXPECT_EQ(place.address, "db.example:5433");
  EXPECT_EQ(place.database, "lantos");
}

TEST(ServerFiles, MayBeLaidOutAsEditorsDo) {
  const ServerPlace place =
      Parsed("\r\n# the shop in the north\r\n  SCHEMA=north \r\n; and\r\nServer=postgresql://sue@/x?host=/run/db");
  EXPECT_EQ(place.schema, "north");
  EXPECT_EQ(place.address, "/run/db");
  EXPECT_EQ(Parsed("server = postgres://?service=shop\nschema = s").address, "shop");
}

TEST(ServerFiles, WithAPasswordAreRefusedWithoutShowingIt) {
  for (const char* server : {"postgresql://sue:hidden@db/x", "postgresql://db/x?password=hidden",
                             "postgresql://db/x?user=sue&sslpassword=hidden"}) {
    EXPECT_THAT(RefusalOfLines(std::string("server = ") + server + "\nschema = s"),
                AllOf(HasSubstr("/shop/Lantos.mdb"), HasSubstr("password"), Not(HasSubstr("hidden"))));
  }
}

TEST(ServerFiles, SayWhichLineIsWrongAndWhatItShouldBe) {
  const std::string server = "server = postgresql://db/x\n";
  EXPECT_THAT(RefusalOfLines(server + "schem = s"),
              AllOf(HasSubstr("line 3"), HasSubstr("server = postgresql://host:port/database\nschema = name")));
  EXPECT_THAT(RefusalOfLines(server + server + "schema = s"), HasSubstr("line 3"));
  EXPECT_THAT(RefusalOfLines(server), HasSubstr("\"schema\""));
  EXPECT_THAT(RefusalOfLines("schema = s"), HasSubstr("\"server\""));
  EXPECT_THAT(RefusalOfLines("server =\nschema = s"), HasSubstr("\"server\""));
  EXPECT_THAT(RefusalOfLines("server = mysql://db/x\nschema = s"), HasSubstr("postgresql://"));
  EXPECT_THAT(RefusalOfLines("server = postgresql://db/x?colour=red\nschema = s"), HasSubstr("colour"));
  EXPECT_THAT(RefusalOfLines(std::string(70000, 'x')), HasSubstr("too long"));
}

}  // namespace
}  // namespace lantos::test
