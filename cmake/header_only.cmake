# The console program's option parser (CLI11) and JSON library (nlohmann), both header-only.
# Packages put them among the system's headers, which a cross compiler must not see: it gets a
# folder that holds just these two.
add_library(ordelan_console_headers INTERFACE)
if(CMAKE_CROSSCOMPILING)
  foreach(package CLI nlohmann)
    if(NOT EXISTS /usr/include/${package})
      message(FATAL_ERROR "/usr/include/${package} is missing: run scripts/install first")
    endif()
    file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/header_only)
    file(CREATE_LINK /usr/include/${package} ${CMAKE_BINARY_DIR}/header_only/${package} SYMBOLIC)
  endforeach()
  target_include_directories(ordelan_console_headers SYSTEM INTERFACE
    ${CMAKE_BINARY_DIR}/header_only)
else()
  find_package(CLI11 REQUIRED)
  find_package(nlohmann_json REQUIRED)
  target_link_libraries(ordelan_console_headers INTERFACE CLI11::CLI11
    nlohmann_json::nlohmann_json)
endif()
