#include "window/row_reader.h"

namespace ordelan::test {
namespace {

constexpr wchar_t kReaderClass[] = L"Ordelan.Tests.RowReader";
constexpr UINT kTimeout = 15000;

struct Answer {
  bool came = false;
  std::size_t count = 0;
  std::wstring text;
};

LRESULT CALLBACK take(HWND window, UINT message, WPARAM w, LPARAM l) {
  if (message != WM_COPYDATA) return DefWindowProcW(window, message, w, l);
  auto* const answer = reinterpret_cast<Answer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  const auto* data = reinterpret_cast<const COPYDATASTRUCT*>(l);
  if (!answer) return FALSE;
  answer->came = true;
  answer->count = data->dwData;
  answer->text.append(static_cast<const wchar_t*>(data->lpData), data->cbData / sizeof(wchar_t));
  return TRUE;
}

}  // namespace

std::optional<Rows> read_rows(HWND list, int index) {
  WNDCLASSEXW kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = take;
  kind.hInstance = GetModuleHandleW(nullptr);
  kind.lpszClassName = kReaderClass;
  RegisterClassExW(&kind);
  const HWND reader = CreateWindowExW(0, kReaderClass, nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE,
                                      nullptr, kind.hInstance, nullptr);
  Answer answer;
  SetWindowLongPtrW(reader, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&answer));
  // A test that has only waited for a while counts as hung, and no window answers a hung program: a
  // look at its messages shows that it is not.
  MSG message{};
  PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
  DWORD_PTR result = 0;
  SendMessageTimeoutW(list, RegisterWindowMessageW(L"Ordelan.Rows"),
                      static_cast<WPARAM>(static_cast<INT_PTR>(index)),
                      reinterpret_cast<LPARAM>(reader), SMTO_NORMAL, kTimeout, &result);
  DestroyWindow(reader);
  if (result != 1 || !answer.came) return std::nullopt;

  Rows rows;
  rows.count = answer.count;
  if (rows.count == 0) return rows;
  std::size_t begin = 0;
  while (true) {
    const std::size_t end = answer.text.find(L'\n', begin);
    rows.rows.push_back(answer.text.substr(begin, end - begin));
    if (end == answer.text.npos) return rows;
    begin = end + 1;
  }
}

}  // namespace ordelan::test
