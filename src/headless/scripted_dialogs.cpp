#include "headless/scripted_dialogs.h"

#include <utility>

namespace ordelan::headless {
namespace {

// The next answer, an empty one when they have run out.
std::string next(std::deque<std::string>& answers) {
  if (answers.empty()) return {};
  auto answer = std::move(answers.front());
  answers.pop_front();
  return answer;
}

}  // namespace

std::vector<std::string> ScriptedDialogs::open_files(const system::OpenRequest& request) {
  requests.push_back(request);
  if (on_dialog) on_dialog();
  if (files.empty()) return {};
  auto picked = std::move(files.front());
  files.pop_front();
  if (!request.several && picked.size() > 1) picked.resize(1);
  return picked;
}

std::string ScriptedDialogs::save_file(const system::SaveRequest& request) {
  save_requests.push_back(request);
  if (on_dialog) on_dialog();
  return next(saves);
}

std::string ScriptedDialogs::pick_folder(const std::string& title) {
  folder_titles.push_back(title);
  if (on_dialog) on_dialog();
  return next(folders);
}

system::Answer ScriptedDialogs::message(const system::Message& message) {
  messages.push_back(message);
  if (on_dialog) on_dialog();
  if (!answers.empty()) {
    const auto answer = answers.front();
    answers.pop_front();
    return answer;
  }
  switch (message.buttons) {
    case system::Buttons::ok_cancel:
      return system::Answer::cancel;
    case system::Buttons::yes_no:
      return system::Answer::no;
    case system::Buttons::ok:
      break;
  }
  return system::Answer::ok;
}

std::optional<std::size_t> ScriptedDialogs::menu(const std::vector<system::MenuItem>& items,
                                                 system::MenuPlace place) {
  menus.push_back(items);
  menu_places.push_back(place);
  if (on_dialog) on_dialog();
  const std::string choice = next(choices);
  for (std::size_t i = 0; i < items.size() && !choice.empty(); ++i) {
    if (items[i].text == choice && items[i].enabled) return i;
  }
  return std::nullopt;
}

}  // namespace ordelan::headless
