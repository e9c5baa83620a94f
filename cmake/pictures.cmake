# The skin's pictures: each drawing of src/skin/pictures becomes a PNG for every scale of the
# screen, and icons one for every tint too; a resource script, pictures.rc, names them all. Only
# drawings that changed are rendered again.
find_program(RSVG_CONVERT rsvg-convert)
# On Windows, "convert" is a program of the system's own.
if(CMAKE_HOST_WIN32)
  find_program(IMAGE_MAGICK magick)
else()
  find_program(IMAGE_MAGICK NAMES magick convert)
endif()
if(NOT RSVG_CONVERT OR NOT IMAGE_MAGICK)
  message(FATAL_ERROR "The Windows build draws its pictures with rsvg-convert and ImageMagick: "
    "install both (on Debian: scripts/install windows) and configure again")
endif()

set(pictures_source ${CMAKE_SOURCE_DIR}/src/skin/pictures)
set(pictures_folder ${CMAKE_BINARY_DIR}/pictures)
set(pictures_palette ${CMAKE_SOURCE_DIR}/src/skin/palette.h)
set(pictures_script ${CMAKE_SOURCE_DIR}/cmake/render_picture.cmake)
file(MAKE_DIRECTORY ${pictures_folder})

set(pictures_rc "// Made by the build from the drawings in src/skin/pictures.\n1 ICON \"ordelan.ico\"\n")
set(pictures_rendered)
file(GLOB drawings CONFIGURE_DEPENDS ${pictures_source}/*.svg)
foreach(drawing ${drawings})
  get_filename_component(name ${drawing} NAME_WE)
  if(name MATCHES "^icono")
    continue()
  endif()
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${drawing})
  file(READ ${drawing} content)
  set(tints plain)
  set(used ${drawing} ${pictures_script})
  if(content MATCHES "currentColor")
    set(tints plain over down off)
    list(APPEND used ${pictures_palette})
  endif()
  set(outputs)
  foreach(tint ${tints})
    string(REPLACE "_plain" "" tinted "${name}_${tint}")
    foreach(scale 100 125 150 175 200)
      string(APPEND pictures_rc "${tinted}_${scale} PNG \"${tinted}_${scale}.png\"\n")
      list(APPEND outputs ${pictures_folder}/${tinted}_${scale}.png)
    endforeach()
  endforeach()
  add_custom_command(OUTPUT ${outputs} DEPENDS ${used} VERBATIM
    COMMENT "Rendering the picture ${name}"
    COMMAND ${CMAKE_COMMAND} -DRSVG_CONVERT=${RSVG_CONVERT} -DDRAWING=${drawing} -DNAME=${name}
      -DFOLDER=${pictures_folder} -DPALETTE=${pictures_palette} -P ${pictures_script})
  list(APPEND pictures_rendered ${outputs})
endforeach()

# The program's icon. At its two smallest sizes it is a simpler drawing, made for those pixels.
set(icon_parts)
set(icon_drawings)
set(icon_commands)
foreach(size 16 20 24 32 48 64 128 256)
  set(drawing ${pictures_source}/icono.svg)
  if(EXISTS ${pictures_source}/icono_${size}.svg)
    set(drawing ${pictures_source}/icono_${size}.svg)
  endif()
  set(part ${pictures_folder}/icono_${size}.png)
  list(APPEND icon_parts ${part})
  list(APPEND icon_drawings ${drawing})
  list(APPEND icon_commands COMMAND ${RSVG_CONVERT} -w ${size} -h ${size} -o ${part} ${drawing})
endforeach()
list(REMOVE_DUPLICATES icon_drawings)
add_custom_command(OUTPUT ${pictures_folder}/ordelan.ico DEPENDS ${icon_drawings} VERBATIM
  BYPRODUCTS ${icon_parts} COMMENT "Rendering the program's icon"
  ${icon_commands} COMMAND ${IMAGE_MAGICK} ${icon_parts} ${pictures_folder}/ordelan.ico)
list(APPEND pictures_rendered ${pictures_folder}/ordelan.ico)

file(CONFIGURE OUTPUT ${pictures_folder}/pictures.rc CONTENT "${pictures_rc}" @ONLY)
add_custom_target(ordelan_pictures DEPENDS ${pictures_rendered})

# Gives a program the pictures. `script` is one of its resource scripts: pictures.rc itself, or one
# that includes it.
function(ordelan_use_pictures target script)
  target_include_directories(${target} PRIVATE ${pictures_folder})
  set_source_files_properties(${script} PROPERTIES
    OBJECT_DEPENDS "${pictures_folder}/pictures.rc;${pictures_rendered}")
  add_dependencies(${target} ordelan_pictures)
endfunction()
