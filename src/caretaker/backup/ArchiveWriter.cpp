#include <archive.h>
#include <archive_entry.h>
#include <fmt/format.h>
#include <sys/stat.h>

#include <cerrno>
#include <memory>
#include <vector>

#include "caretaker/backup/Archive.h"
#include "caretaker/backup/BackupError.h"
#include "caretaker/backup/PlainFile.h"
#include "frame/FileError.h"
#include "frame/PathText.h"

namespace lantos {

namespace {

constexpr int kBlock = 1 << 20;
constexpr int kModeOfFiles = 0660;

struct Freeing {
  void operator()(struct archive* archive) const { ::archive_write_free(archive); }
  void operator()(struct archive_entry* entry) const { ::archive_entry_free(entry); }
};

class Writing {
 public:
  explicit Writing(const std::filesystem::path& path)
      : path_(path), file_(path, PlainFile::Mode::Anew), archive_(::archive_write_new()) {
    ::fchmod(file_.Descriptor(), S_IRUSR | S_IWUSR);  // customers and pay: nobody else's
    ::archive_write_set_format_gnutar(archive_.get());
    Require(::archive_write_add_filter_zstd(archive_.get()));
    ::archive_write_set_filter_option(archive_.get(), "zstd", "threads", "2");  // where the library knows it
    ::archive_write_set_bytes_per_block(archive_.get(), kBlock);
    ::archive_write_set_bytes_in_last_block(archive_.get(), 1);
    Require(::archive_write_open_fd(archive_.get(), file_.Descriptor()));
  }

  void Begin(const std::string& name, std::uint64_t length, std::int64_t changedAt) {
    const std::unique_ptr<struct archive_entry, Freeing> entry(::archive_entry_new());
    ::archive_entry_set_pathname(entry.get(), name.c_str());
    ::archive_entry_set_size(entry.get(), static_cast<la_int64_t>(length));
    ::archive_entry_set_filetype(entry.get(), AE_IFREG);
    ::archive_entry_set_perm(entry.get(), kModeOfFiles);
    ::archive_entry_set_mtime(entry.get(), changedAt, 0);
    Require(::archive_write_header(archive_.get(), entry.get()));
  }

  void Add(const void* bytes, std::size_t count) {
    if (::archive_write_data(archive_.get(), bytes, count) != static_cast<la_ssize_t>(count)) Fail();
  }

  void End() {
    Require(::archive_write_close(archive_.get()));
    file_.Flush();
  }

 private:
  void Require(int result) {
    if (result != ARCHIVE_OK) Fail();
  }

  [[noreturn]] void Fail() {
    const int number = ::archive_errno(archive_.get());
    ThrowFileError(number > 0 ? number : EIO, fmt::format("writing \"{}\"", TextOfPath(path_)));
  }

  std::filesystem::path path_;
  PlainFile file_;
  std::unique_ptr<struct archive, Freeing> archive_;
};

}  // namespace

void WriteArchive(const std::filesystem::path& archive, const Manifest& manifest, const std::filesystem::path& from,
                  const TellBytes& tell) {
  Writing writing(archive);
  const std::string text = TextOf(manifest);
  writing.Begin(kManifestName, text.size(), 0);
  writing.Add(text.data(), text.size());
  std::vector<std::byte> block(kBlock);
  std::uint64_t bytes = 0;
  for (const BackedFile& each : manifest.files) {
    writing.Begin(each.name, each.length, each.changedAt);
    const PlainFile file(from / each.name, PlainFile::Mode::Read);
    while (const std::size_t count = file.Read(block)) {
      writing.Add(block.data(), count);
      tell(bytes += count);
    }
  }
  writing.End();
}

}  // namespace lantos
