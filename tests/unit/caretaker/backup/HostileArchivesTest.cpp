#include <archive.h>
#include <archive_entry.h>
#include <gmock/gmock.h>

#include "caretaker/backup/Archive.h"
#include "caretaker/backup/BackupFixture.h"
#include "caretaker/backup/Checksum.h"

namespace lantos::test {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

namespace {

BackedFile Described(const std::string& name, const std::string& content) {
  Checksum checksum;
  checksum.Add(std::as_bytes(std::span(content)));
  return {name, content.size(), checksum.Take(), 0};
}

// An archive as anybody could make one.
class Forged {
 public:
  explicit Forged(const std::filesystem::path& path) : archive_(::archive_write_new()) {
    ::archive_write_set_format_gnutar(archive_);
    ::archive_write_add_filter_zstd(archive_);
    ::archive_write_open_filename(archive_, path.c_str());
  }
  ~Forged() { ::archive_write_free(archive_); }

  Forged& Add(const std::string& name, const std::string& content, unsigned type = AE_IFREG,
              const char* linkTo = nullptr) {
    struct archive_entry* entry = ::archive_entry_new();
    ::archive_entry_set_pathname(entry, name.c_str());
    ::archive_entry_set_filetype(entry, type);
    ::archive_entry_set_size(entry, static_cast<la_int64_t>(content.size()));
    if (linkTo != nullptr && type == AE_IFLNK) ::archive_entry_set_symlink(entry, linkTo);
    if (linkTo != nullptr && type == AE_IFREG) ::archive_entry_set_hardlink(entry, linkTo);
    ::archive_write_header(archive_, entry);
    if (!content.empty()) ::archive_write_data(archive_, content.data(), content.size());
    ::archive_entry_free(entry);
    return *this;
  }
  Forged& List(const std::vector<BackedFile>& files) {
    Manifest manifest;
    manifest.files = files;
    return Add(kManifestName, TextOf(manifest));
  }

 private:
  struct archive* archive_;
};

}  // namespace

class HostileArchives : public ::testing::Test {
 protected:
  std::string RefusalOf(const std::function<void(Forged&)>& make) {
    {
      Forged forged(path);
      make(forged);
    }
    return Refusal();
  }
  std::string Refusal() {
    try {
      Restore(path, place / "shop", {}, clock, TellNobody);
    } catch (const BackupError& error) {
      EXPECT_FALSE(std::filesystem::exists(place / "shop"));
      EXPECT_FALSE(std::filesystem::exists(place / "OUT.DAT"));
      return error.Words();
    }
    return {};
  }

  ScratchDirectory place;
  std::filesystem::path path = place / "forged.tar.zst";
  StandingClock clock{*ParseLocalTime("2003-09-30T08:15:00")};
};

TEST_F(HostileArchives, AnHonestOneIsTaken) {
  EXPECT_THAT(RefusalOf([](Forged& forged) { forged.List({Described("A.DAT", "x")}).Add("A.DAT", "x"); }), IsEmpty());
  EXPECT_EQ(place.Content("shop/A.DAT"), "x");
}

TEST_F(HostileArchives, NamesThatArePathsAreRefused) {
  for (const char* name : {"../OUT.DAT", "/tmp/OUT.DAT", "a/OUT.DAT", "..", "", ".", "a\\OUT.DAT"}) {
    EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({Described(name, "x")}).Add(name, "x"); }),
                HasSubstr("line 5: a name isn't one"))
        << name;
  }
}

TEST_F(HostileArchives, AnEntryThatIsNotTheListsIsRefused) {
  const BackedFile listed = Described("A.DAT", "x");
  EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({listed}).Add("../OUT.DAT", "x"); }),
              HasSubstr("isn't where its list says"));
  EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({listed}).Add("A.DAT", "x").Add("../OUT.DAT", "x"); }),
              HasSubstr("more than its list says"));
  EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({listed}); }), HasSubstr("isn't where its list says"));
}

TEST_F(HostileArchives, LinksAndDevicesAreRefused) {
  const BackedFile listed = Described("A.DAT", "");
  for (const unsigned type : {AE_IFLNK, AE_IFREG}) {
    EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({listed}).Add("A.DAT", "", type, "/etc/passwd"); }),
                HasSubstr("isn't a file"));
  }
  EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({listed}).Add("A.DAT", "", AE_IFIFO); }),
              HasSubstr("isn't a file"));
}

// What is looked at would be whatever stands on the server that somebody has named.
TEST_F(HostileArchives, ThatNameAServerAreRefused) {
  const std::string pointer = "Lantos database server\nserver = postgresql://127.0.0.1:1/x\nschema = s\n";
  for (const char* name : {"Lantos.mdb", "KORVEL.MDB"}) {
    EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({Described(name, pointer)}).Add(name, pointer); }),
                HasSubstr("is nothing that Lantos puts into one"));
  }
}

TEST_F(HostileArchives, WhatIsOfTheMomentIsRefused) {
  for (const char* name : {"LN930000.LOG", "Lantos.mdb-journal"}) {
    EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({Described(name, "x")}).Add(name, "x"); }),
                HasSubstr("is nothing that Lantos puts into one"));
  }
}

TEST_F(HostileArchives, AnotherLengthOrContentThanTheListsIsRefused) {
  EXPECT_THAT(RefusalOf([](Forged& forged) { forged.List({Described("A.DAT", "x")}).Add("A.DAT", "longer"); }),
              HasSubstr("hasn't the length"));
  EXPECT_THAT(RefusalOf([](Forged& forged) { forged.List({Described("A.DAT", "x")}).Add("A.DAT", "y"); }),
              HasSubstr("checksum differs"));
}

// A few kilobytes that become 100 megabytes: only the length is looked at.
TEST_F(HostileArchives, ABombIsRefusedByItsLength) {
  const std::string zeros(kLongestManifest + 1, '\0');
  EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.Add(kManifestName, zeros); }),
              HasSubstr("longer than that of any"));
  BackedFile endless = Described("A.DAT", "x");
  endless.length = std::uint64_t{1} << 41;
  EXPECT_THAT(RefusalOf([&](Forged& forged) { forged.List({endless}).Add("A.DAT", "x"); }), HasSubstr("room enough"));
}

TEST_F(HostileArchives, WhatIsNoBackupIsRefused) {
  place.Put("forged.tar.zst", "not an archive");
  EXPECT_THAT(Refusal(), HasSubstr("isn't a backup"));
  place.Put("forged.tar.zst", "");
  EXPECT_THAT(Refusal(), HasSubstr("isn't a backup"));
  std::filesystem::remove(path);
  EXPECT_THAT(Refusal(), HasSubstr("There is no"));
  EXPECT_THAT(RefusalOf([](Forged& forged) { forged.Add("A.DAT", "x"); }), HasSubstr("isn't a backup"));
}

TEST_F(HostileArchives, AByteMoreOrLessAnywhereIsNeverTaken) {
  RefusalOf([](Forged& forged) { forged.List({Described("A.DAT", "some words")}).Add("A.DAT", "some words"); });
  const std::string whole = place.Content("forged.tar.zst");
  std::filesystem::remove_all(place / "shop");
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string flipped = whole;
    flipped[i] = static_cast<char>(flipped[i] ^ 0x41);
    place.Put("forged.tar.zst", flipped);
    if (Refusal().empty()) EXPECT_EQ(place.Content("shop/A.DAT"), "some words") << i;
    std::filesystem::remove_all(place / "shop");
  }
  for (std::size_t length = 0; length + 40 < whole.size(); length += 7) {
    place.Put("forged.tar.zst", whole.substr(0, length));
    EXPECT_THAT(Refusal(), Not(IsEmpty())) << length;
  }
}

TEST(Manifests, ComeBackAsTheyWere) {
  const Manifest manifest{.madeAt = "2003-09-30T08:15:00",
                          .directory = "/srv/a shop\n%",
                          .program = "1.0.0",
                          .files = {Described("A B%\xE4.DAT", "x"), Described("a.dat", "")},
                          .figures = {{"rows of Parts in Lantos.mdb", "12"}}};
  EXPECT_EQ(ReadManifest(TextOf(manifest)), manifest);
}

TEST(Manifests, ThatWereChangedOrCutAreRefused) {
  Manifest manifest;
  manifest.files = {Described("A.DAT", "x")};
  manifest.figures = {{"rows", "12"}};
  const std::string text = TextOf(manifest);
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::string flipped = text;
    flipped[i] = static_cast<char>(flipped[i] ^ 1);
    EXPECT_THROW(ReadManifest(flipped), BackupError) << i;
    EXPECT_THROW(ReadManifest(text.substr(0, i)), BackupError) << i;
  }
  EXPECT_THROW(ReadManifest(text + "more\n"), BackupError);
}

TEST(Manifests, WithANameTwiceAreRefused) {
  Manifest manifest;
  manifest.files = {Described("A.DAT", "x"), Described("A.DAT", "y")};
  EXPECT_THROW(ReadManifest(TextOf(manifest)), BackupError);
}

}  // namespace lantos::test
