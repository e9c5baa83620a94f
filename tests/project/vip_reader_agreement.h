// Runs the fast reader and the literal one over the same file and says where they differ.
#pragma once

#include <string>
#include <vector>

#include "project/literal_reader.h"
#include "support/reader_bench.h"

namespace ordelan::test {

class Agreement {
 public:
  explicit Agreement(std::size_t block) : bench_(block) {}

  // Reads `file` in every way that the program does. Gives a sentence on the first difference,
  // nothing when both agree. Both keep their positions from one file to the next.
  std::string compare(const std::string& file) {
    constexpr const char* kPath = "D:\\x.vip";
    bench_.files.contents[kPath] = file;
    std::string difference = read(kPath, file, "1 --> D:\\x.vip", true, false);
    if (difference.empty()) difference = read(kPath, file, "", false, false);
    if (difference.empty()) difference = read("7 --> D:\\x.vip", file, "", true, true);
    if (difference.empty()) difference = header(kPath, file);
    if (difference.empty()) difference = marker(kPath, file);
    if (difference.empty()) difference = pointers(kPath, file);
    return difference;
  }

 private:
  std::string read(const std::string& path, const std::string& file, const std::string& title,
                   bool add, bool uncut) {
    bench_.list.clear();
    const bool found =
        bench_.reader.ExtraerNombres_Archivos(path, project::into(bench_.list), title, add);
    const auto expected = literal_.ExtraerNombres_Archivos(file, title, add, uncut);
    if (found != expected.found) return "another answer";
    if (bench_.list.rows() != expected.rows) return "other rows";
    if (static_cast<std::int64_t>(bench_.reader.TotalArchivosVip) != literal_.TotalArchivosVip) {
      return "another count";
    }
    if (bench_.reader.PosInicioVip != literal_.PosInicioVip) return "another PosInicioVip";
    if (!file.empty() && bench_.reader.PosFinalVip != literal_.PosFinalVip) {
      return "another PosFinalVip";
    }
    return {};
  }

  std::string header(const std::string& path, const std::string& file) {
    if (bench_.reader.LeerCabeceraVip(path) != literal_.LeerCabeceraVip(file)) {
      return "another header";
    }
    return {};
  }

  std::string marker(const std::string& path, const std::string& file) {
    for (const std::int64_t from : {std::int64_t{97}, literal_.PosInicioVip}) {
      if (bench_.reader.BuscarMarcaListas(path, from) != literal_.BuscarMarcaListas(file, from)) {
        return "another marker";
      }
    }
    return {};
  }

  std::string pointers(const std::string& path, const std::string& file) {
    bench_.list.clear();
    bench_.work.ModoPosiciones = true;
    const bool found =
        bench_.reader.ExtraerNombres_Archivos(path, project::into(bench_.list), "title", true);
    bench_.work.ModoPosiciones = false;
    if (found || !bench_.list.empty()) return "pointer mode added rows";
    if (file.empty()) return {};
    std::string lines;
    for (const auto position : literal_.positions(file)) lines += std::to_string(position) + "\r\n";
    return bench_.files.contents["D:\\x_vip.log"] == lines ? "" : "other positions";
  }

  ReaderBench bench_;
  LiteralReader literal_;
};

}  // namespace ordelan::test
