#pragma once

#include <filesystem>

namespace lantos {

// Opens by name in directories that others may write to as well.

enum class Links {
  KeptInside,  // a link is followed only to a file in its own directory or below
  Followed,    // in a directory that is the person's own
};

// Descriptor of a regular file that is there, opened with open()'s flags and never waited for; -1 with errno, which
// RefuseUnfit makes words of where the file is not what it should be.
int OpenExistingFile(const std::filesystem::path& path, int flags, Links links = Links::KeptInside) noexcept;

// Makes the file, which must not be there, under any kind of name: EEXIST otherwise. In a directory with the
// set-group-id mark the file belongs to the directory's group, and what the directory allows its group and the others
// they may do with the file, whatever the umask; elsewhere the umask tells.
int MakeFile(const std::filesystem::path& path, int flags) noexcept;

// Whether the name is a link, or leads to something, that OpenExistingFile refuses.
bool LeadsOut(const std::filesystem::path& link);

// Throws UnfitFile when the errno of an open says that what bears the name is no file to be opened here.
void RefuseUnfit(int errorNumber, const std::filesystem::path& path);

}  // namespace lantos
