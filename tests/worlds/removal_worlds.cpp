#include "worlds/removal_worlds.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <vector>

#include "test_disk.h"
#include "worlds/flow_worlds.h"
#include "worlds/reference_removal.h"
#include "worlds/removal_session.h"
#include "worlds/studio.h"

namespace ordelan::test {
namespace {

namespace fs = std::filesystem;
using reference::Rows;
using Tree = std::map<std::string, std::string>;  // native path below the disk to bytes

std::uint64_t asked_number(const char* variable, std::uint64_t otherwise) {
  const char* const asked = std::getenv(variable);
  return asked == nullptr ? otherwise : std::strtoull(asked, nullptr, 10);
}

Tree tree_of(const fs::path& root) {
  Tree tree;
  for (const auto& entry : fs::recursive_directory_iterator(root)) {
    const std::string below = entry.path().lexically_relative(root).string();
    if (below == "Config.ini") continue;
    if (entry.is_symlink()) {
      tree[below] = "<link>";
    } else if (entry.is_regular_file()) {
      std::ifstream file(entry.path(), std::ios::binary);
      tree[below] = {std::istreambuf_iterator<char>(file), {}};
    }
  }
  return tree;
}

// The same with small letters in the names.
Tree without_case(const Tree& tree) {
  Tree folded;
  for (const auto& [path, bytes] : tree) {
    const auto ansi = reference::ansi_of(path);
    folded[ansi ? reference::utf8_of(reference::folded(*ansi)) : path] = bytes;
  }
  return folded;
}

bool has_twins(const Tree& tree) {
  std::set<std::u16string> seen;
  return std::any_of(tree.begin(), tree.end(), [&](const auto& each) {
    const auto ansi = reference::ansi_of(each.first);
    return ansi && !seen.insert(reference::capitals(*ansi)).second;
  });
}

bool is_numbered(const std::string& name) {
  return name.size() == 4 && name.find_first_not_of("0123456789") == std::string::npos;
}

// What the user has set up, chosen by the seed, and done to two disks alike.
struct Setup {
  Setup(std::uint64_t seed, bool checked) : dice(seed * 2'654'435'761u + (checked ? 17u : 5u)) {}

  bool one_in(std::uint64_t count) { return dice.below(count) == 0; }

  void choose(const Rows& offered) {
    CheckBackup = !one_in(3);
    CheckBorrar = !one_in(8);
    CheckBorraAsociados = one_in(3);
    CheckVaciarPapelera = one_in(5);
    CheckBorrarPapelera = one_in(3);
    CheckConfirmar = one_in(3);
    for (std::size_t i = 0; i < offered.size(); ++i) ticks.push_back(!one_in(4));
    if (one_in(3)) {
      for (auto count = 1 + dice.below(2); count > 0; --count) {
        std::string folder = reference::folder_of(offered[dice.below(offered.size())], false);
        if (folder.size() < 3) folder += "\\";
        if (one_in(6)) folder = "Q" + folder.substr(1);
        if (one_in(6)) folder = reference::folded(folder);
        if (folder.size() > 3 || one_in(3)) protect.push_back(folder);
      }
      saved = one_in(2);
    }
    ruta = "D:\\Copias";
    if (one_in(3)) {
      ruta = reference::folder_of(offered[dice.below(offered.size())], false);
      if (ruta.size() < 3) ruta += "\\";
    } else if (one_in(12)) {
      ruta = "D:\\";
    }
    answers = dice.below(4);
    for (const std::string& row : offered) {
      if (one_in(10)) read_only.push_back(row);
      if (one_in(5)) standing.push_back(reference::name_of(row));
    }
    old_log = one_in(4);
    press = one_in(3) ? 1 + static_cast<int>(dice.below(3)) : 0;
    press_after = 1 + dice.below(offered.size());
  }

  std::string place(const std::string& name) const {
    return ruta + (ruta.size() > 3 ? "\\" : "") + name;
  }

  void put_on(TestDisk& disk) const {
    const reference::Disk seen(disk.native_path(""));
    if (!seen.native(place(""))) disk.make_folder(ruta.substr(3));
    const auto folder = seen.native(place(""));
    if (!folder) return;
    const auto put = [&](const std::string& name, const std::string& bytes) {
      if (seen.native(place(name))) return;
      std::error_code failed;
      const fs::path file = *folder / reference::utf8_of(name);
      if (!fs::is_symlink(file, failed)) std::ofstream(file, std::ios::binary) << bytes;
    };
    for (const std::string& name : standing) put(name, "somebody's own " + name);
    if (old_log) put("Archivos_Borrados.log", "of another run\r\n");
    for (const std::string& row : read_only) {
      const auto file = seen.native(row);
      if (file) fs::permissions(*file, fs::perms::owner_read, fs::perm_options::replace);
    }
  }

  bool answer(const std::string& path) const {
    if (answers < 2) return answers == 0;
    std::size_t sum = 0;
    for (const char c : path) sum = sum * 31 + static_cast<unsigned char>(c);
    return (sum >> 3) % 2 == answers % 2;
  }

  Dice dice;
  bool CheckBackup = false, CheckBorrar = false, CheckBorraAsociados = false;
  bool CheckVaciarPapelera = false, CheckBorrarPapelera = false, CheckConfirmar = false;
  std::vector<bool> ticks;
  Rows protect;
  bool saved = false;
  std::string ruta;
  std::uint64_t answers = 0;
  Rows read_only;
  Rows standing;  // names of files that stand in the folder of copies
  bool old_log = false;
  int press = 0;  // what is pressed, and after how many marks
  std::uint64_t press_after = 0;
};

// A studio on a disk of its own, opened by the program.
struct World {
  World(std::uint64_t seed, bool checked)
      : plan(static_cast<Studio::Plan>(seed % 3)),
        studio(seed, plan, disk.native_path("")),
        session(disk.files()),
        setup(seed, checked) {
    auto& form = session.program.form;
    form.CheckSubPath.set_checked(studio.with_subfolders);
    form.CheckBAK.set_checked(studio.with_backups);
    const Action& action = studio.actions.front();
    if (action.kind == Action::Kind::drop) {
      form.lists.ListProyectos.on_drop(action.items);
    } else if (!action.items.front().empty()) {
      session.open(action.items.front());
    }
  }

  const Rows& offered() const { return session.program.form.lists.ListBorrar.rows(); }
  bool ready() const {
    return !offered().empty() && session.program.work.ListaBorrarCompleta &&
           !has_twins(tree_of(disk.native_path("")));
  }

  // Sets up the windows.
  void prepare(bool checked) {
    setup.choose(offered());
    setup.put_on(disk);
    // The file of a row that is made read-only has not changed since it was listed.
    session.program.form.CommandBorrado.on_click();
    session.options().cmdBorrar_Click();
    auto& options = session.options();
    options.CheckBackup.set_checked(setup.CheckBackup);
    options.CheckBorrar.set_checked(setup.CheckBorrar);
    options.CheckBorraAsociados.set_checked(setup.CheckBorraAsociados);
    options.CheckComprobar.set_checked(checked);
    auto& review = session.review();
    review.CheckVaciarPapelera.set_checked(setup.CheckVaciarPapelera);
    review.CheckBorrarPapelera.set_checked(setup.CheckBorrarPapelera);
    review.CheckConfirmar.set_checked(setup.CheckConfirmar);
    for (std::size_t i = 0; i < setup.ticks.size(); ++i) {
      review.ListStatus.set_ticked(i, setup.ticks[i]);
    }
    for (const std::string& folder : setup.protect) session.folders().List1.add(folder);
    if (setup.saved) session.folders().Salir_Click();
    session.shell.answer = [this](const std::string& path) { return setup.answer(path); };
  }

  std::size_t marks() {
    std::size_t count = 0;
    for (const std::string& row : session.review().ListBorrar.rows()) {
      count += reference::ends_with(row, "--> Borrado") ? 1u : 0u;
    }
    return count;
  }

  void run() {
    if (!setup.CheckBackup) {
      session.review().cmdHecho_Click();
    } else {
      session.remove_to(setup.ruta);
    }
  }

  // The rows that a shown project uses.
  Rows used() const {
    Rows rows;
    const auto& lists = session.program.form.lists;
    for (const Rows* list : {&lists.ListUtilizados.rows(), &lists.ListVip.rows()}) {
      for (const std::string& row : *list) {
        if (!reference::contains(row, ">")) rows.push_back(row);
      }
    }
    return rows;
  }

  std::string headed(std::uint64_t seed, const std::string& what) const {
    std::string text = "ORDELAN_REMOVAL_SEED=" + std::to_string(seed) + "\n" + what + "\n" +
                       studio.description() + "folder: " + reference::utf8_of(setup.ruta) + "\n";
    for (std::size_t i = 0; i < offered().size() && i < setup.ticks.size(); ++i) {
      text += (setup.ticks[i] ? "[x] " : "[ ] ") + reference::utf8_of(offered()[i]) + "\n";
    }
    for (const std::string& folder : setup.protect) {
      text += "protected: " + reference::utf8_of(folder) + "\n";
    }
    return text;
  }

  TestDisk disk;
  Studio::Plan plan;
  Studio studio;
  RemovalSession session;
  Setup setup;
};

// The names in the folder of copies that are those of used files and of rows.
std::set<std::string> kept_names(const World& world, const reference::Disk& disk) {
  Rows rows = world.used();
  rows.insert(rows.end(), world.offered().begin(), world.offered().end());
  std::set<std::string> names;
  std::set<reference::Disk::Identity> identities;
  for (const std::string& row : rows) {
    const std::string name = reference::name_of(row);
    if (reference::normalised(world.setup.ruta + "\\" + name) == reference::normalised(row)) {
      names.insert(reference::folded(name));
    }
    if (const auto identity = disk.identity(row)) identities.insert(*identity);
  }
  for (const std::string& name : disk.files(world.setup.place(""))) {
    const auto identity = disk.identity(world.setup.place(name));
    if (identity && identities.contains(*identity)) names.insert(reference::folded(name));
  }
  return names;
}

std::string joined(const Rows& rows) {
  std::string text;
  for (const std::string& row : rows) text += "  " + reference::utf8_of(row) + "\n";
  return text;
}

// What is on one disk and not on the other.
std::string difference(const Tree& program, const Tree& wanted) {
  std::string text;
  for (const auto& [path, bytes] : wanted) {
    const auto found = program.find(path);
    if (found == program.end()) {
      text += "missing: " + path + "\n";
    } else if (found->second != bytes) {
      text += "differs: " + path + ": " + found->second.substr(0, 200) +
              "\n   wanted: " + bytes.substr(0, 200) + "\n";
    }
  }
  for (const auto& [path, bytes] : program) {
    if (!wanted.contains(path)) text += "not wanted: " + path + "\n";
  }
  return text;
}

// The folder of copies without what runs add to it: the index and the numbered folders. `below` is
// where it is below the disk, with a slash at its end.
Tree without_additions(Tree tree, const std::string& below) {
  std::erase_if(tree, [&](const auto& each) {
    if (!each.first.starts_with(below)) return false;
    const std::string rest = each.first.substr(below.size());
    return rest == "Archivos_Borrados.ind" || is_numbered(rest.substr(0, rest.find('/')));
  });
  return tree;
}

// Where a folder of the program really is below the disk: with a slash at its end, empty for the
// disk itself.
std::string real_place(TestDisk& disk, const std::string& folder) {
  const fs::path root = disk.native_path("");
  const auto native = reference::Disk(root).native(folder + "\\");
  if (!native) return "?/";
  const std::string below = fs::canonical(*native).lexically_relative(fs::canonical(root)).string();
  return below == "." ? "" : below + "/";
}

void tally_failure(RemovalTally& tally, const std::string& what, const std::string& text) {
  ++tally.failures;
  const std::string kind = what.substr(0, what.find(':'));
  ++tally.counts["failed, " + kind];
  std::string& smallest = tally.smallest[kind];
  if (smallest.empty() || text.size() < smallest.size()) smallest = text;
}

void described_world(std::uint64_t seed, RemovalTally& tally) {
  World world(seed, false);
  if (!world.ready()) return;
  world.prepare(false);
  ++tally.worlds;
  const Setup& setup = world.setup;
  auto& session = world.session;

  TestDisk other;
  const Studio same(seed, world.plan, other.native_path(""));
  setup.put_on(other);
  reference::Removal wanted(other.native_path(""));
  wanted.CheckBackup = setup.CheckBackup;
  wanted.CheckBorrar = setup.CheckBorrar;
  wanted.CheckBorraAsociados = setup.CheckBorraAsociados;
  wanted.CheckVaciarPapelera = setup.CheckVaciarPapelera;
  wanted.CheckBorrarPapelera = setup.CheckBorrarPapelera;
  wanted.CheckConfirmar = setup.CheckConfirmar;
  wanted.RutaBackup = setup.ruta;
  wanted.ListBorrar = world.offered();
  wanted.ListStatus = setup.ticks;
  wanted.List1 = session.program.form.lists.List1.rows();
  wanted.NoBorrar = setup.protect;
  if (setup.saved) wanted.saved = setup.protect;
  wanted.short_date = session.regional.short_date();
  wanted.long_time = session.regional.long_time();
  wanted.kept_names = kept_names(world, wanted.disk);
  wanted.answer = [&](const std::string& path) { return setup.answer(path); };

  // Cancela waits from before, or is pressed after some marks, or once a side file has gone.
  std::string side;
  for (const std::string& row : wanted.List1) {
    if (!reference::ends_with(row, "wav") && !wanted.disk.look_up(row).empty()) side = row;
  }
  const reference::Disk program_disk(world.disk.native_path(""));
  if (setup.press == 1) {
    session.review().Cancela_Click();
    wanted.CancelarBorrado = true;
  } else if (setup.press == 2) {
    session.backend.on_pump = [&] {
      if (world.marks() >= setup.press_after) session.options().cmdParar.on_click();
    };
    wanted.pressed = [&] {
      return static_cast<std::uint64_t>(wanted.ArchivosBorrados) >= setup.press_after;
    };
  } else if (setup.press == 3 && !side.empty()) {
    session.backend.on_pump = [&] {
      if (program_disk.look_up(side).empty()) session.review().Cancela_Click();
    };
    wanted.pressed = [&] { return wanted.disk.look_up(side).empty(); };
  }

  world.run();
  session.backend.on_pump = nullptr;
  wanted.BorrarSeleccionados();

  std::string text;
  const auto compare = [&](const std::string& what, const std::string& program,
                           const std::string& described) {
    if (program != described) {
      text += what + " of the program:\n" + program + "\nas described:\n" + described + "\n";
    }
  };
  compare("rows", joined(session.review().ListBorrar.rows()), joined(wanted.ListBorrar));
  compare("calls", joined(session.shell.calls), joined(wanted.calls));
  compare("LabelInfo shown", session.options().LabelInfo.visible() ? "yes" : "no",
          wanted.shown ? "yes" : "no");
  if (wanted.shown) {
    compare("LabelInfo", session.options().LabelInfo.caption(), wanted.LabelInfo);
    compare("its colour",
            std::to_string(static_cast<std::uint32_t>(session.options().LabelInfo.fore_color())),
            std::to_string(wanted.color));
  }
  if (!wanted.LabelErase.empty()) {
    compare("LabelErase", session.review().LabelErase.caption(), wanted.LabelErase);
  }
  Tree after = tree_of(world.disk.native_path(""));
  if (setup.CheckBackup)
    after = without_additions(std::move(after), real_place(world.disk, setup.ruta));
  text += difference(after, tree_of(other.native_path("")));
  if (!text.empty()) {
    tally_failure(tally, text,
                  world.headed(seed, text + session.options().LabelResultado.caption()));
  }

  const auto count = [&](const char* what, bool happened) {
    if (happened) ++tally.counts[what];
  };
  count("with backup", setup.CheckBackup && setup.CheckBorrar);
  count("removed", wanted.ArchivosBorrados > 0);
  count("side files", wanted.AsociadosEncontrados > 0);
  count("cancelled", reference::contains(wanted.LabelInfo, "Cancelado"));
  count("questions", !session.shell.asked.empty());
  count("protected", !setup.protect.empty());
  count("the folder is being cleaned", !wanted.kept_names.empty());
}

// What the program must keep to with the box ticked; what it has not, empty if it has.
std::string broken(World& world, const Tree& before, bool cancelled, RemovalTally& tally) {
  const Setup& setup = world.setup;
  const fs::path root = world.disk.native_path("");
  const reference::Disk disk(root);
  std::string text;
  // A path as the trees hold it, the folders that are links resolved.
  const auto key = [&](const std::string& path) {
    std::string below = reference::folded(path.substr(3));
    std::replace(below.begin(), below.end(), '\\', '/');
    return reference::utf8_of(below);
  };
  const auto real = [&](const std::string& row) {
    const std::string place = real_place(world.disk, reference::folder_of(row, false));
    return key("D:\\" + reference::ansi_of(place).value_or("?") + reference::name_of(row));
  };
  std::set<std::string> ticked;
  for (std::size_t i = 0; i < setup.ticks.size(); ++i) {
    if (setup.ticks[i] && setup.CheckBorrar) ticked.insert(real(world.offered()[i]));
  }
  std::set<std::string> side_files;
  if (setup.CheckBorraAsociados) {
    for (const std::string& row : world.session.program.form.lists.List1.rows()) {
      side_files.insert(real(row));
    }
  }
  const Tree after = without_case(tree_of(root));
  std::multiset<std::string> bin;
  for (const auto& [path, bytes] : after) {
    if (path.starts_with("papelera de pruebas/")) bin.insert(bytes);
  }
  const std::string ruta =
      setup.CheckBackup
          ? key("D:\\" + reference::ansi_of(real_place(world.disk, setup.ruta)).value_or("?"))
          : "<none>";
  const auto saved_copy = [&](const std::string& name, const std::string& bytes) {
    return std::any_of(after.begin(), after.end(), [&](const auto& each) {
      const std::string rest =
          each.first.starts_with(ruta) ? each.first.substr(ruta.size()) : std::string();
      return rest.size() > 5 && is_numbered(rest.substr(0, 4)) && rest.substr(5) == name &&
             each.second == bytes;
    });
  };
  std::set<std::string> gone;
  for (const auto& [path, bytes] : before) {
    const auto now = after.find(path);
    if (now == after.end()) {
      gone.insert(path);
      if (bytes == "<link>") text += "a link has gone: " + path + "\n";
      if (!ticked.contains(path) && !side_files.contains(path)) {
        text += "gone although nothing has chosen it: " + path + "\n";
      }
      if (setup.CheckBorrarPapelera && !bin.contains(bytes)) {
        text += "neither in its place nor in the bin: " + path + "\n";
      }
      continue;
    }
    if (now->second == bytes) continue;
    const std::string rest = path.starts_with(ruta) ? path.substr(ruta.size()) : "";
    const bool direct = !rest.empty() && rest.find('/') == std::string::npos;
    const bool kept = rest == "archivos_borrados.log" || saved_copy(rest, bytes);
    if (!direct || !kept || ticked.contains(path)) text += "has other bytes: " + path + "\n";
  }
  // Used files and protected folders.
  for (const std::string& row : world.used()) {
    const std::string path = key(row);
    if (before.contains(path) && !after.contains(path)) text += "a used file has gone: " + path;
    if (before.contains(path) && after.contains(path) && before.at(path) != after.at(path)) {
      text += "a used file is another: " + path + "\n";
    }
  }
  for (const std::string& path : gone) {
    if (side_files.contains(path)) continue;
    for (const std::string& folder : setup.protect) {
      const std::string around = reference::folded(key(folder) + "/");
      if ((folder[0] == 'D' || folder[0] == 'd') && reference::folded(path).starts_with(around)) {
        text += "protected: " + path + "\n";
      }
    }
  }
  // What is reported about the rows.
  const auto& state = world.session.program.form.removal_state();
  std::size_t rows_gone = 0;
  std::set<std::string> told;
  for (const auto& kept : state.kept) told.insert(real(kept.ruta));
  for (const std::string& path : ticked) {
    if (gone.contains(path)) {
      ++rows_gone;
    } else if (before.contains(path) && !cancelled && !told.contains(path) &&
               !disk.look_up("D:\\" + reference::ansi_of(path).value_or("")).empty()) {
      text += "still there without a reason: " + path + "\n";
    }
  }
  if (state.gone != rows_gone) {
    text += std::to_string(rows_gone) + " rows have gone and " + std::to_string(state.gone) +
            " are told\n";
  }
  tally.counts["files removed"] += rows_gone;
  if (!setup.CheckBackup || !setup.CheckBorrar) return text;

  // Every byte back.
  {
    RemovalSession next(world.disk.files());
    next.shell.answers_yes = false;
    const std::string log = setup.place("Archivos_Borrados.log");
    if (rows_gone > 0 && !next.recover(log)) text += "the log lists nothing\n";
  }
  const Tree back = without_case(tree_of(root));
  for (const std::string& path : ticked) {
    if (!gone.contains(path)) continue;
    const auto now = back.find(path);
    if (now == back.end()) {
      text += "not brought back: " + path + "\n";
    } else if (now->second != before.at(path)) {
      text += "brought back with other bytes: " + path + "\n";
    }
  }
  tally.counts["files brought back"] += rows_gone;
  return text;
}

void checked_world(std::uint64_t seed, RemovalTally& tally) {
  World world(seed, true);
  if (!world.ready()) return;
  world.prepare(true);
  ++tally.worlds;
  auto& session = world.session;
  const Tree before = without_case(tree_of(world.disk.native_path("")));
  const Setup& setup = world.setup;
  std::uint64_t pumps = 0;
  bool disturbed = false;
  const std::uint64_t at = setup.press_after * 3 + seed % 5;
  if (setup.press != 0) {
    session.backend.on_pump = [&] {
      if (!session.program.form.removal_state().running || pumps++ != at) return;
      disturbed = true;
      switch (seed % 5) {
        case 0:
          session.review().Cancela_Click();
          break;
        case 1:
          session.options().cmdParar.on_click();
          break;
        case 2:
          session.review().cmdSalir_Click();
          break;
        case 3:
          session.options().Salir_Click();
          break;
        default:
          session.dialogs.files.push_back({world.studio.projects.front()});
          session.program.form.AbrirFichero_Click();
      }
    };
  }
  // The lists of the main window may be others after a project was opened in the middle.
  world.run();
  session.backend.on_pump = nullptr;
  if (disturbed && seed % 5 == 4) {
    ++tally.counts["a project opened in the middle"];
    return;
  }
  const std::string text = broken(world, before, disturbed, tally);
  if (!text.empty()) tally_failure(tally, text, world.headed(seed, text));
  if (disturbed) ++tally.counts["disturbed"];
  if (setup.CheckBackup && setup.CheckBorrar) ++tally.counts["with backup"];
  if (!session.shell.asked.empty()) ++tally.counts["questions"];
}

template <class One>
RemovalTally run(One one) {
  const DiskInMemory in_memory;
  RemovalTally tally;
  for (std::uint64_t seed = removal_seed(); tally.worlds < removal_worlds(); ++seed) {
    one(seed, tally);
    if (seed - removal_seed() > 20 * removal_worlds()) break;
  }
  return tally;
}

}  // namespace

std::uint64_t removal_worlds() {
  return asked_number("ORDELAN_REMOVAL_WORLDS", 300);
}

std::uint64_t removal_seed() {
  return asked_number("ORDELAN_REMOVAL_SEED", 0);
}

std::string RemovalTally::summary() const {
  std::string text = std::to_string(worlds) + " worlds, " + std::to_string(failures) + " failed\n";
  for (const auto& [what, count] : counts)
    text += "  " + what + ": " + std::to_string(count) + "\n";
  for (const auto& [kind, world] : smallest) text += world + "\n";
  return text;
}

RemovalTally run_described_removals() {
  return run(described_world);
}

RemovalTally run_checked_removals() {
  return run(checked_world);
}

}  // namespace ordelan::test
