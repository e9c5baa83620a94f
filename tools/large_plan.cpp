#include <algorithm>
#include <array>
#include <cstdio>
#include <set>

#include "tools/seeded_random.h"
#include "tools/studio_plan.h"

namespace ordelan::studio {
namespace {

constexpr std::array kArtists = {
    "Los Ñandúes",    "Begoña Peña",      "Trío Albéniz",    "Coro de Ávila",  "Íñigo Muñoz",
    "La Cigüeña",     "Orquesta Júcar",   "Radio Aragón",    "Doña Rosita",    "Cuarteto Málaga",
    "El Último Tren", "Hermanos Núñez",   "Banda Municipal", "Café Quijano 5", "Sala Norte",
    "Teatro Español", "Publicidad Duero", "Cine Mudo",       "Río Sonoro",     "Jazz del Lunes"};
constexpr std::array kInstruments = {"voz",      "coros", "guitarra", "bajo",      "batería",
                                     "piano",    "caja",  "bombo",    "percusión", "cuerdas",
                                     "acordeón", "caña",  "teclado",  "violín",    "ambiente"};
constexpr std::array kLibraryFolders = {"Bombos",  "Cajas",   "Platos",
                                        "Efectos", "Señales", "Ambientes"};

// What the audio is, out of a hundred files: the first kinds are those that projects refer to.
struct Share {
  Format format;
  const char* extension;
  unsigned percent;
};
constexpr std::array kShares = {Share{Format::wav16, "wav", 50}, Share{Format::wav24, "wav", 14},
                                Share{Format::wav32, "wav", 4},  Share{Format::wav16, "WAV", 6},
                                Share{Format::aif, "aif", 7},    Share{Format::flac, "flac", 6},
                                Share{Format::ogg, "ogg", 5},    Share{Format::mp3, "mp3", 8}};
constexpr std::array kUnreadShares = {Share{Format::aiff, "aiff", 34},
                                      Share{Format::m4a, "m4a", 33}, Share{Format::wma, "wma", 33}};

constexpr std::size_t kTonesPerFormat = 5;
constexpr std::size_t kSongsPerArtistYear = 12;
constexpr std::size_t kMostPerFolder = 64;

std::string numbered(std::string_view name, std::size_t number, int digits) {
  std::array<char, 24> text{};
  std::snprintf(text.data(), text.size(), "%0*zu", digits, number);
  return std::string(name) + text.data();
}

// Where a song stands and what has been made of it.
struct Song {
  std::string name;    // tema_0012
  std::string folder;  // Mix\2012\Los Ñandúes\tema_0012
  std::size_t files = 0;
  std::size_t takes = 0;
  std::vector<std::string> references;  // of its main project
  std::vector<PlannedFile> audio;       // what can be copied
};

class LargePlan {
 public:
  LargePlan(StudioPlan& plan, bool has_second, const LargeStudio& wanted, std::uint64_t seed)
      : plan_(plan), has_second_(has_second), wanted_(wanted), random_(seed) {}

  void make() {
    make_library();
    std::size_t song_number = 0;
    Song song;
    for (std::size_t i = 0; i < wanted_.projects; ++i) {
      const bool backup = i % 8 == 7;
      if (!backup) song = new_song(song_number++);
      make_project(song, i, backup);
      // The budget is spent evenly: each song may use its share of what is left.
      const std::size_t left = wanted_.projects - i - 1;
      const bool last_of_song = left == 0 || (i + 1) % 8 != 7;
      if (last_of_song) fill(song, left == 0 ? 0 : wanted_.files * left / wanted_.projects);
    }
    if (wanted_.projects == 0) {
      song = new_song(0);
      fill(song, 0);
    }
  }

 private:
  std::size_t budget() const { return wanted_.files - plan_.files().size(); }

  std::size_t tone_of(Format format) {
    Tone tone{format, 110 + 37 * static_cast<int>(random_.below(kTonesPerFormat)), 200, 8000, "",
              ""};
    // Compressed audio is made at the rate that all its encoders support; only mp3 carries a tag.
    if (format == Format::m4a || format == Format::wma || format == Format::mp3 ||
        format == Format::ogg) {
      tone.sample_rate = 22050;
    }
    if (format == Format::mp3) {
      tone.title = "Toma de " + std::to_string(tone.hertz) + " Hz";
      tone.artist = "Sesión de estudio";
    }
    return plan_.tone(tone);
  }

  template <std::size_t size>
  const Share& share_of(const std::array<Share, size>& shares) {
    std::uint64_t roll = random_.below(100);
    for (const Share& share : shares) {
      if (roll < share.percent) return share;
      roll -= share.percent;
    }
    return shares.front();
  }

  Song new_song(std::size_t number) {
    Song song;
    song.name = numbered("tema_", number + 1, 4);
    const std::size_t group = number / kSongsPerArtistYear;
    const std::size_t artist = group % kArtists.size();
    const std::size_t year = group / kArtists.size();
    song.folder = numbered("Mix\\", 2004 + year, 4) + "\\" + kArtists[artist] + "\\" + song.name;
    return song;
  }

  void make_library() {
    const std::size_t size = std::min<std::size_t>(wanted_.files / 20, 20000);
    for (std::size_t i = 0; i < size; ++i) {
      const std::size_t kind = i % kLibraryFolders.size();
      const std::size_t shelf = i / kLibraryFolders.size() / kMostPerFolder;
      const std::string path =
          numbered("Biblioteca\\" + std::string(kLibraryFolders[kind]) + "\\Volumen ", shelf + 1,
                   2) +
          numbered("\\muestra_", i + 1, 5) + ".wav";
      plan_.audio(path, tone_of(Format::wav16));
      library_.push_back(path);
    }
  }

  // The folder for the next take of a song: a few takes each, sessions nested by day.
  std::string take_folder(const Song& song) {
    const std::size_t session = song.files / kMostPerFolder;
    if (session == 0) return song.folder + (song.takes % 4 == 3 ? "\\Audio\\Voces" : "\\Audio");
    return numbered(song.folder + "\\Audio\\Día ", session / 10 + 1, 2) +
           numbered("\\Sesión ", session % 10 + 1, 2);
  }

  std::string take_name(Song& song, std::string_view extension) {
    const char* instrument = kInstruments[random_.below(kInstruments.size())];
    return numbered(song.name + "_" + instrument + "_", ++song.takes, 4) + "." +
           std::string(extension);
  }

  // Adds an audio file, and side files next to some, as far as `spare` files allow.
  void add_audio(Song& song, const std::string& path, Format format, Drive drive,
                 std::size_t spare) {
    const std::size_t tone = tone_of(format);
    plan_.audio(path, tone, drive);
    ++song.files;
    if (drive == Drive::main && song.audio.size() < 64) song.audio.push_back({drive, path, tone});
    if (!random_.chance(25)) return;
    const std::size_t count = std::min<std::size_t>(spare, 1 + random_.below(2));
    plan_.side_files(path, random_.below(13), count, drive);
    song.files += count;
  }

  // One reference that only this project has, and the file for it if the budget allows.
  std::string new_reference(Song& song, std::size_t references_left) {
    const Share& share = share_of(kShares);
    const std::string folder = take_folder(song);
    const std::string name = take_name(song, share.extension);
    const std::uint64_t roll = random_.below(100);
    // Too few files for all references: each gets one with the same chance.
    const bool lost = roll < 5 || random_.below(references_left) >= budget();
    const std::size_t spare = budget() > references_left ? budget() - references_left : 0;
    if (lost) return plan_.full_path(folder + "\\" + name);
    if (roll < 9) {
      add_audio(song, "Archivo\\" + song.name + "\\" + name, share.format, Drive::main, spare);
      return plan_.full_path(folder + "\\" + name);
    }
    if (roll < 11) {
      const std::string path = "Archivo\\" + song.name + "\\" + name;
      if (has_second_) add_audio(song, path, share.format, Drive::second, spare);
      return plan_.full_path(path, Drive::second);
    }
    add_audio(song, folder + "\\" + name, share.format, Drive::main, spare);
    return plan_.full_path(folder + "\\" + name);
  }

  void make_project(Song& song, std::size_t index, bool backup) {
    const std::size_t projects_left = wanted_.projects - index;
    const std::size_t references_left = wanted_.references - references_made_;
    // Some projects have MIDI tracks only; the last one takes what is left over.
    const bool midi = index % 40 == 38 && projects_left > 1;
    const std::size_t average = references_left / projects_left;
    const std::size_t count =
        projects_left == 1 ? references_left
        : midi             ? 0
                           : std::min(references_left, average / 2 + random_.below(average + 2));
    PlannedProject project{song.folder + "\\" + song.name + (backup ? "_BAK" : "") + ".vip",
                           song.name,
                           {},
                           static_cast<std::size_t>(wanted_.bytes_per_project)};
    std::set<std::size_t> shared;
    for (std::size_t i = 0; i < count; ++i) {
      if (backup && i < song.references.size() && random_.chance(85)) {
        project.references.push_back(song.references[i]);
        continue;
      }
      if (random_.chance(8) && !library_.empty()) {
        const std::size_t pick = random_.below(library_.size());
        const bool from_main = backup && !song.references.empty();
        if (!from_main && shared.insert(pick).second) {
          project.references.push_back(plan_.full_path(library_[pick]));
          continue;
        }
      }
      project.references.push_back(new_reference(song, references_left - i));
    }
    references_made_ += count;
    if (!backup) song.references = project.references;
    plan_.project(std::move(project));
  }

  // Takes that no project uses, copies and other takes of the same name, until only `keep` files of
  // the budget are left.
  void fill(Song& song, std::size_t keep) {
    std::size_t copies = 0;
    while (budget() > keep) {
      const std::size_t spare = budget() - keep - 1;
      const std::uint64_t roll = random_.below(100);
      if (roll < 8 && copies < song.audio.size()) {
        // A copy keeps its tone, another take of the same name gets another.
        const PlannedFile& original = song.audio[copies];
        const std::string name = original.path.substr(original.path.rfind('\\') + 1);
        const bool equal = roll < 4;
        const Format format = plan_.tones()[original.tone].format;
        std::size_t tone = original.tone;
        while (!equal && tone == original.tone) tone = tone_of(format);
        plan_.audio(song.folder + (equal ? "\\Copia\\" : "\\Otras tomas\\") + name, tone);
        ++copies;
        ++song.files;
      } else {
        const Share& share = roll < 96 ? share_of(kShares) : share_of(kUnreadShares);
        const std::string folder = take_folder(song);
        add_audio(song, folder + "\\" + take_name(song, share.extension), share.format, Drive::main,
                  spare);
      }
    }
  }

  StudioPlan& plan_;
  bool has_second_;
  LargeStudio wanted_;
  SeededRandom random_;
  std::vector<std::string> library_;
  std::size_t references_made_ = 0;
};

}  // namespace

StudioPlan large_plan(char main_letter, char second_letter, bool has_second,
                      const LargeStudio& wanted, std::uint64_t seed) {
  StudioPlan plan(main_letter, second_letter);
  LargePlan(plan, has_second, wanted, seed).make();
  return plan;
}

}  // namespace ordelan::studio
