// What is read of one audio file, printed.
#include <algorithm>
#include <array>
#include <ostream>

#include "app/console_json.h"
#include "app/console_session.h"
#include "audio/details.h"
#include "audio/file_info.h"
#include "text/code_page.h"
#include "text/numbers.h"

namespace ordelan::app {
namespace {

// The text that the tooltips show. There are no windows here that it could ask for.
std::string text_on(const std::string& path, const ConsoleHost& host) {
  headless::HeadlessBackend events(host.clock);
  audio::FileInfo info(host.files, events, {[] { return false; }, [] {}, [] { return false; }});
  constexpr std::size_t kExtension = 3;
  info.InfoAudio(text::lower(path.substr(path.size() - std::min(path.size(), kExtension))), path);
  return info.TextoToolTip;
}

Json json_of(const audio::Detalles& details) {
  const auto number = [](const std::optional<std::int64_t>& value) {
    return value ? Json(*value) : Json(nullptr);
  };
  Json tags = Json::object();
  for (const auto& [name, text] : details.etiquetas)
    tags[text::to_utf8(name)] = text::to_utf8(text);
  return {{"duracion", details.duracion ? Json(*details.duracion) : Json(nullptr)},
          {"canales", number(details.canales)},
          {"frecuencia", number(details.frecuencia)},
          {"bits", number(details.bits)},
          {"velocidad", number(details.velocidad)},
          {"etiquetas", std::move(tags)}};
}

// A text of a file as it can be printed: no control characters, which a terminal would obey.
std::string printable(std::string_view text) {
  std::string shown = text::to_utf8(text);
  for (char& c : shown) {
    if ((c >= 0 && c < ' ') || c == '\x7F') c = ' ';
  }
  return shown;
}

// The lines of the block, each without its line end.
void print_block(std::ostream& output, std::string_view block) {
  while (!block.empty()) {
    const std::size_t end = std::min(block.find("\r\n"), block.size());
    output << printable(block.substr(0, end)) << "\n";
    block.remove_prefix(std::min(block.size(), end + 2));
  }
}

std::string heading_of(const std::string& tag) {
  static constexpr std::array<std::array<std::string_view, 2>, 13> kHeadings = {{
      {"title", "Título"},
      {"artist", "Artista"},
      {"album", "Álbum"},
      {"album_artist", "Artista del álbum"},
      {"date", "Fecha"},
      {"genre", "Género"},
      {"track", "Pista"},
      {"disc", "Disco"},
      {"comment", "Comentario"},
      {"composer", "Compositor"},
      {"copyright", "Derechos"},
      {"encoder", "Codificador"},
      {"description", "Descripción"},
  }};
  for (const auto& [name, heading] : kHeadings) {
    if (tag == name) return std::string(heading);
  }
  return tag;
}

void print_details(std::ostream& output, const audio::Detalles& details, char decimal_mark) {
  const auto line = [&](std::string_view heading, std::string_view value) {
    output << "  " << printable(heading) << ": " << printable(value) << "\n";
  };
  if (details.duracion) {
    line("Duración", text::fixed(*details.duracion, 3, decimal_mark) + " seg");
  }
  if (details.canales) line("Canales", std::to_string(*details.canales));
  if (details.frecuencia) line("Frecuencia", std::to_string(*details.frecuencia) + " Hz");
  if (details.bits) line("Bits", std::to_string(*details.bits));
  if (details.velocidad) line("Velocidad", std::to_string(*details.velocidad) + " bits/s");
  for (const auto& [name, text] : details.etiquetas) line(heading_of(name), text);
}

}  // namespace

int show_info(const Options& options, const ConsoleHost& host, std::ostream& output,
              std::ostream& error) {
  const ArgumentPath file = host.windows_path(options.audio);
  if (const auto complaint = unreadable(file, host)) {
    complain(error, options.audio, *complaint);
    return kMisused;
  }
  const std::string block = text_on(*file.path, host);
  const audio::Detalles details = audio::read_details(host.files, *file.path);
  if (options.json) {
    Json object;
    object["TextoToolTip"] = text::to_utf8(block);
    object["detalles"] = json_of(details);
    output << object.dump(2) << "\n";
  } else {
    print_block(output, block);
    print_details(output, details, host.regional.decimal_mark());
  }
  return kDone;
}

}  // namespace ordelan::app
