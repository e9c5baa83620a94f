#include "tools/studio_maker.h"

#include <stdlib.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <system_error>
#include <vector>

#include "text/code_page.h"
#include "tools/seeded_random.h"
#include "tools/vip_writer.h"

namespace ordelan::studio {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kProjects = 20;
constexpr std::size_t kReferencesPerProject = 30;
constexpr std::size_t kFilesPerReference = 2;

// A folder that is removed with its contents.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::string name = (fs::temp_directory_path() / "ordelan-studio-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
      throw std::runtime_error(text::to_utf8("no se pudo crear una carpeta temporal"));
    }
    path_ = name;
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code none;
    fs::remove_all(path_, none);
  }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

StudioPlan plan_of(const StudioOptions& options) {
  const bool has_second = !options.second_folder.empty();
  if (!options.projects && !options.references && !options.files) {
    return demo_plan(options.drive_letter, options.second_letter, has_second,
                     options.bytes_per_project);
  }
  LargeStudio wanted;
  wanted.projects = options.projects.value_or(kProjects);
  wanted.references = options.references.value_or(wanted.projects * kReferencesPerProject);
  wanted.files = options.files.value_or(wanted.references * kFilesPerReference);
  wanted.bytes_per_project = options.bytes_per_project;
  return large_plan(options.drive_letter, options.second_letter, has_second, wanted, options.seed);
}

fs::path disk_path(std::string_view path) {
  std::string name = text::to_utf8(path);
  std::replace(name.begin(), name.end(), '\\', '/');
  return name;
}

std::string contents(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (!in || bytes.empty()) {
    throw std::runtime_error(text::to_utf8("no se pudo leer ") + file.string());
  }
  return bytes;
}

std::vector<std::string> encode(const std::vector<Tone>& tones, const fs::path& cache) {
  Encoders encoders(cache);
  std::vector<std::string> audio;
  for (const Tone& tone : tones) audio.push_back(contents(encoders.file(tone)));
  return audio;
}

// What stands in a side file: the numbers of a drawn waveform, more or less.
std::string side_file_bytes(std::uint64_t seed) {
  SeededRandom random(seed);
  std::string bytes = "PEAK";
  const std::size_t size = 64 + random.below(400);
  while (bytes.size() < size) bytes += static_cast<char>(random.next() & 0x7Fu);
  return bytes;
}

bool contains(const fs::path& outer, const fs::path& inner) {
  return std::mismatch(outer.begin(), outer.end(), inner.begin(), inner.end()).first == outer.end();
}

fs::path clean(const fs::path& folder) {
  const fs::path path = fs::weakly_canonical(fs::absolute(folder));
  return path.has_filename() ? path : path.parent_path();
}

void check_drives(const fs::path& folder, const StudioOptions& options) {
  if (text::lower(options.drive_letter) == text::lower(options.second_letter)) {
    throw StudioRefused(text::to_utf8("las dos unidades tienen la misma letra"));
  }
  if (options.second_folder.empty()) return;
  const fs::path first = clean(folder);
  const fs::path second = clean(options.second_folder);
  if (contains(first, second) || contains(second, first)) {
    throw StudioRefused(text::to_utf8("las carpetas de las dos unidades se contienen: ") +
                        first.string() + ", " + second.string());
  }
}

}  // namespace

StudioSummary make_studio(const fs::path& folder, const StudioOptions& options) {
  check_drives(folder, options);
  const StudioPlan plan = plan_of(options);

  std::vector<fs::path> main_files;
  std::vector<fs::path> second_files;
  for (const PlannedFile& file : plan.files()) {
    (file.drive == Drive::main ? main_files : second_files).push_back(disk_path(file.path));
  }
  for (const PlannedProject& project : plan.projects()) {
    main_files.push_back(disk_path(project.path));
  }
  StudioFolder main_folder(folder);
  main_folder.check(main_files);
  std::optional<StudioFolder> second_folder;
  if (!options.second_folder.empty()) {
    second_folder.emplace(options.second_folder);
    second_folder->check(second_files);
  }

  std::optional<TemporaryFolder> temporary;
  if (options.cache.empty()) temporary.emplace();
  const std::vector<std::string> audio =
      encode(plan.tones(), temporary ? temporary->path() : options.cache);

  main_folder.clear();
  main_folder.claim(main_files);
  if (second_folder) {
    second_folder->clear();
    second_folder->claim(second_files);
  }
  SeededRandom random(options.seed);
  for (const PlannedFile& file : plan.files()) {
    const StudioFolder& place = file.drive == Drive::main ? main_folder : *second_folder;
    const bool side_file = file.tone == PlannedFile::kSideFile;
    place.write(disk_path(file.path),
                side_file ? side_file_bytes(random.next()) : std::string_view(audio[file.tone]));
  }
  for (const PlannedProject& project : plan.projects()) {
    const std::size_t own_size = 16'000 + 700 * project.references.size();
    main_folder.write(disk_path(project.path),
                      make_vip(project.header, project.references,
                               project.bytes == 0 ? own_size : project.bytes, random.next()));
  }
  return plan.summary();
}

}  // namespace ordelan::studio
