#include "project/left_out.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

namespace ordelan::test {
namespace {

using project::WhyOut;

TEST(LeftOut, each_reason_has_its_own_words) {
  const std::vector<std::pair<WhyOut, std::string>> all = {
      {WhyOut::no_audio, "no se ha encontrado audio en él"},
      {WhyOut::backup, "copia _BAK, no incluida"},
      {WhyOut::frozen, "en una carpeta FreezeData"},
      {WhyOut::unnamed, "su nombre no cabe en la página de códigos"},
      {WhyOut::linked, "carpeta enlazada: no se mira"},
      {WhyOut::unreadable, "no se puede leer: bloqueado o sin permiso"},
      {WhyOut::broken, "no se ha podido leer entero"},
      {WhyOut::gone, "ya no está"},
      {WhyOut::hidden, "oculto o de sistema"},
      {WhyOut::not_listed, "no está entre los proyectos abiertos o soltados"},
      {WhyOut::above, "en una carpeta más arriba"},
      {WhyOut::after_folder, "soltado con una carpeta que ya tenía proyectos"}};
  for (const auto& [why, words] : all) EXPECT_EQ(project::motivo(why), words);
}

TEST(LeftOut, a_path_keeps_its_first_reason_whatever_its_spelling) {
  work::WorkInHand work;
  project::LeftOut left_out(work);
  left_out.add("D:\\Mix\\tema.vip", WhyOut::frozen);
  left_out.add("d:\\MIX\\Tema.VIP", WhyOut::gone);
  left_out.add("D:\\Mix\\\\Sub\\..\\tema.vip", WhyOut::gone);
  left_out.add("D:\\Mix\\otro.vip", WhyOut::gone);
  ASSERT_EQ(work.ProyectosFuera.size(), 2u);
  EXPECT_EQ(work.ProyectosFuera[0].ruta, "D:\\Mix\\tema.vip");
  EXPECT_EQ(work.ProyectosFuera[0].motivo, project::motivo(WhyOut::frozen));
  EXPECT_EQ(work.ProyectosFuera[1].ruta, "D:\\Mix\\otro.vip");
  EXPECT_TRUE(left_out.holds("D:\\mix\\TEMA.vip"));
  EXPECT_FALSE(left_out.holds("D:\\Mix\\tema 2.vip"));
}

TEST(LeftOut, what_was_forgotten_can_be_left_out_again) {
  work::WorkInHand work;
  project::LeftOut left_out(work);
  left_out.add("D:\\tema.vip", WhyOut::frozen);
  left_out.clear();
  EXPECT_TRUE(work.ProyectosFuera.empty());
  EXPECT_FALSE(left_out.holds("D:\\tema.vip"));
  left_out.add("D:\\tema.vip", WhyOut::gone);
  ASSERT_EQ(work.ProyectosFuera.size(), 1u);
  EXPECT_EQ(work.ProyectosFuera[0].motivo, project::motivo(WhyOut::gone));
}

TEST(LeftOut, a_project_is_recognised_by_its_whole_extension_in_any_case) {
  for (const char* name : {"a.vip", "A.VIP", ".vip", "D:\\x\\a.b.Vip"}) {
    EXPECT_TRUE(project::is_project_name(name)) << name;
  }
  for (const char* name : {"", "vip", "avip", "a.vip2", "a.vi", "a.vip.old"}) {
    EXPECT_FALSE(project::is_project_name(name)) << name;
  }
}

}  // namespace
}  // namespace ordelan::test
