// The first pass over the projects: where the paths of each stand.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "project/vip_reader.h"
#include "relink/pointer_file.h"
#include "work/context.h"
#include "work/job.h"

namespace ordelan::relink {

// What the window shows while pointers are written.
struct PointerListener {
  std::function<void()> begun;
  std::function<void()> ended;
};

class PointerWriter {
 public:
  // The arguments must outlive the writer.
  PointerWriter(const work::Context& context, project::VipReader& reader,
                const PointerListener& listener)
      : context_(context), reader_(reader), listener_(listener) {}

  // Writes the pointer files of all rows to a folder, given with its backslash. Rows of one name
  // write one file, the last of them for good. Failures are quiet: what a file holds so far stays,
  // and its row is among the incomplete ones.
  void GrabarPunteros(const std::string& Carpeta, const std::vector<std::string>& rows,
                      work::Job& job);

  // Writes the pointer file of one row. A row without a project, or with an empty one, leaves none.
  void GrabarPunteroVip(const std::string& Fila, const std::string& Carpeta, work::Job& job);

  // What the pointer file of a row would hold; nothing where there would be none.
  std::optional<std::string> pointers_of(const std::string& Fila, work::Job& job);

  // The rows whose pointers could not be read or written as a whole: what stands under the name of
  // their pointer file may be a part of them, or those of an earlier update.
  const std::set<std::string>& incomplete() const { return incomplete_; }

 private:
  bool write(const std::string& Fila, const std::string& Carpeta, work::Job& job);
  std::optional<std::string> project_of(const std::string& row) const;
  std::string walk(const std::string& path, work::Job& job, bool& whole);
  void show_begun();
  void show_ended();

  const work::Context& context_;
  project::VipReader& reader_;
  PointerListener listener_;
  std::set<std::string> incomplete_;
  bool several_ = false;  // the window shows the pass once for all rows
  bool shown_ = false;
};

}  // namespace ordelan::relink
