// The reading of a project byte by byte, one byte a read: slow, plain, and what the fast
// reader is compared with.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ordelan::test {

struct LiteralReader {
  std::int64_t PosInicioVip = 0;
  std::int64_t PosFinalVip = 0;
  std::int64_t TotalArchivosVip = 0;

  std::string LeerCabeceraVip(std::string_view file);
  std::int64_t BuscarMarcaListas(std::string_view file, std::int64_t Desde);

  struct Answer {
    bool found = false;
    std::vector<std::string> rows;  // as the list would hold them, title included
  };
  // `uncut` says that the row still held its number and arrow, so that the header was not read.
  Answer ExtraerNombres_Archivos(std::string_view file, std::string_view Titulo, bool Agregar,
                                 bool uncut = false);

  // The positions that pointer mode writes.
  std::vector<std::int64_t> positions(std::string_view file);
};

}  // namespace ordelan::test
