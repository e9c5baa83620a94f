// The keys under which windows store their places: "<key>_Left" and "<key>_Top". They are part of
// the format of the configuration file, so that they stand in one spot.
#pragma once

namespace ordelan::work::place_key {

inline constexpr const char* kForm1 = "Me";  // its name in the file is not that of the window
inline constexpr const char* kPerdidos = "Perdidos";
inline constexpr const char* kUnidadesBuscar = "UnidadesBuscar";
inline constexpr const char* kElegirRuta = "ElegirRuta";
inline constexpr const char* kFuera = "Fuera";
inline constexpr const char* kBacUp = "BacUp";
inline constexpr const char* kParaBorrar = "ParaBorrar";
inline constexpr const char* kCarpetaBack = "CarpetaBack";
inline constexpr const char* kRecuperar = "Recuperar";
inline constexpr const char* kPlayer = "Player";
inline constexpr const char* kZoom = "Zoom";
inline constexpr const char* kListasZoom = "ListasZoom";
// That of the main window: each puts the other where it was closed last.
inline constexpr const char* kFormNoBorrar = kForm1;

}  // namespace ordelan::work::place_key
