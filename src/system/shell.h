// What the system's desktop reports about files, and what it opens for the user.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "system/status.h"

namespace ordelan::system {

// A picture, row by row from the top; each pixel is 0xAARRGGBB, its colours not multiplied by its
// alpha.
struct Pixels {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> argb;
};

// Whether the system's shell asks the user before it does what cannot be undone by itself.
enum class Confirm { ask, without_asking };

class Shell {
 public:
  virtual ~Shell() = default;

  // Opens a web page or a file with the program that the user has for it. False when nothing could.
  virtual bool open(const std::string& target) = 0;

  // Puts a text on the clipboard in place of what is there. False where that could not be done.
  virtual bool copy_text(const std::string& /*text*/) { return false; }

  // Opens the folder of a file with that file chosen, or the folder alone where the file is
  // missing; the system's sheet on a file. False where there is no such thing, or no desktop.
  virtual bool show_in_folder(const std::string& /*path*/) { return false; }
  virtual bool show_properties(const std::string& /*path*/) { return false; }

  // What the system calls files of this kind ("Archivo WAV"); empty if the file is missing.
  virtual std::string file_type(const std::string& path) = 0;

  // The program that opens the file; empty if there is none.
  virtual std::string executable(const std::string& path) = 0;

  // The icon that the system shows for the file; nothing if it has none.
  virtual std::optional<Pixels> icon(const std::string& path) = 0;

  // Moves a file to the recycle bin, from which the user can bring it back; with `ask` only after a
  // question. Ok exactly if nothing of that name is left. `cancelled` if the user answered no. A
  // file that cannot go to the bin stays, and is never removed for good in its stead: too_long for
  // paths longer than the bin takes, not_supported where the drive has no bin or the name is one
  // that the bin would take for another, not_a_file for folders. But where the system itself finds
  // that the bin has no room for the file, it asks the user, also without `ask`, whether to remove
  // it for good. The window's events go on while a question is up.
  virtual Status recycle(const std::string& path, Confirm confirm) = 0;

  // Copies a file into a folder, under its own name and as the desktop does it: where that name is
  // taken, the user is asked whether it is to be overwritten; `cancelled` if the answer was no.
  // Without a way to ask the answer is no. What stands there of the copy after a failure is
  // the shell's affair. too_long for paths longer than the shell takes.
  virtual Status copy_into(const std::string& from, const std::string& folder) = 0;

  // Whether files of the drive with that root ("D:") go to a bin when they are recycled. Ok if so,
  // not_supported if not, not_found where there is no such drive, bad_path for what is no root.
  virtual Status recycles(std::string_view root) = 0;

  // How large a file of the drive may be to go to the bin, in bytes: 0 where `recycles` is not ok,
  // the largest number there is where no limit is known.
  virtual std::uint64_t bin_capacity(std::string_view root) {
    return recycles(root) ? std::numeric_limits<std::uint64_t>::max() : 0;
  }

  // Empties the bin of the drive with that root, of all drives if the root is empty. Ok also if it
  // was empty, `other` if some of it could not be removed, `cancelled` if the user answered no,
  // not_supported where there is no bin or, with `ask`, no way to ask.
  virtual Status empty_bin(const std::string& root, Confirm confirm) = 0;
};

}  // namespace ordelan::system
