// Saving and copying files so that others find the old one or the new one, never a half; not even
// after a power cut.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "system/file_system.h"

namespace ordelan::system {

// The name of a temporary file, "ordelan-1f3a90c2.tmp". Another file, or one that a crash has left,
// has the same once in four thousand million times. It is short, also beside a file whose own name
// is as long as can be, and no project's: a listing that meets it takes it for nothing.
std::string temporary_name();
// Whether a name is of that form.
bool is_temporary_name(std::string_view name);

// Writes the bytes to a temporary file in the same folder, waits until they have reached the disk,
// and puts it in the place of `path`. What stays of an old file is as `FileSystem::replace` has it.
// When any step fails, it gives why: the old file is then as it was, and the temporary file is
// removed. Files of other names are never touched.
Status write_whole(FileSystem& files, const std::string& path, std::string_view bytes);
// The same with bytes that `write` puts into the file, piece by piece. What it gives but ok ends
// the call.
Status write_in_pieces(FileSystem& files, const std::string& path,
                       const std::function<Status(OutputFile&)>& write);

// What becomes of a file that has the name of a copy.
enum class Existing { keep, replace };

// Copies the file `from` to `to` as `FileSystem::copy_new` does, by way of a temporary file as
// above: `to` is a whole copy, or it is what it was. With `keep` whatever has the name `to` stays,
// and the copy fails with `exists`; with `replace` a file of that name is replaced, and keeps its
// attributes as `FileSystem::replace` has it. A file is not copied onto itself: that fails with
// `exists`. Gives ok only when the copy and its name have reached the disk, so that the original
// may then be removed; if only the name may be lost in a power cut, the copy stays although a
// failure is given. `last_look`, unless empty, is called when the copy is about to get its name:
// what it gives but ok ends the call, and `to` stays as it is.
Status copy_whole(FileSystem& files, const std::string& from, const std::string& to,
                  Existing existing = Existing::keep,
                  const FileSystem::Progress& progress = nullptr,
                  const std::function<Status()>& last_look = nullptr);

}  // namespace ordelan::system
