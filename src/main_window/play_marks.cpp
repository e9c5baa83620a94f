#include "main_window/play_marks.h"

#include "audio/volume_bar.h"

namespace ordelan::main_window {

PlayMarks::PlayMarks(ui::Window& window, audio::Sound& sound)
    : audio::Mirror(sound),
      ImagePlayPauSt(window, "ImagePlayPauSt", 3),
      ShapeVol(window, "ShapeVol"),
      LabelVol(window, "LabelVol") {
  ImagePlayPauSt[0].set_description("Parado o en pausa");
  ImagePlayPauSt[1].set_description("Sonando");
  ImagePlayPauSt[2].set_description("Parado");
  ShapeVol.set_description("Volumen");
  hide();
}

void PlayMarks::VuMe(std::int32_t Level) {
  audio::raise_bar(ShapeVol, 695, 3.2, Level);
}

void PlayMarks::show() {
  ShapeVol.show();
  LabelVol.show();
  bool any = false;
  for (const auto& picture : ImagePlayPauSt) any = any || picture->visible();
  if (!any) ImagePlayPauSt[0].show();
}

void PlayMarks::hide() {
  ShapeVol.hide();
  LabelVol.hide();
  ImagePlayPauSt.set_visible(false);
}

// By the orders play, pause and stop. The review of a removal has its pictures in another order:
// there each stands for what goes on, here the first two for what comes next.
void PlayMarks::show_action(int Index) {
  constexpr int kPictures[] = {1, 0, 2};
  for (int i = 0; i < ImagePlayPauSt.size(); ++i) {
    ImagePlayPauSt[i].set_visible(i == kPictures[Index]);
  }
}

void PlayMarks::show_volume(std::int32_t Level, const std::string& caption) {
  VuMe(Level);
  LabelVol.set_caption(caption);
}

}  // namespace ordelan::main_window
