#include "work/row_commands.h"

#include "text/paths.h"

namespace ordelan::work {

std::string path_of_row(const std::string& row) {
  if (row.find(':') == row.npos || row.find("----------") != row.npos) return {};
  return row.find('>') == row.npos ? row : text::Obtener_VipPath(row);
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
  copy(list_.marked_rows());
}

void RowCommands::copy_all() const {
  copy(list_.rows());
}

void RowCommands::copy(const std::vector<std::string>& rows) const {
  std::string text;
  for (const std::string& row : rows) {
    const std::string path = path_of_row(row);
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
