#include "architecture/source_rules.h"

#include <algorithm>
#include <regex>
#include <set>
#include <sstream>

namespace ordelan::test {
namespace {

using Names = std::set<std::string, std::less<>>;

Names operator+(Names names, const Names& more) {
  names.insert(more.begin(), more.end());
  return names;
}

// The rooms that each room may use beside itself.
const std::map<std::string, Names, std::less<>>& rooms_below() {
  static const auto table = [] {
    const Names settings = {"system", "text"};
    const Names work = settings + Names{"settings", "ui", "skin"};
    const Names project = work + Names{"work"};
    const Names location = project + Names{"project"};
    const Names audio = location + Names{"location"};
    const Names removal = audio + Names{"audio"};
    const Names relink = removal + Names{"removal"};
    const Names main_window = relink + Names{"relink"};
    const Names machine = {"ui", "system", "text"};
    const Names paint = machine + Names{"win32"};
    const Names peers = paint + Names{"win32/paint"};
    const Names everything =
        main_window + peers +
        Names{"main_window", "headless", "posix", "win32/ports", "win32/peers"};
    return std::map<std::string, Names, std::less<>>{
        {"text", {}},           {"skin", {}},           {"system", {"text"}},
        {"ui", {"text"}},       {"settings", settings}, {"work", work},
        {"project", project},   {"location", location}, {"audio", audio},
        {"removal", removal},   {"relink", relink},     {"main_window", main_window},
        {"headless", machine},  {"posix", machine},     {"win32", machine},
        {"win32/ports", paint}, {"win32/paint", paint}, {"win32/peers", peers},
        {"app", everything}};
  }();
  return table;
}

bool is_header(std::string_view name) {
  return name.ends_with(".h");
}

// The content with comments blanked out and texts kept, line breaks in their places.
std::string without_comments(std::string_view content) {
  std::string code;
  enum class Inside { nothing, line, block, text, character } inside = Inside::nothing;
  for (std::size_t i = 0; i < content.size(); ++i) {
    const char c = content[i];
    const char next = i + 1 < content.size() ? content[i + 1] : '\0';
    const bool quoted = inside == Inside::text || inside == Inside::character;
    if (inside == Inside::nothing && c == '/' && (next == '/' || next == '*')) {
      inside = next == '/' ? Inside::line : Inside::block;
      ++i;
    } else if (inside == Inside::block && c == '*' && next == '/') {
      inside = Inside::nothing;
      code += ' ';
      ++i;
    } else if (inside == Inside::line && c == '\n') {
      inside = Inside::nothing;
      code += c;
    } else if (inside == Inside::line || inside == Inside::block) {
      if (c == '\n') code += c;
    } else if (quoted && c == '\\') {
      code += c;
      if (next != '\0') code += next;
      ++i;
    } else {
      // A mark between digits belongs to a number.
      const bool in_number =
          !code.empty() && std::isxdigit(static_cast<unsigned char>(code.back()));
      const char mark = inside == Inside::text ? '"' : '\'';
      if (quoted && (c == mark || c == '\n')) {
        inside = Inside::nothing;
      } else if (!quoted && c == '"') {
        inside = Inside::text;
      } else if (!quoted && c == '\'' && !in_number) {
        inside = Inside::character;
      }
      code += c;
    }
  }
  return code;
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

// Lines of the preprocessor, those that go on in the next line joined.
std::vector<std::string> directives_of(std::string_view content) {
  std::vector<std::string> directives;
  bool goes_on = false;
  for (std::string line : lines_of(without_comments(content))) {
    while (!line.empty() && std::isspace(static_cast<unsigned char>(line.back()))) line.pop_back();
    const auto first = line.find_first_not_of(" \t");
    const bool begins = first != std::string::npos && line[first] == '#';
    const bool more = !line.empty() && line.back() == '\\';
    if (more) line.pop_back();
    if (goes_on) {
      directives.back() += " " + line;
    } else if (begins) {
      directives.push_back(line.substr(first));
    }
    goes_on = more && (goes_on || begins);
  }
  return directives;
}

}  // namespace

std::vector<Include> includes_of(std::string_view content) {
  static const std::regex pattern(R"re(^#\s*include\s*(?:"([^"]+)"|<([^>]+)>))re");
  std::vector<Include> includes;
  for (const std::string& directive : directives_of(content)) {
    std::smatch match;
    if (!std::regex_search(directive, match, pattern)) continue;
    const bool system = match[2].matched;
    includes.push_back({match[system ? 2 : 1], system});
  }
  return includes;
}

// A room inside another room is one of its own.
std::string room_of(std::string_view name) {
  const auto slash = name.rfind('/');
  return std::string(slash == std::string_view::npos ? "" : name.substr(0, slash));
}

std::vector<std::string> upward_includes(const Sources& sources) {
  std::vector<std::string> complaints;
  for (const auto& [name, content] : sources) {
    const std::string room = room_of(name);
    const auto below = rooms_below().find(room);
    if (below == rooms_below().end()) {
      complaints.push_back(name + " is in no known room");
      continue;
    }
    for (const Include& include : includes_of(content)) {
      if (include.system) continue;
      const std::string other = room_of(include.name);
      if (rooms_below().count(other) == 0) {
        complaints.push_back(name + " includes " + include.name + ", which names no room");
      } else if (other != room && below->second.count(other) == 0) {
        complaints.push_back(name + " includes " + include.name + ", which is not below it");
      } else if (sources.count(include.name) == 0) {
        complaints.push_back(name + " includes " + include.name + ", which does not exist");
      }
    }
  }
  return complaints;
}

std::vector<std::string> circles(const Sources& sources) {
  std::vector<std::string> complaints;
  Names done;
  std::vector<std::string> way;
  const auto visit = [&](const auto& self, const std::string& name) -> void {
    const auto met = std::find(way.begin(), way.end(), name);
    if (met != way.end()) {
      std::string circle;
      for (auto it = met; it != way.end(); ++it) circle += *it + " -> ";
      complaints.push_back(circle + name);
      return;
    }
    const auto file = sources.find(name);
    if (done.count(name) != 0 || file == sources.end()) return;
    way.push_back(name);
    for (const Include& include : includes_of(file->second)) {
      if (!include.system) self(self, include.name);
    }
    way.pop_back();
    done.insert(name);
  };
  for (const auto& source : sources) visit(visit, source.first);
  return complaints;
}

std::vector<std::string> misplaced_system_headers(const Sources& sources) {
  // The standard library's own headers have no ".h"; these belong to the processor, not a system.
  static const Names everywhere = {"emmintrin.h"};
  static const std::regex windows_main("app/windows_.*\\.cpp");
  static const std::regex posix_main("app/posix_.*\\.cpp");
  static const std::regex windows_header(
      "windows.*|win[a-z]+|comm(ctrl|dlg)|shl(obj|wapi|guid)|shell(api|scalingapi)|ole2|objbase|"
      "gdiplus|uxtheme|mmsystem|dwmapi|commoncontrols|vfw|mf[a-z]+",
      std::regex::icase);
  std::vector<std::string> complaints;
  for (const auto& [name, content] : sources) {
    const bool windows = room_of(name).starts_with("win32") || std::regex_match(name, windows_main);
    const bool posix = room_of(name) == "posix" || std::regex_match(name, posix_main);
    for (const Include& include : includes_of(content)) {
      if (!include.system || everywhere.count(include.name) != 0) continue;
      const auto dot = include.name.find('.');
      const std::string stem = include.name.substr(0, dot);
      const bool of_windows = dot != std::string::npos && std::regex_match(stem, windows_header);
      const bool of_a_system = is_header(include.name) || of_windows;
      if (of_a_system && !windows && (of_windows || !posix)) {
        complaints.push_back(name + " includes <" + include.name + ">");
      }
    }
  }
  return complaints;
}

std::vector<std::string> questions_for_the_system(const Sources& sources) {
  static const std::regex question(
      R"(^#\s*(if|ifdef|ifndef|elif|elifdef|elifndef)\b.*\b()"
      R"(_WIN32|_WIN64|WIN32|_WINDOWS|__linux__|__linux|linux|__unix__|unix|__APPLE__|__MINGW\d\d__)\b)");
  std::vector<std::string> complaints;
  for (const auto& [name, content] : sources) {
    for (const std::string& directive : directives_of(content)) {
      if (std::regex_search(directive, question)) complaints.push_back(name + ": " + directive);
    }
  }
  return complaints;
}

std::vector<std::string> files_that_are_too_long(const Sources& sources) {
  constexpr std::ptrdiff_t kLongest = 400;
  std::vector<std::string> complaints;
  for (const auto& [name, content] : sources) {
    auto lines = std::count(content.begin(), content.end(), '\n');
    if (!content.empty() && content.back() != '\n') ++lines;
    if (lines > kLongest) complaints.push_back(name + " has " + std::to_string(lines) + " lines");
  }
  return complaints;
}

std::vector<std::string> headers_without_their_head(const Sources& sources) {
  std::vector<std::string> complaints;
  for (const auto& [name, content] : sources) {
    if (!is_header(name)) continue;
    if (!content.starts_with("// ")) complaints.push_back(name + " begins with no comment");
    const auto directives = directives_of(content);
    if (directives.empty() || directives.front() != "#pragma once") {
      complaints.push_back(name + " has no #pragma once before all else");
    }
  }
  return complaints;
}

}  // namespace ordelan::test
