// Cutting paths into their pieces. Pure text: nothing here asks the disk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace ordelan::text {

// Everything up to and including the last `Separador`; empty if either argument is empty or the
// separator does not occur.
std::string getPath(std::string_view Ruta, std::string_view Separador);

// The folder part of a path or list row from its drive letter on, with or without the closing
// backslash: what stands before the drive letter (a row's number and arrow) is dropped.
// Text without a backslash gives an empty folder; text without a drive keeps what it has.
std::string Obtener_Nombre_Path(std::string_view Ruta, bool ConBarra);

// A folder, given with its backslash, and a name in it as one path.
std::string path_of(std::string_view folder, std::string_view name);

// The folder of a path with its closing backslash or slash; empty without one.
std::string_view folder_of(std::string_view path);

// The bare file name: what stands after the last backslash, slash or colon, up to a NUL. Brackets,
// "*" and "?" are characters like any other: files with brackets are common, and a name that no
// disk can hold is at least no other file's name. Empty for a path that is empty or ends in a
// separator.
std::string Obtener_Nombre_Archivo(std::string_view Ruta);
// The same, as a view of `Ruta`.
std::string_view file_name(std::string_view Ruta);

// A clean path from a list row: its folder and its file name.
std::string Obtener_VipPath(std::string_view Ruta);

// The extension without its dot, in the case that it has; empty if there is none.
std::string Obtener_Extension(std::string_view Ruta);

// A text that is the same for two spellings of one path: capitals, backslashes, no ".", ".." or
// doubled backslash, no dot or blank at the end of a name. It is for comparing, not for opening;
// short names and links need the disk and are not resolved. `append_` adds it to a text.
std::string same_file_key(std::string_view path);
void append_same_file_key(std::string_view path, std::string& key);

// The root of a path: "D:\" or "\\server\share"; empty if it has none.
std::string root(std::string_view path);

// The path in at most `length` characters: its name is kept as long as possible, and what has to go
// goes from the folders before it, with "..." in its place.
std::string compact_path(std::string_view path, std::size_t length);

}  // namespace ordelan::text
