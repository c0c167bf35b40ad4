# What all targets share: warnings, sanitizers, the libraries from Debian, and one function per kind of target.

find_package(CLI11 REQUIRED)
find_package(PNG REQUIRED)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
if(TOLVA_CLIENT)
  find_package(PkgConfig REQUIRED)
  pkg_check_modules(SDL REQUIRED IMPORTED_TARGET sdl)
  pkg_check_modules(SDL_IMAGE REQUIRED IMPORTED_TARGET SDL_image)
  pkg_check_modules(SDL_TTF REQUIRED IMPORTED_TARGET SDL_ttf)
  pkg_check_modules(SDL_MIXER REQUIRED IMPORTED_TARGET SDL_mixer)
  pkg_check_modules(SDL_NET REQUIRED IMPORTED_TARGET SDL_net)
endif()

add_library(tolva_options INTERFACE)
target_compile_options(tolva_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
if(TOLVA_WERROR)
  target_compile_options(tolva_options INTERFACE -Werror)
endif()
target_include_directories(tolva_options INTERFACE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(tolva_options INTERFACE Threads::Threads)
target_compile_definitions(tolva_options INTERFACE
  TOLVA_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
  TOLVA_VERSION_MINOR=${PROJECT_VERSION_MINOR}
  TOLVA_VERSION_BUGFIX=${PROJECT_VERSION_PATCH})
if(TOLVA_SANITIZE)
  target_compile_options(tolva_options INTERFACE
    -fsanitize=${TOLVA_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer -g1)
  target_link_options(tolva_options INTERFACE -fsanitize=${TOLVA_SANITIZE})
endif()
if(TOLVA_FUZZ)
  # The fuzzer finds its way by the branches it sees taken, so all our code reports them.
  target_compile_options(tolva_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# Not part of a normal build: compiles every header alone, and all headers of a folder together, so that each names all that
# it needs and no two of a level define the same thing in two ways.
add_custom_target(headers)

# tolva_check_headers(NAME USES lib ...): the headers of the current folder.
function(tolva_check_headers name)
  cmake_parse_arguments(ARG "" "" "USES" ${ARGN})
  file(GLOB headers CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*.h)
  set(together "")
  set(sources ${CMAKE_CURRENT_BINARY_DIR}/headers/all.cpp)
  foreach(header IN LISTS headers)
    cmake_path(GET header STEM stem)
    # Twice, so that a header without an include guard fails.
    file(CONFIGURE OUTPUT headers/${stem}.cpp CONTENT "#include \"${header}\"\n#include \"${header}\"\n")
    list(APPEND sources ${CMAKE_CURRENT_BINARY_DIR}/headers/${stem}.cpp)
    string(APPEND together "#include \"${header}\"\n")
  endforeach()
  file(CONFIGURE OUTPUT headers/all.cpp CONTENT "${together}")
  add_library(${name}_headers OBJECT EXCLUDE_FROM_ALL ${sources})
  target_link_libraries(${name}_headers PRIVATE tolva_options ${ARG_USES})
  target_compile_options(${name}_headers PRIVATE -O0)
  add_dependencies(headers ${name}_headers)
endfunction()

# tolva_library(NAME SOURCES a.cpp ... USES lib ...): one source folder as a library that names all it may use.
function(tolva_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tolva_options ${ARG_USES})
  tolva_check_headers(${name} USES ${name})
endfunction()

# tolva_program(NAME SOURCES a.cpp ... USES lib ...)
function(tolva_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tolva_options ${ARG_USES})
endfunction()
