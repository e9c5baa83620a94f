// The look of the controls of each window, as property bags: a section a control. What a control
// does not name keeps its default.
//
// Colours are named as in the palette ("$TextDim" is kTextDim). "Icon=abrir" makes a button of the
// pictures abrir, abrir_over, abrir_down and abrir_off.
#pragma once

#include <string>
#include <string_view>

namespace ordelan::skin {

inline constexpr std::string_view kLook = R"(
[Form1.Form1]
Picture=fondo_principal
MaskColor=$Mask
[Form1.AbrirFichero]
PictureAlign=3
Icon=abrir
ButtonColor=$Header
[Form1.cmdReset]
PictureAlign=3
Icon=vaciar
ButtonColor=$Header
[Form1.cmdCancelar]
PictureAlign=3
Icon=cancelar
ButtonColor=$Header
[Form1.CommandBorrado]
PictureAlign=3
Icon=borrar
ButtonColor=$Header
[Form1.cmdPerdidos]
PictureAlign=3
Icon=perdidos
ButtonColor=$Header
[Form1.cmdMinimizar]
PictureAlign=0
Icon=minimizar
ButtonColor=$Header
[Form1.Salir]
PictureAlign=0
Icon=cerrar
ButtonColor=$Header
[Form1.SalvaListados]
BackColor=$Header
ForeColor=$TextDim
[Form1.ActualizarVip]
BackColor=$Header
ForeColor=$TextDim
[Form1.Configurar]
BackColor=$Header
ForeColor=$TextDim
[Form1.AcercaDe]
BackColor=$Header
ForeColor=$TextDim
[Form1.cmdSalir]
BackColor=$Header
ForeColor=$TextDim
[Form1.LabelFuera]
ForeColor=$Step4
[Form1.LabelCheck(0)]
FontBold=true
[Form1.LabelCheck(1)]
ForeColor=$TextDim
[Form1.LabelCount(0)]
FontBold=true
[Form1.LabelCount(1)]
ForeColor=$TextDim
[Form1.LabelAdd(0)]
FontBold=true
[Form1.LabelAdd(1)]
ForeColor=$TextDim
[Form1.LabelErase(0)]
FontBold=true
[Form1.LabelErase(1)]
FontBold=true
[Form1.ImagePaso(0)]
Picture=paso_1
[Form1.TextNum1(0)]
ForeColor=$Text
[Form1.ImagePaso(1)]
Picture=paso_2
[Form1.TextNum1(1)]
ForeColor=$Text
[Form1.ImagePaso(2)]
Picture=paso_3
[Form1.TextNum1(2)]
ForeColor=$Text
[Form1.ImagePaso(3)]
Picture=paso_4
[Form1.TextNum1(3)]
ForeColor=$Text
[Form1.ListProyectosInfo]
Picture=soltar
BackColor=$Surface
ForeColor=$TextDim
[Form1.ShowIco]
Picture=logo
[Form1.ImageIcon]
Picture=proyecto
[Form1.LabelD]
ForeColor=$TextDim
[Form1.LabelAviso]
ForeColor=$Accent
[Perdidos.Perdidos]
Picture=fondo_perdidos
MaskColor=$Mask
[Perdidos.Label1]
BackColor=$Header
[Perdidos.Button2]
PictureAlign=0
Icon=minimizar
ButtonColor=$Header
[Perdidos.Salir]
PictureAlign=0
Icon=cerrar
ButtonColor=$Header
[Perdidos.cmdSalir]
PictureAlign=3
Icon=salir
ButtonColor=$Ground
[Perdidos.cmdLog]
PictureAlign=3
Icon=salvar
ButtonColor=$Ground
[Perdidos.TextEncontrados]
ForeColor=$TextDim
[Fuera.Fuera]
Picture=fondo_fuera
MaskColor=$Mask
[Fuera.Label1]
BackColor=$Header
[Fuera.Button2]
PictureAlign=0
Icon=minimizar
ButtonColor=$Header
[Fuera.Salir]
PictureAlign=0
Icon=cerrar
ButtonColor=$Header
[Fuera.cmdSalir]
PictureAlign=3
Icon=salir
ButtonColor=$Ground
[Fuera.LabelNota]
ForeColor=$Step4
[Acerca.Acerca]
Picture=fondo_acerca
MaskColor=$Mask
[Acerca.LabelNombre]
BackColor=$Header
[Acerca.ImageLogo]
Picture=logo_acerca
[Acerca.LabelVersion]
ForeColor=$TextDim
[Acerca.LabelWeb]
ForeColor=$Accent
[Acerca.cmdSalir]
PictureAlign=3
Icon=cerrar
ButtonColor=$Ground
[ElegirRuta.Label1]
ForeColor=$Text
[UnidadesBuscar.cmdSalir]
Icon=cerrar
[UnidadesBuscar.Label2]
ForeColor=$TextDim
)";

// The text of property bags that `look` stands for: with the words of colours in place of their
// names, and the five properties in place of each icon. A colour that the palette does not have
// stays as it is written, which is no colour.
std::string bags_of(std::string_view look);

}  // namespace ordelan::skin
