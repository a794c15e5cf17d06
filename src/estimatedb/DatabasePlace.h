#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "frame/FileIO.h"

// Putting another database in the place of a shop's, for whoever moves or imports one.
namespace lantos {

// Throws DatabaseError with these words.
[[noreturn]] void RefuseWith(const std::string& words);

// Throws where a copy of the program has its log open.
void RefuseWhereSomebodyWorks(const FileIO& files);

// Where Lantos.mdb lies. Throws where there is none.
std::filesystem::path PlaceOfDatabase(const FileIO& files);

// A file beside Lantos.mdb, gone again unless it has taken its place. What lies there under the name is worth nothing:
// something that was broken off has left it.
class InTheMaking {
 public:
  InTheMaking(const FileIO& files, std::string_view name) : path_(files.PathOf(name)) { Remove(); }
  ~InTheMaking() { Remove(); }
  InTheMaking(const InTheMaking&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  void Write(const std::string& text);
  // In one step, on the disk when it returns.
  void TakeThePlaceOf(const std::filesystem::path& place);

 private:
  void Remove() noexcept;

  std::filesystem::path path_;
};

// What was broken off in the last step has given the shop's database a second name. Looked at by name alone.
void TakeAwaySecondNames(const FileIO& files, const std::filesystem::path& place);

// Lantos-until-2003-09-30.mdb, or with a number behind the day where that is taken.
std::filesystem::path NameForTheOld(const FileIO& files);

// What lies at the place is called kept from here on, and what was made takes its place. The second name comes first,
// so that there is a Lantos.mdb at any time; where a directory gives no file two names, one moment is without. tell
// hears how many of the three steps are done. All is as it was when it throws.
void Replace(InTheMaking& made, const std::filesystem::path& place, const std::filesystem::path& kept,
             const std::function<void(int)>& tell);

}  // namespace lantos
