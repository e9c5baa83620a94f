// What a run of removal costs beside programs that only do the deed: 10,000 files removed for good
// beside `rm`, to the trash beside `gio trash`, and a backup of large files beside `cp` and `sync`.
// Only the run itself is timed, with its careful look; the project is opened before.
//
//   ORDELAN_BENCH_FOLDER=/some/disk removal_bench
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "app/program.h"
#include "bench/machine.h"
#include "bench/rival.h"
#include "removal/backup_folder.h"
#include "removal/backup_folder_window.h"
#include "removal/backup_options_window.h"
#include "removal/removal_review_window.h"
#include "settings/settings.h"

namespace ordelan::bench {
namespace {

constexpr int kFiles = 10'000;
constexpr int kLargeFiles = 8;
constexpr std::size_t kLargeSize = std::size_t{256} << 20;

std::string place() {
  const char* folder = std::getenv("ORDELAN_BENCH_FOLDER");
  return std::string(folder == nullptr ? "/tmp" : folder) + "/ordelan_removal_bench";
}

// A project that uses one file, and so many others beside it.
void make_studio(int files, std::size_t size) {
  std::filesystem::remove_all(place());
  std::filesystem::create_directories(place() + "/Mix");
  std::filesystem::create_directories(place() + "/Copias");
  std::string project(96, 'x');
  project += std::string("cabecera") + '\0' + "D:\\Mix\\zz.wav" + std::string(260, '\0') +
             std::string("LIST\0\0\0\0mdrl", 12);
  std::ofstream(place() + "/Mix/tema.vip", std::ios::binary) << project;
  std::ofstream(place() + "/Mix/zz.wav") << "used";
  std::string bytes(size, 'a');
  for (int i = 0; i < files; ++i) {
    bytes[0] = static_cast<char>('a' + i % 26);
    const std::string name = std::to_string(i);
    std::ofstream(place() + "/Mix/toma" + std::string(5 - name.size(), '0') + name + ".wav",
                  std::ios::binary)
        << bytes;
  }
}

// The program with that studio opened and its review filled.
struct Opened : Machine {
  Opened() : Machine(place()) {
    program.start();
    dialogs.files.push_back({"D:\\Mix\\tema.vip"});
    program.form.AbrirFichero_Click();
    auto& options = *program.windows.touch<removal::BacUp>();
    options.CheckBorrar.set_checked(true);
    options.CheckBackup.set_checked(false);
  }
  removal::ParaBorrar& review() { return *program.windows.touch<removal::ParaBorrar>(); }

  posix::PosixShell trash{files, mapped, place() + "/trash"};
  system::Platform whole{files, dialogs, backend, clock, regional, drives, trash, media};
  settings::Settings settings{files, regional, "D:\\none.ini"};
  app::Program program{backend, whole, settings};
};

void run(benchmark::State& state, bool to_trash) {
  for (auto _ : state) {
    state.PauseTiming();
    make_studio(kFiles, 1000);
    {
      Opened studio;
      studio.review().CheckBorrarPapelera.set_checked(to_trash);
      state.ResumeTiming();
      studio.review().cmdHecho_Click();
      state.PauseTiming();
      if (studio.program.form.removal_state().gone + 1 < kFiles) state.SkipWithError("not removed");
    }
    state.ResumeTiming();
  }
}

void ordelan_for_good(benchmark::State& state) {
  run(state, false);
}
void ordelan_to_the_trash(benchmark::State& state) {
  run(state, true);
}

void rival(benchmark::State& state, const std::string& command) {
  for (auto _ : state) {
    state.PauseTiming();
    make_studio(kFiles, 1000);
    state.ResumeTiming();
    benchmark::DoNotOptimize(std::system(command.c_str()));
  }
}

void rm(benchmark::State& state) {
  rival(state, "find " + place() + "/Mix -name 'toma*' -print0 | xargs -0 rm");
}
void gio_trash(benchmark::State& state) {
  rival(state, "find " + place() + "/Mix -name 'toma*' -print0 | XDG_DATA_HOME=" + place() +
                   "/data xargs -0 gio trash");
}

void ordelan_backup(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    make_studio(kLargeFiles, kLargeSize);
    std::system("sync");
    {
      Opened studio;
      removal::BackupFolder folder(studio.files, studio.trash, "D:\\Copias", [] { return true; });
      if (!folder.take() || !folder.begin_log()) state.SkipWithError("no folder");
      state.ResumeTiming();
      for (const std::string& row : studio.review().ListBorrar.rows()) {
        if (!folder.copy(row)) state.SkipWithError("not copied");
      }
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
}

// The reading back alone, which `cp` does not do.
void ordelan_read_back(benchmark::State& state) {
  make_studio(kLargeFiles, kLargeSize);
  std::system(("cp " + place() + "/Mix/toma* " + place() + "/Copias").c_str());
  Machine machine(place());
  const auto rows = machine.files.list("D:\\Copias");
  for (auto _ : state) {
    for (const system::FileInfo& file : *rows) {
      const auto same = removal::same_content(machine.files, "D:\\Mix\\" + file.name,
                                              "D:\\Copias\\" + file.name, [] { return true; });
      if (!same) state.SkipWithError("not equal");
    }
  }
}

void cp_and_sync(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    make_studio(kLargeFiles, kLargeSize);
    std::system("sync");
    state.ResumeTiming();
    const std::string command = "cp " + place() + "/Mix/toma* " + place() + "/Copias && sync";
    benchmark::DoNotOptimize(std::system(command.c_str()));
  }
}

BENCHMARK(rm)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(ordelan_for_good)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(gio_trash)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(ordelan_to_the_trash)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(cp_and_sync)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(ordelan_backup)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);
BENCHMARK(ordelan_read_back)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

}  // namespace
}  // namespace ordelan::bench

BENCHMARK_MAIN();
