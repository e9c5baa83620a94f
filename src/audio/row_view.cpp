#include "audio/row_view.h"

#include <chrono>
#include <cmath>
#include <cstddef>
#include <optional>

#include "audio/file_info.h"
#include "text/numbers.h"
#include "text/paths.h"

namespace ordelan::audio {
namespace {

constexpr auto kReadBy = std::chrono::seconds(10);
constexpr double kMegabytesPerByte = 9.53674316e-7;

// Rounded to so many decimals, those that are zeros left out.
std::string rounded(double value, int decimals, char decimal_mark) {
  const double scale = std::pow(10, decimals);
  return text::number(std::nearbyint(value * scale) / scale, decimal_mark);
}

std::string_view trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == text.npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace

RowView::RowView(const work::Context& context, FileInfo& info)
    : context_(context),
      info_(info),
      TimerGlobo(context.lists.ListVip.window(), "TimerGlobo", kReadBy) {
  TimerGlobo.on_tick = [this] { hide(); };
  for (const char* const name :
       {"", "ListVip", "ListUtilizados", "ListBorrar", "ListProyectos", "ListZoom"}) {
    ui::Class1& each = balloons_[name];
    each.set_back_color(ui::Color{0xC0E0FF});
    each.set_icon(1);
    each.set_delay_time(10);
  }
}

std::string RowView::path_of(const std::string& row) {
  if (row.find('>') == row.npos) return row;
  const std::string before(trimmed(std::string_view(row).substr(0, row.find('>'))));
  return before.find(':') == before.npos ? text::Obtener_VipPath(row) : before;
}

void RowView::ViewItem(ui::ListBox& Lista, ui::Point at, ui::Label& Label) {
  if (Lista.empty() || context_.work.Descodificando) return;
  CursorX = at.x;
  CursorY = at.y;
  PosicionLista = static_cast<std::int32_t>(static_cast<std::uint32_t>(CursorY) * 65536u +
                                            static_cast<std::uint32_t>(CursorX));
  under_pointer_ = &Lista;
  ItemBajoCursor = Lista.row_at(at);
  if (ItemBajoCursor >= 0) Label.set_caption("Item: " + std::to_string(ItemBajoCursor + 1));
  Label.set_visible(ItemBajoCursor >= 0);
}

void RowView::ToolTipShow(const std::string& Nombre, ui::ListBox& Lista, const std::string& Fila) {
  if (describe(Nombre, Fila)) {
    show(balloon(Nombre), Lista, std::string(text::file_name(path_of(Fila))), info_.TextoToolTip);
  }
}

void RowView::ShowToolTip(const std::string& Nombre, ui::ListBox& Lista, const std::string& Fila) {
  if (describe(Nombre, Fila)) {
    show(balloon(""), Lista, std::string(text::file_name(path_of(Fila))), info_.TextoToolTip);
  }
}

void RowView::show_text(ui::ListBox& Lista, const std::string& title, const std::string& text) {
  show(balloon(""), Lista, title, text);
}

// Puts size and date before the text on the file. False, and no change, for a missing file.
bool RowView::describe(const std::string& name, const std::string& row) {
  hide();
  const bool marked = row.find('>') != row.npos;
  std::string path = row;
  // A marked row of these two is one that is spoken of by another name.
  if (marked) {
    path = name == "ListVip" || name == "ListBorrar" ? context_.work.ArchivoActual : path_of(row);
  }
  const auto file = context_.platform.files.info(path);
  if (!file) return false;
  system::Regional& regional = context_.platform.regional;
  const char mark = regional.decimal_mark();
  const double bytes = static_cast<double>(file->size);
  const double megabytes = bytes * kMegabytesPerByte;
  const std::string date = "\r\n Fecha: " + regional.date_and_time(file->modified);
  if (marked) {
    info_.TextoToolTip = " Tamaño: " + rounded(megabytes, 1, mark) + " Mb" + date;
    return true;
  }
  const std::string size =
      megabytes < 1 ? rounded(bytes / 1024, 2, mark) + " Kb" : rounded(megabytes, 2, mark) + " Mb";
  info_.TextoToolTip =
      " Tamaño: " + size + date + "\r\n" + std::string(40, '-') + "\r\n" + info_.TextoToolTip;
  return true;
}

ui::Class1& RowView::balloon(const std::string& name) {
  const auto found = balloons_.find(name);
  return found == balloons_.end() ? balloons_.at("") : found->second;
}

// One at a time: a second would be of a click that is over. It stands beside the pointer where that
// is on the list, at the lower left otherwise.
void RowView::show(ui::Class1& balloon, ui::ListBox& list, const std::string& title,
                   const std::string& text) {
  hide();
  constexpr ui::Point kBeside{14, 22};
  const bool here = under_pointer_ == &list;
  balloon.set_title(title);
  balloon.set_tip_text(text);
  balloon.Create(list);
  balloon.Show(here ? CursorX + kBeside.x : kBeside.x,
               here ? CursorY + kBeside.y : list.bounds().height, list);
  shown_ = &balloon;
  TimerGlobo.start();
}

void RowView::hide() {
  TimerGlobo.stop();
  if (shown_ != nullptr) shown_->Destroy();
  shown_ = nullptr;
}

std::string RowView::shown_text() const {
  return shown_ != nullptr ? shown_->tip_text() : "";
}

}  // namespace ordelan::audio
