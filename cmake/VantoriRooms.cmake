# A room is an include directory that shows only the folders a target may see,
# so that a forbidden #include does not compile.
function(vantori_room name)
  set(room "${CMAKE_BINARY_DIR}/rooms/${name}")
  file(REMOVE_RECURSE "${room}")  # what it showed before it may show no longer
  foreach(folder IN LISTS ARGN)
    get_filename_component(parent "${room}/${folder}" DIRECTORY)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${CMAKE_SOURCE_DIR}/${folder}" "${room}/${folder}" SYMBOLIC)
  endforeach()
  set(${name}_room "${room}" PARENT_SCOPE)
endfunction()
