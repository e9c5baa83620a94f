# Renders one drawing at every scale, as NAME_100.png and so on. A drawing in "currentColor" is
# rendered in each tint as well: NAME_100.png in the colour of text, NAME_over_100.png,
# NAME_down_100.png and NAME_off_100.png. The build calls it with RSVG_CONVERT, DRAWING, NAME,
# FOLDER and PALETTE, the header with the colours.
file(READ ${DRAWING} content)
file(READ ${PALETTE} palette)
if(NOT content MATCHES " width=\"([0-9]+)\" height=\"([0-9]+)\"")
  message(FATAL_ERROR "${DRAWING}: no width and height in whole units")
endif()
set(width ${CMAKE_MATCH_1})
set(height ${CMAKE_MATCH_2})

function(render drawing name)
  foreach(scale 100 125 150 175 200)
    # Rounded as the program rounds its layout.
    math(EXPR wide "(${width} * ${scale} + 50) / 100")
    math(EXPR high "(${height} * ${scale} + 50) / 100")
    execute_process(COMMAND ${RSVG_CONVERT} -w ${wide} -h ${high}
      -o ${FOLDER}/${name}_${scale}.png ${drawing} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
      message(FATAL_ERROR "${DRAWING} could not be rendered")
    endif()
  endforeach()
endfunction()

function(render_in constant name)
  if(NOT palette MATCHES " ${constant} = word\\(0x([0-9A-F]+)\\)")
    message(FATAL_ERROR "${PALETTE}: no colour ${constant}")
  endif()
  string(REPLACE "currentColor" "#${CMAKE_MATCH_1}" tinted "${content}")
  file(WRITE ${FOLDER}/${name}.svg "${tinted}")
  render(${FOLDER}/${name}.svg ${name})
endfunction()

if(content MATCHES "currentColor")
  render_in(kText ${NAME})
  render_in(kTextOver ${NAME}_over)
  render_in(kAccent ${NAME}_down)
  render_in(kTextOff ${NAME}_off)
else()
  render(${DRAWING} ${NAME})
endif()
