#include "relink/literal_pointers.h"

namespace ordelan::test {
namespace {

// One byte at a 1-based position; -1, which equals no byte, where the file has none.
int read(std::string_view file, std::int64_t position) {
  if (position < 1 || position > static_cast<std::int64_t>(file.size())) return -1;
  return static_cast<unsigned char>(file[static_cast<std::size_t>(position - 1)]);
}

void print(LiteralPointers& out, std::int64_t number, bool end) {
  out.numbers.push_back(number);
  out.ends.push_back(end);
  out.text += number < 0 ? "-" : " ";
  out.text += std::to_string(number < 0 ? -number : number);
  out.text += " \r\n";
}

std::string underscores(const std::string& text) {
  std::string out;
  for (const char c : text) out += c == '.' ? '_' : c;
  return out;
}

std::string name_in_path(const std::string& path) {
  std::string name;
  for (const char c : path) {
    if (c == '\0') break;
    name += c;
    if (c == '\\' || c == '/' || c == ':') name.clear();
  }
  return name;
}

}  // namespace

std::int64_t literal_limit(std::string_view file, std::int64_t Desde) {
  const auto length = static_cast<std::int64_t>(file.size());
  std::int64_t p = Desde;
  while (p < length) {
    if (read(file, p) == 'L') {
      const std::int64_t marker = p;
      std::string candidate(1, 'L');
      bool whole = true;
      for (int i = 1; i < 12; ++i) {
        p = p + 1;
        const int b = read(file, p);
        if (b < 0) whole = false;
        if (i < 4 || i > 7) candidate += static_cast<char>(b);
      }
      if (whole && candidate == "LISTmdrl") return marker - 5;
    }
    p = p + 1;
  }
  return 0;
}

LiteralPointers literal_pointers(std::string_view file) {
  return literal_pointers(file, literal_limit(file, 97));
}

LiteralPointers literal_pointers(std::string_view file, std::int64_t PosFinalVip) {
  LiteralPointers out;
  out.PosFinalVip = PosFinalVip;
  std::int64_t position = 97;
  std::int64_t fin = 0;
  bool inside = false;
  while (position < PosFinalVip) {
    // The start of a path. The loop looks at the byte that was read last, which after a backslash
    // is the one before it.
    int b = read(file, position);
    while (b != '\\') {
      b = read(file, position);
      if (b == '\\') {
        b = read(file, position - 1);
        if (b == ':') {
          print(out, position - 2, false);
          inside = true;
          position = position + 1;
          if (position > PosFinalVip) return out;
          break;
        }
      }
      position = position + 1;
      if (position > PosFinalVip) return out;
    }
    // Its end. Only one that was searched and found takes the mark away.
    if (inside) {
      (b == ':' ? out.in_path : out.at_its_edge).insert(position);
      if (read(file, position) != 0) {
        const std::int64_t first = position;
        for (;;) {
          if (position != first) out.in_path.insert(position);
          b = read(file, position);
          if (b == 0) break;
          position = position + 1;
          if (position > PosFinalVip) return out;
        }
        fin = position - 1;
        inside = false;
      }
      print(out, fin, true);
    }
    position = position + 1;
  }
  return out;
}

std::string literal_written_name(std::string row) {
  row = underscores(row) + ".ptr";
  std::size_t last = std::string::npos;
  for (std::size_t i = 0; i < row.size(); ++i) {
    if (row[i] == '>') last = i;
  }
  // With a ">" that and one character more go, without one the first character.
  const std::size_t gone = last == std::string::npos ? 1 : last + 2;
  row = gone < row.size() ? row.substr(gone) : std::string();
  return name_in_path(row);
}

std::string literal_read_name(std::string row) {
  std::string name = underscores(name_in_path(row)) + ".log";
  name.resize(name.size() - 4);
  return name + ".ptr";
}

}  // namespace ordelan::test
