// How long a whole studio takes: everything that `abrir --subcarpetas` does, beside `find` on the
// tree and `cat` of all its projects, which only touch what must be touched; and the search for the
// candidates alone, beside fd with the same kinds of files. `rows` of the latter two must be equal.
//
//   ordelan-studio FOLDER --proyectos 2000 --referencias 100000 --archivos 200000
//   ORDELAN_STUDIO=FOLDER studio_bench
//
// A project is copied to the top of the studio's Mix folder, so that all others lie below it.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench/machine.h"
#include "bench/rival.h"
#include "project/candidate_kinds.h"
#include "project/unused_analysis.h"
#include "work/status_strip.h"
#include "work/work_lists.h"

namespace ordelan::bench {
namespace {

std::string studio() {
  const char* folder = std::getenv("ORDELAN_STUDIO");
  return folder == nullptr ? "" : folder;
}

void find_and_cat(benchmark::State& state) {
  const std::string command = "find " + studio() + " >/dev/null; find " + studio() +
                              " -name '*.vip' -print0 | xargs -0 cat >/dev/null";
  for (auto _ : state) benchmark::DoNotOptimize(std::system(command.c_str()));
}

void ordelan_abrir(benchmark::State& state) {
  const std::string command = std::string(ORDELAN_PROGRAM " --unidad D=") + studio() +
                              R"( abrir --subcarpetas 'D:\Mix\todo.vip' >/dev/null)";
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) state.SkipWithError("not decoded");
  }
}

void candidates(benchmark::State& state) {
  Machine machine(studio());
  work::WorkLists lists(machine.window);
  work::StatusStrip strip(machine.window);
  std::size_t rows = 0;
  for (auto _ : state) {
    auto job = work::Job::begin(machine.work, machine.platform);
    project::LeftOut left_out(machine.work);
    project::UnusedAnalysis analysis(machine.platform, lists, strip, left_out);
    project::Candidates found;
    analysis.BuscarArchivosAPI("D:\\Mix", found, job);
    rows = found.size();
  }
  state.counters["rows"] = static_cast<double>(rows);
}

void fd(benchmark::State& state) {
  std::string command = "fdfind --type f --no-ignore --hidden";
  for (const std::string_view pattern : project::kPatterns) {
    // Three letters also stand for longer extensions that begin with them.
    const std::string extension(pattern.substr(2));
    command += " -e " + extension;
    if (extension == "fla") command += " -e flac";
    if (extension == "aif") command += " -e aiff";
  }
  command += " . " + studio() + "/Mix | wc -l";
  long long rows = 0;
  for (auto _ : state) rows = number_of(command);
  state.counters["rows"] = static_cast<double>(rows);
}

BENCHMARK(find_and_cat)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ordelan_abrir)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(candidates)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(fd)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace ordelan::bench

int main(int count, char** arguments) {
  if (std::getenv("ORDELAN_STUDIO") == nullptr) {
    std::fprintf(stderr, "studio_bench: ORDELAN_STUDIO names no studio\n");
    return 2;
  }
  benchmark::Initialize(&count, arguments);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
