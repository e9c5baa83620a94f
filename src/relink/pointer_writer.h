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

// Whether a file that has the name of a pointer file is none: it is somebody's own.
bool is_foreign_pointer_file(system::FileSystem& files, const std::string& path);

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

  // What the pointer file of a row would hold; nothing where there would be none. `whole` is
  // whether the project was read to its end.
  struct Walked {
    std::string lines;
    bool whole = true;
  };
  std::optional<Walked> pointers_of(const std::string& Fila, work::Job& job);

  // The pointer files that have been written as a whole, by name in small letters, with what they
  // hold. A file that is somebody's own is left as it is, and is none of them.
  struct Written {
    std::string name;
    std::string lines;
  };
  const std::map<std::string, Written>& written() const { return written_; }

 private:
  std::optional<std::string> project_of(const std::string& row) const;
  Walked walk(const std::string& path, work::Job& job);
  void write(const std::string& folder, const std::string& name, const Walked& walked);
  void show_begun();
  void show_ended();

  const work::Context& context_;
  project::VipReader& reader_;
  PointerListener listener_;
  std::map<std::string, Written> written_;
  bool several_ = false;  // the window shows the pass once for all rows
  bool shown_ = false;
};

}  // namespace ordelan::relink
