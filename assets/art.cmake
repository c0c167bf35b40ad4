# The optional target "art" rebuilds the committed pictures and music from their sources.
#
# It is never part of the default build: packing takes the committed files, so neither POV-Ray nor
# numpy is needed to build and play. The target exists only where all of its programs do.

find_program(TOLVA_ART_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH)
find_program(TOLVA_POVRAY povray)
find_program(TOLVA_OGGENC oggenc)
mark_as_advanced(TOLVA_ART_PYTHON TOLVA_POVRAY TOLVA_OGGENC)

# Checking the pictures needs nothing else.
set(TOLVA_ART_PYTHON_READY FALSE CACHE INTERNAL "Python has numpy and Pillow")
if(TOLVA_ART_PYTHON)
  execute_process(COMMAND ${TOLVA_ART_PYTHON} -c "import numpy, PIL"
                  RESULT_VARIABLE tolva_art_python_lacks_modules OUTPUT_QUIET ERROR_QUIET)
  if(tolva_art_python_lacks_modules EQUAL 0)
    set(TOLVA_ART_PYTHON_READY TRUE CACHE INTERNAL "Python has numpy and Pillow")
  endif()
endif()

if(TOLVA_ART_PYTHON_READY AND TOLVA_POVRAY AND TOLVA_OGGENC)
  add_custom_target(art
    COMMAND ${CMAKE_CURRENT_LIST_DIR}/art/make_art.py
    COMMENT "Rebuilding the pictures and the music"
    USES_TERMINAL VERBATIM)
endif()
