// Builds project files in memory, for tests, benchmarks and sample studios.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tools/seeded_random.h"

namespace ordelan::studio {

// Where the header text of a project file begins, and how wide its fixed path fields are.
inline constexpr std::size_t kHeaderOffset = 96;
inline constexpr std::size_t kPathField = 260;

// How a path is stored: in a field of kPathField bytes filled up with NULs, or as long as it is
// with a single NUL after it.
enum class Field { fixed, terminated };

// A project file that grows call by call. All texts are code-page bytes. Everything that the writer
// makes up by itself (the leading bytes, noise, chunk headers, the bytes before the marker) is
// made so that a reader finds exactly the references that were put in; bytes given to raw() and
// tail() are taken as they are.
class VipWriter {
 public:
  // Begins a file with the bytes that stand before the header text. The same seed and the same
  // calls give the same bytes.
  explicit VipWriter(std::uint64_t seed);

  // The header text, with its NUL. It belongs directly after the leading bytes: throws
  // std::logic_error when anything else was written before.
  void header(std::string_view text);

  // A chunk header: a four-letter name and a size. The size is `size` or a little more: sizes whose
  // bytes would read as a colon are stepped over. Gives the size written, which is how many bytes
  // the chunk should get. Throws std::invalid_argument when the name has not four letters.
  std::size_t chunk(std::string_view name, std::size_t size);

  // A path to an audio file. Throws std::length_error when it does not fit a fixed field.
  void reference(std::string_view path, Field field = Field::fixed);

  // A stored folder, such as the one for frozen tracks.
  void folder(std::string_view path);

  // `size` bytes of binary data: numbers, zeros, stray letters "L", single colons, dots and
  // backslashes, but nothing that begins a path.
  void noise(std::size_t size);

  // The closing marker, led by enough quiet bytes that a search which jumps forward after every
  // letter "L" cannot jump over it.
  void marker();

  // Bytes after the marker, which is written first if it is missing.
  void tail(std::string_view bytes);

  // Any bytes, unchanged.
  void raw(std::string_view bytes);

  // How many bytes the file has by now.
  std::size_t size() const { return bytes_.size(); }

  // The finished file; the writer is empty afterwards and of no further use.
  std::string take();

 private:
  void little_endian(std::uint32_t value);

  SeededRandom random_;
  std::string bytes_;
  bool marked_ = false;
};

// Whether a path stored in a project comes back from it whole: the first dot of the path must be
// the one of an extension that projects are searched for, and the path must end with it.
bool reads_back(std::string_view path);

// A whole realistic project: header, references in both kinds of field between chunks of noise,
// stored folders, the closing marker and, after it, data with a path that is no reference. It has
// `size_hint` bytes, or as many as its contents need when that is more.
std::string make_vip(std::string_view header, const std::vector<std::string>& references,
                     std::size_t size_hint, std::uint64_t seed);

}  // namespace ordelan::studio
