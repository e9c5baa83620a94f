// The first pass over the projects: where the paths of each stand.
#pragma once

#include <cstddef>
#include <functional>
#include <map>
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
  // write one file, the last of them for good. Failures are quiet: what a file holds so far stays.
  void GrabarPunteros(const std::string& Carpeta, const std::vector<std::string>& rows,
                      work::Job& job);

  // Writes the pointer file of one row. A row without a project, or with an empty one, leaves none.
  void GrabarPunteroVip(const std::string& Fila, const std::string& Carpeta, work::Job& job);

  // What the pointer file of a row would hold; nothing where there would be none.
  std::optional<std::string> pointers_of(const std::string& Fila, work::Job& job);

 private:
  std::optional<std::string> project_of(const std::string& row) const;
  std::string walk(const std::string& path, work::Job& job);
  void show_begun();
  void show_ended();

  const work::Context& context_;
  project::VipReader& reader_;
  PointerListener listener_;
  bool several_ = false;  // the window shows the pass once for all rows
  bool shown_ = false;
};

}  // namespace ordelan::relink
