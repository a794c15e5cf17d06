#pragma once

#include <algorithm>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Fixture.h"
#include "GoldenDirectory.h"
#include "records/Record.h"

// The program's layouts and routines against files that were made without it (tests/golden/make.py).
namespace lantos::test {

struct Field {
  std::string_view file;
  std::string name;
  std::size_t offset;
  std::size_t width;
  std::string_view kind;
  auto operator<=>(const Field&) const = default;
};

class FieldList {
 public:
  explicit FieldList(std::string_view file) : file_(file) {}
  FieldList& operator()(std::string name, LongField field) { return Add(std::move(name), field.offset, 4, "long"); }
  FieldList& operator()(std::string name, IntegerField field) {
    return Add(std::move(name), field.offset, 2, "integer");
  }
  FieldList& operator()(std::string name, ByteField field) { return Add(std::move(name), field.offset, 1, "byte"); }
  FieldList& operator()(std::string name, TextField field) {
    return Add(std::move(name), field.offset, field.width, "text");
  }
  FieldList& operator()(std::string name, OpaqueField field) {
    return Add(std::move(name), field.offset, field.width, "opaque");
  }
  const std::vector<Field>& All() const { return fields_; }

 private:
  FieldList& Add(std::string name, std::size_t offset, std::size_t width, std::string_view kind) {
    fields_.push_back({file_, std::move(name), offset, width, kind});
    return *this;
  }
  std::string_view file_;
  std::vector<Field> fields_;
};

#define FIELD(space, name) (#name, space::name)

// The lines of layouts.txt that tell of the fields' file.
inline void ExpectGoldenLayout(const std::vector<Field>& fields) {
  const std::string file(fields.front().file);
  std::ifstream in(test::GoldenDirectory() / "layouts.txt");
  std::vector<std::string> expected;
  for (std::string line; std::getline(in, line);) {
    if (line.starts_with(file + " ")) expected.push_back(line);
  }
  std::vector<std::string> actual;
  for (const Field& field : fields) {
    std::ostringstream line;
    line << field.file << ' ' << field.name << ' ' << field.offset << ' ' << field.width << ' ' << field.kind;
    actual.push_back(line.str());
  }
  EXPECT_EQ(actual, expected);
}

// Where two texts of one length differ: first and one past the last place.
inline std::pair<std::size_t, std::size_t> Difference(const std::string& a, const std::string& b) {
  EXPECT_EQ(a.size(), b.size());
  std::size_t first = 0;
  while (first < a.size() && a[first] == b[first]) ++first;
  std::size_t last = a.size();
  while (last > first && a[last - 1] == b[last - 1]) --last;
  return {first, last};
}

// Changes one field by its kind to what it surely was not.
template <std::size_t Length>
void Change(Record<Length>& record, const Field& field) {
  if (field.kind == "long") {
    const LongField longField{field.offset};
    record.Put(longField, ~record.Get(longField));
  } else if (field.kind == "integer") {
    const IntegerField integerField{field.offset};
    record.Put(integerField, static_cast<std::int16_t>(~record.Get(integerField)));
  } else if (field.kind == "byte") {
    const ByteField byteField{field.offset};
    record.Put(byteField, static_cast<std::uint8_t>(record.Get(byteField) + 1));
  } else {
    record.Put(TextField{field.offset, field.width}, std::string(field.width, '\xA7'));
  }
}

class Golden : public ShopTest {
 protected:
  Golden() { PutGolden(); }

  // For each field in turn: load() and save() around its change change that field's bytes alone.
  template <std::size_t Length>
  void ExpectEachFieldAlone(const std::vector<Field>& fields, std::size_t recordStart, Record<Length>& record,
                            const std::function<void()>& load, const std::function<void()>& save,
                            const std::vector<std::string>& except = {}) {
    const std::string_view file = fields.front().file;
    const std::string before = BytesOf(file);
    for (const Field& field : fields) {
      if (field.kind == "opaque" || std::find(except.begin(), except.end(), field.name) != except.end()) continue;
      load();
      Change(record, field);
      save();
      const auto [first, last] = Difference(before, BytesOf(file));
      EXPECT_LT(first, last) << field.name << " didn't reach the file";
      EXPECT_GE(first, recordStart + field.offset) << field.name;
      EXPECT_LE(last, recordStart + field.offset + field.width) << field.name;
      Put(file, before);
    }
  }
};

}  // namespace lantos::test
