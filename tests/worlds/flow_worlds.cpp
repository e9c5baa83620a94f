#include "worlds/flow_worlds.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <optional>

namespace ordelan::test {
namespace {

std::uint64_t number_of(const char* variable, std::uint64_t otherwise) {
  const char* const asked = std::getenv(variable);
  return asked == nullptr ? otherwise : std::strtoull(asked, nullptr, 10);
}

bool any_contains(const reference::Rows& rows, const std::string& part) {
  return std::any_of(rows.begin(), rows.end(),
                     [&](const std::string& row) { return reference::contains(row, part); });
}

void count_what_happened(const FlowWorld& world, FlowTally& tally) {
  const reference::Program& wanted = world.wanted;
  const auto count = [&](const char* what, bool happened) {
    if (happened) ++tally.counts[what];
  };
  count("projects", !wanted.ListProyectos.empty());
  count("several projects", wanted.ListProyectos.size() > 1);
  count("offers", !wanted.ListBorrar.empty());
  count("strikes", wanted.tally.struck > 0);
  count("guarded", wanted.tally.guarded > 0);
  count("repeats", wanted.tally.repeats > 0);
  count("brackets",
        any_contains(wanted.ListUtilizados, "[") || any_contains(wanted.ListBorrar, "["));
  count("frozen", any_contains(wanted.ListUtilizados, "FreezeData"));
  count("other spellings", any_contains(wanted.ListUtilizados, "/") ||
                               any_contains(wanted.ListUtilizados, "\\.") ||
                               any_contains(wanted.ListUtilizados, "\\\\"));
  const bool refused = wanted.ListProyectos.empty() && !world.studio.actions.back().items.empty();
  count("refusals", refused);
  count("lost files", std::any_of(wanted.ListPerdidos.begin(), wanted.ListPerdidos.end(),
                                  [](const std::string& row) {
                                    return !reference::contains(row, ">") &&
                                           !reference::contains(row, "----------");
                                  }));
  count("left out", !world.bench.work.ProyectosFuera.empty());
  count("doubtless reasons", !wanted.refused.empty());
  count("dropped too late",
        std::any_of(wanted.refused.begin(), wanted.refused.end(), [](const auto& each) {
          return reference::contains(each.second, "soltado con una carpeta");
        }));
  const reference::Rows& items = world.studio.actions.back().items;
  count("slashes", !refused && any_contains(items, "/"));
  count("long names", any_contains(wanted.ListUtilizados, std::string(200, 'n')) ||
                          any_contains(wanted.ListBorrar, std::string(200, 'n')));
  count("mixed drops", world.studio.actions.back().kind == Action::Kind::drop &&
                           world.studio.actions.back().items.size() > 1 && !refused);
}

std::uint64_t worlds_of_a_plan() {
  return std::max<std::uint64_t>(flow_worlds() / Studio::kPlans, 1);
}

std::string headed(std::uint64_t seed, const std::string& forbidden, const FlowWorld& world) {
  return "ORDELAN_FLOW_SEED=" + std::to_string(seed) + " " + reference::utf8_of(forbidden) + "\n" +
         world.description();
}

constexpr const char* kGoneBefore = "project gone before the search";

// Does the action, and something else in the pump of that number. Gives what was done there.
std::string disturb(FlowWorld& world, const Action& action, std::uint64_t pump) {
  constexpr const char* kKinds[] = {"cancel", "reset", "project gone", "project come"};
  bool before = false;  // the projects are still being decoded
  const std::uint64_t kind = world.studio.roll(4);
  bool done = false;
  std::uint64_t seen = 0;
  world.bench.backend.on_pump = [&] {
    if (seen++ != pump) return;
    done = true;
    if (kind == 0) {
      world.bench.form.cmdCancelar_Click();
    } else if (kind == 1) {
      world.bench.form.cmdReset_Click();
    } else if (kind == 2) {
      before = !world.bench.form.lists.LabelAdd[0].visible();
      world.studio.remove_project();
    } else {
      world.studio.add_project();
    }
  };
  world.act(action);
  world.bench.backend.on_pump = nullptr;
  if (before) return kGoneBefore;
  return done ? kKinds[kind] : "";
}

}  // namespace

std::uint64_t flow_worlds() {
  return number_of("ORDELAN_FLOW_WORLDS", 2'000);
}

std::uint64_t flow_seed() {
  return number_of("ORDELAN_FLOW_SEED", 0);
}

DiskInMemory::DiskInMemory() {
  if (const char* const before = std::getenv("TMPDIR")) {
    had_one_ = true;
    before_ = before;
  }
  std::error_code failed;
  if (std::filesystem::is_directory("/dev/shm", failed)) ::setenv("TMPDIR", "/dev/shm", 1);
}

DiskInMemory::~DiskInMemory() {
  if (had_one_) {
    ::setenv("TMPDIR", before_.c_str(), 1);
  } else {
    ::unsetenv("TMPDIR");
  }
}

FlowWorld::FlowWorld(std::uint64_t seed, Studio::Plan plan)
    : studio(seed, plan, bench.disk.native_path("")),
      wanted(bench.disk.native_path("")),
      root_(bench.disk.native_path("")) {
  bench.start();
  bench.form.CheckSubPath.set_checked(studio.with_subfolders);
  bench.form.CheckBAK.set_checked(studio.with_backups);
  wanted.CheckSubPath = studio.with_subfolders;
  wanted.CheckBAK = studio.with_backups;
  const auto& lists = bench.form.lists;
  for (int i = 0; i < 2; ++i) {
    const auto k = static_cast<std::size_t>(i);
    wanted.LabelCheck[k] = lists.LabelCheck[i].caption();
    wanted.LabelCount[k] = lists.LabelCount[i].caption();
    wanted.LabelAdd[k] = lists.LabelAdd[i].caption();
    wanted.LabelErase[k] = lists.LabelErase[i].caption();
  }
}

void FlowWorld::act(const Action& action) {
  if (action.kind == Action::Kind::drop) {
    bench.form.lists.ListProyectos.on_drop(action.items);
    return;
  }
  const std::string& picked = action.items.front();
  bench.dialogs.files.push_back(picked.empty() ? std::vector<std::string>() : action.items);
  bench.form.AbrirFichero_Click();
}

void FlowWorld::act_in_reference(const Action& action) {
  if (action.kind == Action::Kind::drop) {
    wanted.drop(action.items);
  } else {
    wanted.open(action.items.front());
  }
}

std::vector<FlowWorld::Field> FlowWorld::fields() const {
  const main_window::Form1& form = bench.form;
  const auto& lists = form.lists;
  const auto captions = [](const auto& labels) {
    return reference::Rows{labels[0].caption(), labels[1].caption()};
  };
  const auto rows = [](const std::array<std::string, 2>& pair) {
    return reference::Rows(pair.begin(), pair.end());
  };
  const auto shown = [](bool visible) { return reference::Rows{visible ? "shown" : "hidden"}; };
  return {
      {"ListProyectos", lists.ListProyectos.rows(), wanted.ListProyectos},
      {"LabelCheck", captions(lists.LabelCheck), rows(wanted.LabelCheck)},
      {"ListVip", lists.ListVip.rows(), wanted.ListVip},
      {"LabelCount", captions(lists.LabelCount), rows(wanted.LabelCount)},
      {"ListUtilizados", lists.ListUtilizados.rows(), wanted.ListUtilizados},
      {"LabelAdd", captions(lists.LabelAdd), rows(wanted.LabelAdd)},
      {"ListBorrar", lists.ListBorrar.rows(), wanted.ListBorrar},
      {"LabelErase", captions(lists.LabelErase), rows(wanted.LabelErase)},
      {"ListPerdidos", bench.form.lost_files().TextoPerdidos(), wanted.ListPerdidos},
      {"SalvaListados", shown(form.SalvaListados.visible()), shown(wanted.offers_reports)},
      {"ActualizarVip", shown(form.ActualizarVip.visible()), shown(wanted.offers_reports)},
      {"ZoomListas", shown(form.ZoomListas.visible()), shown(wanted.offers_reports)},
  };
}

std::string FlowWorld::first_difference() const {
  for (const Field& field : fields()) {
    if (field.program != field.reference) return field.name;
  }
  return "";
}

FlowWorld::Forbidden FlowWorld::forbidden_offer() const {
  const auto& lists = bench.form.lists;
  const reference::Disk& disk = wanted.disk;
  struct Used {
    std::string row;
    const char* where;
    std::string path;
    std::optional<reference::Disk::Identity> identity;
  };
  std::vector<Used> all;
  const auto add = [&](const reference::Rows& rows, const char* where) {
    for (const std::string& row : rows) {
      if (reference::contains(row, ">")) continue;
      all.push_back({row, where, reference::normalised(row), disk.identity(row)});
    }
  };
  if (!lists.ListBorrar.empty()) {
    add(lists.ListUtilizados.rows(), "ListUtilizados");
    add(lists.ListVip.rows(), "ListVip");
    reference::Program shown(root_);
    shown.CheckBAK = studio.with_backups;
    shown.ListProyectos = lists.ListProyectos.rows();
    add(shown.listed_references(), "a listed project");
  }
  for (const std::string& row : lists.ListBorrar.rows()) {
    if (disk.look_up(row).empty()) return {"an offer of no file", row};
    const auto identity = disk.identity(row);
    const std::string path = reference::normalised(row);
    for (const Used& used : all) {
      const bool by_path = used.path == path;
      if (!by_path && used.identity != identity) continue;
      const char* const how = used.row == row ? "as it is"
                              : by_path       ? "spelt otherwise"
                                              : "by a link";
      return {std::string("an offer that ") + used.where + " uses " + how,
              row + " is used as " + used.row};
    }
  }
  return {};
}

FlowWorld::Forbidden FlowWorld::offer_out_of_reach() const {
  reference::Program shown(root_);
  shown.ListProyectos = bench.form.lists.ListProyectos.rows();
  const reference::Rows folders = shown.project_folders();
  for (const std::string& row : bench.form.lists.ListBorrar.rows()) {
    const bool reached =
        std::any_of(folders.begin(), folders.end(),
                    [&](const std::string& folder) { return row.starts_with(folder); });
    if (!reached) return {"an offer out of the projects' folders", row};
  }
  return {};
}

FlowWorld::Forbidden FlowWorld::wrongly_left_out() const {
  std::map<std::string, std::string> shown;
  std::size_t unnamed = 0;
  for (const work::ProyectoFuera& each : bench.work.ProyectosFuera) {
    if (each.motivo == "su nombre no cabe en la página de códigos") {
      ++unnamed;
      continue;
    }
    shown[reference::normalised(each.ruta)] = each.motivo;
  }
  for (const std::string& path : wanted.projects_in_reach()) {
    const std::string key = reference::normalised(path);
    // A link to a listed project is that project.
    const auto place = wanted.disk.native(path);
    const bool listed = std::any_of(
        wanted.ListProyectos.begin(), wanted.ListProyectos.end(), [&](const std::string& row) {
          const auto other = wanted.disk.native(row.substr(row.find('>') + 2));
          return place && other && std::filesystem::equivalent(*place, *other);
        });
    if (!listed && !wanted.decoded.contains(key) && !shown.contains(key)) {
      return {"a project that counts for nothing unseen", path};
    }
  }
  for (const auto& [key, reason] : shown) {
    // Two spellings of one path may have been dropped, and only one of them be a backup's.
    const bool both = wanted.refused.contains(key);
    if (wanted.decoded.contains(key) && !both) return {"a decoded project shown as left out", key};
  }
  for (const auto& [key, reason] : wanted.refused) {
    const auto there = shown.find(key);
    if (there == shown.end()) return {"a refused project that is not shown", key};
    if (there->second != reason) return {"another reason", key + ": " + reason};
  }
  if (unnamed < wanted.unnamed_in_reach()) return {"an unnamed project that is not shown", ""};
  return {};
}

std::string FlowWorld::description() const {
  std::string text = studio.description();
  for (const Field& field : fields()) {
    const bool same = field.program == field.reference;
    text += field.name + (same ? ":\n" : " of the program:\n");
    for (const std::string& row : field.program) text += "    " + reference::utf8_of(row) + "\n";
    if (same) continue;
    text += field.name + " wanted:\n";
    for (const std::string& row : field.reference) text += "    " + reference::utf8_of(row) + "\n";
  }
  text += "ProyectosFuera:\n";
  for (const work::ProyectoFuera& each : bench.work.ProyectosFuera) {
    text += "    " + reference::utf8_of(each.ruta + " (" + each.motivo + ")") + "\n";
  }
  return text;
}

void FlowTally::fail(const std::string& what, const std::string& description) {
  ++failures;
  ++differences[what];
  std::string& known = smallest[what];
  if (known.empty() || description.size() < known.size()) known = description;
}

std::string FlowTally::summary() const {
  std::string text = std::to_string(worlds) + " worlds";
  for (const auto& [what, count] : counts) text += ", " + what + " " + std::to_string(count);
  for (const auto& [what, count] : differences) {
    text += "\n  " + std::to_string(count) + " fail in " + what;
  }
  for (const auto& [what, world] : smallest) {
    text += "\n\nThe smallest that fails in " + what + ":\n" + world;
  }
  return text;
}

FlowTally run_flows(Studio::Plan plan) {
  const DiskInMemory in_memory;
  FlowTally tally;
  for (std::uint64_t seed = flow_seed(); tally.worlds < worlds_of_a_plan(); ++seed) {
    FlowWorld world(seed, plan);
    std::string difference;
    for (const Action& action : world.studio.actions) {
      world.act(action);
      world.act_in_reference(action);
      difference = world.first_difference();
      if (!difference.empty()) break;
    }
    const FlowWorld::Forbidden forbidden = world.forbidden_offer();
    const FlowWorld::Forbidden left_out = world.wrongly_left_out();
    if (!forbidden.kind.empty()) {
      tally.fail(forbidden.kind, headed(seed, forbidden.description, world));
    } else if (!difference.empty()) {
      tally.fail(difference, headed(seed, "", world));
    } else if (!left_out.kind.empty()) {
      tally.fail(left_out.kind, headed(seed, left_out.description, world));
    }
    ++tally.worlds;
    count_what_happened(world, tally);
  }
  return tally;
}

FlowTally run_interrupted_flows() {
  const DiskInMemory in_memory;
  FlowTally tally;
  for (std::uint64_t seed = flow_seed(); tally.worlds < worlds_of_a_plan(); ++seed) {
    const std::uint64_t pumps = [&] {
      FlowWorld undisturbed(seed, Studio::Plan::interrupted);
      std::uint64_t count = 0;
      undisturbed.bench.backend.on_pump = [&] { ++count; };
      undisturbed.act(undisturbed.studio.actions.front());
      return count;
    }();
    FlowWorld world(seed, Studio::Plan::interrupted);
    const Action& action = world.studio.actions.front();
    world.act_in_reference(action);  // the disk has not changed yet
    ++tally.worlds;
    count_what_happened(world, tally);
    if (pumps == 0) continue;
    const std::string happened = disturb(world, action, world.studio.roll(pumps));
    if (happened.empty()) continue;
    ++tally.counts[happened];

    FlowWorld::Forbidden forbidden = world.forbidden_offer();
    if (forbidden.kind.empty() && happened == kGoneBefore) forbidden = world.offer_out_of_reach();
    const std::string description = happened + " " + headed(seed, forbidden.description, world);
    const auto& offered = world.bench.form.lists.ListBorrar.rows();
    if (!forbidden.kind.empty()) {
      tally.fail(forbidden.kind, description);
    } else if (happened == "reset" && !offered.empty()) {
      tally.fail("rows after a reset", description);
    } else if (happened == "cancel" && !offered.empty() && offered != world.wanted.ListBorrar) {
      tally.fail("half a result after a cancel", description);
    }
    if (!offered.empty()) ++tally.counts["offers after all"];
  }
  return tally;
}

}  // namespace ordelan::test
