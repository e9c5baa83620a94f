// What Windows' error numbers say.
#pragma once

#include <string>
#include <string_view>

#include "system/status.h"

namespace ordelan::win32 {

// The reason that an error number of Windows stands for; ok for ERROR_SUCCESS.
system::Reason reason_of(unsigned long error);

// The same for the call that has just failed; never ok.
system::Reason last_reason();

// Why a path of the program's leads to no file, where `file_path` has given nothing.
system::Reason reason_without_file_path(std::string_view path);

// Whether another program has the file at an extended path open in a way that keeps it from being
// moved or removed.
bool is_held(const std::wstring& extended);

// The reason of a call on the file at an extended path that has failed with that number. Windows
// gives one number for several things (access denied for folders, read-only files and files that
// are open elsewhere), which a look at the file distinguishes.
system::Reason reason_at(unsigned long error, const std::wstring& extended);

}  // namespace ordelan::win32
