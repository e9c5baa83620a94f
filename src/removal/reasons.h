// Why a file stays, in the user's words.
#pragma once

#include <string>

#include "project/project_mentions.h"
#include "system/status.h"

namespace ordelan::removal::reason {

inline constexpr const char* kNoName = "la línea no tiene nombre de archivo";
inline constexpr const char* kWildcard = "la línea tiene un comodín";
inline constexpr const char* kNoDrive = "la línea no tiene unidad";
inline constexpr const char* kCopyMissing = "no se encuentra su copia";
inline constexpr const char* kDiffers = "lo que hay en su sitio no es la copia";
inline constexpr const char* kUnticked = "está desactivado";
inline constexpr const char* kHidden = "es un archivo oculto o de sistema";
inline constexpr const char* kProject = "es un proyecto";
inline constexpr const char* kUsed = "lo usa un proyecto";
inline constexpr const char* kLink = "está detrás de un enlace";
inline constexpr const char* kOutside = "no está en las carpetas de los proyectos";
inline constexpr const char* kInBin = "está en una papelera";
inline constexpr const char* kListChanged = "la lista ha cambiado mientras se copiaba";
inline constexpr const char* kBackup = "está en una carpeta de copias de seguridad";
inline constexpr const char* kChanged = "ha cambiado desde que se listó";
inline constexpr const char* kNoCopy = "no tiene copia: ";
inline constexpr const char* kNoLine = "no se ha podido anotar: ";
inline constexpr const char* kProtected = "está protegido por ";
inline constexpr const char* kOtherKind = "no es de las extensiones de los asociados";
inline constexpr const char* kUntickedElsewhere = "está desactivado con otra ruta";
inline constexpr const char* kStopped = "se ha cancelado";

// The projects could not be read once more.
inline constexpr const char* kNotRead = "no se ha terminado de leer los proyectos";
inline constexpr const char* kNoBin = "su unidad no tiene papelera";
inline constexpr const char* kTooLargeForBin = "no cabe en la papelera";

// What a failed call means to the user.
std::string of(system::Status status);
// Why a row is kept of which some project speaks.
std::string of(const project::RowMention& row);

}  // namespace ordelan::removal::reason
