// Every run of the main window, interrupted in each of its turns: by a reset, by newer work after a
// cancel, and by a cancel. What the window shows afterwards is compared with a window in which the
// interrupted run never was.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "main_window/main_window.h"
#include "support/program_bench.h"
#include "ui/check_box.h"
#include "ui/label.h"
#include "ui/list_box.h"
#include "ui/text_box.h"

namespace ordelan::test {
namespace {

using ::testing::ElementsAreArray;

struct InterruptedRuns : ::testing::Test, ProgramBench {
  struct Flow {
    const char* name;
    std::function<void()> run;
  };

  InterruptedRuns() {
    start();
    for (const std::string name : {"Mix\\a", "Mix\\b"}) {
      // Long enough for a turn while it is read.
      disk.write(name + ".vip", project_of({disk.path(name + ".wav"), disk.path("Mix\\a.wav"),
                                            disk.path("Mix\\lost.wav")},
                                           150'000));
      disk.write(name + ".wav", name);
    }
    project("Mix\\Dos\\c.vip", {"Mix\\Dos\\c.wav"});
    // A project that cannot be listed, beside one that may be.
    std::ofstream(disk.native_path("Mix\\Dos") / std::filesystem::path(u8"\u65E5.vip")) << "x";
    for (const char* file : {"Mix\\m.wav", "Mix\\Dos\\o.wav"}) disk.write(file, file);
    project("Otro\\z.vip", {"Otro\\z.wav"});
    disk.write("Otro\\z.wav", "z");
    disk.write("Otro\\y.wav", "y");
  }

  // Everything that a user can see of the window, but for the clocks and the bar's place.
  std::vector<std::string> seen() {
    std::vector<std::string> all;
    for (const ui::Control* const control : form.controls()) {
      if (control == &form.clocks.LabelD || control == &form.clocks.TimeDeco ||
          control == &form.clocks.TextLapsoTotal) {
        continue;
      }
      std::string line = control->name() + " " + std::to_string(control->index());
      if (!control->visible()) {
        all.push_back(line + " hidden");
        continue;
      }
      if (const auto* const label = dynamic_cast<const ui::Label*>(control)) {
        line += " " + label->caption();
      }
      if (const auto* const list = dynamic_cast<const ui::ListBox*>(control)) {
        for (const std::string& row : list->rows()) line += "|" + row;
      }
      if (control == &form.strip.TextDecode) line += " " + form.strip.TextDecode.text();
      all.push_back(line);
    }
    for (const ui::ListBox* const list : {&form.lists.ListProyectos, &form.lists.ListVip,
                                          &form.lists.ListUtilizados, &form.lists.ListBorrar}) {
      all.push_back(list->name() + " " + std::to_string(list->count()));
    }
    for (const work::ProyectoFuera& each : work.ProyectosFuera) all.push_back(each.ruta);
    all.emplace_back(work.Descodificando ? "decoding" : "idle");
    all.emplace_back(form.waiting() ? "waiting" : "ready");
    return all;
  }
  // What the work in hand is.
  std::vector<std::string> in_hand() const {
    std::vector<std::string> all = form.lost_files().TextoPerdidos();
    for (const std::string& each : {work.RutaProyectos, work.RutaVip, work.PrimerProyecto,
                                    work.NombreProyecto, work.CabeceraVip}) {
      all.push_back(each);
    }
    return all;
  }

  std::vector<Flow> flows() {
    return {{"open with subfolders",
             [&] {
               form.CheckSubPath.set_checked(true);
               open("Mix\\a.vip");
             }},
            {"open alone",
             [&] {
               form.CheckSubPath.set_checked(false);
               open("Mix\\a.vip");
             }},
            {"drop a folder", [&] { drop({"Mix"}); }},
            {"drop projects",
             [&] {
               drop({"Mix\\a.vip", "Mix\\b.vip"});
             }},
            {"drop a project and a folder",
             [&] {
               drop({"Mix\\a.vip", "Mix"});
             }},
            {"double click", [&] { double_click(1); }},
            {"reports", [&] { form.SalvaListados_Click(); }}};
  }

  // Begins each flow from a decoded window and does `action` in its n-th turn, for every n. After
  // that `check` looks at the window.
  void in_each_turn(const std::function<void()>& action,
                    const std::function<void(const std::string& when)>& check) {
    for (const Flow& flow : flows()) {
      int interrupted = 0;
      for (int turn = 1; turn < 400; ++turn) {
        backend.on_pump = nullptr;
        form.CheckSubPath.set_checked(true);
        open("Mix\\a.vip");
        ASSERT_FALSE(form.lists.ListBorrar.empty());
        int turns = 0;
        backend.on_pump = [&] {
          if (++turns == turn) action();
        };
        flow.run();
        backend.on_pump = nullptr;
        if (turns < turn) break;
        ++interrupted;
        check(std::string(flow.name) + " at turn " + std::to_string(turn));
        if (HasFailure()) return;
      }
      EXPECT_GT(interrupted, 0) << flow.name;
      EXPECT_LT(interrupted, 399) << flow.name;
    }
  }
};

TEST_F(InterruptedRuns, a_reset_in_any_turn_leaves_the_empty_window) {
  open("Mix\\a.vip");
  form.cmdReset_Click();
  const auto empty = seen();
  in_each_turn(
      [&] { form.cmdReset_Click(); },
      [&](const std::string& when) { EXPECT_THAT(seen(), ElementsAreArray(empty)) << when; });
}

TEST_F(InterruptedRuns, newer_work_after_a_cancel_in_any_turn_is_all_that_is_shown) {
  const auto newer = [&] { open("Otro\\z.vip"); };
  open("Mix\\a.vip");
  newer();
  const auto expected = seen();
  const auto expected_work = in_hand();
  in_each_turn(
      [&] {
        form.cmdCancelar_Click();
        newer();
      },
      [&](const std::string& when) {
        EXPECT_THAT(seen(), ElementsAreArray(expected)) << when;
        EXPECT_EQ(in_hand(), expected_work) << when;
      });
}

TEST_F(InterruptedRuns, a_cancel_in_any_turn_ends_idle_and_offers_no_used_file) {
  in_each_turn([&] { form.cmdCancelar_Click(); },
               [&](const std::string& when) {
                 EXPECT_FALSE(work.Descodificando) << when;
                 EXPECT_FALSE(form.waiting()) << when;
                 EXPECT_FALSE(form.cmdCancelar.visible()) << when;
                 EXPECT_FALSE(form.strip.XP_ProgressBar1.visible()) << when;
                 EXPECT_TRUE(form.lists.ListProyectos.visible()) << when;
                 EXPECT_TRUE(form.CheckDragDrop.visible()) << when;
                 EXPECT_TRUE(form.cmdReset.visible()) << when;
                 for (const std::string& row : offered()) {
                   EXPECT_FALSE(row.ends_with("a.wav") || row.ends_with("b.wav"))
                       << row << " " << when;
                 }
               });
}

// The lists are emptied or filled anew: reports of them would replace good ones.
TEST_F(InterruptedRuns, reports_that_are_overtaken_in_any_turn_write_no_further_one) {
  const auto saved = [&] {
    std::vector<std::string> names;
    if (const auto entries = disk.files().list(disk.path("Mix\\Listados"))) {
      for (const auto& entry : *entries) names.push_back(entry.name);
    }
    return names;
  };
  const std::vector<std::function<void()>> actions{[&] { form.cmdReset_Click(); },
                                                   [&] {
                                                     form.cmdCancelar_Click();
                                                     open("Otro\\z.vip");
                                                   }};
  for (const auto& action : actions) {
    for (int turn = 1; turn < 400; ++turn) {
      disk.remove("Mix\\Listados");
      open("Mix\\a.vip");
      int turns = 0;
      std::vector<std::string> by_then;
      backend.on_pump = [&] {
        if (++turns != turn) return;
        by_then = saved();
        action();
      };
      form.SalvaListados_Click();
      backend.on_pump = nullptr;
      if (turns < turn) {
        EXPECT_GT(turn, 2);
        EXPECT_EQ(saved().size(), 5u) << "not overtaken at last";
        break;
      }
      EXPECT_EQ(saved(), by_then) << turn;
    }
  }
}

TEST_F(InterruptedRuns, a_cancel_while_reports_are_saved_leaves_out_the_projects_that_are_left) {
  open("Mix\\a.vip");
  const auto before = seen();
  in_the_middle([&] { return work.Descodificando; }, [&] { form.cmdCancelar_Click(); });
  form.SalvaListados_Click();
  EXPECT_FALSE(there("Mix\\Listados\\Archivos de a.vip.log")) << "it was read in part";
  EXPECT_FALSE(there("Mix\\Listados\\Archivos de b.vip.log"));
  EXPECT_TRUE(there("Mix\\Listados\\Archivos Totales.log"));
  EXPECT_FALSE(work.Cancelar);
  EXPECT_THAT(seen(), ElementsAreArray(before));
}

// Drops that end without a sweep.
TEST_F(InterruptedRuns, a_question_about_side_files_that_is_overtaken_removes_nothing) {
  settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>", "1");
  const std::vector<std::function<void()>> actions{[&] { form.cmdReset_Click(); },
                                                   [&] { form.cmdCancelar_Click(); }};
  for (const auto& action : actions) {
    disk.write("Viejo\\a.m4a", "x");
    dialogs.answers = {system::Answer::ok};
    dialogs.on_dialog = action;
    drop({"Viejo"});
    EXPECT_TRUE(there("Viejo\\a.m4a"));
    EXPECT_FALSE(work.Descodificando);
  }
  EXPECT_EQ(dialogs.messages.size(), actions.size());
  dialogs.on_dialog = nullptr;
  // In every turn after the answer, as long as nothing has been removed yet.
  for (const auto& action : actions) {
    for (int turn = 1; turn < 100; ++turn) {
      disk.write("Viejo\\a.m4a", "x");
      const std::size_t asked = dialogs.messages.size();
      int turns = 0;
      backend.on_pump = [&] {
        if (dialogs.messages.size() == asked + 1 && there("Viejo\\a.m4a") && ++turns == turn) {
          action();
        }
      };
      dialogs.answers = {system::Answer::ok};
      drop({"Viejo"});
      backend.on_pump = nullptr;
      if (turns < turn) {
        EXPECT_GT(turn, 1) << "there was no turn at all";
        break;
      }
      EXPECT_TRUE(there("Viejo\\a.m4a")) << turn;
    }
  }
}

// The dialog runs the handlers of the window while it is up.
TEST_F(InterruptedRuns, a_project_picked_after_other_work_has_begun_is_not_opened) {
  open("Otro\\z.vip");
  const auto rows = form.lists.ListVip.rows();
  for (bool* busy : {&work.Descodificando, &work.Borrando}) {
    dialogs.on_dialog = [&] { *busy = true; };
    open("Mix\\a.vip");
    EXPECT_EQ(form.lists.ListVip.rows(), rows);
    EXPECT_EQ(work.RutaVip, disk.path("Otro\\z.vip"));
    *busy = false;
  }
  dialogs.on_dialog = nullptr;
}

}  // namespace
}  // namespace ordelan::test
