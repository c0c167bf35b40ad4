# What all targets share: warnings, sanitizers, the libraries from Debian, and one function per kind of target.

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(ZLIB REQUIRED)
pkg_check_modules(SDL REQUIRED IMPORTED_TARGET sdl)
pkg_check_modules(SDL_IMAGE REQUIRED IMPORTED_TARGET SDL_image)
pkg_check_modules(SDL_TTF REQUIRED IMPORTED_TARGET SDL_ttf)
pkg_check_modules(SDL_MIXER REQUIRED IMPORTED_TARGET SDL_mixer)
pkg_check_modules(SDL_NET REQUIRED IMPORTED_TARGET SDL_net)

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

# tolva_library(NAME SOURCES a.cpp ... USES lib ...): one source folder as a library that names all it may use.
function(tolva_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  target_link_libraries(${name} PUBLIC tolva_options ${ARG_USES})
endfunction()

# tolva_program(NAME SOURCES a.cpp ... USES lib ...)
function(tolva_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_link_libraries(${name} PRIVATE tolva_options ${ARG_USES})
endfunction()
