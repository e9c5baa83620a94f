// How fast all projects are searched for the names of 50,000 files, beside `cat`, which only reads
// them, and ripgrep with the same names: over 2,000 projects of 1 MB, and over one of 4 GB. The
// projects are in memory (/dev/shm). ripgrep takes a quarter of a minute to prepare that many names
// and many minutes for gigabytes: it is stopped after kPatience. Over eight projects it may finish,
// and the names found must be equal there. `peak_MB` is the most memory that the search took.
//
// mentions_bench [MB of the large project]
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "bench/rival.h"
#include "posix/mapped_drives.h"
#include "posix/posix_file_system.h"
#include "project/project_mentions.h"
#include "tools/vip_writer.h"

namespace ordelan::bench {
namespace {

constexpr int kNames = 50'000;
constexpr int kProjects = 2'000;
constexpr int kFew = 8;
constexpr int kPatience = 40;  // seconds
constexpr std::size_t kSize = 1'000'000;
constexpr int kReferences = 50;  // in each MB

std::string name_of(int number) {
  std::array<char, 32> name{};
  std::snprintf(name.data(), name.size(), "toma %06d.wav", number);
  return name.data();
}

// The projects, made once and removed at the end. Half of the names are mentioned, by paths that
// lead nowhere; each MB also mentions files that are not searched for.
class Projects {
 public:
  explicit Projects(std::size_t large_mb) {
    std::string name = "/dev/shm/ordelan_mentions_XXXXXX";
    folder = ::mkdtemp(name.data());
    std::filesystem::create_directory(small());
    std::filesystem::create_directory(large());
    std::filesystem::create_directory(few());
    for (int i = 0; i < kProjects; ++i) {
      std::ofstream(small() + "/p" + std::to_string(i) + ".vip", std::ios::binary) << piece(i);
    }
    for (int i = 0; i < kFew; ++i) {
      const std::string file = "/p" + std::to_string(i) + ".vip";
      std::filesystem::create_hard_link(small() + file, few() + file);
    }
    std::ofstream one(large() + "/p.vip", std::ios::binary);
    for (std::size_t i = 0; i < large_mb; ++i) one << piece(static_cast<int>(i));
    std::ofstream names(folder + "/names");
    for (int i = 0; i < kNames; ++i) names << name_of(i) << "\n";
  }
  ~Projects() {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
  }
  Projects(const Projects&) = delete;
  Projects& operator=(const Projects&) = delete;

  std::string small() const { return folder + "/small"; }
  std::string few() const { return folder + "/few"; }
  std::string large() const { return folder + "/large"; }

  std::string folder;

 private:
  static std::string piece(int seed) {
    studio::VipWriter writer(static_cast<std::uint64_t>(seed) + 1);
    writer.header("cabecera");
    for (int i = 0; i < kReferences; ++i) {
      const int number = (seed * kReferences + i) * 2 % (2 * kNames);
      writer.reference("D:\\Mix\\Tomas\\" + name_of(number));
      writer.noise(kSize / kReferences - studio::kPathField);
    }
    writer.marker();
    return writer.take();
  }
};

struct Result {
  double seconds = 0;
  long long names = 0;
  long peak_kb = 0;
};

// Runs it in a process of its own, whose memory is its own.
Result measured(const std::function<long long()>& run) {
  std::array<int, 2> pipe_ends{};
  if (::pipe(pipe_ends.data()) != 0) return {};
  const auto begin = std::chrono::steady_clock::now();
  const pid_t child = ::fork();
  if (child == 0) {
    const long long found = run();
    const bool told = ::write(pipe_ends[1], &found, sizeof found) == sizeof found;
    ::_exit(told ? 0 : 1);
  }
  Result result;
  if (::read(pipe_ends[0], &result.names, sizeof result.names) != sizeof result.names) {
    result.names = -1;
  }
  result.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  rusage used{};
  int status = 0;
  ::wait4(child, &status, 0, &used);
  result.peak_kb = used.ru_maxrss;
  ::close(pipe_ends[0]);
  ::close(pipe_ends[1]);
  return result;
}

long long shell(const std::string& command) {
  return std::system(command.c_str());
}

long long mentions(const std::string& folder) {
  posix::MappedDrives drives;
  drives.map('D', folder);
  posix::PosixFileSystem files(drives);
  project::ProjectMentions search(files);
  std::vector<std::string> rows;
  for (int i = 0; i < kNames; ++i) rows.push_back("D:\\Sueltas\\" + name_of(i));
  const auto found = search.look(std::move(rows), {"D:\\"}, {}, [] { return true; });
  if (!found) return -1;
  return std::count_if(found->begin(), found->end(), [](const auto& row) {
    return row.mentioned == project::Mentioned::path_missing;
  });
}

// How many different names ripgrep has printed.
long long different(const std::string& output) {
  return number_of("tr A-Z a-z <" + output + " | sort -u | wc -l");
}

int compare(const char* what, const std::string& folder, const std::string& names) {
  constexpr int kRuns = 3;
  const std::string output = names + ".found";
  Result cat, own, rg;
  const auto best = [](Result& known, const Result& now) {
    if (known.seconds == 0 || now.seconds < known.seconds) known = now;
  };
  for (int i = 0; i < kRuns; ++i) {
    best(cat, measured([&] { return shell("cat " + folder + "/*.vip >/dev/null"); }));
    best(own, measured([&] { return mentions(folder); }));
  }
  rg = measured([&] {
    return shell("timeout " + std::to_string(kPatience) + " rg -aoINiFf " + names + " " + folder +
                 " >" + output);
  });
  const bool finished = rg.names == 0;
  rg.names = finished ? different(output) : -1;
  std::printf("%s\n", what);
  std::printf("  cat       %7.2f s\n", cat.seconds);
  std::printf("  mentions  %7.2f s  %4.1f times cat  names=%lld  peak_MB=%ld\n", own.seconds,
              own.seconds / cat.seconds, own.names, own.peak_kb / 1024);
  if (finished) {
    std::printf("  rg        %7.2f s  names=%lld\n", rg.seconds, rg.names);
  } else {
    std::printf("  rg      > %7.2f s  (stopped)\n", rg.seconds);
  }
  // So little is not worth comparing with cat: most of the time goes into the names.
  const bool little = cat.seconds < 0.1;
  const bool good = (finished ? own.names == rg.names : !little) && own.names > 0 &&
                    (little || own.seconds <= 5 * cat.seconds) && own.seconds < rg.seconds &&
                    own.peak_kb < 100 * 1024;
  if (!good) std::printf("  NOT as it should be\n");
  std::fflush(stdout);
  return good ? 0 : 1;
}

}  // namespace
}  // namespace ordelan::bench

int main(int count, char** arguments) {
  using namespace ordelan::bench;
  const std::size_t large_mb = count > 1 ? std::strtoul(arguments[1], nullptr, 10) : 4'096;
  const Projects projects(large_mb);
  const std::string names = projects.folder + "/names";
  int wrong = compare("8 projects of 1 MB", projects.few(), names);
  wrong += compare("2,000 projects of 1 MB", projects.small(), names);
  wrong += compare("one project of 4 GB", projects.large(), names);
  return wrong;
}
