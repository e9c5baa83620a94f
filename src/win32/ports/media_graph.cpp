#include "win32/ports/media_graph.h"

namespace ordelan::win32 {

std::string notice_of(MediaGraph::Opening opening) {
  switch (opening) {
    case MediaGraph::Opening::ok:
      return "";
    case MediaGraph::Opening::missing:
      return "No suena: el archivo no existe.";
    case MediaGraph::Opening::unplayable:
      return "No suena: el sistema no puede reproducir este archivo.";
    case MediaGraph::Opening::no_device:
      return "No suena: no hay ningún dispositivo de sonido.";
    case MediaGraph::Opening::no_engine:
      return "No suena: este Windows no tiene con qué reproducir audio.";
  }
  return "";
}

}  // namespace ordelan::win32
