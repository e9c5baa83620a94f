// The states of the main window. Every control that a state shows or hides is the other way round
// just before the state is entered, so that no earlier state can have left it right by chance.
#include <gmock/gmock.h>

#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

#include "location/lost_file_window.h"
#include "main_window/main_window.h"
#include "support/program_bench.h"
#include "ui/list_width.h"

namespace ordelan::test {
namespace {

struct ViewStates : ::testing::Test, ProgramBench {
  using Controls = std::vector<ui::Control*>;
  struct State {
    Controls shown;
    Controls hidden;
  };

  ViewStates() {
    start();
    // Long enough for several turns while one of them is read.
    for (const char* name : {"a", "b"}) {
      const std::string below = std::string("Mix\\") + name;
      disk.write(below + ".vip", project_of({disk.path(below + ".wav")}, 1'000'000));
    }
    for (const char* file : {"Mix\\a.wav", "Mix\\b.wav", "Mix\\m.wav", "Mix\\z.wav"}) {
      disk.write(file, file);
    }
  }

  static void turn_round(const State& state) {
    for (ui::Control* const control : state.shown) control->hide();
    for (ui::Control* const control : state.hidden) control->show();
  }
  static void expect(const State& state) {
    for (const ui::Control* const control : state.shown) {
      EXPECT_TRUE(control->visible()) << control->name() << " " << control->index();
    }
    for (const ui::Control* const control : state.hidden) {
      EXPECT_FALSE(control->visible()) << control->name() << " " << control->index();
    }
  }

  // In every turn in which `before` holds the controls are turned round; in the first one after
  // those in which `after` holds they are looked at.
  void watch(const State& state, std::function<bool()> before, std::function<bool()> after) {
    backend.on_pump = [this, state, before = std::move(before), after = std::move(after)] {
      if (seen) return;
      if (turned && after()) {
        seen = true;
        expect(state);
      } else if (before()) {
        turned = true;
        turn_round(state);
      }
    };
  }
  // The controls are turned round in every turn in which `before` holds, and looked at by the test.
  void watch_to_the_end(const State& state, std::function<bool()> before) {
    watch(state, std::move(before), [] { return false; });
  }
  bool clock_runs() { return form.clocks.TimerLap.running(); }
  bool decoding() { return form.strip.TextDecode.text().starts_with("Descodificando: "); }

  Controls headings(bool with_projects) {
    work::WorkLists& lists = form.lists;
    Controls all{&lists.LabelCount[0], &lists.LabelCount[1], &lists.LabelAdd[0],
                 &lists.LabelAdd[1],   &lists.LabelErase[0], &lists.LabelErase[1]};
    if (with_projects) all.insert(all.end(), {&lists.LabelCheck[0], &lists.LabelCheck[1]});
    return all;
  }
  static Controls joined(Controls all, const Controls& more) {
    all.insert(all.end(), more.begin(), more.end());
    return all;
  }
  Controls texts() {
    Controls all;
    for (auto& text : form.TextNum1) all.push_back(text.get());
    return all;
  }

  bool turned = false;
  bool seen = false;
};

TEST_F(ViewStates, empty) {
  const State state{
      joined(texts(), {&form.CheckDragDrop, &form.CheckLogo, &form.lists.ListProyectos,
                       &form.ListProyectosInfo, &form.ShowIco}),
      joined(headings(true),
             {&form.strip.XP_ProgressBar1, &form.strip.TextDecode, &form.strip.LabelAviso,
              &form.lists.ListVip, &form.lists.ListUtilizados, &form.lists.ListBorrar,
              &form.cmdCancelar, &form.cmdPerdidos, &form.CommandBorrado, &form.SalvaListados,
              &form.ActualizarVip, &form.ZoomListas, &form.path_strip.ListPath,
              &form.path_strip.ImageIcon, &form.LabelFuera})};
  turn_round(state);
  form.cmdReset_Click();
  expect(state);
}

TEST_F(ViewStates, choosing_while_the_file_dialog_is_up) {
  const State state{{},
                    {&form.ZoomListas, &form.clocks.LabelD, &form.strip.TextDecode,
                     &form.SalvaListados, &form.ActualizarVip}};
  turn_round(state);
  dialogs.on_dialog = [&] {
    seen = true;
    expect(state);
  };
  form.AbrirFichero_Click();
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, opening) {
  const State state{{&form.cmdCancelar, &form.strip.LabelAviso, &form.clocks.TextLapsoTotal},
                    joined(texts(), {&form.cmdPerdidos, &form.CommandBorrado, &form.ShowIco,
                                     &form.ListProyectosInfo})};
  watch(
      state, [&] { return !work.Descodificando; }, [&] { return work.Descodificando; });
  open("Mix\\a.vip");
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, projects_listed_and_the_picked_one_read) {
  const State state{
      {&form.lists.ListProyectos, &form.lists.LabelCheck[0], &form.lists.LabelCheck[1],
       &form.strip.XP_ProgressBar1, &form.strip.TextDecode},
      {&form.ListProyectosInfo, &form.CheckDragDrop, &form.CheckLogo}};
  watch(
      state, [&] { return work.Descodificando && !decoding(); }, [&] { return decoding(); });
  open("Mix\\a.vip");
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, opened) {
  const State state{{&form.CheckDragDrop, &form.CheckLogo, &form.SalvaListados, &form.ActualizarVip,
                     &form.CommandBorrado, &form.clocks.TimeDeco, &form.clocks.LabelD},
                    {&form.strip.XP_ProgressBar1, &form.strip.TextDecode, &form.strip.LabelAviso,
                     &form.cmdCancelar}};
  watch(
      state, [&] { return clock_runs(); }, [&] { return !clock_runs(); });
  open("Mix\\a.vip");
  EXPECT_TRUE(seen) << "in a turn of the report of lost files";
}

TEST_F(ViewStates, opened_with_nothing_unused_shows_the_removal_button_for_side_files_alone) {
  for (const bool side_files : {false, true}) {
    settings.GrabarIni(settings.RutaConfig, "Borrar todos los asociados      ------>",
                       side_files ? "1" : "0");
    disk.remove("Mix\\m.wav");
    disk.remove("Mix\\z.wav");
    watch_to_the_end({{&form.CommandBorrado}, {}}, [&] { return clock_runs(); });
    open("Mix\\a.vip");
    ASSERT_TRUE(form.lists.ListBorrar.empty());
    EXPECT_EQ(form.CommandBorrado.visible(), side_files);
  }
}

TEST_F(ViewStates, open_at_the_very_end) {
  const State state{{&form.cmdReset, &form.ZoomListas, &form.cmdPerdidos}, {}};
  watch_to_the_end(state, [&] { return clock_runs(); });
  open("Mix\\a.vip");
  EXPECT_TRUE(turned);
  expect(state);
}

TEST_F(ViewStates, dropping) {
  const State state{{&form.cmdCancelar, &form.strip.LabelAviso, &form.clocks.TextLapsoTotal},
                    joined(joined(headings(true), texts()),
                           {&form.ListProyectosInfo, &form.strip.TextDecode, &form.ZoomListas,
                            &form.ShowIco, &form.SalvaListados, &form.ActualizarVip,
                            &form.lists.ListVip, &form.lists.ListBorrar, &form.lists.ListUtilizados,
                            &form.lists.ListProyectos, &form.cmdPerdidos, &form.CommandBorrado})};
  turn_round(state);
  turned = true;
  watch(
      state, [] { return false; }, [] { return true; });
  drop({"Mix\\a.vip"});
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, searching_a_folder_that_was_dropped_after_projects) {
  const State state{{&form.cmdCancelar},
                    joined(joined(headings(true), texts()),
                           {&form.lists.ListVip, &form.lists.ListBorrar, &form.lists.ListUtilizados,
                            &form.cmdPerdidos, &form.CommandBorrado})};
  const std::string folder = disk.path("Mix");
  watch(
      state, [&] { return work.RutaVip != folder; }, [&] { return work.RutaVip == folder; });
  drop({"Mix\\a.vip", "Mix"});
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, sweeping) {
  const State state{
      {&form.cmdCancelar, &form.lists.ListProyectos, &form.lists.LabelCheck[0],
       &form.lists.LabelCheck[1], &form.strip.XP_ProgressBar1, &form.strip.TextDecode},
      joined(joined(headings(false), texts()),
             {&form.lists.ListVip, &form.lists.ListBorrar, &form.lists.ListUtilizados,
              &form.cmdPerdidos, &form.CommandBorrado, &form.ZoomListas, &form.ShowIco,
              &form.ListProyectosInfo, &form.CheckDragDrop, &form.CheckLogo})};
  watch(
      state, [&] { return !decoding(); }, [&] { return decoding(); });
  drop({"Mix\\a.vip"});
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, swept) {
  const State state{{&form.CheckDragDrop, &form.CheckLogo, &form.lists.ListBorrar,
                     &form.cmdPerdidos, &form.SalvaListados, &form.ActualizarVip, &form.ZoomListas,
                     &form.cmdReset, &form.clocks.TimeDeco, &form.clocks.LabelD},
                    {&form.strip.XP_ProgressBar1, &form.strip.TextDecode, &form.strip.LabelAviso,
                     &form.cmdCancelar}};
  for (const std::string& item : {std::string("Mix\\a.vip"), std::string("Mix")}) {
    turned = false;
    watch_to_the_end(state, [&] { return clock_runs(); });
    drop({item});
    EXPECT_TRUE(turned);
    expect(state);
    form.cmdReset_Click();
  }
}

// A folder of frozen tracks is not swept, and what the work before offers is put away all the same.
TEST_F(ViewStates, not_swept) {
  const State state{{}, {&form.strip.TextDecode, &form.ZoomListas}};
  turn_round(state);
  work.RutaProyectos = "D:\\Mix\\FreezeData\\";
  auto job = work::Job::begin(work, platform);
  EXPECT_TRUE(form.BarrerProyectos(job));
  expect(state);
}

TEST_F(ViewStates, one_row_decoded_by_a_double_click) {
  open("Mix\\a.vip");
  const State during{
      {&form.cmdCancelar, &form.lists.ListProyectos, &form.lists.LabelCheck[0],
       &form.lists.LabelCheck[1], &form.strip.XP_ProgressBar1, &form.strip.TextDecode,
       &form.clocks.TextLapsoTotal},
      {&form.strip.LabelAviso, &form.path_strip.ImageIcon, &form.path_strip.ListPath,
       &form.ZoomListas, &form.cmdPerdidos, &form.CommandBorrado, &form.lists.ListVip,
       &form.ListProyectosInfo, &form.CheckDragDrop, &form.CheckLogo}};
  turn_round(during);
  turned = true;
  watch(
      during, [] { return false; }, [] { return true; });
  double_click(1);
  EXPECT_TRUE(seen);

  turned = seen = false;
  const State after{{&form.lists.ListVip, &form.CheckDragDrop, &form.CheckLogo, &form.ZoomListas,
                     &form.cmdPerdidos, &form.CommandBorrado, &form.clocks.TimeDeco,
                     &form.clocks.LabelD, &form.lists.LabelCount[0], &form.lists.LabelCount[1]},
                    {&form.strip.XP_ProgressBar1, &form.strip.TextDecode, &form.cmdCancelar,
                     &form.path_strip.ListPath}};
  watch_to_the_end(after, [] { return true; });
  double_click(0);
  EXPECT_TRUE(turned);
  expect(after);
}

// Between two reports the window shows one row decoded, and the next one being decoded.
TEST_F(ViewStates, one_row_decoded_between_two_reports) {
  open("Mix\\a.vip");
  const State state{
      {&form.lists.ListVip, &form.strip.XP_ProgressBar1, &form.CheckDragDrop, &form.ZoomListas,
       &form.cmdPerdidos, &form.CommandBorrado, &form.clocks.TimeDeco, &form.clocks.LabelD},
      {&form.CheckLogo, &form.cmdCancelar, &form.strip.TextDecode}};
  watch(
      state, [&] { return clock_runs(); }, [&] { return !clock_runs(); });
  form.SalvaListados_Click();
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, the_next_row_being_decoded_for_its_report) {
  open("Mix\\a.vip");
  const State state{
      {&form.cmdCancelar, &form.lists.ListProyectos, &form.lists.LabelCheck[0],
       &form.lists.LabelCheck[1], &form.strip.XP_ProgressBar1, &form.strip.TextDecode},
      {&form.path_strip.ListPath, &form.ZoomListas, &form.cmdPerdidos, &form.CommandBorrado,
       &form.lists.ListVip, &form.ListProyectosInfo, &form.CheckDragDrop, &form.CheckLogo}};
  watch(
      state, [&] { return !clock_runs(); }, [&] { return clock_runs(); });
  form.SalvaListados_Click();
  EXPECT_TRUE(seen);
}

TEST_F(ViewStates, reports_saved) {
  open("Mix\\a.vip");
  const State state{{&form.lists.ListProyectos, &form.CheckDragDrop, &form.CheckLogo},
                    {&form.strip.XP_ProgressBar1}};
  watch_to_the_end(state, [] { return true; });
  form.SalvaListados_Click();
  EXPECT_TRUE(turned);
  expect(state);
}

// The buttons of a decoded row stand for what there is.
TEST_F(ViewStates, a_decoded_row_shows_no_button_for_an_empty_report_or_list) {
  open("Mix\\a.vip");
  windows.find<location::Perdidos>()->ListPerdidos.clear();
  form.lists.ListBorrar.clear();
  double_click(0);
  EXPECT_FALSE(form.cmdPerdidos.visible());
  EXPECT_FALSE(form.CommandBorrado.visible());
}

TEST_F(ViewStates, the_headings_of_projects_say_how_many_there_are_and_where) {
  const auto expect_headings = [&](const std::string& where) {
    EXPECT_EQ(form.lists.LabelCheck[0].caption(), "Encontrados 2 proyectos en:");
    EXPECT_EQ(form.lists.LabelCheck[1].caption(), where);
  };
  open("Mix\\a.vip");
  expect_headings(disk.path("Mix\\"));
  for (auto& heading : form.lists.LabelCheck) heading->set_caption("");
  double_click(1);
  expect_headings(disk.path("Mix\\"));
  drop({"Mix"});
  expect_headings(disk.path("Mix"));
}

// The widths to which the lists can be scrolled are those of their own rows.
TEST_F(ViewStates, every_list_can_be_scrolled_to_the_end_of_its_longest_row) {
  const auto expect_widths = [&](const char* when) {
    for (ui::ListBox* const list : {&form.lists.ListProyectos, &form.lists.ListVip,
                                    &form.lists.ListUtilizados, &form.lists.ListBorrar}) {
      ASSERT_FALSE(list->empty()) << list->name() << " " << when;
      const int is = list->horizontal_extent();
      EXPECT_EQ(is, ui::ListaAncho(*list)) << list->name() << " " << when;
      list->set_horizontal_extent(1);
    }
  };
  open("Mix\\a.vip");
  expect_widths("opened");
  drop({"Mix\\a.vip"});
  expect_widths("projects dropped");
  drop({"Mix"});
  expect_widths("a folder dropped");
  // The row that is decoded last for its report is another one, with a longer path.
  disk.write("Mix\\b.vip", project_of({disk.path("Mix\\b con un nombre largo.wav")}));
  double_click(0);
  const int is = form.lists.ListVip.horizontal_extent();
  EXPECT_EQ(is, ui::ListaAncho(form.lists.ListVip));
  form.lists.ListVip.set_horizontal_extent(1);
  form.SalvaListados_Click();
  EXPECT_EQ(form.lists.ListVip.horizontal_extent(), is) << "saved";
}

}  // namespace
}  // namespace ordelan::test
