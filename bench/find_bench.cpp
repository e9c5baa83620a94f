// The search of a tree of a million files for a name, beside `find -iname` and fd on the same tree
// (`hits` of the three must be equal), and the report of lost files of a studio of 100,000 used
// files, 10,000 of them lost, beside one look at each of the files. The searches of an update for
// 10,000 names: the one walk for all of them, and one answer after it.
//
//   ORDELAN_TREE=FOLDER find_bench
//
// The tree is made in FOLDER if that does not exist: 2,000 folders of 500 empty files.
#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "app/program.h"
#include "bench/machine.h"
#include "bench/rival.h"
#include "location/drive_index.h"
#include "location/file_finder.h"
#include "settings/settings.h"
#include "text/rows.h"

namespace ordelan::bench {
namespace {

constexpr int kFolders = 2000;
constexpr int kFilesEach = 500;
constexpr int kUsed = 100'000;
constexpr int kLostEvery = 10;
constexpr int kRowsEach = 50;  // of a project
constexpr int kExpected = 10'000;

std::string tree() {
  const char* folder = std::getenv("ORDELAN_TREE");
  return folder == nullptr ? "" : folder;
}

// Folders lie three deep, ten at the top.
std::string folder_name(int folder) {
  return "Carpeta " + std::to_string(folder % 10) + "/" + std::to_string(folder / 10 % 10) +
         "/Toma " + std::to_string(folder / 100);
}

std::string file_name(int file) {
  return "guitarra_" + std::to_string(file) + ".wav";
}

void make_tree() {
  if (std::filesystem::exists(tree())) return;
  for (int folder = 0; folder < kFolders; ++folder) {
    const std::filesystem::path place = std::filesystem::path(tree()) / folder_name(folder);
    std::filesystem::create_directories(place);
    for (int file = 0; file < kFilesEach; ++file) {
      std::ofstream(place / file_name(folder * kFilesEach + file));
    }
  }
}

double peak_megabytes() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024;
}

// What is searched: one name, and a part of a name that 1,111 files have.
struct Wanted {
  const char* extensions;
  const char* part;
  const char* pattern;  // of `find` and of fd
};
constexpr Wanted kWanted[] = {{"GUITARRA_777777.wav", "", "GUITARRA_777777.wav"},
                              {"*.wav", "GUITARRA_777", "GUITARRA_777*.wav"}};

const Wanted& wanted(const benchmark::State& state) {
  return kWanted[static_cast<std::size_t>(state.range(0))];
}

void find_iname(benchmark::State& state) {
  const std::string command =
      "find " + tree() + " -type f -iname '" + wanted(state).pattern + "' | wc -l";
  long long hits = 0;
  for (auto _ : state) hits = number_of(command);
  state.counters["hits"] = static_cast<double>(hits);
}

void fd(benchmark::State& state) {
  const std::string command = "fdfind --type f --no-ignore --hidden --ignore-case --glob '" +
                              std::string(wanted(state).pattern) + "' " + tree() + " | wc -l";
  long long hits = 0;
  for (auto _ : state) hits = number_of(command);
  state.counters["hits"] = static_cast<double>(hits);
}

void cFindFiles(benchmark::State& state) {
  Machine machine(tree());
  location::cFindFiles finder(machine.platform);
  const double before = peak_megabytes();
  for (auto _ : state) finder.Find("D:\\", wanted(state).extensions, wanted(state).part, 1);
  state.counters["hits"] = finder.FilesCount();
  state.counters["more_MB"] = peak_megabytes() - before;
}

// Every hundredth file of the tree.
std::string expected_name(int name) {
  return file_name(name * (kFolders * kFilesEach / kExpected));
}

void expect_names(location::DriveIndex& index, int step) {
  for (int name = 0; name < kExpected; name += step) index.expect(expected_name(name));
}

constexpr auto kGoOn = [] { return true; };

// The argument: 1 for all names, 10,000 for a single one, 0 for every file of the tree.
void index_walk(benchmark::State& state) {
  Machine machine(tree());
  const auto step = static_cast<int>(state.range(0));
  const double before = peak_megabytes();
  for (auto _ : state) {
    location::DriveIndex index(machine.platform);
    if (step == 0) {
      for (int file = 0; file < kFolders * kFilesEach; ++file) index.expect(file_name(file));
      state.counters["names_MB"] = peak_megabytes() - before;
    } else {
      expect_names(index, step);
    }
    state.counters["hits"] =
        static_cast<double>(index.find("D:\\", expected_name(0), kGoOn)->size());
  }
  state.counters["more_MB"] = peak_megabytes() - before;
}

void index_answer(benchmark::State& state) {
  Machine machine(tree());
  location::DriveIndex index(machine.platform);
  expect_names(index, 1);
  index.find("D:\\", expected_name(0), kGoOn);
  int name = 0;
  std::size_t hits = 0;
  for (auto _ : state) {
    hits += index.find("D:\\", expected_name(name), kGoOn)->size();
    name = (name + 1) % kExpected;
  }
  state.counters["hits"] =
      benchmark::Counter(static_cast<double>(hits), benchmark::Counter::kAvgIterations);
}

// The rows of ListUtilizados: a title, and then fifty files, every tenth of them lost.
std::vector<std::string> used_rows() {
  std::vector<std::string> rows;
  for (int file = 0; file < kUsed; ++file) {
    if (file % kRowsEach == 0) {
      const auto number = static_cast<std::size_t>(file / kRowsEach + 1);
      rows.push_back(text::project_row(number, "D:\\" + std::to_string(number) + ".vip"));
    }
    std::string folder = folder_name(file / kFilesEach);
    for (char& c : folder) {
      if (c == '/') c = '\\';
    }
    rows.push_back("D:\\" + folder + "\\" + (file % kLostEvery == 0 ? "perdida_" : "") +
                   file_name(file));
  }
  return rows;
}

void lost_file_report(benchmark::State& state) {
  Machine machine(tree());
  settings::Settings settings(machine.files, machine.regional, "D:\\nada\\Config.ini");
  app::Program program(machine.backend, machine.platform, settings);
  program.start();
  program.form.lists.ListUtilizados.add(used_rows());
  for (auto _ : state) {
    auto job = work::Job::begin(program.work, machine.platform);
    program.form.lost_files().LlenarPerdidos(job);
  }
  const auto& rows = program.form.lost_files().TextoPerdidos();
  state.counters["lost"] = static_cast<double>(std::count_if(
      rows.begin(), rows.end(), [](const auto& row) { return text::is_file_row(row); }));
}

void one_look_at_each(benchmark::State& state) {
  Machine machine(tree());
  const std::vector<std::string> rows = used_rows();
  int lost = 0;
  for (auto _ : state) {
    lost = 0;
    for (const std::string& row : rows) {
      if (text::is_file_row(row) && !machine.files.look_up(row)) ++lost;
    }
  }
  state.counters["lost"] = lost;
}

BENCHMARK(find_iname)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(fd)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(cFindFiles)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(index_walk)->Arg(kExpected)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(index_answer)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(one_look_at_each)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(lost_file_report)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace ordelan::bench

int main(int count, char** arguments) {
  if (std::getenv("ORDELAN_TREE") == nullptr) {
    std::fprintf(stderr, "find_bench: ORDELAN_TREE names no folder\n");
    return 2;
  }
  ordelan::bench::make_tree();
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
