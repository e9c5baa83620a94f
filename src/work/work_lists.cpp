#include "work/work_lists.h"

namespace ordelan::work {

WorkLists::WorkLists(ui::Window& window)
    : ListProyectos(window, "ListProyectos"),
      ListVip(window, "ListVip"),
      ListUtilizados(window, "ListUtilizados"),
      ListBorrar(window, "ListBorrar"),
      List1(window, "List1"),
      LabelCheck(window, "LabelCheck", 2),
      LabelCount(window, "LabelCount", 2),
      LabelAdd(window, "LabelAdd", 2),
      LabelErase(window, "LabelErase", 2) {
  List1.hide();
  ListProyectos.set_description("Proyectos");
  ListVip.set_description("Archivos que utiliza el proyecto");
  ListUtilizados.set_description("Archivos que utilizan todos los proyectos");
  ListBorrar.set_description("Archivos que no utiliza ningún proyecto");
}

bool WorkLists::empty() const {
  return ListProyectos.empty() && ListVip.empty() && ListUtilizados.empty() && ListBorrar.empty();
}

void WorkLists::head_projects(const std::string& folder) {
  LabelCheck[0].set_caption("Encontrados " + std::to_string(ListProyectos.count()) +
                            " proyectos en:");
  LabelCheck[1].set_caption(folder);
}

void WorkLists::head_project(const std::string& project, const std::string& folder) {
  LabelCount[0].set_caption(std::to_string(ListVip.count()) +
                            " Archivos utilizados en: " + project);
  LabelCount[1].set_caption(folder);
  LabelCount.set_visible(true);
}

void WorkLists::head_midi_project() {
  LabelCount[0].set_caption("No hay archivos, es un Vip MIDI.");
  LabelCount[1].hide();
}

}  // namespace ordelan::work
