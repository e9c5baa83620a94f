// How fast a project of 100 MB is decoded, beside `cat FILE >/dev/null`, which only reads it, and
// ripgrep searching it with an equal pattern. The file is in the page cache; `rows` must be equal.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/machine.h"
#include "bench/rival.h"
#include "project/vip_reader.h"
#include "tools/vip_writer.h"
#include "ui/list_box.h"
#include "ui/progress_bar.h"

namespace ordelan::bench {
namespace {

constexpr std::size_t kSize = 100'000'000;
constexpr int kReferences = 5'000;

// The project, made once and removed at the end.
class Project {
 public:
  Project() {
    std::string name = (std::filesystem::temp_directory_path() / "ordelan_XXXXXX").string();
    folder = ::mkdtemp(name.data());
    studio::VipWriter writer(1);
    writer.header("cabecera");
    for (int i = 0; i < kReferences; ++i) {
      writer.reference("D:\\Mix\\Tomas\\toma " + std::to_string(i) + ".wav");
      writer.noise(kSize / kReferences - studio::kPathField);
    }
    writer.marker();
    bytes = writer.take();
    std::ofstream(file(), std::ios::binary) << bytes;
  }
  ~Project() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  Project(const Project&) = delete;
  Project& operator=(const Project&) = delete;

  std::string file() const { return folder + "/large.vip"; }

  std::string folder;
  std::string bytes;
};

const Project& project() {
  static const Project made;
  return made;
}

void report(benchmark::State& state, long long rows) {
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                          static_cast<std::int64_t>(project().bytes.size()));
  state.counters["rows"] = static_cast<double>(rows);
}

void cat(benchmark::State& state) {
  const std::string command = "cat " + project().file() + " >/dev/null";
  for (auto _ : state) {
    if (std::system(command.c_str()) != 0) state.SkipWithError("cat failed");
  }
  report(state, 0);
}

void ripgrep(benchmark::State& state) {
  const std::string command =
      R"(rg -aoc '(?si-u).:\\[^\x00]*?\.(wav|mp3|aif|ogg|fla.)' )" + project().file();
  long long rows = 0;
  for (auto _ : state) rows = number_of(command);
  if (rows < 0) state.SkipWithError("rg is not installed");
  report(state, rows);
}

void one_call_of_the_reader(benchmark::State& state) {
  Machine machine(project().folder);
  ui::ListBox list(machine.window, "list");
  ui::ProgressBar progress(machine.window, "progress");
  project::VipReader reader(machine.platform, machine.work, progress);
  for (auto _ : state) {
    list.clear();
    reader.ExtraerNombres_Archivos("D:\\large.vip", project::into(list), "", true);
  }
  report(state, static_cast<long long>(list.count()));
}

void scan_in_memory(benchmark::State& state) {
  const std::string& bytes = project().bytes;
  const project::Chunk whole{reinterpret_cast<const std::uint8_t*>(bytes.data()), 1, bytes.size(),
                             true};
  long long rows = 0;
  for (auto _ : state) {
    project::HeaderScan header(whole.end() - 1);
    header.advance(whole);
    project::MarkerSearch marker(header.position(), whole.end() - 1);
    marker.advance(whole);
    project::ReferenceScan scan(header.position());
    project::Reference found{};
    rows = 0;
    while (scan.next(whole, marker.limit(), found)) ++rows;
  }
  report(state, rows);
}

BENCHMARK(cat)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(one_call_of_the_reader)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ripgrep)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(scan_in_memory)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace ordelan::bench

BENCHMARK_MAIN();
