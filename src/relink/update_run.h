// One update of the projects of ListProyectos: copies, pointers, patches. It shows nothing but what
// the pointer pass and the searches show; the caller asks before it and says how it went.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "location/search_window.h"
#include "location/update_search.h"
#include "project/vip_reader.h"
#include "relink/originals.h"
#include "relink/patch.h"
#include "relink/patched_project.h"
#include "relink/pointer_writer.h"
#include "relink/update_lookups.h"
#include "work/context.h"
#include "work/job.h"

namespace ordelan::relink {

struct UpdateOptions {
  bool simulate = false;  // nothing is written
  // Each project is patched in its own folder, and what exists or would not fit stays.
  bool careful = false;
  // Answers in place of the window where a name has several hits; see `location::UpdateSearch`.
  std::function<std::optional<std::string>(const std::vector<std::string>& hits)> on_several;
  // After that answer: whether the project is to be left alone.
  std::function<bool()> leaves_project;
};

// How a project has fared.
struct ProjectUpdate {
  std::string ruta{};     // the path of its row
  std::string destino{};  // the file that is patched
  std::string motivo{};   // why it was left as it was; empty if it was not
  bool creado = false;    // the file did not exist
  bool cambiado = false;  // its bytes are others now, or would be
  std::vector<PathChange> rutas{};
};

class UpdateRun {
 public:
  // How the run ended. `no_pointers`: a row has no pointer file, and all ends there.
  enum class End { done, no_pointers, stopped };

  // `RutaProyectos` as the work in hand has it, and the rows of ListProyectos. Everything given
  // must outlive the run; both texts are kept.
  UpdateRun(const work::Context& context, project::VipReader& reader,
            const PointerListener& listener, const UpdateOptions& options, work::Job& job,
            std::string RutaProyectos, std::vector<std::string> rows);
  ~UpdateRun();
  UpdateRun(const UpdateRun&) = delete;
  UpdateRun& operator=(const UpdateRun&) = delete;

  // The first pass: the folder of the originals, their copies, the pointer files.
  void prepare();
  // The second pass. `zero_counter` is called for each row.
  End patch(const std::function<void()>& zero_counter);

  // The text of the box at the end, as far as the run has got.
  const std::string& Informe() const { return Informe_; }
  const std::string& CarpetaOriginales() const { return CarpetaOriginales_; }
  // One for each row, once the second pass has ended. Gives them away: the report needs them
  // before.
  std::vector<ProjectUpdate> take_projects() { return std::move(projects_); }
  // The folders that the searches on the drives could not list.
  const std::set<std::string>& unseen() const { return search_.index.unseen(); }
  // Writes the report into the folder of the originals. False if that failed.
  bool save_report();
  // Closes the index of the update and gives its folder back. The last call.
  void finish();

 private:
  struct Target {
    std::string path;  // the file that is patched
    bool exists = false;
    std::string motivo;  // why it must not be touched; empty if it may
    work::Visto seen;    // as it stood when it was copied
  };

  bool go_on() { return job_.turn(); }
  std::string target_of(const std::string& row) const;
  void take_folder();
  void foresee_folder();
  void give_up(system::Status why);
  void list_targets();
  void copy_projects();
  void settle();
  void keep_pointers();
  void save_foreign_pointers();
  void write_pointers();
  void expect_names();
  std::string pointer_path(const std::string& row) const;
  std::string pointer_key(const std::string& row) const;
  bool has_pointers(const std::string& row) const;
  std::optional<std::string> pointer_bytes(const std::string& row) const;
  void drop_pointers(const std::string& row);
  End patch_all(const std::function<void()>& zero_counter);
  // False if the run was stopped in it.
  bool patch_project(const std::string& row, const Pointers& pointers, ProjectUpdate& update);
  bool patch_image(OpenProject& project, const Pointers& pointers, ProjectUpdate& update);
  void put(const Target& target, OpenProject& project, ProjectUpdate& update);

  const work::Context& context_;
  const UpdateOptions options_;
  work::Job& job_;
  const std::string RutaProyectos_;
  const std::string CarpetaOriginales_;
  const std::vector<std::string> rows_;
  PointerWriter pointers_;
  location::UpdateSearch search_;
  UpdateLookups lookups_;
  PutBatch batch_;
  std::unique_ptr<Originals> originals_;                 // null where the folder cannot be used
  bool taken_ = false;                                   // the folder is this run's
  std::string no_originals_;                             // why it cannot be used
  std::map<std::string, Target> targets_;                // by key of their path
  std::map<std::string, std::string> kept_pointers_;     // by key, where no file is written
  std::vector<std::string> foreign_pointers_;            // saved; they make room
  std::map<std::string, std::string> blocked_pointers_;  // by key: why one could not be saved
  std::string Informe_;
  std::vector<ProjectUpdate> projects_;
};

}  // namespace ordelan::relink
