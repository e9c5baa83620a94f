// Ordinary situations in which a file that the user wants could be offered or lost, or in which
// the window shows something untrue: through the handlers of the window, on a real disk.
#include <gmock/gmock.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "main_window/main_window.h"
#include "support/forwarding_files.h"
#include "support/program_bench.h"

namespace ordelan::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

struct Attack : ::testing::Test, ProgramBench {
  Attack() { start(); }

  std::vector<std::string> left_out() const {
    std::vector<std::string> paths;
    for (const auto& project : work.ProyectosFuera) paths.push_back(project.ruta);
    return paths;
  }
  void remove_side_files_of_drops() {
    settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>", "1");
    dialogs.answers.push_back(system::Answer::ok);
  }
};

// --- audio that a project uses is offered

TEST_F(Attack, what_the_projects_of_a_linked_subfolder_use_is_not_offered_without_a_word) {
  project("Mix\\p.vip", {"Mix\\a.wav"});
  project("Otra\\q.vip", {"Mix\\m.wav"});
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\z.wav"}) {
    disk.write(file, file);
  }
  std::error_code failed;
  std::filesystem::create_directory_symlink(disk.native_path("Otra"), disk.native_path("Mix\\Otra"),
                                            failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  const auto reported = [&] {
    for (const std::string& path : left_out()) {
      if (path.find("Otra") != std::string::npos) return true;
    }
    return false;
  };
  open("Mix\\p.vip");
  EXPECT_TRUE(reported() || !::testing::Value(offered(), Contains(disk.path("Mix\\m.wav"))));
  drop({"Mix"});
  EXPECT_TRUE(reported() || !::testing::Value(offered(), Contains(disk.path("Mix\\m.wav"))));
}

TEST_F(Attack, a_drop_that_was_broken_off_leaves_no_offer_of_the_work_before) {
  project("p.vip", {"a.wav"});
  project("q.vip", {"z.wav"});
  for (const char* file : {"a.wav", "b.wav", "z.wav"}) disk.write(file, file);
  drop({"p.vip"});
  ASSERT_THAT(offered(), ElementsAre(disk.path("z.wav")));
  in_the_middle([&] { return form.lists.ListVip.visible(); },
                [&] {
                  form.cmdCancelar_Click();
                  form.lists.ListProyectos.set_current(1);
                  form.ListProyectos_DblClick();
                });
  drop({"p.vip", "q.vip"});
  ASSERT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("z.wav")));
  EXPECT_THAT(offered(), Not(Contains(disk.path("z.wav"))));
  EXPECT_FALSE(form.CommandBorrado.visible());
}

TEST_F(Attack, the_notice_of_a_decode_goes_with_the_decode) {
  project("p.vip", {"a.wav"});
  project("q.vip", {"z.wav"});
  in_the_middle([&] { return form.lists.ListVip.visible(); },
                [&] {
                  form.cmdCancelar_Click();
                  form.lists.ListProyectos.set_current(1);
                  form.ListProyectos_DblClick();
                });
  drop({"p.vip", "q.vip"});
  ASSERT_FALSE(work.Descodificando);
  EXPECT_FALSE(form.strip.LabelAviso.visible());
}

TEST_F(Attack, projects_with_the_longest_names_are_decoded) {
  const std::string longest = "Mix\\" + std::string(251, 'q') + ".vip";
  project("Mix\\p.vip", {"Mix\\a.wav"});
  project(longest, {"Mix\\m.wav"});
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\z.wav"}) {
    disk.write(file, file);
  }
  ASSERT_TRUE(there(longest));
  for (const bool backups : {false, true}) {
    form.CheckBAK.set_checked(backups);
    open("Mix\\p.vip");
    EXPECT_THAT(offered(), Not(Contains(disk.path("Mix\\m.wav")))) << backups;
  }
}

TEST_F(Attack, projects_dropped_under_paths_with_slashes_are_decoded) {
  project("Mix\\p.vip", {"Mix\\a.wav"});
  project("Mix\\q.vip", {"Mix\\m.wav"});
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\z.wav"}) {
    disk.write(file, file);
  }
  form.lists.ListProyectos.on_drop({disk.path("Mix\\p.vip"), disk.folder() + "Mix/q.vip"});
  EXPECT_THAT(offered(), Not(Contains(disk.path("Mix\\m.wav"))));
}

// --- files are lost

TEST_F(Attack, audio_that_a_project_of_the_same_drop_names_stays) {
  project("Mix\\p.vip", {"Mix\\Audio\\u.wav", "Mix\\Audio\\toma.wma"});
  disk.write("Mix\\Audio\\u.wav", "u");
  disk.write("Mix\\Audio\\toma.wma", "t");
  remove_side_files_of_drops();
  drop({"Mix\\p.vip", "Mix\\Audio"});
  EXPECT_TRUE(there("Mix\\Audio\\toma.wma"));
}

TEST_F(Attack, audio_that_a_project_of_the_folder_above_names_stays) {
  project("Mix\\p.vip", {"Mix\\Audio\\u.wav", "Mix\\Audio\\toma.wma"});
  disk.write("Mix\\Audio\\toma.wma", "t");
  remove_side_files_of_drops();
  drop({"Mix\\Audio"});
  EXPECT_TRUE(there("Mix\\Audio\\toma.wma"));
}

TEST_F(Attack, audio_that_a_project_in_a_linked_subfolder_names_stays) {
  disk.write("Viejo\\toma.wma", "t");
  disk.write("Otra\\uno.vip", "basura C:\\Viejo\\toma.wma");
  std::error_code failed;
  std::filesystem::create_directory_symlink(disk.native_path("Otra"),
                                            disk.native_path("Viejo\\Otra"), failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  remove_side_files_of_drops();
  drop({"Viejo"});
  EXPECT_TRUE(there("Viejo\\toma.wma"));
}

TEST_F(Attack, files_removed_in_a_drop_are_not_offered_by_its_sweep) {
  project("Mix\\p.vip", {"Mix\\a.wav"});
  disk.write("Mix\\a.wav", "a");
  disk.write("Mix\\Viejo\\libre.wma", "l");
  disk.write("Mix\\Viejo\\otra.wma", "o");
  remove_side_files_of_drops();
  drop({"Mix\\Viejo", "Mix"});
  ASSERT_FALSE(there("Mix\\Viejo\\libre.wma"));
  EXPECT_THAT(offered(), IsEmpty());
}

// --- what the window reports

TEST_F(Attack, the_reports_of_an_empty_window_are_not_reported_as_failures) {
  disk.make_folder("vacia");
  project("p.vip", {"a.wav"});
  open("p.vip");
  drop({"vacia"});
  ASSERT_TRUE(form.SalvaListados.visible());
  form.SalvaListados.on_click();
  EXPECT_THAT(form.strip.TextDecode.text(), Not(HasSubstr("\r\nListados\\")));
}

// The same disk with some of its files hidden, locked or damaged, which is reached as a share of
// the network too.
class HidingFiles final : public ForwardingFiles {
 public:
  using ForwardingFiles::ForwardingFiles;
  std::set<std::string> hidden;      // names of files
  std::set<std::string> locked;      // paths of files that cannot be opened
  std::set<std::string> damaged;     // paths of files that cannot be read after their first bytes
  std::set<std::string> unreadable;  // folders that cannot be listed, with their backslash
  std::string folder;                // what the share "\\\\nas\\datos\\" leads to

  std::optional<system::FileInfo> info(std::string_view path) override {
    auto found = files().info(local(path));
    if (found && hidden.contains(found->name)) found->hidden = true;
    return found;
  }
  std::optional<system::FileIdentity> identity(std::string_view path) override {
    return files().identity(local(path));
  }
  system::Opened<system::InputFile> open(std::string_view path) override {
    if (locked.contains(std::string(path))) return system::Reason::in_use;
    auto file = files().open(local(path));
    if (!file || !damaged.contains(std::string(path))) return file;
    return std::make_unique<Damaged>(std::move(file));
  }
  system::Opened<system::OutputFile> create(std::string_view path) override {
    return files().create(local(path));
  }
  system::Opened<system::OutputFile> create_new(std::string_view path) override {
    return files().create_new(local(path));
  }
  system::Status make_folder(std::string_view path) override {
    return files().make_folder(local(path));
  }
  system::Status replace(std::string_view from, std::string_view to) override {
    return files().replace(local(from), local(to));
  }
  system::Status flush_folder(std::string_view path) override {
    return files().flush_folder(local(path));
  }
  system::Status remove(std::string_view path) override { return files().remove(local(path)); }

 private:
  class Damaged final : public system::InputFile {
   public:
    explicit Damaged(std::unique_ptr<system::InputFile> file) : file_(std::move(file)) {}
    std::uint64_t size() const override { return file_->size(); }
    std::optional<std::size_t> read(std::uint64_t offset, std::span<std::uint8_t> buffer) override {
      constexpr std::uint64_t kSound = 400'000;
      if (offset + buffer.size() > kSound) return std::nullopt;
      return file_->read(offset, buffer);
    }

   private:
    std::unique_ptr<system::InputFile> file_;
  };

  bool each_entry(std::string_view folder_path, system::Detail detail, const Visit& visit,
                  const VisitUnnamed& unnamed) override {
    if (unreadable.contains(std::string(folder_path))) return false;
    return files().each(
        local(folder_path), detail,
        [&](system::FileInfo& entry) {
          if (hidden.contains(entry.name)) entry.hidden = true;
          return visit(entry);
        },
        unnamed);
  }
  std::string local(std::string_view path) const {
    constexpr std::string_view kShare = "\\\\nas\\datos\\";
    return path.starts_with(kShare) ? folder + std::string(path.substr(kShare.size()))
                                    : std::string(path);
  }
};

TEST_F(Attack, a_project_of_a_share_is_read_from_its_own_beginning) {
  HidingFiles files(disk.files());
  files.folder = disk.folder();
  const system::Platform with_share{files, dialogs, backend, clock, regional, drives, shell, media};
  app::Program other(backend, with_share, settings);
  other.start();
  // The header text of the first project is longer than that of the second.
  disk.write("Mix\\p.vip", project_of({disk.path("Mix\\a.wav")}).insert(96, std::string(600, 'h')));
  project("Otra\\q.vip", {"Mix\\m.wav", "Otra\\u.wav", "Otra\\v.wav", "Otra\\w.wav"});
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\n.wav", "Mix\\z.wav"}) {
    disk.write(file, file);
  }
  for (const bool backups : {false, true}) {
    other.form.CheckBAK.set_checked(backups);
    other.form.lists.ListProyectos.on_drop(
        {disk.path("Mix\\p.vip"), "\\\\nas\\datos\\Otra\\q.vip"});
    EXPECT_THAT(other.form.lists.ListBorrar.rows(), Contains(disk.path("Mix\\z.wav")));
    EXPECT_THAT(other.form.lists.ListBorrar.rows(), Not(Contains(disk.path("Mix\\m.wav"))))
        << backups;
  }
}

// The program on such a disk.
struct OnADamagedDisk : Attack {
  HidingFiles files{disk.files()};
  system::Platform damaged{files, dialogs, backend, clock, regional, drives, shell, media};
  app::Program other{backend, damaged, settings};

  OnADamagedDisk() { other.start(); }
  void open_there(const std::string& below) {
    dialogs.files.push_back({disk.path(below)});
    other.form.AbrirFichero_Click();
  }
  std::vector<std::string> reported() const {
    std::vector<std::string> rows;
    for (const auto& each : other.work.ProyectosFuera)
      rows.push_back(each.ruta + ": " + each.motivo);
    return rows;
  }
};

TEST_F(OnADamagedDisk,
       locked_hidden_and_broken_projects_and_folders_are_reported_with_their_reason) {
  for (const char* name : {"p", "bloqueado", "oculto"}) {
    project("Mix\\" + std::string(name) + ".vip", {"Mix\\a.wav"});
  }
  // One reference stands at the beginning, and the marker after the damage.
  disk.write("Mix\\roto.vip", project_of({disk.path("Mix\\a.wav")}, 900'000));
  project("Mix\\Cerrada\\q.vip", {"Mix\\a.wav"});
  files.locked = {disk.path("Mix\\bloqueado.vip")};
  files.hidden = {"oculto.vip"};
  files.damaged = {disk.path("Mix\\roto.vip")};
  files.unreadable = {disk.path("Mix\\Cerrada\\")};
  const std::vector<std::string> all = {
      disk.path("Mix\\bloqueado.vip") + ": no se puede leer: bloqueado o sin permiso",
      disk.path("Mix\\oculto.vip") + ": oculto o de sistema",
      disk.path("Mix\\roto.vip") + ": no se ha podido leer entero",
      disk.path("Mix\\Cerrada\\") + ": no se puede leer: bloqueado o sin permiso"};
  open_there("Mix\\p.vip");
  EXPECT_THAT(reported(), ::testing::UnorderedElementsAreArray(all));
  other.form.lists.ListProyectos.on_drop({disk.path("Mix")});
  EXPECT_THAT(reported(), ::testing::UnorderedElementsAreArray(all));
}

TEST_F(OnADamagedDisk, audio_stays_where_a_subfolder_cannot_be_listed) {
  disk.write("Viejo\\toma.wma", "t");
  disk.write("Viejo\\x.cue", "t");
  disk.make_folder("Viejo\\Cerrada");
  files.unreadable = {disk.path("Viejo\\Cerrada\\")};
  remove_side_files_of_drops();
  other.form.lists.ListProyectos.on_drop({disk.path("Viejo")});
  EXPECT_TRUE(there("Viejo\\toma.wma"));
  EXPECT_FALSE(there("Viejo\\x.cue"));
}

TEST_F(Attack, audio_that_a_project_dropped_from_elsewhere_names_stays) {
  project("Otra\\p.vip", {"Mix\\Audio\\u.wav", "Mix\\Audio\\toma.wma"});
  disk.write("Mix\\Audio\\toma.wma", "t");
  remove_side_files_of_drops();
  drop({"Otra\\p.vip", "Mix\\Audio"});
  EXPECT_TRUE(there("Mix\\Audio\\toma.wma"));
}

TEST_F(Attack, a_name_does_not_begin_in_one_project_and_end_in_another) {
  disk.write("Viejo\\toma.wma", "t");
  disk.write("Viejo\\a.vip", "to");
  disk.write("Viejo\\b.vip", "ma.wma");
  remove_side_files_of_drops();
  drop({"Viejo"});
  EXPECT_FALSE(there("Viejo\\toma.wma"));
}

TEST_F(Attack, files_read_for_the_last_look_alone_are_not_counted) {
  form.CheckBAK.set_checked(false);
  project("Uno\\a.vip", {"Uno\\u.wav"});
  project("Dos\\b.vip", {"Dos\\u.wav"});
  in_the_middle([&] { return form.lists.ListVip.visible(); }, [&] { disk.remove("Uno\\a.vip"); });
  drop({"Uno\\a.vip", "Dos\\b.vip"});
  EXPECT_THAT(form.lists.LabelAdd[0].caption(),
              ::testing::StartsWith("1  archivos en: 1 proyectos"));
}

TEST_F(Attack, a_row_that_was_chosen_is_chosen_again_after_the_reports) {
  project("p.vip", {"a.wav", "b.wav"});
  open("p.vip");
  form.lists.ListVip.set_current(1);
  form.SalvaListados.on_click();
  EXPECT_EQ(form.lists.ListVip.current(), 1);
}

TEST_F(Attack, a_cancel_at_the_last_item_of_a_drop_sweeps_nothing) {
  project("p.vip", {"a.wav"});
  disk.write("q.vip", project_of({disk.path("z.wav")}, 3'000'000));
  for (const char* file : {"a.wav", "b.wav", "z.wav"}) disk.write(file, file);
  int pumps = 0;
  backend.on_pump = [&] {
    if (++pumps == 1) form.cmdCancelar_Click();
  };
  drop({"p.vip", "q.vip"});
  EXPECT_THAT(offered(), IsEmpty());
  EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty());
}

TEST_F(Attack, a_cancel_at_any_turn_of_a_drop_offers_nothing) {
  project("p.vip", {"a.wav"});
  disk.write("q.vip", project_of({disk.path("z.wav")}, 3'000'000));
  for (const char* file : {"a.wav", "b.wav", "z.wav"}) disk.write(file, file);
  int cancelled = 0;
  for (int turn = 1; turn < 200; ++turn) {
    int pumps = 0;
    backend.on_pump = [&] {
      if (++pumps == turn) form.cmdCancelar_Click();
    };
    drop({"p.vip", "q.vip"});
    if (pumps < turn) break;
    ++cancelled;
    EXPECT_THAT(offered(), IsEmpty()) << turn;
    EXPECT_THAT(form.lists.ListProyectos.rows(), IsEmpty()) << turn;
  }
  EXPECT_GT(cancelled, 20);
}

TEST_F(Attack, a_hidden_project_among_the_dropped_ones_is_reported) {
  HidingFiles files(disk.files());
  const system::Platform hiding{files, dialogs, backend, clock, regional, drives, shell, media};
  app::Program other(backend, hiding, settings);
  other.start();
  project("Mix\\p.vip", {"Mix\\a.wav"});
  project("Otra\\oculto.vip", {"Mix\\m.wav"});
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav"}) disk.write(file, file);
  files.hidden = {"oculto.vip"};
  other.form.lists.ListProyectos.on_drop({disk.path("Mix\\p.vip"), disk.path("Otra\\oculto.vip")});
  ASSERT_THAT(other.form.lists.ListBorrar.rows(), Contains(disk.path("Mix\\m.wav")));
  ASSERT_EQ(other.work.ProyectosFuera.size(), 1u);
  EXPECT_EQ(other.work.ProyectosFuera[0].ruta, disk.path("Otra\\oculto.vip"));
}

TEST_F(Attack, a_project_of_the_folder_above_is_reported) {
  project("Mix\\p.vip", {"Mix\\Sub\\m.wav"});
  project("Mix\\Sub\\r.vip", {"Mix\\Sub\\a.wav"});
  for (const char* file : {"Mix\\Sub\\a.wav", "Mix\\Sub\\b.wav", "Mix\\Sub\\m.wav"}) {
    disk.write(file, file);
  }
  open("Mix\\Sub\\r.vip");
  ASSERT_THAT(offered(), Contains(disk.path("Mix\\Sub\\m.wav")));
  EXPECT_THAT(left_out(), Contains(disk.path("Mix\\p.vip")));
}

TEST_F(Attack, a_project_that_has_gone_when_it_is_dropped_is_reported) {
  project("Mix\\p.vip", {"Mix\\a.wav"});
  drop({"Mix\\p.vip", "Otra\\ida.vip"});
  EXPECT_THAT(left_out(), ElementsAre(disk.path("Otra\\ida.vip")));
}

TEST_F(Attack, a_listed_project_is_not_reported_under_another_path_to_it) {
  project("Mix\\p.vip", {"Mix\\a.wav"});
  project("Mix\\q.vip", {"Mix\\a.wav"});
  std::error_code failed;
  std::filesystem::create_directory_symlink(disk.native_path("Mix"), disk.native_path("enlace"),
                                            failed);
  if (failed) GTEST_SKIP() << "this system makes no links";
  drop({"Mix\\p.vip", "enlace\\q.vip"});
  EXPECT_THAT(left_out(), IsEmpty());
}

// --- handlers that run in the middle of others

TEST_F(Attack, a_search_in_the_middle_does_not_take_a_cancel_back) {
  project("p.vip", {"a.wav"});
  disk.write("q.vip", project_of({disk.path("z.wav")}, 3'000'000));
  for (const char* file : {"a.wav", "b.wav", "z.wav"}) disk.write(file, file);
  int pumps = 0;
  backend.on_pump = [&] {
    // While the second project is decoded with the others.
    if (form.lists.ListVip.visible() && form.lists.ListUtilizados.count() == 2) ++pumps;
    if (pumps == 1) form.cmdCancelar_Click();
    if (pumps != 2) return;
    pumps = 3;
    buscar().BuscarEnTodasUnidades(disk.path("b.wav"), form.lists.ListUtilizados);
  };
  drop({"p.vip", "q.vip"});
  ASSERT_GE(pumps, 2);
  EXPECT_THAT(offered(), Not(Contains(disk.path("z.wav"))));
}

TEST_F(Attack, reports_that_are_begun_again_put_the_shown_project_back) {
  project("p.vip", {"a.wav"});
  disk.write("q.vip", project_of({disk.path("z.wav")}, 700'000));
  open("p.vip");
  in_the_middle([&] { return work.Descodificando && form.lists.ListVip.empty(); },
                [&] {
                  form.cmdCancelar_Click();
                  form.SalvaListados.on_click();
                });
  form.SalvaListados.on_click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("a.wav")));
  EXPECT_TRUE(form.lists.ListProyectos.visible());
}

TEST_F(Attack, a_double_click_after_reports_were_cancelled_shows_that_project) {
  project("p.vip", {"a.wav"});
  disk.write("q.vip", project_of({disk.path("z.wav")}, 700'000));
  open("p.vip");
  in_the_middle([&] { return work.Descodificando && form.lists.ListVip.empty(); },
                [&] {
                  form.cmdCancelar_Click();
                  form.lists.ListProyectos.set_current(1);
                  form.ListProyectos_DblClick();
                });
  form.SalvaListados.on_click();
  EXPECT_THAT(form.lists.ListVip.rows(), ElementsAre(disk.path("z.wav")));
  EXPECT_TRUE(form.lists.ListProyectos.visible());
  EXPECT_TRUE(form.SalvaListados.visible());
}

struct Monkey : Attack, ::testing::WithParamInterface<int> {
  unsigned state = static_cast<unsigned>(GetParam()) * 2654435761u + 1;
  int depth = 0;
  int actions = 0;

  int below(int bound) {
    state = state * 1664525u + 1013904223u;
    return static_cast<int>((state >> 16) % static_cast<unsigned>(bound));
  }
  std::string some_project() {
    constexpr const char* kProjects[] = {"Mix\\p.vip", "Mix\\q.vip", "Mix\\Sub\\r.vip", "midi.vip"};
    return kProjects[below(4)];
  }
  void act() {
    switch (below(14)) {
      case 0:
        return form.cmdReset_Click();
      case 1:
      case 2:
        return form.cmdCancelar_Click();
      case 3:
        return open(some_project());
      case 4:
        return drop({some_project(), "Mix", "vacia"});
      case 5:
        return drop({"vacia", some_project(), some_project()});
      case 6:
        if (form.lists.ListProyectos.count() == 0) return;
        form.lists.ListProyectos.set_current(
            below(static_cast<int>(form.lists.ListProyectos.count())));
        return form.ListProyectos_DblClick();
      case 7:
        return form.SalvaListados_Click();
      case 8:
        return form.cmdPerdidos.on_click();
      case 9:
        return form.LabelFuera.on_click();
      case 10: {
        constexpr const char* kWindows[] = {"Perdidos", "Fuera", "UnidadesBuscar", "Acerca"};
        return windows.close(kWindows[below(4)]);
      }
      case 11:
        buscar().BuscarEnTodasUnidades(disk.path("Mix\\perdido.wav"), form.lists.ListUtilizados);
        return;
      case 12:
        form.CheckSubPath.set_checked(below(2) == 0);
        return;
      default:
        form.CheckBAK.set_checked(below(2) == 0);
        return;
    }
  }
};

TEST_P(Monkey, no_order_of_handlers_offers_what_is_used) {
  project("Mix\\p.vip", {"Mix\\a.wav", "Mix\\perdido.wav"});
  disk.write("Mix\\q.vip", project_of({disk.path("Mix\\m.wav")}, 700'000));
  project("Mix\\Sub\\r.vip", {"Mix\\Sub\\s.wav"});
  disk.write("midi.vip", project_of({}));
  disk.make_folder("vacia");
  for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\n.wav", "Mix\\z.wav",
                           "Mix\\Sub\\s.wav", "Mix\\Sub\\t.wav", "Mix\\Sub\\v.wav"}) {
    disk.write(file, file);
  }
  remove_side_files_of_drops();
  backend.on_pump = [&] {
    if (depth > 3 || actions > 60 || below(6) != 0) return;
    ++depth;
    ++actions;
    act();
    --depth;
  };
  for (int i = 0; i < 8; ++i) {
    act();
    EXPECT_FALSE(work.Descodificando);
    for (const auto* used : {&form.lists.ListVip, &form.lists.ListUtilizados}) {
      for (const std::string& row : used->rows()) EXPECT_THAT(offered(), Not(Contains(row)));
    }
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Orders, Monkey, ::testing::Range(0, 60));

}  // namespace
}  // namespace ordelan::test
