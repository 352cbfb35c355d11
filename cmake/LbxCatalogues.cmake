# lbx_catalogues(ROOT GEN): the chapters and what the generator writes for them.
# Every folder of ROOT with a routines.toml is a chapter of the library; its
# routines-<part>.toml files are catalogues of the same chapter, each with a
# translation unit of its own.  Sets LBX_CATALOGUES, LBX_CHAPTERS,
# LBX_ENTRY_SOURCES (the generated entry sources) and LBX_CATALOGUE_OUTPUTS
# (those and the chapter headers).
macro(lbx_catalogues root gen)
  file(GLOB LBX_CATALOGUES CONFIGURE_DEPENDS ${root}/*/routines.toml ${root}/*/routines-*.toml)
  set(LBX_CHAPTERS)
  set(LBX_ENTRY_SOURCES)
  set(LBX_CATALOGUE_OUTPUTS)
  foreach(cat ${LBX_CATALOGUES})
    get_filename_component(dir ${cat} DIRECTORY)
    get_filename_component(chapter ${dir} NAME)
    get_filename_component(stem ${cat} NAME_WE)
    if(NOT chapter IN_LIST LBX_CHAPTERS)
      list(APPEND LBX_CHAPTERS ${chapter})
      list(APPEND LBX_CATALOGUE_OUTPUTS ${gen}/gen/${chapter}.hpp ${gen}/gen/${chapter}_entries.hpp)
    endif()
    list(APPEND LBX_ENTRY_SOURCES ${gen}/gen/${chapter}_${stem}.cpp)
  endforeach()
  list(APPEND LBX_CATALOGUE_OUTPUTS ${LBX_ENTRY_SOURCES})
endmacro()
