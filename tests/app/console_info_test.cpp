// `ordelan info`: what is read of one audio file.
#include "app/console_fixture.h"
#include "audio/details_bench.h"

namespace ordelan::test {
namespace {

using ::testing::HasSubstr;

struct ConsoleInfo : Console {
  static std::string second() { return wav_header(1, 8000, 16, 16000) + std::string(16000, '\1'); }
};

TEST_F(ConsoleInfo, prints_the_block_and_below_it_the_details) {
  disk.write("Mix\\Canci\xF3n.wav", second() + chunk("LIST", "INFO" + chunk("INAM", "Canci\xF3n") +
                                                                 chunk("IKEY", "a\tb")));
  const auto result = run("info 'D:\\Mix\\Canci\xC3\xB3n.wav'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.error, "");
  EXPECT_EQ(result.output,
            " Tipo: Wav\n Canales: 1\n Frec: 8000\n Bits: 16\n"
            "  Duraci\xC3\xB3n: 1.000 seg\n  Canales: 1\n  Frecuencia: 8000 Hz\n  Bits: 16\n"
            "  Velocidad: 128000 bits/s\n  T\xC3\xADtulo: Canci\xC3\xB3n\n  keywords: a b\n");
}

TEST_F(ConsoleInfo, json_has_the_text_as_it_is_and_the_details) {
  disk.write("a.wav", second());
  const auto result = run("--json info 'D:\\a.wav'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.json(),
            Json({{"TextoToolTip", " Tipo: Wav\r\n Canales: 1\r\n Frec: 8000\r\n Bits: 16\r\n"},
                  {"detalles",
                   {{"duracion", 1.0},
                    {"canales", 1},
                    {"frecuencia", 8000},
                    {"bits", 16},
                    {"velocidad", 128000},
                    {"etiquetas", Json::object()}}}}));
}

TEST_F(ConsoleInfo, json_keeps_zeros_inside_of_a_tag) {
  disk.write("a.mp3", mp3_frames(3) + tag_block(std::string("a\0b", 3), "", "\xC1lbum", ""));
  const auto result = run("info --json 'D:\\a.mp3'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_THAT(result.output, HasSubstr("a\\u0000b\\r\\n"));
  EXPECT_EQ(result.json()["TextoToolTip"],
            Json(std::string("Album: \xC3\x81lbum\r\nArtista: --------   \r\n"
                             "Comentarios: --------   \r\nT\xC3\xADtulo: a") +
                 std::string(1, '\0') + "b\r\n"));
  EXPECT_EQ(
      result.json()["detalles"]["etiquetas"],
      Json({{"title", "a"}, {"album", "\xC3\x81lbum"}, {"date", "1999"}, {"genre", "Other"}}));
  EXPECT_EQ(result.json()["detalles"]["bits"], nullptr);
}

TEST_F(ConsoleInfo, the_extension_may_have_capitals) {
  disk.write("A.WAV", second());
  EXPECT_THAT(run("info 'D:\\A.WAV'").output, HasSubstr(" Tipo: Wav\n"));
  disk.write("A.Mp3", std::string(300, '.') + tag_block("Tema", "", "", ""));
  EXPECT_EQ(run("info 'D:\\A.Mp3'").output,
            "Album: --------   \nArtista: --------   \nComentarios: --------   \n"
            "T\xC3\xADtulo: Tema\n");
}

TEST_F(ConsoleInfo, a_file_without_information_is_no_failure) {
  disk.write("a.txt", "hello");
  const auto result = run("info 'D:\\a.txt'");
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.output, "No tiene informaci\xC3\xB3n\n");
  disk.write("x", "");
  EXPECT_EQ(run("info 'D:\\x'").exit_code, 0) << "a name shorter than an extension";
}

TEST_F(ConsoleInfo, a_missing_file_gives_2) {
  disk.make_folder("a.wav");
  for (const char* wrong : {"info 'D:\\none.wav'", "info 'D:\\a.wav'", "info", "info /none.wav"}) {
    const auto result = run(wrong);
    EXPECT_EQ(result.exit_code, 2) << wrong;
    EXPECT_EQ(std::count(result.error.begin(), result.error.end(), '\n'), 1) << wrong;
    EXPECT_EQ(result.output, "") << wrong;
  }
}

TEST_F(ConsoleInfo, bytes_that_a_terminal_obeys_are_not_printed) {
  disk.write("a.mp3", mp3_frames(3) + tag_block("\x1B[2Jx", "a\x7F\r\nb", "c", "d"));
  const auto result = run("info 'D:\\a.mp3'");
  EXPECT_EQ(result.output.find('\x1B'), std::string::npos);
  EXPECT_EQ(result.output.find('\x7F'), std::string::npos);
  EXPECT_EQ(result.output.find('\r'), std::string::npos);
}

}  // namespace
}  // namespace ordelan::test
