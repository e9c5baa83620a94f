#include "ui/list_width.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "win32/ansi_text.h"
#include "win32/backend_fixture.h"

namespace ordelan::test {
namespace {

class RealListWidth : public BackendTest {
 protected:
  RealListWidth() { list.set_bounds({10, 10, 300, 200}); }

  // As wide as the system says that the text is in the real list's font.
  int measured(const std::string& text) const {
    const HWND control = real(L"Ordelan.ListVip");
    const HDC context = GetDC(control);
    const HGDIOBJ old =
        SelectObject(context, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    const std::wstring wide = win32::widen(text);
    SIZE size{};
    GetTextExtentPoint32W(context, wide.data(), static_cast<int>(wide.size()), &size);
    SelectObject(context, old);
    ReleaseDC(control, context);
    return size.cx;
  }

  ui::ListBox list{window, "ListVip"};
};

TEST_F(RealListWidth, a_text_has_the_width_that_it_is_shown_in) {
  show();
  for (const std::string text : {"iiii", "WWWW",
                                 "Canci\xF3n de cu\xF1"
                                 "a",
                                 "\xC1\xC9\xCD\xD3\xDA\xDC", "uno\tdos\ttres", "\t", "\x80 50"}) {
    EXPECT_EQ(ui::MedirTexto(list, text), measured(text)) << text;
  }
}

TEST_F(RealListWidth, a_list_scrolls_as_far_as_its_rows_with_accents_and_tabs_reach) {
  show();
  std::vector<std::string> rows = {"corto",
                                   "D:\\M\xFAsica\\Canci\xF3n \xF1o\xF1"
                                   "a.wav",
                                   "D:\\uno\tdos\ttres\tcuatro.wav", "iiiiiiiiiiiiiiiiiiiiiiiiii",
                                   "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW\xC1\xD1"};
  int widest = measured(rows.front());
  for (const std::string& row : rows) {
    list.add(row);
    if (measured(row) > widest) widest = measured(row) + 10;
  }
  EXPECT_EQ(ui::ListaAncho(list), widest);
  backend.pump();
  const LRESULT extent = SendMessageW(real(L"Ordelan.ListVip"), LB_GETHORIZONTALEXTENT, 0, 0);
  EXPECT_GE(extent, widest);
  std::reverse(rows.begin(), rows.end());
  list.clear();
  for (const std::string& row : rows) list.add(row);
  EXPECT_EQ(ui::ListaAncho(list), measured(rows.front())) << "the first row gets no air";
}

}  // namespace
}  // namespace ordelan::test
