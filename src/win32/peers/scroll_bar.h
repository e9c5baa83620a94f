// A thin scroll bar that we paint ourselves, laid where a real control has one of its own.
#pragma once

#include <windows.h>

#include <functional>

#include "win32/paint/drawing_tools.h"
#include "win32/paint/shapes.h"

namespace ordelan::win32 {

// The class of its window.
inline constexpr wchar_t kScrollBarClass[] = L"Ordelan.ScrollBar";

inline constexpr int kScrollBarWidth = 12;  // at 96 dots per inch

// What can be scrolled: the first and last of all places, how many are in sight, the first of them.
struct Scroll {
  int least = 0;
  int most = 0;
  int page = 1;
  int at = 0;
  bool operator==(const Scroll&) const = default;
};

// Where the thumb lies along its track, in pixels.
struct Thumb {
  int start = 0;
  int length = 0;
};

// The thumb on a track of this length, no shorter than `shortest` as long as the track has room.
Thumb thumb_of(const Scroll& scroll, int track, int shortest);

// The place to scroll to for a thumb that is dragged to `start`: the first at the beginning of the
// track or before it, the last possible at its end or after it.
int place_of(const Scroll& scroll, int track, const Thumb& thumb, int start);

class ScrollBar {
 public:
  // Stands beside `list`, which may be a box of text as well, in the same parent, out of sight at
  // first. The list gets what the mouse's wheel does here. `list` and `tools` must outlive it.
  ScrollBar(HWND list, bool vertical, DrawingTools& tools);
  ~ScrollBar();
  ScrollBar(const ScrollBar&) = delete;
  ScrollBar& operator=(const ScrollBar&) = delete;

  // Null where the system made no window, or has taken it away with the parent.
  HWND handle() const { return handle_; }

  // Shows it at `area` of the parent, right below `above` in the order of windows. Its track is
  // `track` pixels long; what is left of the area is the corner between two bars. Its outer edge is
  // painted as `line`, as the list's are; that of the corner too.
  void show(const RECT& area, int track, const Scroll& scroll, const Line& line, HWND above);
  void hide();

  // Called with the place that the user wants to see first. The bar may be gone afterwards.
  std::function<void(int place)> on_scroll;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l) noexcept;
  LRESULT process(UINT message, WPARAM w, LPARAM l);
  void paint(HDC context, const RECT& area) const;
  void press(int at);
  void drag(int at);
  void page_on();
  void let_go();
  void scroll_to(long long place);
  int along(LPARAM l) const;
  Thumb thumb() const;
  int thickness() const;

  HWND list_;
  bool vertical_;
  DrawingTools& tools_;
  HWND handle_ = nullptr;
  RECT area_{};
  int track_ = 0;
  Scroll scroll_;
  Line line_;
  bool visible_ = false;
  bool over_ = false;      // the pointer is on it
  bool dragging_ = false;  // by the thumb
  int grip_ = 0;           // where on the thumb it was taken
  int paging_ = 0;         // -1 or 1 while the button is down beside the thumb
  int pointer_ = 0;        // along the track, while it pages
};

}  // namespace ordelan::win32
