// The disk, as the program reaches it. Paths are Windows paths ("D:\Mix\tema.vip") in code-page
// bytes. Every failure is a value: no call throws, and no call shows a dialog of the system's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "system/status.h"

namespace ordelan::system {

// Bits of an attribute word, as Windows numbers them.
namespace attribute {
inline constexpr std::uint32_t kReadOnly = 0x1;
inline constexpr std::uint32_t kHidden = 0x2;
inline constexpr std::uint32_t kSystem = 0x4;
inline constexpr std::uint32_t kFolder = 0x10;
inline constexpr std::uint32_t kArchive = 0x20;
}  // namespace attribute

// What a folder's listing reports about one entry.
struct FileInfo {
  std::string name;        // as it stands on the disk, without its folder
  std::uint64_t size = 0;  // bytes; 0 for a folder
  bool folder = false;
  bool hidden = false;
  bool system = false;
  bool link = false;  // a folder or file that only stands for another place (junction, link)
  // The file's number on its volume where a listing has it, else 0. Two names of one file (hard
  // links) have one number.
  std::uint64_t number = 0;
  std::uint32_t attributes = 0;  // the attribute word: some of `attribute` and more of Windows' own
  // Local times, as days since the 30th of December 1899; 0 where they were not asked for. Where a
  // listing has `modified` and `size` for nothing it gives them all the same.
  double created = 0;
  double modified = 0;
  double accessed = 0;
};

// An entry of a folder that the program cannot name.
struct UnnamedEntry {
  std::string shown;  // its name with "?" for each character that the code page lacks
  bool folder = false;
};

// What one file or folder is, under whatever path it was reached. Two paths lead to the same file
// exactly if their identities are equal.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t file = 0;
  std::uint64_t file_high = 0;  // of volumes that number their files in 128 bits
  bool operator==(const FileIdentity&) const = default;
};

// A file opened for reading. It is closed when the object is destroyed.
class InputFile {
 public:
  virtual ~InputFile() = default;

  // The length in bytes when the file was opened.
  virtual std::uint64_t size() const = 0;

  // Reads up to `buffer.size()` bytes from byte `offset` (0-based) on. Gives how many came: fewer
  // than asked for only at the end of the file, and nothing at all when the reading failed.
  virtual std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) = 0;
};

// A file opened for writing, empty at first.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  // Appends bytes. A failure when they could not all be written; every later call then fails too.
  virtual Status write(std::string_view bytes) = 0;

  // Waits until everything written has reached the disk itself and would survive a power cut. The
  // name of a new file is a matter of its folder: `FileSystem::flush_folder`.
  virtual Status flush() = 0;

  // Closes the file and says whether everything written has reached the system. An OutputFile that
  // is destroyed without it is closed too, but a failure then goes unseen.
  virtual Status close() = 0;
};

// An existing file opened to be changed in place. It is closed when the object is destroyed.
class ChangeFile {
 public:
  virtual ~ChangeFile() = default;

  // How many names (hard links) the file had when it was opened; 1 where the system has no such.
  virtual std::uint32_t names() const = 0;

  // Writes bytes from byte `offset` (0-based) on. The file grows where they reach past its end,
  // with zeros in between. A failure when they could not all be written, and some of them may have
  // been; every later call then fails too.
  virtual Status write_at(std::uint64_t offset, std::string_view bytes) = 0;

  // Cuts the file after that many bytes, or makes it that long with zeros at its end. After a
  // failure every later call fails too.
  virtual Status set_size(std::uint64_t size) = 0;

  // Waits until everything written has reached the disk itself and would survive a power cut.
  virtual Status flush() = 0;

  // Closes the file and says whether everything written has reached the system. A ChangeFile that
  // is destroyed without it is closed too, but a failure then goes unseen.
  virtual Status close() = 0;
};

// A name on the disk that only one program holds at a time. It is given back when the object is
// destroyed, and by the system when the program ends in whatever way.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

// Whether a call waits until the bytes have reached the disk itself.
enum class Flush { no, yes };

// How much a listing reports about each entry: the name and the kind; the size and the attribute
// word too; the times too. Some systems have to look at every file for more than the names.
enum class Detail { names, sizes, times };

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // What the disk has stored about the path, times included, for a file or folder of any kind.
  // Nothing if there is none, if the path is not absolute, or if it holds a NUL or a wildcard.
  // `name` has the case of the disk.
  virtual std::optional<FileInfo> info(std::string_view path) = 0;

  // Calls `visit` with every entry of a folder but "." and "..", in the order in which the disk
  // gives them and without keeping any. Entries whose names the code page cannot hold are left out:
  // they could only be mistaken for others; `unnamed`, unless empty, is called with them. `visit`
  // may move the entry's parts away; it gives false to stop. False if the folder is missing or
  // cannot be read.
  using Visit = std::function<bool(FileInfo& entry)>;
  using VisitUnnamed = std::function<void(const UnnamedEntry& entry)>;
  bool each(std::string_view folder, Detail detail, const Visit& visit,
            const VisitUnnamed& unnamed = nullptr) {
    return each_entry(folder, detail, visit, unnamed);
  }

  // The same entries at once, in the order of NTFS. Nothing if the folder is missing or cannot be
  // read.
  std::optional<std::vector<FileInfo>> list(std::string_view folder, Detail detail = Detail::sizes,
                                            const VisitUnnamed& unnamed = nullptr);

  // What the path leads to, through links of any kind. Nothing if there is no such file or folder,
  // or where the system cannot determine it.
  virtual std::optional<FileIdentity> identity(std::string_view path) = 0;

  // Opens a file for reading; others may go on writing to it. No file when it cannot be opened: not
  // found, a folder, locked.
  virtual Opened<InputFile> open(std::string_view path) = 0;

  // Creates a file, or empties the one that exists. No file when that fails, also where a read-only
  // one exists.
  virtual Opened<OutputFile> create(std::string_view path) = 0;

  // Creates a file where nothing of that name exists, looking and creating in one step. No file
  // when something does (a file, a folder, a link to nowhere), which stays as it is, and when the
  // file cannot be created.
  virtual Opened<OutputFile> create_new(std::string_view path) = 0;

  // Opens a file that exists, or the one that a link leads to, to be changed in place: it stays the
  // same file under all its names. No file where it is missing, is no plain file, is read-only or
  // another program has it open against writing.
  virtual Opened<ChangeFile> change(std::string_view path) = 0;

  // Makes a folder in one that exists. Fails also when it exists already.
  virtual Status make_folder(std::string_view path) = 0;

  // Sets the read-only, hidden, system and archive bits of a file or folder as in `attributes`;
  // other bits are ignored. not_supported where the volume cannot keep one that is set there
  // (hidden and system on Linux, where a file always has the archive bit); nothing is changed then.
  virtual Status set_attributes(std::string_view path, std::uint32_t attributes) = 0;

  // Puts the file `from` in the place of `to`, or where no `to` exists yet, in one step: others see
  // the old file or the new one. What the system keeps of a file besides its bytes stays that of
  // the old one: the spelling of its name, its attributes, its access rights. On Linux a `to` that
  // is a link stays, and the file that it leads to is replaced. Fails also when `to` is read-only,
  // a folder or no plain file, or `from` is no file; both are then as they were.
  virtual Status replace(std::string_view from, std::string_view to) = 0;

  // Gives the file `from` the path `to` on the same volume, in one step and never over anything
  // that exists. On failure `from` is as it was; not_supported where `to` is on another volume.
  virtual Status move(std::string_view from, std::string_view to) = 0;

  // Copies the file `from` into a new file `to`: its bytes, the time of its last write and its
  // read-only, hidden, system and archive bits as far as the volume keeps them. With `Flush::yes`
  // the bytes have reached the disk when it gives ok. `to` must not exist: whatever has that name
  // stays. On failure no `to` is left; but when the program is killed a part of it may be:
  // `copy_whole` is safe from that. `progress`, unless empty, is called now and then with the count
  // of bytes copied so far, and stops the copy by giving false, which is then cancelled.
  using Progress = std::function<bool(std::uint64_t copied)>;
  virtual Status copy_new(std::string_view from, std::string_view to,
                          const Progress& progress = nullptr, Flush flush = Flush::yes) = 0;

  // Waits until the names in a folder have reached the disk itself. Windows keeps a journal of them
  // and writes it in order: there it only looks whether the folder exists.
  virtual Status flush_folder(std::string_view folder) = 0;

  // Waits until the bytes of an existing file have reached the disk itself, whatever program wrote
  // them.
  virtual Status flush_file(std::string_view path) = 0;

  // Waits until the bytes of all these files and the names in their folders have reached the disk
  // itself. All are tried, also after one that fails; gives the first failure. Where a path is a
  // link, the folder is that of the link. `go_on` is called before each file that is waited for by
  // itself; when it gives false the call ends with `cancelled`.
  using GoOn = std::function<bool()>;
  virtual Status flush_files(std::span<const std::string> paths, const GoOn& go_on = nullptr);

  // Takes the lock of that name: an empty file that exists as long as it is held, and is never
  // followed where it is a link. No lock, and in_use, while another holder has it, in this program
  // or another.
  virtual Opened<FileLock> lock(std::string_view path) = 0;

  // Removes a file for good. Fails also when it is not found, is a folder, is read-only or cannot
  // be removed.
  virtual Status remove(std::string_view path) = 0;

  // The plain look-up by which the program decides whether a file exists: folders, hidden files
  // and system files are ignored.
  std::optional<FileInfo> look_up(std::string_view path);

 private:
  virtual bool each_entry(std::string_view folder, Detail detail, const Visit& visit,
                          const VisitUnnamed& unnamed) = 0;
};

// Whether the first stands before the second in a listing: by the capitals of the name, as NTFS
// orders them, and where they are equal by the bytes of the name.
bool name_before(std::string_view a, std::string_view b);
bool in_listing_order(const FileInfo& a, const FileInfo& b);

// `folder` with exactly one backslash at its end added if it has none.
std::string with_backslash(std::string_view folder);

}  // namespace ordelan::system
