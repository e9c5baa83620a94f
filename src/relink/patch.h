// The patch of one stored path: the old path is taken out of the bytes of a project and the new one
// is written in its place. Nothing is fitted to it: no byte is moved and no length is changed, as
// what stands around a path is not known. A longer path overwrites what follows.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "relink/file_image.h"
#include "relink/pointer_file.h"

namespace ordelan::relink {

// What the choice of a new path asks the disk and the searches.
class Lookups {
 public:
  virtual ~Lookups() = default;
  // Whether there is a file of that path; a file or a folder.
  virtual bool exists(const std::string& path) = 0;
  virtual bool stands(const std::string& path) = 0;
  // Looks for the same path on the other drives. Its answer decides nothing.
  virtual void BuscarOtraLetra(const std::string& path) = 0;
  // Where the file of that name is now, by a search of all ticked drives; nothing if it was not
  // found. An empty path is a choice of the user's.
  virtual std::optional<std::string> search(const std::string& name) = 0;
};

// The bytes of an image from one position to another, 1-based; none if `fin` stands before `ini`.
std::string bytes_between(FileImage& image, Position ini, Position fin);

// The name of the file of a stored path; whether that file is searched on the drives, by its
// extension.
std::string name_in(std::string_view RutaVieja);
bool is_searched(std::string_view RutaVieja);

struct NewPath {
  std::string path;
  bool found = false;  // the file is there, or was found by a search
};

// Where the file of a stored path is to be looked for from now on. `carpeta` is the folder of the
// project's row, with its backslash. Only names with an extension of six, in small letters, are
// searched: all others go to `carpeta`. A hit of the search wins over a file in `carpeta` itself.
NewPath choose_path(std::string_view RutaVieja, const std::string& carpeta, Lookups& lookups);

// Why a pair was left alone.
enum class Untouched {
  no,        // it was patched
  skipped,   // the byte at its end is the letter of the projects' drive
  stays,     // careful: the stored path exists, or is more than one
  too_long,  // careful: the new path has no room
};

struct PathChange {
  std::string vieja;
  std::string nueva;
  bool hallada = false;
  Untouched untouched = Untouched::no;
  std::uint64_t sobrescritos = 0;  // bytes after the old path and its NUL that were overwritten
};

struct PatchRules {
  char letter = 0;       // the first character of the folder of the originals
  std::string carpeta;   // the folder of the project's row, with its backslash
  bool careful = false;  // leaves paths that exist and those that would not fit, and what follows
};

// Patches one pair. Nothing if the positions are none of a file: the project cannot be patched
// then, and the image is of no further use.
std::optional<PathChange> patch_pair(FileImage& image, const Pointer& pair, const PatchRules& rules,
                                     Lookups& lookups);

}  // namespace ordelan::relink
