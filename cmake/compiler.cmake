# What every target is compiled with. `ordelan_options` is linked by our own targets only, so that
# GoogleTest and the like keep their own warnings.
add_library(ordelan_options INTERFACE)
target_include_directories(ordelan_options INTERFACE ${CMAKE_SOURCE_DIR}/src)

if(MSVC)
  # Sources are UTF-8, the program's own texts are bytes of the Windows-1252 code page.
  target_compile_options(ordelan_options INTERFACE
    /W4 /WX /permissive- /utf-8 /execution-charset:windows-1252)
else()
  target_compile_options(ordelan_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Woverloaded-virtual
    # The interfaces of Windows have no virtual destructor: their objects delete themselves.
    $<$<NOT:$<BOOL:${WIN32}>>:-Wnon-virtual-dtor>
    -Werror)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ordelan_options INTERFACE
      -finput-charset=UTF-8 -fexec-charset=WINDOWS-1252
      # Both warn falsely about std::optional and std::string in GCC 12.
      -Wno-maybe-uninitialized -Wno-restrict)
  endif()
endif()

if(WIN32)
  target_compile_definitions(ordelan_options INTERFACE
    UNICODE _UNICODE NOMINMAX WIN32_LEAN_AND_MEAN _WIN32_WINNT=0x0A00 WINVER=0x0A00)
  if(NOT MSVC)
    add_link_options($<$<CONFIG:Release>:-s>)
  endif()
endif()

if(ORDELAN_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
