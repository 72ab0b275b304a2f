# The folders of the library and of the phone, each list from the lowest: a folder includes only itself
# and those before it. This is the one place that says so; scripts/check-floors and scripts/floor-map read
# it too.
set(library_floors platform settings toggles pages toolbar hooks)
set(simulator_floors runtime foundation rendering uikit loader hardware services springboard
  scenario phone restless live window serve demo)
# Floors of many small files, of which several are compiled at once: what they include costs more than what
# they say. A name in an unnamed namespace is the only one of its floor there.
set(floors_in_batches runtime foundation rendering uikit loader services scenario phone live serve)

# vantori_floors(NAME OPTIONS FLOOR... [BELOW FOLDER...]): an object library NAME_FLOOR for each folder,
# compiled with OPTIONS, whose room shows that folder, those before it and those BELOW, which are built
# elsewhere; and NAME, which brings the objects of all and sees everything. The lowest floor compiles the
# common headers for those above it.
function(vantori_floors name options)
  cmake_parse_arguments(PARSE_ARGV 2 floors "" "" "BELOW")
  set(shown ${floors_BELOW})
  set(objects "")
  foreach(floor IN LISTS floors_UNPARSED_ARGUMENTS)
    list(APPEND shown "${floor}")
    get_filename_component(folder "${floor}" NAME)
    vantori_room(${name}_${folder} ${shown})
    file(GLOB_RECURSE sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${floor}/*.cpp")
    add_library(${name}_${folder} OBJECT ${sources})
    target_include_directories(${name}_${folder} PRIVATE "${${name}_${folder}_room}")
    target_link_libraries(${name}_${folder} PRIVATE ${options})
    if(folder IN_LIST floors_in_batches)
      set_target_properties(${name}_${folder} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 6)
    endif()
    if(NOT DEFINED lowest)
      set(lowest ${name}_${folder})
      target_precompile_headers(${lowest} PRIVATE ${vantori_precompiled})
    elseif(vantori_precompiled)
      target_precompile_headers(${name}_${folder} REUSE_FROM ${lowest})
    endif()
    list(APPEND objects "$<TARGET_OBJECTS:${name}_${folder}>")
    set(room "${${name}_${folder}_room}")
  endforeach()
  add_library(${name} INTERFACE)
  target_sources(${name} INTERFACE ${objects})
  target_include_directories(${name} INTERFACE "${room}")
  set(${name}_room "${room}" PARENT_SCOPE)
  set(${name}_objects "${objects}" PARENT_SCOPE)
endfunction()
