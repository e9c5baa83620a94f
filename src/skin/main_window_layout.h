// The main window: a bar of commands, a line for notices and clocks, the strip, and the four lists
// as the four steps of the work.
#pragma once

#include <array>

#include "skin/place.h"

namespace ordelan::skin {

inline constexpr int kMainWindowWidth = 1100;
inline constexpr int kMainWindowHeight = 720;

// In the order in which Tab goes through them; what covers another stands ahead of it.
inline constexpr std::array kMainWindow = {
    Place{"AbrirFichero", -1, 12, 10, 132, 32},
    Place{"cmdReset", -1, 150, 10, 80, 32},
    Place{"cmdCancelar", -1, 236, 10, 90, 32},
    Place{"CommandBorrado", -1, 332, 10, 130, 32},
    Place{"cmdPerdidos", -1, 468, 10, 130, 32},
    Place{"SalvaListados", -1, 604, 18, 92, 18},
    Place{"ActualizarVip", -1, 700, 18, 98, 18},
    Place{"Configurar", -1, 802, 18, 66, 18},
    Place{"AcercaDe", -1, 874, 18, 60, 18},
    Place{"cmdMinimizar", -1, 940, 10, 78, 32},
    Place{"Salir", -1, 1024, 10, 64, 32},

    Place{"LabelAviso", -1, 12, 48, 640, 34},
    Place{"ShowIco", -1, 12, 48, 640, 66},
    Place{"LabelD", -1, 660, 56, 150, 18},
    Place{"TimeDeco", -1, 814, 54, 130, 22},
    Place{"TextLapsoTotal", -1, 950, 54, 138, 22},

    Place{"ImageIcon", -1, 12, 84, 30, 30},
    Place{"ListPath", -1, 46, 84, 1042, 30},
    Place{"TextDecode", -1, 12, 118, 1076, 16},

    Place{"LabelCheck", 0, 12, 140, 532, 18},
    Place{"LabelCheck", 1, 12, 159, 532, 18},
    Place{"ListProyectosInfo", -1, 152, 276, 252, 32},
    Place{"ListProyectos", -1, 12, 180, 532, 224},
    Place{"LabelCount", 0, 556, 140, 532, 18},
    Place{"LabelCount", 1, 556, 159, 532, 18},
    Place{"ListVip", -1, 556, 180, 532, 224},
    Place{"LabelAdd", 0, 12, 412, 532, 18},
    Place{"LabelAdd", 1, 12, 431, 532, 18},
    Place{"ListUtilizados", -1, 12, 452, 532, 224},
    Place{"LabelErase", 0, 556, 412, 532, 18},
    Place{"LabelErase", 1, 556, 431, 532, 18},
    Place{"ListBorrar", -1, 556, 452, 532, 224},
    Place{"TextNum1", 0, 12, 140, 532, 38},
    Place{"TextNum1", 1, 556, 140, 532, 38},
    Place{"TextNum1", 2, 12, 412, 532, 38},
    Place{"TextNum1", 3, 556, 412, 532, 38},

    Place{"CheckSubPath", -1, 12, 688, 150, 20},
    Place{"CheckBAK", -1, 168, 688, 130, 20},
    Place{"CheckToolTips", -1, 304, 688, 152, 20},
    Place{"CheckPlayer", -1, 462, 688, 140, 20},
    Place{"ZoomListas", -1, 608, 688, 110, 20},
    Place{"CheckDragDrop", -1, 724, 688, 222, 20},
    Place{"CheckLogo", -1, 952, 688, 136, 20},
    Place{"XP_ProgressBar1", -1, 724, 690, 364, 16},
};

}  // namespace ordelan::skin
