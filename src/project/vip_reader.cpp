#include "project/vip_reader.h"

#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <utility>

#include "text/byte_search.h"
#include "text/code_page.h"
#include "text/rows.h"

namespace ordelan::project {
namespace {

// References are collected while the marker is still searched, so that the file is read once. This
// many bytes of rows may wait for it; a file that would take more has its references read after
// the marker search.
constexpr std::size_t kWaitingRows = std::size_t{16} << 20;

// How far back the window reaches for the beginning of a reference that lies across its edge.
constexpr Position kReach = 4096;

std::string log_name_of(std::string name) {
  std::replace(name.begin(), name.end(), '.', '_');
  return name + ".log";
}

// Whether a file that has the name of a log of positions is none: it is somebody's own then, and
// must not be emptied.
bool is_foreign_log(system::FileSystem& files, const std::string& path) {
  if (!files.info(path)) return false;
  const auto file = files.open(path);
  if (!file) return true;
  std::vector<std::uint8_t> head(kReach);
  const auto came = file->read(0, head);
  return !came || std::any_of(head.begin(), head.begin() + static_cast<std::ptrdiff_t>(*came),
                              [](std::uint8_t byte) {
                                return byte != '\r' && byte != '\n' && (byte < '0' || byte > '9');
                              });
}

}  // namespace

// One reading of one file.
struct VipReader::Run {
  Run(VipReader& reader, std::unique_ptr<system::InputFile> opened)
      : file(std::move(opened)),
        window(*file, reader.block_, std::exchange(reader.spare_, {})),
        pacer(reader.platform_.pump, reader.platform_.clock),
        job(reader.work_.current_job()),
        stopped(reader.work_.Cancelar),
        reader_(reader) {}
  ~Run() { reader_.spare_ = window.release(); }
  Run(const Run&) = delete;
  Run& operator=(const Run&) = delete;

  std::unique_ptr<system::InputFile> file;
  FileWindow window;
  system::Pacer pacer;
  work::JobNumber job;
  bool stopped;

  ReferenceScan scan{0};
  struct Row {
    Position dot;
    std::string text;
  };
  std::vector<Row> rows;
  std::size_t row_bytes = 0;

  Position length() const { return window.length(); }

 private:
  VipReader& reader_;
};

// Gives the window its turn. False when the run has to stop.
bool VipReader::turn(Run& run) {
  if (run.pacer.turn() && work_.must_stop(run.job)) run.stopped = true;
  return !run.stopped;
}

bool VipReader::ExtraerNombres_Archivos(const std::string& Ruta, const RowSink& Lista,
                                        const std::string& Titulo, bool Agregar) {
  last_reading_ = Reading::no_project;
  if (text::lower(Ruta).find(".vip") == std::string::npos) return false;
  const std::string path(text::after_arrow(Ruta));
  const auto there = platform_.files.look_up(path);
  if (!there) return false;
  last_reading_ = Reading::whole;
  if (there->size == 0) return false;

  auto file = platform_.files.open(path);
  if (!file) {
    // Another program holds it, or it has gone since.
    last_reading_ = Reading::locked;
    if (!work_.ModoPosiciones && !Titulo.empty()) Lista({Titulo});
    return false;
  }
  try {
    Run run(*this, std::move(file));
    if (work_.ModoPosiciones) {
      write_positions(run, log_name_of(Ruta));
      return false;
    }
    // A row still holds its number and arrow, and names no file of that spelling: the header is
    // not looked at, and the scan begins where the last project's began.
    if (path == Ruta) find_header_end(run, nullptr);
    const bool found = read_references(run, Lista, Titulo, Agregar);
    if (run.window.failed()) last_reading_ = Reading::broken;
    if (run.stopped || work_.superseded(run.job)) last_reading_ = Reading::stopped;
    return found;
  } catch (const std::bad_alloc&) {
    last_reading_ = Reading::broken;
    return false;  // a file made to exhaust the memory
  }
}

bool VipReader::read_references(Run& run, const RowSink& list, const std::string& title, bool add) {
  find_references(run, !add);
  if (work_.superseded(run.job)) return false;
  if (!title.empty()) list({title});

  const bool found = !run.rows.empty();
  if (found && add) {
    TotalArchivosVip += run.rows.size();
    std::vector<std::string> rows;
    rows.reserve(run.rows.size());
    for (Run::Row& row : run.rows) rows.push_back(std::move(row.text));
    list(std::move(rows));
  }
  return found;
}

// Searches marker and references side by side over one reading of the file. A cancel before the
// marker is found leaves no row, as it is not known yet which of them count.
void VipReader::find_references(Run& run, bool only_first) {
  const Position from = PosInicioVip;
  MarkerSearch marker(from, run.length());
  run.scan = ReferenceScan(from);
  PosFinalVip = 0;
  progress_.set_range(0, run.length());

  const Position begin = std::max<Position>(from, 1);
  if (begin < run.window.chunk().first) run.window.move(begin);
  bool waiting = true;  // rows may still be collected before the marker
  while (!run.stopped) {
    marker.advance(run.window.chunk());
    if (marker.done()) break;
    if (waiting) collect(run, kNoLimit, only_first);
    waiting = waiting && run.row_bytes < kWaitingRows && !(only_first && !run.rows.empty());
    progress_.set_value(marker.position());
    if (!turn(run)) break;
    Position next = marker.position();
    if (waiting && !run.scan.ended()) {
      const Position begun = run.scan.candidate();
      const Position needed = run.scan.position();
      next = std::min(next, needed - begun <= kReach ? begun : needed);
    }
    run.window.move(std::max<Position>(next, 1));
  }
  if (!run.stopped) PosFinalVip = marker.limit();

  std::erase_if(run.rows, [&](const Run::Row& row) { return row.dot > PosFinalVip; });
  progress_.set_range(0, PosFinalVip);
  while (!run.stopped && !run.scan.ended() && !(only_first && !run.rows.empty())) {
    const Chunk& chunk = run.window.chunk();
    const Position needed = run.scan.position();
    if (needed < chunk.first || (needed >= chunk.end() && !chunk.last)) {
      run.window.move(std::max<Position>(needed, 1));
    }
    collect(run, PosFinalVip, only_first);
    if (run.scan.ended() || !turn(run)) break;
    run.window.move(run.scan.position());
  }
  progress_.set_value(std::min(run.scan.progress(), PosFinalVip));
}

// Takes up the references that the window holds.
void VipReader::collect(Run& run, Position limit, bool only_first) {
  Reference found{};
  while (!(only_first && !run.rows.empty()) && run.scan.next(run.window.chunk(), limit, found)) {
    run.rows.push_back({found.dot, only_first ? std::string() : row_text(run, found)});
    run.row_bytes += run.rows.back().text.size() + sizeof(Run::Row);
  }
}

// The bytes of a reference up to its first NUL, which is where a list ends a row.
std::string VipReader::row_text(Run& run, const Reference& found) {
  const Chunk& chunk = run.window.chunk();
  if (found.start >= chunk.first) {
    const auto* begin = chunk.at(found.start);
    return {begin, text::find_byte(begin, chunk.at(found.last + 1), 0)};
  }
  // It began before the window: seldom, so that the file is asked once more.
  std::string row;
  std::vector<std::uint8_t> piece(kReach);
  for (Position at = found.start; at <= found.last;) {
    const auto left = static_cast<std::size_t>(found.last + 1 - at);
    const auto wanted = std::span(piece).first(std::min(piece.size(), left));
    const std::size_t came = run.file->read(static_cast<std::uint64_t>(at - 1), wanted).value_or(0);
    const std::uint8_t* begin = piece.data();
    const auto* end = begin + came;
    const auto* nul = text::find_byte(begin, end, 0);
    row.append(begin, nul);
    if (nul != end || came < wanted.size()) break;
    at += static_cast<Position>(came);
  }
  return row;
}

// Sets PosInicioVip, and gives the header text where it is asked for.
void VipReader::find_header_end(Run& run, std::string* text) {
  HeaderScan header(run.length());
  run.window.move(kHeaderPosition);
  while (true) {
    const Position from = header.position();
    header.advance(run.window.chunk());
    if (text != nullptr) {
      const Position end = header.position() - (header.found() ? 1 : 0);
      const Chunk& chunk = run.window.chunk();
      if (end > from) text->append(chunk.at(from), chunk.at(end));
    }
    if (header.done() || !turn(run)) break;
    run.window.move(header.position());
  }
  if (header.found()) PosInicioVip = header.position();
}

std::string VipReader::LeerCabeceraVip(const std::string& Ruta) {
  std::string header;
  auto file = platform_.files.open(Ruta);
  if (!file) return header;
  try {
    Run run(*this, std::move(file));
    find_header_end(run, &header);
  } catch (const std::bad_alloc&) {
    header.clear();
  }
  return header;
}

Position VipReader::BuscarMarcaListas(const std::string& Ruta, Position Desde) {
  auto file = platform_.files.open(Ruta);
  if (!file) return 0;
  Run run(*this, std::move(file));
  MarkerSearch marker(Desde, run.length());
  do {
    run.window.move(marker.position());
    marker.advance(run.window.chunk());
    run.pacer.turn();
  } while (!marker.done());
  return marker.limit();
}

void VipReader::write_positions(Run& run, const std::string& log_name) {
  if (is_foreign_log(platform_.files, log_name)) return;
  auto log = platform_.files.create(log_name);
  if (!log) return;
  const Position limit = run.length() - 1;
  PointerScan scan(kHeaderPosition);
  PosFinalVip = limit;
  progress_.set_range(0, limit);
  std::string lines;
  do {
    run.window.move(scan.position());
    Position start = 0;
    while (scan.next(run.window.chunk(), limit, start)) {
      lines += std::to_string(start) + "\r\n";
    }
    progress_.set_value(std::min(scan.position(), limit));
    if (!log->write(lines)) break;
    lines.clear();
  } while (!scan.ended() && turn(run));
  log->close().ignore();
}

}  // namespace ordelan::project
