// What an update of the projects costs beside programs that only do its parts: 2,000 projects with
// 100,000 references, 10,000 of which have moved, on a drive with 1,000,000 files; beside one
// `find` over that drive, `cp` of all projects and `sync`. Only the job itself is timed; the
// project is opened before.
//
//   ORDELAN_BENCH_FOLDER=/some/disk relink_bench
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/program.h"
#include "bench/machine.h"
#include "bench/rival.h"
#include "location/drive_window.h"
#include "settings/settings.h"

namespace ordelan::bench {
namespace {

constexpr int kProjects = 2'000;
constexpr int kReferences = 50;  // of each project
constexpr int kMovedOf = 10;     // one in so many has moved
constexpr int kFiles = 1'000'000;
constexpr int kPerFolder = 500;

std::string place() {
  const char* folder = std::getenv("ORDELAN_BENCH_FOLDER");
  return std::string(folder == nullptr ? "/tmp" : folder) + "/ordelan_relink_bench";
}

std::string name_of(int file) {
  const std::string number = std::to_string(file);
  return "toma" + std::string(7 - number.size(), '0') + number + ".wav";
}
std::string folder_of(int file) {
  return "c" + std::to_string(file / kPerFolder);
}
bool has_moved(int file) {
  return file % kMovedOf == 0;
}

std::string project_of(int project) {
  std::string bytes(96, 'x');
  bytes += std::string("cabecera") + '\0';
  for (int i = 0; i < kReferences; ++i) {
    const int file = project * kReferences + i;
    const std::string path = "D:\\" +
                             std::string(has_moved(file) ? "Sitio viejo de antes" : "Audio") +
                             "\\" + folder_of(file) + "\\" + name_of(file);
    bytes += path + std::string(260 - path.size(), '\0');
  }
  return bytes + std::string("    LIST\0\0\0\0mdrl", 16);
}

void make_audio() {
  if (std::filesystem::exists(place() + "/Audio/whole")) return;
  for (int file = 0; file < kFiles; ++file) {
    const std::string folder = place() + "/Audio/" + folder_of(file);
    if (file % kPerFolder == 0) std::filesystem::create_directories(folder);
    std::ofstream(folder + "/" + name_of(file));
  }
  std::ofstream(place() + "/Audio/whole");
}

void make_projects() {
  std::filesystem::remove_all(place() + "/Mix");
  std::filesystem::create_directories(place() + "/Mix");
  for (int project = 0; project < kProjects; ++project) {
    std::ofstream(place() + "/Mix/p" + std::to_string(project) + ".vip", std::ios::binary)
        << project_of(project);
  }
  output_of("sync");
}

void ordelan_update(benchmark::State& state) {
  make_audio();
  for (auto _ : state) {
    state.PauseTiming();
    make_projects();
    {
      Machine machine(place());
      settings::Settings settings(machine.files, machine.regional, "D:\\none.ini");
      app::Program program(machine.backend, machine.platform, settings);
      program.start();
      machine.dialogs.files.push_back({"D:\\Mix\\p0.vip"});
      program.form.AbrirFichero_Click();
      for (auto& box : program.windows.touch<location::UnidadesBuscar>()->Check1) {
        box->set_checked(true);
      }
      machine.dialogs.answers.push_back(system::Answer::yes);
      state.ResumeTiming();
      program.form.ActualizarVip.on_click();
      state.PauseTiming();
      long long found = 0;
      for (const auto& project : program.form.relink().outcome().proyectos) {
        for (const auto& change : project.rutas) found += change.hallada ? 1 : 0;
      }
      state.counters["found"] = static_cast<double>(found);
      if (found != kProjects * kReferences) state.SkipWithError("not all were found");
    }
    state.ResumeTiming();
  }
}

void find_cp_sync(benchmark::State& state) {
  make_audio();
  for (auto _ : state) {
    state.PauseTiming();
    make_projects();
    state.ResumeTiming();
    output_of("find " + place() + " -iname toma0000010.wav; mkdir " + place() +
              "/Mix/Originales; cp " + place() + "/Mix/*.vip " + place() + "/Mix/Originales; sync");
  }
}

BENCHMARK(find_cp_sync)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(2);
BENCHMARK(ordelan_update)->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(2);

}  // namespace
}  // namespace ordelan::bench

BENCHMARK_MAIN();
