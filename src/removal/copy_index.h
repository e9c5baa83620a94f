// The index beside the log: which copy belongs to which removed file. One line a copy, its parts
// separated by tabs, in the code page:
//
//   <size in bytes>  <fingerprint, 16 hexadecimal digits>  <place>  <path>
//
// `place` is the copy's path from the backup folder on. A line counts once it is ended by CR LF, so
// that an index that was cut short is read as far as it goes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::removal {

inline constexpr const char* kIndexName = "Archivos_Borrados.ind";

struct CopyRecord {
  std::string path;   // of the file that was copied, as its row spells it
  std::string place;  // of the copy
  std::uint64_t size = 0;
  std::uint64_t hash = 0;
  bool operator==(const CopyRecord&) const = default;
};

// The line of one copy. Neither path nor place may hold a tab or a line end, which no Windows name
// does.
std::string index_line(const CopyRecord& record);

// The records of an index, in their order. Lines that are none are passed over.
std::vector<CopyRecord> read_index(std::string_view bytes);

}  // namespace ordelan::removal
