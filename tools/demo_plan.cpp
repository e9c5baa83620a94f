#include <array>
#include <span>

#include "tools/studio_plan.h"

namespace ordelan::studio {
namespace {

struct Take {
  const char* path;
  Format format;
  int hertz;
  int milliseconds;
  std::size_t side_files = 0;
  const char* title = "";
  const char* artist = "";
};

// The audio on the main drive. Equal tones under one name are copies of each other; different
// tones under one name are different takes.
constexpr std::array kTakes = {
    // What the projects use, where they say it is.
    Take{"Mix\\batería.wav", Format::wav32, 98, 900, 4},
    Take{"Mix\\bajo.flac", Format::flac, 82, 1200, 2},
    Take{"Mix\\loop_percusión.ogg", Format::ogg, 150, 800, 1},
    Take{"Mix\\cuerdas.aif", Format::aif, 392, 1000, 2},
    Take{"Mix\\referencia.mp3", Format::mp3, 440, 1500, 0, "Canción del Año", "Los Ñandúes"},
    Take{"Mix\\toma 1.wav", Format::wav16, 262, 600, 13},
    Take{"Mix\\Voces\\voz_principal.wav", Format::wav24, 330, 1600, 3},
    Take{"Mix\\Voces\\voz_doble.WAV", Format::wav24, 331, 1600, 3},
    Take{"Mix\\Voces\\Coros Año.wav", Format::wav16, 349, 700, 1},
    Take{"Mix\\Canción del Año\\guitarra española.wav", Format::wav24, 196, 1100, 2},
    Take{"Mix\\Canción del Año\\piñata.MP3", Format::mp3, 523, 900, 0, "Piñata", "Íñigo Muñoz"},
    Take{"Mix\\Canción del Año\\cajón flamenco.wav", Format::wav16, 110, 400, 1},
    Take{"Mix\\FreezeData\\tema_freeze_01.wav", Format::wav32, 220, 500},
    Take{"Mix\\FreezeData\\tema_freeze_02.wav", Format::wav32, 247, 500},
    Take{"Mix\\Compartido\\palmas.wav", Format::wav16, 660, 250, 1},
    Take{"Mix\\Compartido\\bombo 808.WAV", Format::wav16, 55, 350},
    Take{"Mix\\Balada\\piano.wav", Format::wav24, 294, 2000, 2},
    Take{"Mix\\Balada\\violonchelo.aif", Format::aif, 131, 1400, 1},
    Take{"Mix\\Balada\\arpa.ogg", Format::ogg, 587, 900},
    Take{"Mix\\Balada\\maqueta.mp3", Format::mp3, 466, 1800, 0, "Balada (maqueta)", "Begoña Peña"},
    Take{"Mix\\mezcla_anterior.wav", Format::wav24, 415, 800, 1},

    // What the projects look for in another folder.
    Take{"Archivo\\Teclados\\teclado.wav", Format::wav16, 277, 700, 2},
    Take{"Mix\\Tomas Viejas\\sintetizador.flac", Format::flac, 370, 900},
    Take{"Archivo\\clave.wav", Format::wav16, 880, 300},
    Take{"Mix\\Copia\\clave.wav", Format::wav16, 932, 300},
    Take{"Archivo\\Balada\\contrabajo.wav", Format::wav16, 65, 1300, 1},

    // Copies, byte for byte, and other takes of the same name.
    Take{"Mix\\Copia\\batería.wav", Format::wav32, 98, 900},
    Take{"Mix\\Copia\\bajo.flac", Format::flac, 82, 1200},
    Take{"Copia de seguridad\\bajo.flac", Format::flac, 82, 1200},
    Take{"Mix\\Voces\\toma 1.wav", Format::wav16, 263, 600},
    Take{"Archivo\\piano.wav", Format::wav24, 295, 2000},

    // What no project uses.
    Take{"Mix\\Voces\\voz_toma_02.wav", Format::wav24, 332, 1500, 3},
    Take{"Mix\\Voces\\voz_toma_03.wav", Format::wav24, 333, 1450, 3},
    Take{"Mix\\Voces\\risas.mp3", Format::mp3, 700, 600, 0, "Risas", "Coro"},
    Take{"Mix\\Voces\\mensaje de móvil.m4a", Format::m4a, 480, 900},
    Take{"Mix\\prueba de sonido.wma", Format::wma, 500, 800},
    Take{"Mix\\orquesta.aiff", Format::aiff, 311, 700},
    Take{"Mix\\claqueta.WAV", Format::wav16, 1000, 200, 1},
    Take{"Mix\\Canción del Año\\guitarra descartada.wav", Format::wav24, 208, 1000, 2},
    Take{"Mix\\FreezeData\\freeze_viejo.wav", Format::wav32, 233, 400},
    Take{"Mix\\Balada\\Tomas\\piano_toma_1.wav", Format::wav24, 296, 1900, 1},
    Take{"Mix\\Balada\\Tomas\\piano_toma_2.wav", Format::wav24, 297, 1900, 1},
    Take{"Archivo\\Maquetas 2003\\maqueta vieja.mp3", Format::mp3, 450, 1000, 0,
         "Maqueta vieja, con un título que no cabe en treinta letras", "Señor Ortúzar"},
    Take{"Archivo\\Maquetas 2003\\idea.ogg", Format::ogg, 600, 500},
};

// The audio that went to the second drive. The projects refer to the first two as lying there; the
// third they still look for at its old place.
constexpr std::array kSecondDriveTakes = {
    Take{"Archivo\\cinta_1998.wav", Format::wav16, 175, 1000, 1},
    Take{"Archivo\\Ambientes\\lluvia en Cádiz.wav", Format::wav16, 185, 1200},
    Take{"Archivo\\coros_dobles.wav", Format::wav24, 350, 900, 1},
};

constexpr std::array kMainReferences = {
    "D:Mix\\Voces\\voz_principal.wav",
    "D:Mix\\Voces\\voz_doble.WAV",
    "D:Mix\\Voces\\Coros Año.wav",
    "D:Mix\\batería.wav",
    "D:Mix\\bajo.flac",
    "D:Mix\\loop_percusión.ogg",
    "D:Mix\\cuerdas.aif",
    "D:Mix\\referencia.mp3",
    "D:Mix\\toma 1.wav",
    "D:Mix\\Canción del Año\\guitarra española.wav",
    "D:Mix\\Canción del Año\\piñata.MP3",
    "D:Mix\\FreezeData\\tema_freeze_01.wav",
    "D:Mix\\Compartido\\palmas.wav",
    "D:Mix\\Audio Nuevo\\teclado.wav",
    "D:Mix\\sintetizador.flac",
    "D:Mix\\Percusión\\clave.wav",
    "D:Mix\\coros_dobles.wav",
    "E:Archivo\\cinta_1998.wav",
    "E:Archivo\\Ambientes\\lluvia en Cádiz.wav",
    "D:Mix\\perdida.wav",
    "D:Mix\\Voces\\susurro.mp3",
};
constexpr std::array kBackupReferences = {
    "D:Mix\\Voces\\voz_principal.wav", "D:Mix\\batería.wav",          "D:Mix\\bajo.flac",
    "D:Mix\\mezcla_anterior.wav",      "D:Mix\\sintetizador.flac",    "D:Mix\\perdida.wav",
    "D:Mix\\loop_percusión.ogg",       "D:Mix\\borrada hace años.wav"};
constexpr std::array kBalladReferences = {
    "D:Mix\\Balada\\piano.wav",      "D:Mix\\Balada\\violonchelo.aif",
    "D:Mix\\Balada\\arpa.ogg",       "D:Mix\\Balada\\maqueta.mp3",
    "D:Mix\\Compartido\\palmas.wav", "D:Mix\\Compartido\\bombo 808.WAV",
    "D:Mix\\Balada\\contrabajo.wav", "D:Mix\\Balada\\acordeón.flac"};
constexpr std::array kSongReferences = {
    "D:Mix\\Canción del Año\\guitarra española.wav", "D:Mix\\Canción del Año\\cajón flamenco.wav",
    "D:Mix\\Canción del Año\\piñata.MP3", "D:Mix\\Compartido\\bombo 808.WAV"};
constexpr std::array kFreezeReferences = {"D:Mix\\FreezeData\\tema_freeze_01.wav",
                                          "D:Mix\\FreezeData\\tema_freeze_02.wav"};

void add_takes(StudioPlan& plan, std::span<const Take> takes, Drive drive) {
  std::size_t first_side_file = 0;
  for (const Take& take : takes) {
    plan.audio(
        take.path,
        plan.tone({take.format, take.hertz, take.milliseconds, 44100, take.title, take.artist}),
        drive);
    plan.side_files(take.path, first_side_file, take.side_files, drive);
    first_side_file += take.side_files;
  }
}

void add_project(StudioPlan& plan, std::string_view path, std::string_view header,
                 std::span<const char* const> references, std::size_t bytes) {
  PlannedProject project{std::string(path), std::string(header), {}, bytes};
  for (const std::string_view reference : references) {
    const Drive drive = reference.front() == 'D' ? Drive::main : Drive::second;
    project.references.push_back(plan.full_path(reference.substr(2), drive));
  }
  plan.project(std::move(project));
}

}  // namespace

StudioPlan demo_plan(char main_letter, char second_letter, bool has_second,
                     std::uint64_t bytes_per_project) {
  const auto bytes = [&](std::size_t own) {
    return bytes_per_project == 0 ? own : static_cast<std::size_t>(bytes_per_project);
  };
  StudioPlan plan(main_letter, second_letter);
  add_takes(plan, kTakes, Drive::main);
  if (has_second) add_takes(plan, kSecondDriveTakes, Drive::second);
  add_project(plan, "Mix\\tema.vip", "Tema, mezcla definitiva", kMainReferences, bytes(180'000));
  add_project(plan, "Mix\\balada.vip", "Balada de otoño", kBalladReferences, bytes(90'000));
  add_project(plan, "Mix\\tema_BAK.vip", "Tema, copia", kBackupReferences, bytes(140'000));
  add_project(plan, "Mix\\solo_midi.vip", "Solo MIDI", {}, bytes(30'000));
  add_project(plan, "Mix\\Canción del Año\\canción del año.vip", "Canción del Año", kSongReferences,
              bytes(60'000));
  add_project(plan, "Mix\\FreezeData\\tema_freeze.vip", "Pistas congeladas", kFreezeReferences,
              bytes(20'000));
  return plan;
}

}  // namespace ordelan::studio
