#include "win32/ports/extended_path.h"

#include <algorithm>
#include <vector>

#include "win32/ansi_text.h"

namespace ordelan::win32 {
namespace {

constexpr std::wstring_view kLiteral = L"\\\\?\\";
constexpr std::wstring_view kShare = L"\\\\?\\UNC\\";

bool is_letter(wchar_t c) {
  return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

std::vector<std::wstring_view> names_in(std::wstring_view path) {
  std::vector<std::wstring_view> names;
  while (!path.empty()) {
    const auto name = path.substr(0, path.find(L'\\'));
    path.remove_prefix(std::min(name.size() + 1, path.size()));
    if (!name.empty() && name != L".") names.push_back(name);
  }
  return names;
}

}  // namespace

std::optional<std::wstring> extended_path(std::string_view path) {
  std::wstring text = widen(path);
  // Bytes that are no text in this code page could lead to another file.
  if (narrow(text) != path) return std::nullopt;
  std::replace(text.begin(), text.end(), L'/', L'\\');
  const std::wstring_view view = text;
  if (view.find_first_of(std::wstring_view(L"*?<>\"|\0", 7)) != view.npos) return std::nullopt;

  std::wstring result;
  std::wstring_view rest;
  std::size_t kept = 0;  // how many names belong to the root
  if (view.size() >= 3 && is_letter(view[0]) && view[1] == L':' && view[2] == L'\\') {
    result.append(kLiteral).append(view.substr(0, 2));
    rest = view.substr(3);
  } else if (view.starts_with(L"\\\\") && view.size() > 2 && view[2] != L'\\') {
    result = kShare.substr(0, kShare.size() - 1);
    rest = view.substr(2);
    kept = 2;
  } else {
    return std::nullopt;
  }
  if (rest.find(L':') != rest.npos) return std::nullopt;
  if (kept == 2 && (rest == L"." || rest.starts_with(L".\\"))) return std::nullopt;  // a device

  std::vector<std::wstring_view> names;
  for (const auto name : names_in(rest)) {
    if (name != L"..") {
      names.push_back(name);
    } else if (names.size() > kept) {
      names.pop_back();
    }
  }
  if (names.size() < kept) return std::nullopt;
  for (const auto name : names) result.append(L"\\").append(name);
  const bool bare_drive = kept == 0 && names.empty();
  if (bare_drive || view.ends_with(L'\\')) result += L'\\';
  return result;
}

std::optional<std::wstring> file_path(std::string_view path) {
  auto extended = extended_path(path);
  if (extended && extended->ends_with(L'\\')) extended.reset();
  return extended;
}

bool is_root(std::wstring_view extended) {
  const bool share = extended.starts_with(kShare);
  const auto names = names_in(extended.substr(share ? kShare.size() : kLiteral.size()));
  return names.size() == (share ? 2u : 1u);
}

std::wstring plain_path(std::wstring_view extended) {
  if (extended.starts_with(kShare)) return L"\\\\" + std::wstring(extended.substr(kShare.size()));
  if (extended.starts_with(kLiteral)) extended.remove_prefix(kLiteral.size());
  return std::wstring(extended);
}

}  // namespace ordelan::win32
