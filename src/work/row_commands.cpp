#include "work/row_commands.h"

#include <string_view>

namespace ordelan::work {

namespace {

// A project's number and what parts it from the path stand before the drive's letter.
std::string_view path_in_row(std::string_view row) {
  const auto colon = row.find(':');
  if (colon == row.npos || colon == 0 || row.find("----------") != row.npos) return {};
  return row.find('>') == row.npos ? row : row.substr(colon - 1);
}

}  // namespace

std::string path_of_row(const std::string& row) {
  return std::string(path_in_row(row));
}

RowCommands::RowCommands(const system::Platform& platform, ui::ListBox& list, ui::Button& button)
    : platform_(platform), list_(list) {
  button.set_description("Órdenes de la lista");
  button.set_tip("Copiar rutas, abrir la carpeta, ver propiedades");
  button.on_click = [this] { show_menu(false); };
}

void RowCommands::show_menu(bool by_key) const {
  const std::string& row = list_.current_row();
  const bool has_path = !path_of_row(row).empty();
  const bool was_found = found_.contains(row);
  std::vector<system::MenuItem> items{{.text = "Copiar ruta\tCtrl+C", .enabled = has_path},
                                      {.text = "Copiar todas", .enabled = !list_.empty()},
                                      {},
                                      {.text = "Abrir carpeta", .enabled = has_path},
                                      {.text = "Propiedades", .enabled = has_path}};
  if (was_found) items.push_back({.text = "Copiar ruta hallada\tCtrl+Mayús+C"});
  const auto picked =
      platform_.dialogs.menu(items, by_key ? system::MenuPlace::focus : system::MenuPlace::pointer);
  if (!picked) return;
  switch (*picked) {
    case 0:
      return copy_path();
    case 1:
      return copy_all();
    case 3:
      return open_folder();
    case 4:
      return show_properties();
    default:
      return copy_found();
  }
}

void RowCommands::copy_found() const {
  const auto found = found_.find(list_.current_row());
  if (found != found_.end()) platform_.shell.copy_text(found->second);
}

void RowCommands::copy_path() const {
  if (list_.marked_count() > 0) {
    copy([this](std::size_t row) { return list_.marked(row); });
  } else {
    const auto current = static_cast<std::size_t>(list_.current());  // past the end for none
    copy([current](std::size_t row) { return row == current; });
  }
}

void RowCommands::copy_all() const {
  copy([](std::size_t) { return true; });
}

// Lists are long: no row is copied on its own.
void RowCommands::copy(const std::function<bool(std::size_t)>& wanted) const {
  std::string text;
  for (std::size_t i = 0; i < list_.count(); ++i) {
    if (!wanted(i)) continue;
    const std::string_view path = path_in_row(list_.row(i));
    if (path.empty()) continue;
    if (!text.empty()) text += "\r\n";
    text += path;
  }
  if (!text.empty()) platform_.shell.copy_text(text);
}

void RowCommands::open_folder() const {
  const std::string path = path_of_row(list_.current_row());
  if (!path.empty()) platform_.shell.show_in_folder(path);
}

void RowCommands::show_properties() const {
  const std::string path = path_of_row(list_.current_row());
  if (!path.empty()) platform_.shell.show_properties(path);
}

}  // namespace ordelan::work
