// The main window: a bar of commands, a line for notices, clocks and the player, the strip with
// room for two lines, and the four lists as the four steps of the work, with the volume between
// them.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

// The strip stands above the headings and grows upwards with its lines, as far as this: below the
// clocks, which run while it reports a search. From there on it grows downwards.
inline constexpr int kStripTop = 88;

// In the order in which Tab goes through them; what covers another stands before it.
inline constexpr std::array kMainWindowPlaces = {
    Place{"AbrirFichero", -1, 12, 10, 140, 32},
    Place{"cmdReset", -1, 158, 10, 76, 32},
    Place{"cmdCancelar", -1, 240, 10, 146, 32},
    Place{"CommandBorrado", -1, 240, 10, 146, 32},
    Place{"cmdPerdidos", -1, 392, 10, 148, 32},
    Place{"SalvaListados", -1, 546, 16, 92, 20},
    Place{"ActualizarVip", -1, 648, 16, 96, 20},
    Place{"DeshacerActualizacion", -1, 496, 60, 152, 22},
    Place{"RecuperaBorrados", -1, 752, 16, 70, 20},
    Place{"Configurar", -1, 826, 16, 68, 20},
    Place{"AcercaDe", -1, 902, 16, 60, 20},
    Place{"cmdSalir", -1, 970, 16, 30, 20},
    Place{"cmdMinimizar", -1, 1012, 10, 36, 32},
    Place{"Salir", -1, 1052, 10, 36, 32},
    Place{"cmdPlayer", -1, 1052, 57, 36, 28},

    // A search runs when nothing is decoded: the notice is away then.
    Place{"cmdPararBusqueda", -1, 12, 54, 146, 32},
    Place{"LabelAviso", -1, 12, 58, 640, 36},
    Place{"LabelD", -1, 656, 54, 98, 34},  // two lines
    Place{"TimeDeco", -1, 758, 58, 100, 24},
    Place{"TextLapsoTotal", -1, 864, 58, 100, 24},
    // One of three is shown.
    Place{"ImagePlayPauSt", 0, 974, 61, 20, 20},
    Place{"ImagePlayPauSt", 1, 974, 61, 20, 20},
    Place{"ImagePlayPauSt", 2, 974, 61, 20, 20},
    Place{"LabelVol", -1, 998, 62, 50, 18},

    Place{"TextDecode", -1, 12, 136, 1076, 16},
    Place{"ShowIco", -1, 12, 58, 460, 66},
    // Wholly under the strip of a search, which has three lines.
    Place{"ImageIcon", -1, 12, 104, 30, 30},
    Place{"ListPath", -1, 46, 104, 1042, 30},

    Place{"ImagePaso", 0, 12, 167, 24, 24},
    Place{"LabelCheck", 0, 44, 160, 320, 18},
    Place{"LabelCheck", 1, 44, 178, 388, 18},
    Place{"LabelFuera", -1, 372, 160, 172, 18},
    Place{"cmdFilas", 0, 520, 178, 24, 22},
    Place{"ListProyectosInfo", -1, 152, 236, 252, 136},
    Place{"ListProyectos", -1, 12, 204, 532, 200},
    Place{"ImagePaso", 1, 556, 167, 24, 24},
    Place{"LabelCount", 0, 588, 160, 500, 18},
    Place{"LabelCount", 1, 588, 178, 388, 18},
    Place{"cmdFilas", 1, 1064, 178, 24, 22},
    Place{"ListVip", -1, 556, 204, 532, 200},
    Place{"ImagePaso", 2, 12, 423, 24, 24},
    Place{"LabelAdd", 0, 44, 416, 500, 18},
    Place{"LabelAdd", 1, 44, 434, 388, 18},
    Place{"cmdFilas", 2, 520, 434, 24, 22},
    Place{"ListUtilizados", -1, 12, 460, 532, 216},
    Place{"ImagePaso", 3, 556, 423, 24, 24},
    Place{"LabelErase", 0, 588, 416, 500, 18},
    Place{"LabelErase", 1, 588, 416, 500, 18},
    // Above the list under the pointer, left of its button.
    Place{"LabelIndice", -1, 978, 434, 80, 18},
    Place{"cmdFilas", 3, 1064, 434, 24, 22},
    Place{"ListBorrar", -1, 556, 460, 532, 216},
    // It grows upwards from 695 with the volume, to this height at its most.
    Place{"ShapeVol", -1, 546, 375, 8, 320},
    Place{"TextNum1", 0, 44, 160, 320, 38},
    Place{"TextNum1", 1, 588, 160, 500, 38},
    Place{"TextNum1", 2, 44, 416, 500, 38},
    Place{"TextNum1", 3, 588, 416, 500, 38},

    Place{"CheckSubPath", -1, 12, 699, 144, 20},
    Place{"CheckBAK", -1, 166, 699, 120, 20},
    Place{"CheckToolTips", -1, 296, 699, 152, 20},
    Place{"CheckPlayer", -1, 456, 699, 137, 20},
    Place{"ZoomListas", -1, 603, 699, 108, 20},
    Place{"CheckDragDrop", -1, 721, 699, 226, 20},
    Place{"CheckLogo", -1, 957, 699, 131, 20},
    Place{"XP_ProgressBar1", -1, 721, 701, 367, 16},
};

inline constexpr Layout kMainWindow{1100, 728, kMainWindowPlaces};

}  // namespace ordelan::skin
