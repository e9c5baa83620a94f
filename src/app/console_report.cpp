#include "app/console_report.h"

#include <array>
#include <ostream>
#include <string>

#include "app/console_json.h"
#include "text/code_page.h"
#include "text/rows.h"

namespace ordelan::app {
namespace {

using Headings = ui::ControlArray<ui::Label>;

// Lines go to the stream in pieces of about so many bytes.
constexpr std::size_t kPrintedAtOnce = std::size_t{1} << 16;

Json rows(const ui::ListBox& list) {
  return json_rows(list.rows());
}

Json captions(const Headings& headings) {
  Json array = Json::array();
  for (const auto& heading : headings) array.push_back(text::to_utf8(heading->caption()));
  return array;
}

const char* name(system::Icon icon) {
  constexpr std::array kNames = {"ninguno", "critico", "pregunta", "exclamacion", "informacion"};
  return kNames[static_cast<std::size_t>(icon)];
}

const char* name(system::Buttons buttons) {
  constexpr std::array kNames = {"aceptar", "aceptar_cancelar", "si_no"};
  return kNames[static_cast<std::size_t>(buttons)];
}

void print_list(std::ostream& output, const Headings& headings, const ui::ListBox& list) {
  bool headed = false;
  for (const auto& heading : headings) {
    if (!heading->visible()) continue;
    output << text::to_utf8(heading->caption()) << "\n";
    headed = true;
  }
  std::string lines;
  for (const std::string& row : list.rows()) {
    lines += "  ";
    text::append_utf8(row, lines);
    lines += '\n';
    if (lines.size() < kPrintedAtOnce) continue;
    output << lines;
    lines.clear();
  }
  output << lines;
  if (headed || !list.empty()) output << "\n";
}

}  // namespace

void ConsoleReport::print(std::ostream& output, bool json) const {
  json ? print_json(output) : print_text(output);
}

void ConsoleReport::print_json(std::ostream& output) const {
  const work::WorkLists& lists = form_.lists;
  Json object;
  object["ListProyectos"] = rows(lists.ListProyectos);
  object["ListVip"] = rows(lists.ListVip);
  object["ListUtilizados"] = rows(lists.ListUtilizados);
  object["ListBorrar"] = rows(lists.ListBorrar);
  object["ListPerdidos"] = json_rows(lost_.TextoPerdidos());
  object["ProyectosFuera"] = Json::array();
  for (const work::ProyectoFuera& each : work_.ProyectosFuera) {
    object["ProyectosFuera"].push_back(
        {{"ruta", text::to_utf8(each.ruta)}, {"motivo", text::to_utf8(each.motivo)}});
  }
  object["LabelCheck"] = captions(lists.LabelCheck);
  object["LabelCount"] = captions(lists.LabelCount);
  object["LabelAdd"] = captions(lists.LabelAdd);
  object["LabelErase"] = captions(lists.LabelErase);
  if (named_) object["conservados"] = json_kept(*named_);
  object["TextDecode"] = text::to_utf8(form_.strip.TextDecode.text());
  object["mensajes"] = Json::array();
  for (const system::Message& message : messages_) {
    object["mensajes"].push_back({{"titulo", text::to_utf8(message.title)},
                                  {"texto", text::to_utf8(message.text)},
                                  {"icono", name(message.icon)},
                                  {"botones", name(message.buttons)}});
  }
  output << object.dump(2) << "\n";
}

void ConsoleReport::print_text(std::ostream& output) const {
  const work::WorkLists& lists = form_.lists;
  print_list(output, lists.LabelCheck, lists.ListProyectos);
  print_list(output, lists.LabelCount, lists.ListVip);
  print_list(output, lists.LabelAdd, lists.ListUtilizados);
  print_list(output, lists.LabelErase, lists.ListBorrar);
  if (named_) {
    output << "Los nombra " << text::to_utf8("algún proyecto: ") << named_->size() << "\n";
    for (const removal::Kept& each : *named_) {
      output << "  " << text::to_utf8(text::row_with_reason(each.ruta, each.motivo)) << "\n";
    }
    output << "\n";
  }
  if (!lost_.TextoPerdidos().empty()) {
    output << "Archivos perdidos o desubicados:\n";
    for (const std::string& row : lost_.TextoPerdidos()) {
      output << "  " << text::to_utf8(row) << "\n";
    }
    output << "\n";
  }
  if (!work_.ProyectosFuera.empty()) {
    print_left_out(output, work_);
    output << "\n";
  }
  for (const system::Message& message : messages_) {
    output << text::to_utf8(message.title) << "\n" << text::to_utf8(message.text) << "\n\n";
  }
}

void print_left_out(std::ostream& output, const work::WorkInHand& work) {
  if (work.ProyectosFuera.empty()) return;
  output << work.ProyectosFuera.size() << " proyectos no cuentan:\n";
  for (const work::ProyectoFuera& each : work.ProyectosFuera) {
    output << "  " << text::to_utf8(text::row_with_reason(each.ruta, each.motivo)) << "\n";
  }
}

void print_search(std::ostream& output, const SearchOutcome& outcome, const ui::ListBox& hits,
                  bool json) {
  if (!json) {
    if (outcome.Hallado) output << text::to_utf8(outcome.TextDecode) << "\n";
    return;
  }
  Json object;
  object["ListaHallados"] = rows(hits);
  object["ArchivoActual"] = text::to_utf8(outcome.ArchivoActual);
  object["Hallado"] = outcome.Hallado;
  object["TextDecode"] = text::to_utf8(outcome.TextDecode);
  output << object.dump(2) << "\n";
}

}  // namespace ordelan::app
