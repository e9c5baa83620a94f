#include "project/literal_reader.h"

#include <cctype>

namespace ordelan::test {
namespace {

// The byte at a 1-based position. After the end of the file nothing comes, which is a byte that
// equals none of those looked for; position 0 is an error.
class Bytes {
 public:
  explicit Bytes(std::string_view file) : file_(file) {}
  std::int64_t length() const { return static_cast<std::int64_t>(file_.size()); }
  int read(std::int64_t position) const {
    if (position < 1 || position > length()) return -1;
    return static_cast<unsigned char>(file_[static_cast<std::size_t>(position - 1)]);
  }

 private:
  std::string_view file_;
};

}  // namespace

std::string LiteralReader::LeerCabeceraVip(std::string_view file) {
  const Bytes bytes(file);
  std::string text;
  std::int64_t p = 97;
  while (p < bytes.length()) {
    const int b = bytes.read(p);
    if (b == 0) {
      PosInicioVip = p + 1;
      return text;
    }
    text += static_cast<char>(b);
    ++p;
  }
  return text;
}

std::int64_t LiteralReader::BuscarMarcaListas(std::string_view file, std::int64_t Desde) {
  const Bytes bytes(file);
  std::int64_t p = Desde;
  while (p < bytes.length()) {
    if (bytes.read(p) == 'L') {
      std::string candidate = "L";
      for (int i = 0; i < 3; ++i) candidate += static_cast<char>(bytes.read(++p));
      for (int i = 0; i < 4; ++i) ++p;
      for (int i = 0; i < 4; ++i) candidate += static_cast<char>(bytes.read(++p));
      if (candidate == "LISTmdrl" && p <= bytes.length()) return p - 16;
    }
    ++p;
  }
  return 0;
}

LiteralReader::Answer LiteralReader::ExtraerNombres_Archivos(std::string_view file,
                                                             std::string_view Titulo, bool Agregar,
                                                             bool uncut) {
  Answer answer;
  const Bytes bytes(file);
  if (bytes.length() == 0) return answer;
  if (!uncut) LeerCabeceraVip(file);
  std::int64_t pos = PosInicioVip;
  PosFinalVip = BuscarMarcaListas(file, pos);
  if (!Titulo.empty()) answer.rows.emplace_back(Titulo);

  std::int64_t start = 0;
  int b = -1;
  enum class Step { top, colon, reference, extension, next, end };
  Step step = Step::top;
  std::string extension;
  while (step != Step::end) {
    switch (step) {
      case Step::top:
        if (pos >= PosFinalVip || pos < 1) {
          step = Step::end;
          break;
        }
        b = bytes.read(pos);
        step = Step::colon;
        break;

      case Step::colon:
        if (b == ':') {
          step = Step::extension;
          break;
        }
        b = bytes.read(pos);
        if (b == ':') {
          ++pos;
          b = bytes.read(pos);
          if (b == '\\') {
            step = Step::reference;
            break;
          }
        }
        ++pos;
        if (pos > PosFinalVip) step = Step::end;
        break;

      case Step::reference:
        start = pos - 2;
        step = Step::extension;
        break;

      case Step::extension: {
        b = bytes.read(pos);
        bool known = false;
        for (;;) {
          if (b == 0) {
            step = Step::next;
            break;
          }
          b = bytes.read(pos);
          if (b != '.') {
            ++pos;
            if (pos > PosFinalVip) {
              step = Step::end;
              break;
            }
            continue;
          }
          extension = ".";
          for (int i = 0; i < 3; ++i) {
            ++pos;
            b = bytes.read(pos);
            extension += static_cast<char>(b < 0x80 ? std::tolower(b) : b);
          }
          ++pos;
          known = extension == ".mp3" || extension == ".wav" || extension == ".aif" ||
                  extension == ".ogg" || extension == ".fla";
          if (known) break;
          ++pos;
          if (pos > PosFinalVip) {
            step = Step::end;
            break;
          }
        }
        if (!known) break;
        if (start < 1) {  // reading position 0 fails, and the call ends with what it has
          step = Step::end;
          break;
        }
        const std::int64_t last = extension == ".fla" ? pos : pos - 1;
        std::string row;
        for (std::int64_t i = start; i <= last; ++i) row += static_cast<char>(bytes.read(i));
        answer.found = true;
        if (!Agregar) return answer;
        answer.rows.push_back(row.substr(0, row.find('\0')));
        ++TotalArchivosVip;
        step = Step::next;
        break;
      }

      case Step::next:
        ++pos;
        step = pos > PosFinalVip ? Step::end : Step::top;
        break;

      case Step::end:
        break;
    }
  }
  return answer;
}

// Every colon with a backslash after it, between the header and the end.
std::vector<std::int64_t> LiteralReader::positions(std::string_view file) {
  std::vector<std::int64_t> found;
  const Bytes bytes(file);
  PosFinalVip = bytes.length() - 1;
  std::int64_t pos = 97;
  while (pos < PosFinalVip) {
    while (pos <= PosFinalVip && !(bytes.read(pos) == ':' && bytes.read(pos + 1) == '\\')) ++pos;
    if (pos > PosFinalVip) break;
    found.push_back(pos - 1);
    pos += 2;
  }
  return found;
}

}  // namespace ordelan::test
