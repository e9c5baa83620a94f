#include "tools/studio_command.h"

#include <CLI/CLI.hpp>
#include <cctype>
#include <cstdint>
#include <optional>
#include <ostream>
#include <string>

#include "text/code_page.h"
#include "tools/studio_maker.h"

namespace ordelan::studio {
namespace {

// "D", "d" and "D:" are the same drive; 0 is none.
char drive_letter(std::string_view text) {
  if (text.size() == 2 && text[1] == ':') text.remove_suffix(1);
  if (text.size() != 1 || std::isalpha(static_cast<unsigned char>(text[0])) == 0) return 0;
  return static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
}

std::string first_line(std::string_view text) {
  return std::string(text.substr(0, text.find('\n')));
}

void print(const StudioSummary& summary, const std::string& folder, char letter,
           std::ostream& out) {
  out << text::to_utf8("Estudio en ") << folder << " (" << letter << ":\\)\n"
      << text::to_utf8("  proyectos:   ") << summary.projects << text::to_utf8(", sin audio: ")
      << summary.projects_without_audio << "\n"
      << text::to_utf8("  referencias: ") << summary.references
      << text::to_utf8(", rutas cambiadas de sitio: ") << summary.moved
      << text::to_utf8(", perdidas: ") << summary.lost << "\n"
      << text::to_utf8("  archivos:    ") << summary.files << text::to_utf8(", de audio: ")
      << summary.audio_files << text::to_utf8(", auxiliares: ") << summary.side_files
      << text::to_utf8(", audio sin uso: ") << summary.unused << "\n";
}

}  // namespace

int run_studio_command(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
  constexpr int kFailed = 1;
  constexpr int kWrongUse = 2;
  const auto complain = [&](std::string_view text, int code) {
    err << "ordelan-studio: " << first_line(text) << "\n";
    return code;
  };

  StudioOptions options;
  // Signed, because the parser turns "-3" into a huge number otherwise.
  std::optional<std::int64_t> projects;
  std::optional<std::int64_t> references;
  std::optional<std::int64_t> files;
  std::int64_t bytes_per_project = 0;
  std::string folder;
  std::string letter = "D";
  std::string second;
  std::string cache;
  const CLI::Range counts(std::int64_t{0}, std::int64_t{10'000'000});
  const CLI::Range sizes(std::int64_t{0}, std::int64_t{0xFFFFFFFF});
  CLI::App app(
      text::to_utf8("Hace un estudio de muestra: proyectos, audio y lo que hay alrededor."),
      "ordelan-studio");
  app.add_option("CARPETA", folder, text::to_utf8("La carpeta del estudio, raíz de su unidad"))
      ->required();
  app.add_option("--seed", options.seed, text::to_utf8("La misma semilla da el mismo estudio"));
  app.add_option("--proyectos", projects, text::to_utf8("Cuántos proyectos"))->check(counts);
  app.add_option("--referencias", references,
                 text::to_utf8("Cuántas referencias a audio entre todos los proyectos"))
      ->check(counts);
  app.add_option("--archivos", files, text::to_utf8("Cuántos archivos de audio y auxiliares"))
      ->check(counts);
  app.add_option("--bytes-por-proyecto", bytes_per_project,
                 text::to_utf8("El tamaño de cada proyecto"))
      ->check(sizes);
  app.add_option("--unidad", letter, text::to_utf8("La letra de la unidad en los proyectos"));
  app.add_option("--unidad2", second,
                 text::to_utf8("Una segunda unidad, LETRA=CARPETA, con parte del audio"));
  app.add_option("--muestras", cache,
                 text::to_utf8("Dónde guardar el audio codificado de una vez para otra"));
  try {
    app.parse(argc, argv);
  } catch (const CLI::CallForHelp&) {
    out << app.help();
    return 0;
  } catch (const CLI::ParseError& error) {
    return complain(error.what(), kWrongUse);
  }

  if (projects == 0 && references.value_or(0) > 0) {
    return complain(text::to_utf8("sin proyectos no puede haber referencias"), kWrongUse);
  }
  const auto count = [](const std::optional<std::int64_t>& number) {
    return number ? std::optional<std::size_t>(static_cast<std::size_t>(*number)) : std::nullopt;
  };
  options.projects = count(projects);
  options.references = count(references);
  options.files = count(files);
  options.bytes_per_project = static_cast<std::uint64_t>(bytes_per_project);
  options.cache = cache;
  options.drive_letter = drive_letter(letter);
  if (options.drive_letter == 0) {
    return complain(text::to_utf8("--unidad no es una letra: ") + letter, kWrongUse);
  }
  if (options.drive_letter == 'E') options.second_letter = 'F';
  if (!second.empty()) {
    const std::size_t equals = second.find('=');
    options.second_letter = drive_letter(std::string_view(second).substr(0, equals));
    if (equals == std::string::npos || equals + 1 == second.size() || options.second_letter == 0) {
      return complain(text::to_utf8("--unidad2 no es LETRA=CARPETA: ") + second, kWrongUse);
    }
    options.second_folder = second.substr(equals + 1);
  }
  if (folder.empty()) return complain(text::to_utf8("falta la carpeta"), kWrongUse);

  try {
    print(make_studio(folder, options), folder, options.drive_letter, out);
    return 0;
  } catch (const StudioRefused& refusal) {
    return complain(refusal.what(), kWrongUse);
  } catch (const std::exception& error) {
    return complain(error.what(), kFailed);
  }
}

}  // namespace ordelan::studio
